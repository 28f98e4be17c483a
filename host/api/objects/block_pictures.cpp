#include "block_pictures.h"

#include <algorithm>
#include <numbers>

#include "api/transform_kinds.h"
#include "attribute_text.h"
#include "entity_transform.h"
#include "object_groups.h"
#include "object_state.h"
#include "old_polyline_transform.h"
#include "picture_copy.h"
#include "qx_db_entity.h"

namespace korva::api {

namespace {

using geom::Affine3;
using geom::Vec3;

constexpr double kDegree = std::numbers::pi / 180;
// Blocks that (wrongly) contain themselves end here.
constexpr int kDeepestNesting = 32;

bool hasMarker(const db::Record& record, std::string_view marker) {
  for (const db::Group& group : record.groups()) {
    if (group.code == 100 && group.value == marker) return true;
  }
  return false;
}

// The subclass part that holds a reference's placement; empty without markers.
std::string_view placementPart(const db::Record& record) {
  if (hasMarker(record, "AcDbMInsertBlock")) return "AcDbMInsertBlock";
  if (hasMarker(record, "AcDbBlockReference")) return "AcDbBlockReference";
  return {};
}

Vec3 pointOf(const db::Record& record, int code, std::string_view part, Vec3 fallback = {}) {
  double p[3] = {fallback.x, fallback.y, fallback.z};
  if (!groupPoint(record, code, p, part)) return fallback;
  return {p[0], p[1], p[2]};
}

Vec3 normalOf(const db::Record& record, std::string_view part) {
  Vec3 normal = pointOf(record, 210, part, {0, 0, 1});
  return geom::length(normal) > 0 ? geom::normalized(normal) : Vec3{0, 0, 1};
}

bool isDimension(std::string_view type) {
  return type == "DIMENSION" || type == "ARC_DIMENSION" || type == "LARGE_RADIAL_DIMENSION";
}

// What a block shows of itself when referenced: its constant attribute definitions,
// its visible entities, not the parts that follow their owners.
bool isShown(const db::Record& record) {
  std::string_view type = record.type();
  if (record.isErased() || type == "SEQEND" || type == "VERTEX") return false;
  if (groupInteger(record, 60, 0) == 1) return false;
  if (type == "ATTDEF") return (groupInteger(record, 70, 0) & 2) != 0;
  if (type == "ATTRIB") return (groupInteger(record, 70, 0) & 1) == 0;
  return true;
}

void addMappedBox(const geom::SpaceBox& local, const Affine3& map, geom::SpaceBox& box) {
  if (local.empty()) return;
  for (int corner = 0; corner < 8; ++corner) {
    box.add(
        map.point({corner & 1 ? local.max.x : local.min.x, corner & 2 ? local.max.y : local.min.y,
                   corner & 4 ? local.max.z : local.min.z}));
  }
}

// The box a view's class measures, when it measures one.
bool viewExtents(QxDbObject* view, geom::SpaceBox& local) {
  const QxDbEntity* entity = QxDbEntity::cast(view);
  QxDbExtents extents;
  bool measured = entity && entity->getGeomExtents(extents) == Qxad::eOk && !extents.isEmpty();
  if (measured) {
    local.add(Vec3{extents.minPoint().x, extents.minPoint().y, extents.minPoint().z});
    local.add(Vec3{extents.maxPoint().x, extents.maxPoint().y, extents.maxPoint().z});
  }
  delete view;
  return measured;
}

}  // namespace

Affine3 blockToWorld(Vec3 position, Vec3 normal, Vec3 scale, double rotation, Vec3 basePoint,
                     Vec3 gridOffset) {
  return geom::objectToWorld(normal) * Affine3::translation(position) *
         Affine3::rotationZ(rotation) * Affine3::translation(gridOffset) *
         Affine3::scaling(scale.x, scale.y, scale.z) * Affine3::translation(basePoint * -1);
}

Vec3 basePointOf(const db::BlockDefinition& block) {
  return block.begin ? pointOf(*block.begin, 10, {}) : Vec3{};
}

std::optional<BlockPicture> pictureOf(const db::Database& constDatabase, const db::Record& record) {
  auto& database = const_cast<db::Database&>(constDatabase);
  std::string_view type = record.type();
  BlockPicture picture;
  if (type == "INSERT" || type == "ACAD_TABLE") {
    std::string_view part = placementPart(record);
    picture.block = std::string(groupText(record, 2, part).value_or(""));
    db::BlockDefinition* block = database.block(picture.block);
    if (!block) return std::nullopt;
    Vec3 position = pointOf(record, 10, part);
    Vec3 normal = normalOf(record, part);
    Vec3 scale{groupReal(record, 41, 1, part), groupReal(record, 42, 1, part),
               groupReal(record, 43, 1, part)};
    double rotation = groupReal(record, 50, 0, part) * kDegree;
    bool grid = type == "INSERT";
    long long columns = grid ? std::max(1LL, groupInteger(record, 70, 1, part)) : 1;
    long long rows = grid ? std::max(1LL, groupInteger(record, 71, 1, part)) : 1;
    double columnSpacing = grid ? groupReal(record, 44, 0, part) : 0;
    double rowSpacing = grid ? groupReal(record, 45, 0, part) : 0;
    for (long long row = 0; row < rows; ++row) {
      for (long long column = 0; column < columns; ++column) {
        Vec3 offset{static_cast<double>(column) * columnSpacing,
                    static_cast<double>(row) * rowSpacing, 0};
        picture.placements.push_back(
            blockToWorld(position, normal, scale, rotation, basePointOf(*block), offset));
      }
    }
    return picture;
  }
  if (isDimension(type)) {
    picture.block = std::string(groupText(record, 2, "AcDbDimension").value_or(""));
    if (!database.block(picture.block)) return std::nullopt;
    // The block stands where it is drawn; a clone's insertion point moves it.
    Affine3 placement;
    double p[3];
    if (groupPoint(record, 12, p, "AcDbDimension")) {
      Vec3 normal = normalOf(record, "AcDbDimension");
      placement = Affine3::translation(geom::objectToWorld(normal).point({p[0], p[1], p[2]}));
    }
    picture.placements.push_back(placement);
    return picture;
  }
  return std::nullopt;
}

bool addBlockExtents(db::Database& database, std::string_view name, const Affine3& map,
                     geom::SpaceBox& box, int depth) {
  if (depth > kDeepestNesting) return false;
  db::BlockDefinition* block = database.block(name);
  if (!block) return true;
  bool complete = true;
  // The list can't change while its boxes are measured: copy it all the same, since a
  // view may open records.
  std::vector<db::Record*> records = block->entities;
  for (db::Record* record : records) {
    if (!isShown(*record)) continue;
    std::optional<BlockPicture> picture = pictureOf(database, *record);
    if (picture) {
      for (const Affine3& placement : picture->placements)
        complete =
            addBlockExtents(database, picture->block, map * placement, box, depth + 1) && complete;
      continue;
    }
    addEntityExtents(database, *record, map, box, depth);
  }
  return complete;
}

void addEntityExtents(db::Database& database, db::Record& record, const Affine3& map,
                      geom::SpaceBox& box, int depth) {
  if (std::optional<BlockPicture> picture = pictureOf(database, record)) {
    for (const Affine3& placement : picture->placements)
      addBlockExtents(database, picture->block, map * placement, box, depth + 1);
    return;
  }
  TransformedEntity moved;
  geom::SpaceBox local;
  if (transformEntity(record.type(), pieceGroups(record), map, moved)) {
    viewExtents(newDetachedView(database, moved.type, std::move(moved.groups)), box);
    return;
  }
  // Kinds that can't follow the map are measured in place.
  if (viewExtents(newRecordView(database, record), local)) addMappedBox(local, map, box);
}

namespace {

// The old-style polyline at `index` of a block's list and its vertices, as moved
// copies; false when the map can't carry them.
bool movedOldPolyline(const std::vector<db::Record*>& records, size_t index, const Affine3& map,
                      std::vector<db::OwnedGroup>& polyline,
                      std::vector<std::vector<db::OwnedGroup>>& vertices) {
  polyline = pieceGroups(*records[index]);
  for (size_t i = index + 1; i < records.size() && records[i]->type() == "VERTEX"; ++i) {
    if (!records[i]->isErased()) vertices.push_back(pieceGroups(*records[i]));
  }
  return transformOldPolylineGroups(polyline, vertices, map);
}

// A transformed copy of the old-style polyline at `index` of a block's list, carrying
// copies of its vertices and SEQEND into the database behind it; null when the map
// can't carry it.
QxDbEntity* explodedOldPolyline(const std::vector<db::Record*>& records, size_t index,
                                const Affine3& map) {
  std::vector<db::OwnedGroup> polyline;
  std::vector<std::vector<db::OwnedGroup>> vertices;
  if (!movedOldPolyline(records, index, map, polyline, vertices)) return nullptr;
  std::vector<db::OwnedGroup> end = {{100, "AcDbEntity"}};
  for (size_t i = index + 1; i < records.size(); ++i) {
    if (records[i]->type() == "SEQEND") end = pieceGroups(*records[i]);
    if (records[i]->type() != "VERTEX") break;
  }
  QxDbObject* object = newObjectLike("POLYLINE", std::move(polyline));
  QxDbEntity* entity = QxDbEntity::cast(object);
  if (!entity) {
    delete object;
    return nullptr;
  }
  auto& followers = QxDbObjectState::of(entity)->followers;
  for (std::vector<db::OwnedGroup>& vertex : vertices)
    followers.emplace_back("VERTEX", std::move(vertex));
  followers.emplace_back("SEQEND", std::move(end));
  return entity;
}

// A nested reference's attributes and SEQEND, after it at `index` of a block's list,
// moved with it and carried into the database behind its copy. False when the map
// can't carry one.
bool attachAttributes(const std::vector<db::Record*>& records, size_t index, const Affine3& map,
                      QxDbEntity& copy) {
  PictureEntities& followers = QxDbObjectState::of(&copy)->followers;
  size_t i = index + 1;
  for (; i < records.size() && records[i]->type() == "ATTRIB"; ++i) {
    if (records[i]->isErased()) continue;
    TransformedEntity moved;
    if (!transformEntity("ATTRIB", pieceGroups(*records[i]), map, moved)) return false;
    followers.emplace_back("ATTRIB", std::move(moved.groups));
  }
  if (followers.empty()) return true;
  bool ended = i < records.size() && records[i]->type() == "SEQEND";
  followers.emplace_back("SEQEND", ended ? pieceGroups(*records[i])
                                         : std::vector<db::OwnedGroup>{{100, "AcDbEntity"}});
  return true;
}

// A dimension draws its block where it stands: a moved copy of it needs a moved copy of
// the block, seen from its new place. The copy's entities, in block order; none for
// other kinds and for dimensions drawn from their values. False when the map can't
// carry one of them.
bool planPictureCopy(db::Database& database, const db::Record& original,
                     const std::vector<db::OwnedGroup>& moved, const Affine3& map,
                     PictureEntities& entities) {
  std::string_view type = original.type();
  if (type != "DIMENSION" && type != "ARC_DIMENSION" && type != "LARGE_RADIAL_DIMENSION")
    return true;
  std::optional<BlockPicture> before = pictureOf(database, original);
  std::optional<BlockPicture> after = pictureOf(database, db::Record(type, moved));
  db::BlockDefinition* block = before ? database.block(before->block) : nullptr;
  if (!block || !after || before->placements.size() != 1 || after->placements.size() != 1)
    return true;
  Affine3 contents = after->placements[0].inverse() * map * before->placements[0];
  return carryBlockEntities(database, block->name(), contents, entities);
}

// A new single-line text piece of the attribute (or constant definition) groups,
// carried through the map; null when it can't be.
QxDbEntity* textPiece(std::vector<db::OwnedGroup> attribute, const Affine3& map) {
  TransformedEntity moved;
  if (!transformEntity("TEXT", attributeAsText(attribute), map, moved)) return nullptr;
  QxDbObject* object = newObjectLike("TEXT", std::move(moved.groups));
  QxDbEntity* entity = QxDbEntity::cast(object);
  if (!entity) delete object;
  return entity;
}

// What the entity's class breaks it into, carried through the map as new pieces; false,
// with nothing added, when that is nothing or what the map can't carry.
bool explodeThroughClass(db::Database& database, db::Record& record, const Affine3& map,
                         std::vector<QxDbEntity*>& made) {
  QxDbObject* view = newRecordView(database, record);
  const QxDbEntity* entity = QxDbEntity::cast(view);
  QxDbVoidPtrArray parts;
  bool carried = entity && entity->explode(parts) == Qxad::eOk && parts.length() > 0;
  delete view;
  std::vector<QxDbEntity*> pieces;
  for (int i = 0; i < parts.length(); ++i) {
    auto* part = static_cast<QxDbEntity*>(parts[i]);
    db::Record& partRecord = recordOf(*part);
    TransformedEntity moved;
    if (carried && transformEntity(partRecord.type(), partRecord.ownedGroups(), map, moved)) {
      QxDbObject* object = newObjectLike(moved.type, std::move(moved.groups));
      if (QxDbEntity* piece = QxDbEntity::cast(object)) {
        pieces.push_back(piece);
      } else {
        delete object;
        carried = false;
      }
    } else {
      carried = false;
    }
    delete part;
  }
  if (!carried) {
    for (QxDbEntity* piece : pieces) delete piece;
    return false;
  }
  made.insert(made.end(), pieces.begin(), pieces.end());
  return true;
}

}  // namespace

void addPendingPicture(db::Database& database, QxDbEntity& entity) {
  QxDbObjectState* state = QxDbObjectState::of(&entity);
  if (state->pictureEntities.empty()) return;
  std::vector<BlockEntityCopy> entities;
  for (auto& [type, groups] : state->pictureEntities)
    entities.push_back({std::move(type), std::move(groups)});
  state->pictureEntities.clear();
  // Added to another drawing, where the block it came from is missing, the dimension
  // keeps naming its block.
  const db::BlockDefinition* source = database.block(state->pictureSource);
  if (!source) return;
  std::string name = addPictureCopy(database, *source, std::move(entities));
  if (!name.empty()) recordOf(entity).setValue(2, name);
}

bool explodeBlock(db::Database& database, std::string_view name, const Affine3& map,
                  std::vector<QxDbEntity*>& pieces, int depth) {
  db::BlockDefinition* block = database.block(name);
  if (!block || depth > kDeepestNesting) return false;
  std::vector<QxDbEntity*> made;
  auto fail = [&] {
    for (QxDbEntity* piece : made) delete piece;
    return false;
  };
  const std::vector<db::Record*>& records = block->entities;
  for (size_t index = 0; index < records.size(); ++index) {
    db::Record* record = records[index];
    if (record->isErased()) continue;
    std::string_view type = record->type();
    // Attributes of nested references and polyline parts follow their owner.
    if (type == "ATTRIB" || type == "SEQEND" || type == "VERTEX") continue;
    // A nested reference broken up shows its constant definitions as texts; the others
    // stand for its attributes, which come out as texts below.
    if (depth > 0 && type == "ATTDEF") {
      std::vector<db::OwnedGroup> groups = pieceGroups(*record);
      if (!isConstantDefinition(groups)) continue;
      QxDbEntity* text = textPiece(std::move(groups), map);
      if (!text) return fail();
      made.push_back(text);
      continue;
    }
    if (type == "POLYLINE") {
      QxDbEntity* copy = explodedOldPolyline(records, index, map);
      if (!copy) return fail();
      made.push_back(copy);
      continue;
    }
    TransformedEntity moved;
    if (transformEntity(type, pieceGroups(*record), map, moved)) {
      PictureEntities picture;
      if (!planPictureCopy(database, *record, moved.groups, map, picture)) return fail();
      QxDbObject* object = newObjectLike(moved.type, std::move(moved.groups));
      QxDbEntity* entity = QxDbEntity::cast(object);
      if (!entity) {
        delete object;
        return fail();
      }
      if (!picture.empty()) {
        QxDbObjectState* state = QxDbObjectState::of(entity);
        state->pictureSource = pictureOf(database, *record)->block;
        state->pictureEntities = std::move(picture);
      }
      made.push_back(entity);
      if (type == "INSERT" && !attachAttributes(records, index, map, *entity)) return fail();
      continue;
    }
    // A nested reference the map would skew: carry its block's entities instead. So too
    // for what can't keep its kind under a map that stretches unevenly (a dimension of a
    // circle, a multiline): it comes out as the shapes it shows, rather than the whole
    // block failing to explode.
    std::optional<BlockPicture> picture = pictureOf(database, *record);
    if (moved.cannotScaleNonUniformly && !picture) {
      if (!explodeThroughClass(database, *record, map, made)) return fail();
      continue;
    }
    if ((type != "INSERT" && !moved.cannotScaleNonUniformly) || !picture) return fail();
    for (const Affine3& placement : picture->placements) {
      if (!explodeBlock(database, picture->block, map * placement, made, depth + 1)) return fail();
    }
    // Its attributes would be lost with it: they come out as the texts they show.
    for (size_t i = index + 1; i < records.size() && records[i]->type() == "ATTRIB"; ++i) {
      if (records[i]->isErased()) continue;
      QxDbEntity* text = textPiece(pieceGroups(*records[i]), map);
      if (!text) return fail();
      made.push_back(text);
    }
  }
  pieces.insert(pieces.end(), made.begin(), made.end());
  return true;
}

bool transformBlockContents(db::Database& database, std::string_view name, const Affine3& map) {
  db::BlockDefinition* block = database.block(name);
  if (!block) return false;
  std::vector<std::pair<db::Record*, std::vector<db::OwnedGroup>>> rewritten;
  const std::vector<db::Record*>& records = block->entities;
  for (size_t index = 0; index < records.size(); ++index) {
    db::Record* record = records[index];
    if (record->isErased() || record->type() == "SEQEND" || record->type() == "VERTEX") continue;
    if (record->type() == "POLYLINE") {
      // The vertices move with their polyline.
      std::vector<db::Record*> vertexRecords;
      std::vector<std::vector<db::OwnedGroup>> vertices;
      for (size_t i = index + 1; i < records.size() && records[i]->type() == "VERTEX"; ++i) {
        vertexRecords.push_back(records[i]);
        vertices.push_back(records[i]->ownedGroups());
      }
      std::vector<db::OwnedGroup> polyline = record->ownedGroups();
      if (!transformOldPolylineGroups(polyline, vertices, map)) return false;
      rewritten.emplace_back(record, std::move(polyline));
      for (size_t i = 0; i < vertices.size(); ++i)
        rewritten.emplace_back(vertexRecords[i], std::move(vertices[i]));
      continue;
    }
    TransformedEntity moved;
    if (!transformEntity(record->type(), record->ownedGroups(), map, moved) ||
        moved.type != record->type()) {
      return false;
    }
    rewritten.emplace_back(record, std::move(moved.groups));
  }
  for (auto& [record, groups] : rewritten) record->assign(std::move(groups));
  database.recordChanged();
  return true;
}

QxDbObject* newRecordView(db::Database& database, db::Record& record) {
  QxDbObject* view = newObjectLike(record.type(), record.ownedGroups());
  QxDbObjectState* state = QxDbObjectState::of(view);
  state->ownRecord.reset();
  state->record = &record;
  state->database = &database;
  return view;
}

QxDbObject* newDetachedView(db::Database& database, std::string_view type,
                            std::vector<db::OwnedGroup> groups) {
  QxDbObject* view = newObjectLike(type, std::move(groups));
  QxDbObjectState::of(view)->database = &database;
  return view;
}

std::vector<db::OwnedGroup> pieceGroups(const db::Record& record) {
  std::vector<db::OwnedGroup> groups;
  bool inLinks = false;
  for (const db::Group& group : record.groups()) {
    if (group.code == 102) {
      inLinks = group.value.starts_with('{');
      continue;
    }
    if (inLinks || group.code == 5 || group.code == 330 || group.code == 360) continue;
    groups.push_back({group.code, std::string(group.value)});
  }
  return groups;
}

}  // namespace korva::api
