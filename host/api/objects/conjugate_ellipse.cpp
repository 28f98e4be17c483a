#include "conjugate_ellipse.h"

#include <cmath>
#include <numbers>

namespace korva::api {

PrincipalAxes principalAxes(geom::Vec3 a, geom::Vec3 b) {
  PrincipalAxes axes;
  // The parameter where the radius is extreme: d/dt |a cos t + b sin t|^2 = 0.
  axes.shift = 0.5 * std::atan2(2 * geom::dot(a, b), geom::dot(a, a) - geom::dot(b, b));
  axes.major = a * std::cos(axes.shift) + b * std::sin(axes.shift);
  axes.minor = a * -std::sin(axes.shift) + b * std::cos(axes.shift);
  if (geom::length(axes.minor) > geom::length(axes.major)) {
    axes.shift += std::numbers::pi / 2;
    geom::Vec3 swapped = axes.minor;
    axes.minor = axes.major * -1;
    axes.major = swapped;
  }
  return axes;
}

}  // namespace korva::api
