#include "spline_curve.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace korva::geom {

namespace {

std::vector<double> usableKnots(const NurbsCurve& curve) {
  size_t n = curve.control.size();
  size_t wanted = n + curve.degree + 1;
  if (curve.knots.size() == wanted && std::is_sorted(curve.knots.begin(), curve.knots.end())) {
    return curve.knots;
  }
  // A clamped uniform vector keeps a curve with broken knots drawable.
  std::vector<double> knots(wanted);
  int p = curve.degree;
  for (size_t i = 0; i < wanted; ++i) {
    if (i <= static_cast<size_t>(p)) {
      knots[i] = 0;
    } else if (i >= n) {
      knots[i] = static_cast<double>(n - p);
    } else {
      knots[i] = static_cast<double>(i - p);
    }
  }
  return knots;
}

Vec3 deBoor(const NurbsCurve& curve, const std::vector<double>& knots, double t) {
  int p = curve.degree;
  int n = static_cast<int>(curve.control.size());
  t = std::clamp(t, knots[p], knots[n]);
  int span = p;
  while (span < n - 1 && t >= knots[span + 1]) ++span;
  bool rational = curve.weights.size() == curve.control.size();
  // Homogeneous coordinates: (w x, w y, w z, w).
  double d[16][4];
  for (int j = 0; j <= p; ++j) {
    const Vec3& c = curve.control[span - p + j];
    double w = rational ? curve.weights[span - p + j] : 1.0;
    d[j][0] = c.x * w;
    d[j][1] = c.y * w;
    d[j][2] = c.z * w;
    d[j][3] = w;
  }
  for (int r = 1; r <= p; ++r) {
    for (int j = p; j >= r; --j) {
      int i = span - p + j;
      double denom = knots[i + p - r + 1] - knots[i];
      double alpha = denom == 0 ? 0 : (t - knots[i]) / denom;
      for (int k = 0; k < 4; ++k) d[j][k] = (1 - alpha) * d[j - 1][k] + alpha * d[j][k];
    }
  }
  double w = d[p][3] == 0 ? 1 : d[p][3];
  return {d[p][0] / w, d[p][1] / w, d[p][2] / w};
}

double distanceToChord(Vec3 p, Vec3 a, Vec3 b) {
  Vec3 ab = b - a;
  double len2 = dot(ab, ab);
  if (len2 == 0) return length(p - a);
  double k = std::clamp(dot(p - a, ab) / len2, 0.0, 1.0);
  return length(p - (a + ab * k));
}

// Halves each piece until its middle lies within tolerance of the chord.
void subdivide(const std::function<Vec3(double)>& at, double t0, Vec3 p0, double t1, Vec3 p1,
               double tolerance, int depth, std::vector<Vec3>& out) {
  double tm = (t0 + t1) / 2;
  Vec3 pm = at(tm);
  if (depth < 14 && distanceToChord(pm, p0, p1) > tolerance) {
    subdivide(at, t0, p0, tm, pm, tolerance, depth + 1, out);
    subdivide(at, tm, pm, t1, p1, tolerance, depth + 1, out);
    return;
  }
  out.push_back(pm);
  out.push_back(p1);
}

// Each interval starts with a few pieces so that a wiggle between samples isn't missed.
std::vector<Vec3> flattenIntervals(const std::function<Vec3(double)>& at,
                                   const std::vector<double>& breaks, double tolerance) {
  std::vector<Vec3> out;
  if (breaks.empty()) return out;
  out.push_back(at(breaks.front()));
  constexpr int kStartPieces = 4;
  for (size_t i = 0; i + 1 < breaks.size(); ++i) {
    double a = breaks[i], b = breaks[i + 1];
    if (b <= a) continue;
    for (int k = 0; k < kStartPieces; ++k) {
      double t0 = a + (b - a) * k / kStartPieces, t1 = a + (b - a) * (k + 1) / kStartPieces;
      subdivide(at, t0, out.back(), t1, at(t1), tolerance, 0, out);
    }
  }
  return out;
}

}  // namespace

Vec3 evaluate(const NurbsCurve& curve, double t) {
  if (curve.control.empty()) return {};
  if (curve.control.size() <= static_cast<size_t>(curve.degree) || curve.degree < 1 ||
      curve.degree > 15) {
    return curve.control.front();
  }
  return deBoor(curve, usableKnots(curve), t);
}

std::vector<Vec3> flatten(const NurbsCurve& curve, double tolerance) {
  if (curve.control.size() <= static_cast<size_t>(curve.degree) || curve.degree < 1 ||
      curve.degree > 15) {
    return curve.control;  // too few points for the degree: the control polygon
  }
  std::vector<double> knots = usableKnots(curve);
  int p = curve.degree;
  size_t n = curve.control.size();
  std::vector<double> breaks;
  for (size_t i = p; i <= n; ++i) {
    if (breaks.empty() || knots[i] > breaks.back()) breaks.push_back(knots[i]);
  }
  auto at = [&](double t) { return deBoor(curve, knots, t); };
  return flattenIntervals(at, breaks, tolerance);
}

std::vector<Vec3> flattenThroughFitPoints(const std::vector<Vec3>& fit, double tolerance) {
  size_t n = fit.size();
  if (n < 3) return fit;
  std::vector<double> t(n, 0.0);
  for (size_t i = 1; i < n; ++i) t[i] = t[i - 1] + std::max(length(fit[i] - fit[i - 1]), 1e-12);
  // Second derivatives of a natural cubic per coordinate (tridiagonal solve).
  auto solve = [&](auto coordinate) {
    std::vector<double> m(n, 0.0), c(n, 0.0), d(n, 0.0);
    for (size_t i = 1; i + 1 < n; ++i) {
      double h0 = t[i] - t[i - 1], h1 = t[i + 1] - t[i];
      double rhs = 6 * ((coordinate(fit[i + 1]) - coordinate(fit[i])) / h1 -
                        (coordinate(fit[i]) - coordinate(fit[i - 1])) / h0);
      double diag = 2 * (h0 + h1) - h0 * c[i - 1];
      c[i] = h1 / diag;
      d[i] = (rhs - h0 * d[i - 1]) / diag;
    }
    for (size_t i = n - 2; i >= 1; --i) m[i] = d[i] - c[i] * m[i + 1];
    return m;
  };
  std::vector<double> mx = solve([](Vec3 p) { return p.x; });
  std::vector<double> my = solve([](Vec3 p) { return p.y; });
  std::vector<double> mz = solve([](Vec3 p) { return p.z; });
  auto at = [&](double s) {
    size_t i = std::upper_bound(t.begin(), t.end(), s) - t.begin();
    i = std::clamp<size_t>(i, 1, n - 1) - 1;
    double h = t[i + 1] - t[i], a = (t[i + 1] - s) / h, b = (s - t[i]) / h;
    auto value = [&](double y0, double y1, double m0, double m1) {
      return a * y0 + b * y1 + ((a * a * a - a) * m0 + (b * b * b - b) * m1) * h * h / 6;
    };
    return Vec3{value(fit[i].x, fit[i + 1].x, mx[i], mx[i + 1]),
                value(fit[i].y, fit[i + 1].y, my[i], my[i + 1]),
                value(fit[i].z, fit[i + 1].z, mz[i], mz[i + 1])};
  };
  return flattenIntervals(at, t, tolerance);
}

}  // namespace korva::geom
