// Point arithmetic of the flat layer.
#include <cmath>
#include <numbers>

#include "qx_util.h"

double qxutDistance(const double* first, const double* second) {
  return std::sqrt((second[0] - first[0]) * (second[0] - first[0]) +
                   (second[1] - first[1]) * (second[1] - first[1]) +
                   (second[2] - first[2]) * (second[2] - first[2]));
}

double qxutAngle(const double* first, const double* second) {
  const double angle = std::atan2(second[1] - first[1], second[0] - first[0]);
  return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
}

void qxutPolar(const double* base, double angle, double distance, double* result) {
  const double x = base[0] + distance * std::cos(angle);
  const double y = base[1] + distance * std::sin(angle);
  result[2] = base[2];
  result[0] = x;
  result[1] = y;
}
