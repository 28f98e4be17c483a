// Where records stand in a drawing: spaces, layouts, block definitions, layers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"

namespace korva::api {

// A block record of a layout: "*Model_Space" or "*Paper_Space..." .
bool isLayoutBlockName(std::string_view name);
// The record's owner when that is a BLOCK_RECORD, else null.
db::Record* owningBlockRecord(db::Database& database, const db::Record& record);
// An entity: a record owned by a block record, or by an entity (VERTEX, ATTRIB, SEQEND).
bool isEntity(db::Database& database, const db::Record& record);
// ATTRIB, VERTEX and SEQEND: parts of a complex entity.
bool isSubEntityType(std::string_view type);

// Entity lists in the order entities are walked: ENTITIES (model space and the active
// layout), then the other layouts' blocks.
std::vector<std::vector<db::Record*>*> layoutEntityLists(db::Database& database);

// The list holding an entity and its index there; the list is null when the record is
// not an entity of a space or a block definition.
struct EntityPlace {
  std::vector<db::Record*>* list = nullptr;
  size_t index = 0;
  db::BlockDefinition* block = nullptr;  // for entities of block definitions
};
EntityPlace placeOf(db::Database& database, const db::Record& record);

// Layout facts of an entity in model space or a layout.
struct LayoutOfEntity {
  bool inLayout = false;
  bool paperSpace = false;
  std::string_view layoutName;  // "Model" or the LAYOUT object's name
};
LayoutOfEntity layoutOf(db::Database& database, const db::Record& record);
// The name of the layout a paper-space block record belongs to.
std::string_view layoutNameOf(db::Database& database, const db::Record& blockRecord);

// The block record of the current space.
db::Record* currentSpaceRecord(db::Database& database);

// Layers
bool isLayerLocked(db::Database& database, std::string_view layerName);
// The layer, made with the usual groups when it is missing; null when the name is
// empty or the drawing has no layer table.
db::Record* ensureLayer(db::Database& database, std::string_view layerName);
// $CLAYER, "0" when unset.
std::string currentLayerName(const db::Database& database);

// Whether the drawing writes subclass markers (R13 and later).
bool hasSubclassMarkers(const db::Database& database);

}  // namespace korva::api
