// An old-style polyline's groups under an affine map: the POLYLINE record and the
// groups of its VERTEX records. Shared by explode, which makes moved copies, and by the
// selection-set transform, which writes them back.
#pragma once

#include <vector>

#include "group_transform.h"

namespace korva::api {

// 3D polylines and meshes move their world vertices under any map; 2D polylines move
// in their plane and refuse maps that aren't similarities once they have arcs (bulges),
// widths, curve fitting or a thickness the map would tilt. False leaves the groups
// unusable.
bool transformOldPolylineGroups(transform::Groups& polyline,
                                std::vector<transform::Groups>& vertices, const geom::Affine3& map);

}  // namespace korva::api
