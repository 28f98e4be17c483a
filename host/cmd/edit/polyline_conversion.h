// Lines and arcs made into polylines, for PEDIT.
#pragma once

#include "qx_types.h"

namespace korva::cmd::edit {

// A LINE or ARC becomes an LWPOLYLINE with its properties, in its place; `name` then
// names the polyline. False for other kinds and for lines not in a plane of their own.
bool convertToPolyline(EntityName name);

}  // namespace korva::cmd::edit
