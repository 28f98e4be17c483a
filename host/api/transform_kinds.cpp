#include "transform_kinds.h"

#include <algorithm>
#include <cmath>

#include "db/value_text.h"
#include "objects/entity_transform.h"
#include "record_places.h"

namespace korva::api {
namespace {

using namespace transform;

bool isListed(std::string_view type, std::initializer_list<std::string_view> types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

// Kinds an affine map carries into the same kind exactly, given the checks below:
// straight pieces, plane figures bounded by them, ellipses, circles that stay round,
// and splines.
bool keepsShapeUnderAnyMap(std::string_view type) {
  return isListed(type, {"LINE", "POINT", "3DFACE", "SOLID", "TRACE", "RAY", "XLINE", "LWPOLYLINE",
                         "ELLIPSE", "CIRCLE", "ARC", "SPLINE"});
}

// Kinds whose own transform tells whether it can draw them exactly under the map.
bool checksItsOwnExactness(std::string_view type) {
  return isListed(type, {"HATCH", "DIMENSION", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION", "MLINE"});
}

// A spline is its control points' under any affine map; fit points lie on the curve
// and stay on it, and the end tangents keep pointing along it.
void spline(Groups& groups, const Affine3& map) {
  for (int code : {10, 11}) moveWorldPoints(groups, map, code);
  for (int code : {12, 13}) {
    Vec3 tangent;
    if (readPoint(groups, code, tangent) && geom::length(tangent) > 0)
      writePoint(groups, code, geom::normalized(map.vector(tangent)));
  }
  if (find(groups, 210)) writePoint(groups, 210, map.normal(extrusion(groups)));
}

}  // namespace

bool anyNonZero(Groups& groups, std::initializer_list<int> codes) {
  for (const db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (std::find(codes.begin(), codes.end(), group.code) != codes.end() && number(group) != 0)
      return true;
  }
  return false;
}

bool thicknessFollows(Groups& groups, const Affine3& map) {
  if (!anyNonZero(groups, {39})) return true;
  Vec3 normal = extrusion(groups);
  Vec3 along = geom::normalized(map.vector(normal));
  return geom::length(geom::cross(along, map.normal(normal))) < 1e-12;
}

bool transformGroups(std::string_view type, Groups groups, const Affine3& map, Groups& out) {
  double scale = 1;
  if (!geom::isSimilarity(map, scale)) {
    if (checksItsOwnExactness(type)) {
      TransformedEntity result;
      if (!transformEntity(type, std::move(groups), map, result)) return false;
      out = std::move(result.groups);
      return true;
    }
    if (!keepsShapeUnderAnyMap(type) || !thicknessFollows(groups, map)) return false;
    // Widths would turn uneven; bulges are refused by the general transform.
    if (type == "LWPOLYLINE" && anyNonZero(groups, {40, 41, 43})) return false;
    if (type == "SPLINE") {
      spline(groups, map);
      out = std::move(groups);
      return true;
    }
  }
  TransformedEntity result;
  // A circle that would have to become an ellipse is not carried: the record keeps its kind.
  if (!transformEntity(type, std::move(groups), map, result) || result.type != type) return false;
  out = std::move(result.groups);
  return true;
}

namespace {

// The groups a copy keeps: not the handle, reactors or dictionary links, and the owner
// given anew.
Groups ownedBy(Groups groups, db::Handle owner) {
  Groups out;
  bool inAppGroup = false;
  bool ownerSet = false;
  for (db::OwnedGroup& group : groups) {
    if (group.code == 102) {
      inAppGroup = !group.value.empty() && group.value[0] == '{';
      continue;
    }
    if (inAppGroup || group.code == 5) continue;
    if (group.code == 330) {
      if (ownerSet) continue;
      group.value = db::formatHandle(owner);
      ownerSet = true;
    }
    out.push_back(std::move(group));
  }
  if (!ownerSet) out.insert(out.begin(), {330, db::formatHandle(owner)});
  return out;
}

// Whether records of its own (vertices, attributes) and a SEQEND follow the entity.
bool hasParts(std::string_view type, Groups& groups) {
  if (type == "POLYLINE") return true;
  return type == "INSERT" && anyNonZero(groups, {66});
}

}  // namespace

std::string addPictureCopy(db::Database& database, const db::BlockDefinition& source,
                           std::vector<BlockEntityCopy> entities) {
  std::string name;
  for (int number = 1; name.empty(); ++number) {
    std::string candidate = "*D" + std::to_string(number);
    if (!database.block(candidate) && !database.tableEntry("BLOCK_RECORD", candidate))
      name = candidate;
  }
  Vec3 base;
  Groups sourceBegin = source.begin->ownedGroups();
  readPoint(sourceBegin, 10, base);
  db::BlockDefinition* made = database.addBlock(name, base.x, base.y, base.z);
  if (!made) return {};
  made->begin->setValue(70, source.begin->find(70).value_or("1"));
  db::Handle blockRecord = made->begin->owner();
  db::Record* main = nullptr;
  std::string mainLayer = "0";
  bool partsOpen = false;
  auto closeParts = [&] {
    if (partsOpen) {
      database.addEntity(
          {{330, db::formatHandle(main->handle())}, {100, "AcDbEntity"}, {8, mainLayer}}, "SEQEND",
          made);
    }
    partsOpen = false;
  };
  for (BlockEntityCopy& entity : entities) {
    bool part = isSubEntityType(entity.type) && main;
    if (!part) closeParts();
    if (entity.type == "SEQEND" && !partsOpen) continue;
    db::Handle owner = part ? main->handle() : blockRecord;
    bool opensParts = !part && hasParts(entity.type, entity.groups);
    if (!part && find(entity.groups, 8)) mainLayer = find(entity.groups, 8)->value;
    db::Record* record =
        database.addEntity(ownedBy(std::move(entity.groups), owner), entity.type, made);
    if (entity.type == "SEQEND") partsOpen = false;
    if (!part) {
      main = record;
      partsOpen = opensParts;
    }
  }
  closeParts();
  return name;
}

}  // namespace korva::api
