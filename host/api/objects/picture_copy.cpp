#include "picture_copy.h"

#include "api/transform_kinds.h"
#include "attribute_text.h"
#include "block_pictures.h"
#include "entity_transform.h"
#include "old_polyline_transform.h"

namespace korva::api {

namespace {

// Blocks that (wrongly) contain themselves end here.
constexpr int kDeepestNesting = 32;

bool carryText(std::vector<db::OwnedGroup> groups, const geom::Affine3& map, PictureEntities& out) {
  TransformedEntity moved;
  if (!transformEntity("TEXT", std::move(groups), map, moved)) return false;
  out.emplace_back("TEXT", std::move(moved.groups));
  return true;
}

}  // namespace

bool carryBlockEntities(db::Database& database, std::string_view name, const geom::Affine3& map,
                        PictureEntities& out, int depth) {
  db::BlockDefinition* block = database.block(name);
  if (!block || depth > kDeepestNesting) return false;
  const std::vector<db::Record*>& records = block->entities;
  for (size_t index = 0; index < records.size(); ++index) {
    db::Record& record = *records[index];
    std::string_view kind = record.type();
    // Parts follow their owner below.
    if (record.isErased() || kind == "VERTEX" || kind == "SEQEND" || kind == "ATTRIB") continue;
    // Inside a reference that is broken up, a definition shows only when constant; the
    // others stand for the attributes the reference carries.
    if (depth > 0 && kind == "ATTDEF") {
      std::vector<db::OwnedGroup> groups = pieceGroups(record);
      if (isConstantDefinition(groups) && !carryText(attributeAsText(groups), map, out))
        return false;
      continue;
    }
    if (kind == "POLYLINE") {
      std::vector<db::OwnedGroup> polyline = pieceGroups(record);
      std::vector<std::vector<db::OwnedGroup>> vertices;
      for (size_t i = index + 1; i < records.size() && records[i]->type() == "VERTEX"; ++i) {
        if (!records[i]->isErased()) vertices.push_back(pieceGroups(*records[i]));
      }
      if (!transformOldPolylineGroups(polyline, vertices, map)) return false;
      out.emplace_back("POLYLINE", std::move(polyline));
      for (auto& vertex : vertices) out.emplace_back("VERTEX", std::move(vertex));
      continue;
    }
    std::vector<db::Record*> attributes;
    for (size_t i = index + 1; kind == "INSERT" && i < records.size(); ++i) {
      if (records[i]->type() != "ATTRIB") break;
      if (!records[i]->isErased()) attributes.push_back(records[i]);
    }
    TransformedEntity moved;
    if (transformEntity(kind, pieceGroups(record), map, moved)) {
      out.emplace_back(std::move(moved.type), std::move(moved.groups));
      for (db::Record* attribute : attributes) {
        if (!transformEntity("ATTRIB", pieceGroups(*attribute), map, moved)) return false;
        out.emplace_back("ATTRIB", std::move(moved.groups));
      }
      continue;
    }
    std::optional<BlockPicture> picture = pictureOf(database, record);
    if (kind != "INSERT" || !picture) return false;
    for (const geom::Affine3& placement : picture->placements) {
      if (!carryBlockEntities(database, picture->block, map * placement, out, depth + 1))
        return false;
    }
    for (db::Record* attribute : attributes) {
      if (!carryText(attributeAsText(pieceGroups(*attribute)), map, out)) return false;
    }
  }
  return true;
}

bool moveToPictureCopy(db::Database& database, db::Record& record, std::string_view block,
                       const geom::Affine3& contents) {
  const db::BlockDefinition* source = database.block(block);
  PictureEntities carried;
  if (!source || !carryBlockEntities(database, block, contents, carried)) return false;
  std::vector<BlockEntityCopy> entities;
  for (auto& [type, groups] : carried) entities.push_back({std::move(type), std::move(groups)});
  std::string name = addPictureCopy(database, *source, std::move(entities));
  if (name.empty()) return false;
  record.setValue(2, name);
  return true;
}

}  // namespace korva::api
