#include "record_places.h"

#include <algorithm>

#include "coordinate_systems.h"
#include "db/value_text.h"

namespace korva::api {
namespace {

bool startsWithName(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && db::sameName(text.substr(0, prefix.size()), prefix);
}

// Entity walks step from one entity to the next; remembering the last place found
// keeps such walks linear.
struct PlaceHint {
  const std::vector<db::Record*>* list = nullptr;
  size_t index = 0;
};
PlaceHint lastPlace;

}  // namespace

bool isLayoutBlockName(std::string_view name) {
  return db::sameName(name, "*Model_Space") || startsWithName(name, "*Paper_Space");
}

db::Record* owningBlockRecord(db::Database& database, const db::Record& record) {
  db::Record* owner = database.lookup(record.owner());
  return owner && owner->type() == "BLOCK_RECORD" ? owner : nullptr;
}

bool isSubEntityType(std::string_view type) {
  return type == "ATTRIB" || type == "VERTEX" || type == "SEQEND";
}

bool isEntity(db::Database& database, const db::Record& record) {
  if (owningBlockRecord(database, record)) return true;
  if (!isSubEntityType(record.type())) return false;
  db::Record* parent = database.lookup(record.owner());
  return parent && owningBlockRecord(database, *parent);
}

std::vector<std::vector<db::Record*>*> layoutEntityLists(db::Database& database) {
  std::vector<std::vector<db::Record*>*> lists;
  if (std::vector<db::Record*>* entities = database.entities()) lists.push_back(entities);
  if (db::Section* blocks = database.section(db::SectionKind::Blocks)) {
    for (db::BlockDefinition& block : blocks->blocks) {
      std::string_view name = block.name();
      if (startsWithName(name, "*Paper_Space") && !db::sameName(name, "*Paper_Space")) {
        lists.push_back(&block.entities);
      }
    }
  }
  return lists;
}

EntityPlace placeOf(db::Database& database, const db::Record& record) {
  EntityPlace place;
  const db::Record* main = &record;
  if (isSubEntityType(record.type())) {
    if (db::Record* parent = database.lookup(record.owner())) main = parent;
  }
  db::Record* blockRecord = owningBlockRecord(database, *main);
  if (!blockRecord) return place;
  std::string_view name = blockRecord->find(2).value_or("");
  if (db::sameName(name, "*Model_Space") || db::sameName(name, "*Paper_Space")) {
    place.list = database.entities();
  } else if (db::Section* blocks = database.section(db::SectionKind::Blocks)) {
    for (db::BlockDefinition& block : blocks->blocks) {
      if (block.begin && block.begin->owner() == blockRecord->handle()) {
        place.list = &block.entities;
        place.block = &block;
        break;
      }
    }
  }
  if (!place.list) return place;
  std::vector<db::Record*>& list = *place.list;
  if (lastPlace.list == place.list) {
    for (size_t index : {lastPlace.index, lastPlace.index + 1}) {
      if (index < list.size() && list[index] == &record) {
        place.index = index;
        lastPlace.index = index;
        return place;
      }
    }
  }
  auto found = std::find(list.begin(), list.end(), &record);
  if (found == list.end()) {
    place.list = nullptr;
    return place;
  }
  place.index = static_cast<size_t>(found - list.begin());
  lastPlace = {place.list, place.index};
  return place;
}

LayoutOfEntity layoutOf(db::Database& database, const db::Record& record) {
  LayoutOfEntity layout;
  const db::Record* main = &record;
  if (isSubEntityType(record.type())) {
    if (db::Record* parent = database.lookup(record.owner())) main = parent;
  }
  db::Record* blockRecord = owningBlockRecord(database, *main);
  if (!blockRecord) return layout;
  std::string_view name = blockRecord->find(2).value_or("");
  if (db::sameName(name, "*Model_Space")) {
    layout.inLayout = true;
    layout.layoutName = "Model";
  } else if (startsWithName(name, "*Paper_Space")) {
    layout.inLayout = true;
    layout.paperSpace = true;
    layout.layoutName = layoutNameOf(database, *blockRecord);
  }
  return layout;
}

std::string_view layoutNameOf(db::Database& database, const db::Record& blockRecord) {
  std::string_view name = "Layout1";
  std::optional<std::string_view> link = blockRecord.find(340);
  db::Record* object = database.lookup(db::parseHandle(link.value_or("")).value_or(0));
  if (!object || object->type() != "LAYOUT") return name;
  // The layout's name is the 1 of its AcDbLayout part; AcDbPlotSettings has one too.
  bool inLayoutPart = false;
  object->forEachGroup([&](const db::Group& group) {
    if (group.code == 100) inLayoutPart = group.value == "AcDbLayout";
    if (inLayoutPart && group.code == 1) {
      name = group.value;
      return false;
    }
    return true;
  });
  return name;
}

db::Record* currentSpaceRecord(db::Database& database) {
  return database.tableEntry("BLOCK_RECORD",
                             inPaperSpace(database) ? "*Paper_Space" : "*Model_Space");
}

bool isLayerLocked(db::Database& database, std::string_view layerName) {
  db::Record* layer = database.tableEntry("LAYER", layerName);
  if (!layer) return false;
  return (db::parseInteger(layer->find(70).value_or("0")).value_or(0) & 4) != 0;
}

db::Record* ensureLayer(db::Database& database, std::string_view layerName) {
  if (layerName.empty()) return nullptr;
  if (db::Record* layer = database.tableEntry("LAYER", layerName)) return layer;
  db::Table* layers = database.table("LAYER");
  if (!layers) return nullptr;
  std::vector<db::OwnedGroup> groups;
  bool markers = hasSubclassMarkers(database);
  if (markers) {
    groups.push_back({100, "AcDbSymbolTableRecord"});
    groups.push_back({100, "AcDbLayerTableRecord"});
  }
  groups.push_back({2, std::string(layerName)});
  groups.push_back({70, "0"});
  groups.push_back({62, "7"});
  groups.push_back({6, "Continuous"});
  if (markers) {
    groups.push_back({370, "-3"});
    // The plot style of a new layer is layer 0's.
    db::Record* layerZero = database.tableEntry("LAYER", "0");
    if (std::optional<std::string_view> plotStyle =
            layerZero ? layerZero->find(390) : std::nullopt) {
      groups.push_back({390, std::string(*plotStyle)});
    }
  }
  return database.addTableEntry(*layers, "LAYER", std::move(groups));
}

std::string currentLayerName(const db::Database& database) {
  std::string name(database.headerValue("$CLAYER", 8).value_or("0"));
  return name.empty() ? "0" : name;
}

bool hasSubclassMarkers(const db::Database& database) {
  return database.version() >= "AC1012";
}

}  // namespace korva::api
