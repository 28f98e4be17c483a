// Reading and rewriting the groups of an entity under an affine map: the helpers that
// each kind's transform shares. Extended data (from the first 1001) is never touched.
#pragma once

#include <string>
#include <vector>

#include "db/record.h"
#include "geom/affine.h"
#include "geom/vec.h"

namespace korva::api::transform {

using geom::Affine3;
using geom::Vec3;
using Groups = std::vector<db::OwnedGroup>;

double number(const db::OwnedGroup& group);
// The occurrence-th group with the code before the extended data.
db::OwnedGroup* find(Groups& groups, int code, int occurrence = 0);
double real(Groups& groups, int code, double fallback);
int countOf(Groups& groups, int code);

// Sets a value. A missing group goes behind the group with code `after` (behind its Y
// and Z when it is a point), or before the extended data when there is no such group.
void put(Groups& groups, int code, std::string value, int after = -1);
void putReal(Groups& groups, int code, double value, int after = -1);

// The point whose X group is the occurrence-th with this code (Y and Z right behind).
bool readPoint(Groups& groups, int code, Vec3& point, int occurrence = 0, double z = 0);
void writePoint(Groups& groups, int code, Vec3 point, int occurrence = 0, bool withZ = true);

// The extrusion direction (210), +Z when missing; a new one is only written when it
// differs from +Z or the record had one.
// A missing one goes behind the group `after` as put places it.
Vec3 extrusion(Groups& groups);
void setExtrusion(Groups& groups, Vec3 normal, int after = -1);

Vec3 rotatedX(double angle);
// The angle of a world direction in a plane's system.
double angleIn(const Affine3& worldToObject, Vec3 worldDirection);
double normalizedAngle(double angle);  // into [0, 2 pi)

// Points in the object system of one normal, moved to that of the mapped normal.
struct PlaneMove {
  Affine3 from, toInverse;
  Vec3 newNormal;
  PlaneMove(const Affine3& map, Vec3 normal);
  Vec3 point(const Affine3& map, Vec3 p) const { return toInverse.point(map.point(from.point(p))); }
  Vec3 vector(const Affine3& map, Vec3 v) const {
    return toInverse.vector(map.vector(from.vector(v)));
  }
  // How far the map turns directions of the plane, as an angle of the new system.
  double turn(const Affine3& map) const;
};

void movePlanePoints(Groups& groups, const Affine3& map, const PlaneMove& move, int code);
void moveWorldPoints(Groups& groups, const Affine3& map, int code);
// Lengths along the normal, for thickness (39).
void scaleThickness(Groups& groups, const Affine3& map, Vec3 normal);
// Multiplies every group with one of the codes.
void scaleReals(Groups& groups, std::initializer_list<int> codes, double factor);

}  // namespace korva::api::transform
