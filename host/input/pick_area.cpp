#include "input/pick_area.h"

#include <algorithm>
#include <cctype>
#include <numbers>

#include "api/coordinate_systems.h"
#include "api/entity_values.h"
#include "db/value_text.h"
#include "input/drawing_variables.h"

namespace korva::input {
namespace {

// Blocks that hold themselves end here.
constexpr int kMaxNesting = 32;

std::string upperCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return result;
}

geom::SelectionRegion pickSquare(const double ucsPoint[3]) {
  double screen[3] = {1600, 900, 0};
  pointVariable("SCREENSIZE", screen);
  const double pixels = integerVariable("PICKBOX", 3);
  const double viewHeight = realVariable("VIEWSIZE", 297.0);
  const double half = screen[1] > 0 ? pixels * viewHeight / screen[1] : pixels;
  return geom::SelectionRegion::rectangle({ucsPoint[0] - half, ucsPoint[1] - half},
                                          {ucsPoint[0] + half, ucsPoint[1] + half});
}

bool isLineText(std::string_view type) {
  return type == "TEXT" || type == "MTEXT" || type == "ATTRIB" || type == "ATTDEF";
}

// Whether a point lies inside the closed outline of a text's box.
bool insideOutline(const geom::PlaneShape& shape, geom::Vec2 point) {
  if (shape.segments.size() < 3) return false;
  std::vector<geom::Vec2> corners;
  for (const geom::Segment2& segment : shape.segments) corners.push_back(segment.a);
  return geom::SelectionRegion::polygon(std::move(corners)).contains(point);
}

}  // namespace

geom::Affine3 worldToCurrentUcs(const db::Database& database) {
  const api::CoordinateSystem ucs = api::currentUcs(database);
  return geom::Affine3::fromAxes(ucs.xAxis, ucs.yAxis, ucs.zAxis, ucs.origin).inverse();
}

geom::Affine3 blockPlacement(db::Database& database, const db::Record& reference, int row,
                             int column) {
  const api::EntityValues values(reference);
  geom::Vec3 base;
  if (const db::BlockDefinition* block = database.block(values.text(2)); block && block->begin) {
    base = api::EntityValues(*block->begin).point(10);
  }
  const double degree = std::numbers::pi / 180.0;
  const geom::Vec3 cell{column * values.real(44), row * values.real(45), 0};
  return geom::objectToWorld(values.extrusion()) * geom::Affine3::translation(values.point(10)) *
         geom::Affine3::rotationZ(values.real(50) * degree) * geom::Affine3::translation(cell) *
         geom::Affine3::scaling(values.real(41, 1), values.real(42, 1), values.real(43, 1)) *
         geom::Affine3::translation(base * -1.0);
}

int referenceRows(const db::Record& reference) {
  return static_cast<int>(std::max(1LL, api::EntityValues(reference).integer(71, 1)));
}

int referenceColumns(const db::Record& reference) {
  return static_cast<int>(std::max(1LL, api::EntityValues(reference).integer(70, 1)));
}

PickArea::PickArea(db::Database& database, const double ucsPoint[3])
    : database_(database),
      worldToUcs_(worldToCurrentUcs(database)),
      center_{ucsPoint[0], ucsPoint[1]},
      region_(pickSquare(ucsPoint)) {
  if (db::Table* layers = database.table("LAYER")) {
    for (const db::Record* layer : layers->entries) {
      const bool frozen = (db::parseInteger(layer->find(70).value_or("0")).value_or(0) & 1) != 0;
      const bool off = db::parseInteger(layer->find(62).value_or("7")).value_or(7) < 0;
      if (frozen || off) hiddenLayers_.insert(upperCase(layer->find(2).value_or("")));
    }
  }
}

api::EntityOutliner PickArea::outliner(const geom::Affine3& blockToWorld) const {
  return api::EntityOutliner(database_, worldToUcs_ * blockToWorld);
}

bool PickArea::hits(api::EntityOutliner& outliner, const geom::Affine3& blockToWorld,
                    const db::Record& record, std::span<db::Record* const> followers,
                    int depth) const {
  if (record.type() == "INSERT") return referenceHits(blockToWorld, record, followers, depth);
  const geom::PlaneShape shape = outliner.outline(record, followers);
  if (shape.empty()) return false;
  if (region_.touches(shape)) return true;
  // A text is picked anywhere inside its box, not only on its edges.
  return isLineText(record.type()) && insideOutline(shape, center_);
}

bool PickArea::referenceHits(const geom::Affine3& blockToWorld, const db::Record& reference,
                             std::span<db::Record* const> followers, int depth) const {
  api::EntityOutliner attributes = outliner(blockToWorld);
  for (const db::Record* follower : followers) {
    if (follower->type() != "ATTRIB") break;
    if (!follower->isErased() && hits(attributes, blockToWorld, *follower, {}, depth)) return true;
  }
  if (depth >= kMaxNesting) return false;
  const db::BlockDefinition* block = database_.block(api::EntityValues(reference).text(2));
  if (!block) return false;
  const std::span<db::Record* const> entities(block->entities);
  const int rows = referenceRows(reference);
  const int columns = referenceColumns(reference);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const geom::Affine3 inner = blockToWorld * blockPlacement(database_, reference, row, column);
      api::EntityOutliner contents = outliner(inner);
      for (size_t i = 0; i < entities.size(); ++i) {
        const db::Record& entity = *entities[i];
        if (!shownInReferences(entity) || hiddenInReference(entity)) continue;
        if (hits(contents, inner, entity, entities.subspan(i + 1), depth + 1)) return true;
      }
    }
  }
  return false;
}

bool PickArea::onHiddenLayer(const db::Record& record) const {
  return !hiddenLayers_.empty() && hiddenLayers_.count(upperCase(record.find(8).value_or("0")));
}

bool PickArea::hiddenInReference(const db::Record& record) const {
  // Entities on layer 0 take the reference's layer, and the reference was seen.
  return record.find(8).value_or("0") != "0" && onHiddenLayer(record);
}

bool isSubEntity(const db::Record& record) {
  const std::string_view type = record.type();
  return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

bool shownInReferences(const db::Record& record) {
  // Attribute definitions show in references as their attributes.
  return !record.isErased() && !isSubEntity(record) && record.type() != "ATTDEF";
}

bool inCurrentSpace(const db::Database& database, const db::Record& record) {
  bool paper = false;
  for (const db::Group& group : record.groups()) {
    if (group.code == 67) {
      paper = group.value.find('1') != std::string_view::npos;
      break;
    }
    if (group.code == 100 && group.value != "AcDbEntity") break;  // the flag comes before
  }
  return paper == api::inPaperSpace(database);
}

}  // namespace korva::input
