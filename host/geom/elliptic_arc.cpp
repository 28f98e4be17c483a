#include "elliptic_arc.h"

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace korva::geom {

namespace {
constexpr double kTwoPi = 2 * std::numbers::pi;
}

double angleFrom(double angle, double from) {
  double a = std::fmod(angle - from, kTwoPi);
  if (a < 0) a += kTwoPi;
  if (a >= kTwoPi) a = 0;
  return from + a;
}

Vec3 EllipticArc::pointAt(double t) const {
  return center + u * std::cos(t) + v * std::sin(t);
}

Vec3 EllipticArc::derivativeAt(double t) const {
  return u * -std::sin(t) + v * std::cos(t);
}

double EllipticArc::closestParam(Vec3 p) const {
  // Coarse samples, then Newton on the distance's derivative, within the arc.
  constexpr int kSamples = 64;
  double best = start;
  double bestDistance = length(pointAt(start) - p);
  for (int i = 1; i <= kSamples; ++i) {
    double t = start + (end - start) * i / kSamples;
    double d = length(pointAt(t) - p);
    if (d < bestDistance) best = t, bestDistance = d;
  }
  for (int iteration = 0; iteration < 30; ++iteration) {
    Vec3 offset = pointAt(best) - p;
    Vec3 d1 = derivativeAt(best);
    Vec3 d2 = (pointAt(best) - center) * -1.0;
    double f = dot(offset, d1);
    double fPrime = dot(d1, d1) + dot(offset, d2);
    if (fPrime <= 0) break;
    double next = best - f / fPrime;
    if (next < start) next = start;
    if (next > end) next = end;
    if (std::fabs(next - best) < 1e-15) break;
    best = next;
  }
  return best;
}

SpaceBox EllipticArc::box() const {
  SpaceBox box;
  box.add(pointAt(start));
  box.add(pointAt(end));
  const double us[3] = {u.x, u.y, u.z};
  const double vs[3] = {v.x, v.y, v.z};
  for (int axis = 0; axis < 3; ++axis) {
    if (us[axis] == 0 && vs[axis] == 0) continue;
    // The coordinate u cos t + v sin t is extreme where tan t = v / u.
    double t0 = std::atan2(vs[axis], us[axis]);
    for (double t : {t0, t0 + std::numbers::pi}) {
      double inArc = angleFrom(t, start);
      if (inArc <= end) box.add(pointAt(inArc));
    }
  }
  return box;
}

}  // namespace korva::geom
