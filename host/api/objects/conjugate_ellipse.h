// An ellipse given by two conjugate semi-diameters (the image of a circle or ellipse
// under an affine map) turned into its principal axes.
#pragma once

#include "geom/vec.h"

namespace korva::api {

// point(t) = center + a cos t + b sin t  ==  center + major cos(t - shift) + minor sin(t - shift),
// with major at least as long as minor. The turning sense of (major, minor) is that of
// (a, b), so parameters keep running the same way.
struct PrincipalAxes {
  geom::Vec3 major, minor;
  double shift = 0;
};

PrincipalAxes principalAxes(geom::Vec3 a, geom::Vec3 b);

}  // namespace korva::api
