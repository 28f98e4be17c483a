// Rewrites an entity's groups under an affine map of space, non-uniform scaling
// included: circles and arcs that stop being round become ellipses, texts take the
// shear into their width factor and oblique angle. Used by explode.
#pragma once

#include <string>
#include <vector>

#include "db/record.h"
#include "geom/affine.h"

namespace korva::api {

struct TransformedEntity {
  std::string type;  // may change: CIRCLE and ARC become ELLIPSE
  std::vector<db::OwnedGroup> groups;
};

// False for kinds this cannot carry through the map: hatches, dimensions, leaders,
// images, solids of modelling, splines under non-uniform scaling, and polyline arcs
// under non-uniform scaling.
bool transformEntity(std::string_view type, std::vector<db::OwnedGroup> groups,
                     const geom::Affine3& map, TransformedEntity& result);

}  // namespace korva::api
