// Between drawing entities and plane paths. The modifying commands work on entities
// that lie in a plane parallel to the world's X-Y plane: lines (whose ends keep their
// heights), arcs, circles and both kinds of two-dimensional polylines.
#pragma once

#include <optional>

#include "geom/plane_path.h"
#include "qx_types.h"

namespace korva::cmd::modify {

using geom::PlanePath;
using geom::Vec2;

enum class CurveKind { Line, Arc, Circle, LightPolyline, OldPolyline };

struct EntityPath {
  CurveKind kind = CurveKind::Line;
  PlanePath path;
  double elevation = 0;     // lines: the height of the start
  double endElevation = 0;  // lines: the height of the end
  double constantWidth = 0;
};

// Nothing for other kinds of entity, for entities out of that plane and for erased ones.
std::optional<EntityPath> readEntityPath(const EntityName name);

// A new entity of the source's kind (an arc for a part of a circle, a circle for a
// whole one) with the source's properties, in the source's space. Its name goes to
// `made`. False when the drawing refused it.
bool addEntityLike(const EntityName source, const EntityPath& shape, const PlanePath& path,
                   EntityName made);

// The entity's geometry replaced by the path, for lines, arcs and lightweight
// polylines (which open up). False for other kinds or when the entity can't be written.
bool rewriteEntity(const EntityName name, const EntityPath& shape, const PlanePath& path);

// A point the user gave (current user system) in the world's X-Y plane.
Vec2 worldPlanePoint(const double userPoint[3]);

}  // namespace korva::cmd::modify
