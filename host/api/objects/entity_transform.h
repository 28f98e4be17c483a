// Rewrites an entity's groups under an affine map of space, non-uniform scaling
// included: circles and arcs that stop being round become ellipses, texts take the
// shear into their width factor and oblique angle. Used by explode, by transformBy and
// by the boxes of block pictures.
#pragma once

#include <string>
#include <vector>

#include "db/record.h"
#include "geom/affine.h"

namespace korva::api {

struct TransformedEntity {
  std::string type;  // may change: CIRCLE and ARC become ELLIPSE
  std::vector<db::OwnedGroup> groups;
  // Set with a refusal that comes from the map alone: a radius, diameter or arc
  // dimension whose circle would stop being round, a multiline whose elements can't
  // keep one offset each.
  bool cannotScaleNonUniformly = false;
};

// False for kinds this cannot carry through the map: OLE frames, old-style
// polylines (their vertices are records of their own), bodies of the solid modeler;
// under maps that don't keep shapes similar also tables, viewports, tolerance frames
// and leaders, splines, polyline arcs, and the dimensions and multilines above.
bool transformEntity(std::string_view type, std::vector<db::OwnedGroup> groups,
                     const geom::Affine3& map, TransformedEntity& result);

}  // namespace korva::api
