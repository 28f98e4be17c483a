// Circles and arcs made in the X-Y plane of the user system: the object layer wants
// world centers and angles in the object system of the plane's normal.
#pragma once

#include "api/coordinate_systems.h"
#include "cmd/drawing/arc_construction.h"
#include "qx_types.h"

namespace korva::cmd::drawing {

// An angle in the user system's X-Y plane as the object system of its Z axis sees it.
double objectAngle(const api::CoordinateSystem& user, double userAngle);

// In [0, 2 pi), and onto a whole degree when it misses one by rounding only, so that
// the drawing holds 90 rather than 89.99999999999999.
double tidyAngle(double angle);

bool addCircle(const api::CoordinateSystem& user, const PlaneCircle& circle, double elevation,
               EntityName name = nullptr);
bool addArc(const api::CoordinateSystem& user, const PlaneArc& arc, double elevation,
            EntityName name = nullptr);

}  // namespace korva::cmd::drawing
