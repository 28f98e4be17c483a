// qxedTrans: positions and displacements between the world, the user system, the
// display and object systems.
#include <optional>

#include "coordinate_systems.h"
#include "db/value_text.h"
#include "document.h"
#include "qx_coordinates.h"

namespace korva::api {
namespace {

// The object system of an entity: its extrusion (210) or the world Z.
std::optional<CoordinateSystem> entitySystem(const EntityName name) {
  db::Record* record = recordOf(name);
  if (!record || record->isErased()) return std::nullopt;
  Vector3 extrusion{0, 0, 1};
  std::vector<db::Group> groups = record->groupList();
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code == 210) extrusion.x = db::parseReal(groups[i].value).value_or(0);
    if (groups[i].code == 220) extrusion.y = db::parseReal(groups[i].value).value_or(0);
    if (groups[i].code == 230) extrusion.z = db::parseReal(groups[i].value).value_or(1);
  }
  return objectSystem(extrusion);
}

std::optional<CoordinateSystem> systemOf(const ResultBuffer* node) {
  if (!node) return std::nullopt;
  const db::Database* database = currentDatabase();
  switch (node->type) {
    case RTSHORT:
      switch (node->value.rint) {
        case 0: return CoordinateSystem{};
        case 1: return database ? currentUcs(*database) : CoordinateSystem{};
        case 2: return database ? displaySystem(*database) : CoordinateSystem{};
        case 3: return CoordinateSystem{};  // paper space has no view twist in korva
        default: return std::nullopt;
      }
    case RTENAME:
      return entitySystem(node->value.rlname);
    case RT3DPOINT: {
      Vector3 extrusion{node->value.rpoint[0], node->value.rpoint[1], node->value.rpoint[2]};
      if (dot(extrusion, extrusion) == 0) return std::nullopt;
      return objectSystem(extrusion);
    }
    default:
      return std::nullopt;
  }
}

}  // namespace
}  // namespace korva::api

int qxedTrans(const double point[3], const ResultBuffer* from, const ResultBuffer* to,
              int displacement, double result[3]) {
  using namespace korva::api;
  if (!point || !result) return RTERROR;
  std::optional<CoordinateSystem> source = systemOf(from);
  std::optional<CoordinateSystem> target = systemOf(to);
  if (!source || !target) return RTERROR;
  Vector3 given{point[0], point[1], point[2]};
  Vector3 world = displacement ? source->directionToWorld(given) : source->toWorld(given);
  Vector3 out = displacement ? target->directionFromWorld(world) : target->fromWorld(world);
  result[0] = out.x;
  result[1] = out.y;
  result[2] = out.z;
  return RTNORM;
}
