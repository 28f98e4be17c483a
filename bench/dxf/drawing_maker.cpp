#include "drawing_maker.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "db/value_text.h"
#include "dxf/new_drawing.h"

namespace korva::bench {

namespace {

using db::OwnedGroup;

constexpr int kLayerCount = 50;
constexpr int kBlockCount = 12;
constexpr double kExtent = 5000.0;

// Small, fast and the same everywhere, unlike the standard distributions.
class Random {
 public:
  explicit Random(uint64_t seed) : state_(seed) {}
  uint64_t next() {
    uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }
  double unit() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }
  double between(double low, double high) { return low + (high - low) * unit(); }
  int between(int low, int high) {  // both ends included
    return low + static_cast<int>(next() % static_cast<uint64_t>(high - low + 1));
  }

 private:
  uint64_t state_;
};

std::string real(double value) {
  return db::formatReal(value);
}

const char* const kWords[] = {"DOOR",   "WINDOW", "WALL",     "STAIR", "BEAM",  "COLUMN",
                              "DUCT",   "PIPE",   "VALVE",    "PUMP",  "ROOM",  "FLOOR",
                              "OFFICE", "STORE",  "CORRIDOR", "LIFT",  "LOBBY", "PLANT"};

std::string words(Random& random, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    if (i) text += ' ';
    text += kWords[random.next() % std::size(kWords)];
  }
  return text;
}

class Maker {
 public:
  Maker(db::Database& database, uint64_t seed) : db_(database), random_(seed) {}

  void addLayers();
  void addBlocks();
  void addEntities(size_t count, DrawingCounts& counts);

 private:
  // The groups every entity starts with; the handle and owner are added by the database.
  std::vector<OwnedGroup> start(const std::string& layer, const char* subclass) {
    std::vector<OwnedGroup> groups;
    groups.reserve(16);
    groups.push_back({100, "AcDbEntity"});
    groups.push_back({8, layer});
    groups.push_back({100, subclass});
    return groups;
  }
  void point(std::vector<OwnedGroup>& groups, int code, double x, double y, double z = 0) {
    groups.push_back({code, real(x)});
    groups.push_back({code + 10, real(y)});
    groups.push_back({code + 20, real(z)});
  }
  const std::string& anyLayer() { return layers_[random_.next() % layers_.size()]; }

  void line();
  void circle();
  void arc();
  void polyline();
  void text();
  void mtext();
  size_t insert();

  db::Database& db_;
  Random random_;
  std::vector<std::string> layers_;
  struct Block {
    std::string name;
    std::vector<std::string> tags;
  };
  std::vector<Block> blocks_;
};

void Maker::addLayers() {
  db::Table* layers = db_.table("LAYER");
  for (int i = 0; i < kLayerCount; ++i) {
    std::string name = "LAYER_" + std::to_string(i);
    db_.addTableEntry(*layers, "LAYER",
                      {{100, "AcDbSymbolTableRecord"},
                       {100, "AcDbLayerTableRecord"},
                       {2, name},
                       {70, "0"},
                       {62, std::to_string(1 + i % 255)},
                       {6, "Continuous"},
                       {370, "-3"},
                       {390, "F"}});
    layers_.push_back(name);
  }
  // The table head counts its entries.
  layers->head->setValue(70, std::to_string(layers->entries.size()));
}

void Maker::addBlocks() {
  for (int i = 0; i < kBlockCount; ++i) {
    Block block{"TAGGED_" + std::to_string(i), {}};
    db::BlockDefinition* definition = db_.addBlock(block.name);
    // Some geometry, then the attribute definitions.
    std::vector<OwnedGroup> frame = start("0", "AcDbPolyline");
    frame.push_back({90, "4"});
    frame.push_back({70, "1"});
    frame.push_back({43, "0.0"});
    for (auto [x, y] :
         std::array<std::pair<double, double>, 4>{{{0, 0}, {20, 0}, {20, 8}, {0, 8}}}) {
      frame.push_back({10, real(x)});
      frame.push_back({20, real(y)});
    }
    db_.addEntity(std::move(frame), "LWPOLYLINE", definition);
    std::vector<OwnedGroup> mark = start("0", "AcDbCircle");
    point(mark, 10, 10, 4);
    mark.push_back({40, "1.5"});
    db_.addEntity(std::move(mark), "CIRCLE", definition);
    int tagCount = 2 + i % 3;
    for (int t = 0; t < tagCount; ++t) {
      std::string tag = "TAG" + std::to_string(t);
      std::vector<OwnedGroup> groups = start("0", "AcDbText");
      point(groups, 10, 1, 6 - 2 * t);
      groups.push_back({40, "1.25"});
      groups.push_back({1, "-"});
      groups.push_back({100, "AcDbAttributeDefinition"});
      groups.push_back({280, "0"});
      groups.push_back({3, "Value of " + tag});
      groups.push_back({2, tag});
      groups.push_back({70, "0"});
      db_.addEntity(std::move(groups), "ATTDEF", definition);
      block.tags.push_back(std::move(tag));
    }
    blocks_.push_back(std::move(block));
  }
}

void Maker::line() {
  std::vector<OwnedGroup> groups = start(anyLayer(), "AcDbLine");
  double x = random_.between(0.0, kExtent);
  double y = random_.between(0.0, kExtent);
  point(groups, 10, x, y);
  point(groups, 11, x + random_.between(-50.0, 50.0), y + random_.between(-50.0, 50.0));
  db_.addEntity(std::move(groups), "LINE");
}

void Maker::circle() {
  std::vector<OwnedGroup> groups = start(anyLayer(), "AcDbCircle");
  point(groups, 10, random_.between(0.0, kExtent), random_.between(0.0, kExtent));
  groups.push_back({40, real(random_.between(0.5, 40.0))});
  db_.addEntity(std::move(groups), "CIRCLE");
}

void Maker::arc() {
  std::vector<OwnedGroup> groups = start(anyLayer(), "AcDbCircle");
  point(groups, 10, random_.between(0.0, kExtent), random_.between(0.0, kExtent));
  groups.push_back({40, real(random_.between(0.5, 40.0))});
  groups.push_back({100, "AcDbArc"});
  groups.push_back({50, real(random_.between(0.0, 360.0))});
  groups.push_back({51, real(random_.between(0.0, 360.0))});
  db_.addEntity(std::move(groups), "ARC");
}

void Maker::polyline() {
  int vertices = random_.between(5, 20);
  std::vector<OwnedGroup> groups = start(anyLayer(), "AcDbPolyline");
  groups.reserve(6 + 2 * static_cast<size_t>(vertices));
  groups.push_back({90, std::to_string(vertices)});
  groups.push_back({70, random_.next() % 4 == 0 ? "1" : "0"});
  groups.push_back({43, "0.0"});
  double x = random_.between(0.0, kExtent);
  double y = random_.between(0.0, kExtent);
  for (int i = 0; i < vertices; ++i) {
    groups.push_back({10, real(x)});
    groups.push_back({20, real(y)});
    x += random_.between(-20.0, 20.0);
    y += random_.between(-20.0, 20.0);
  }
  db_.addEntity(std::move(groups), "LWPOLYLINE");
}

void Maker::text() {
  std::vector<OwnedGroup> groups = start(anyLayer(), "AcDbText");
  point(groups, 10, random_.between(0.0, kExtent), random_.between(0.0, kExtent));
  groups.push_back({40, "2.5"});
  groups.push_back({1, words(random_, random_.between(1, 4))});
  if (random_.next() % 3 == 0) groups.push_back({50, "90.0"});
  groups.push_back({100, "AcDbText"});
  db_.addEntity(std::move(groups), "TEXT");
}

void Maker::mtext() {
  std::vector<OwnedGroup> groups = start(anyLayer(), "AcDbMText");
  point(groups, 10, random_.between(0.0, kExtent), random_.between(0.0, kExtent));
  groups.push_back({40, "2.5"});
  groups.push_back({41, real(random_.between(20.0, 80.0))});
  groups.push_back({71, "1"});
  groups.push_back({72, "5"});
  groups.push_back({1, "{\\fArial|b1;" + words(random_, 2) + "}\\P" + words(random_, 5)});
  groups.push_back({73, "1"});
  groups.push_back({44, "1.0"});
  db_.addEntity(std::move(groups), "MTEXT");
}

size_t Maker::insert() {
  const Block& block = blocks_[random_.next() % blocks_.size()];
  const std::string& layer = anyLayer();
  std::vector<OwnedGroup> groups = start(layer, "AcDbBlockReference");
  groups.push_back({66, "1"});
  groups.push_back({2, block.name});
  double x = random_.between(0.0, kExtent);
  double y = random_.between(0.0, kExtent);
  point(groups, 10, x, y);
  double angle = random_.next() % 2 ? 0.0 : 90.0;
  if (angle != 0.0) groups.push_back({50, real(angle)});
  db::Record* reference = db_.addEntity(std::move(groups), "INSERT");
  std::string owner = db::formatHandle(reference->handle());
  double turn = angle * std::numbers::pi / 180.0;
  for (size_t t = 0; t < block.tags.size(); ++t) {
    // The attribute's place in the drawing: the definition's, moved with the insert.
    double dx = 1;
    double dy = 6.0 - 2.0 * static_cast<double>(t);
    std::vector<OwnedGroup> attribute;
    attribute.reserve(16);
    attribute.push_back({330, owner});
    attribute.push_back({100, "AcDbEntity"});
    attribute.push_back({8, layer});
    attribute.push_back({100, "AcDbText"});
    point(attribute, 10, x + dx * std::cos(turn) - dy * std::sin(turn),
          y + dx * std::sin(turn) + dy * std::cos(turn));
    attribute.push_back({40, "1.25"});
    attribute.push_back({1, words(random_, 1) + "-" + std::to_string(random_.next() % 1000)});
    if (angle != 0.0) attribute.push_back({50, real(angle)});
    attribute.push_back({100, "AcDbAttribute"});
    attribute.push_back({280, "0"});
    attribute.push_back({2, block.tags[t]});
    attribute.push_back({70, "0"});
    db_.addEntity(std::move(attribute), "ATTRIB");
  }
  db_.addEntity({{330, owner}, {100, "AcDbEntity"}, {8, layer}}, "SEQEND");
  return block.tags.size();
}

void Maker::addEntities(size_t count, DrawingCounts& counts) {
  for (size_t i = 0; i < count; ++i) {
    // Per thousand: 500 LINE, 110 CIRCLE, 90 ARC, 110 LWPOLYLINE, 80 TEXT, 50 MTEXT, 60 INSERT.
    uint64_t pick = random_.next() % 1000;
    if (pick < 500) {
      line();
      ++counts.lines;
    } else if (pick < 610) {
      circle();
      ++counts.circles;
    } else if (pick < 700) {
      arc();
      ++counts.arcs;
    } else if (pick < 810) {
      polyline();
      ++counts.polylines;
    } else if (pick < 890) {
      text();
      ++counts.texts;
    } else if (pick < 940) {
      mtext();
      ++counts.mtexts;
    } else {
      size_t attributes = insert();
      ++counts.inserts;
      counts.attributes += attributes;
      counts.records += attributes + 1;  // the attributes and the SEQEND
    }
    ++counts.entities;
    ++counts.records;
  }
}

}  // namespace

MadeDrawing makeDrawing(size_t entityCount, uint64_t seed) {
  MadeDrawing made;
  made.database = dxf::createNewDrawing();
  if (!made.database) return made;
  Maker maker(*made.database, seed);
  maker.addLayers();
  maker.addBlocks();
  maker.addEntities(entityCount, made.counts);
  return made;
}

}  // namespace korva::bench
