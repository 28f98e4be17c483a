// Coordinate systems of the flat layer: the world, the current user system, the
// display, and object systems by the DXF arbitrary-axis rule.
#pragma once

#include "db/database.h"
#include "geom/vec.h"

namespace korva::api {

// Vectors and their algebra are the geometry code's.
using Vector3 = geom::Vec3;
using geom::cross;
using geom::dot;
using geom::normalized;

// An orthonormal system: its origin and axes in world coordinates.
struct CoordinateSystem {
  Vector3 origin;
  Vector3 xAxis{1, 0, 0};
  Vector3 yAxis{0, 1, 0};
  Vector3 zAxis{0, 0, 1};

  Vector3 toWorld(const Vector3& point) const;  // a position
  Vector3 fromWorld(const Vector3& point) const;
  Vector3 directionToWorld(const Vector3& vector) const;  // a displacement
  Vector3 directionFromWorld(const Vector3& vector) const;
};

// The object system of an extrusion direction (the arbitrary-axis rule); origin at zero.
CoordinateSystem objectSystem(const Vector3& extrusion);

// Whether the current space is paper space: TILEMODE 0 and CVPORT 1.
bool inPaperSpace(const db::Database& database);

// The current user system of the current space, from $UCSORG, $UCSXDIR, $UCSYDIR (or
// their $PUCS forms in paper space).
CoordinateSystem currentUcs(const db::Database& database);

// The display system: the current view's direction ($VIEWDIR) as Z, target at the origin.
CoordinateSystem displaySystem(const db::Database& database);

// A point-valued header variable; missing coordinates are 0.
Vector3 headerPoint(const db::Database& database, std::string_view name,
                    const Vector3& fallback = {});
// An integer header variable, or fallback when it is missing.
long long headerInteger(const db::Database& database, std::string_view name, long long fallback);

}  // namespace korva::api
