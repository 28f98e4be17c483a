// The plane curves a hatch hands out for its edges.
#include <cmath>

#include "geom/spline_curve.h"
#include "qx_ge_curves2d.h"

namespace {

QxGePoint2d onCircle(const QxGePoint2d& center, double radius, double angle) {
  return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

korva::geom::NurbsCurve curveOf(int degree, const QxGeDoubleArray& knots,
                                const QxGePoint2dArray& control, const QxGeDoubleArray& weights) {
  korva::geom::NurbsCurve curve;
  curve.degree = degree;
  for (int i = 0; i < knots.length(); ++i) curve.knots.push_back(knots[i]);
  for (int i = 0; i < control.length(); ++i)
    curve.control.push_back({control[i].x, control[i].y, 0});
  for (int i = 0; i < weights.length(); ++i) curve.weights.push_back(weights[i]);
  return curve;
}

}  // namespace

QxGePoint2d QxGeCircArc2d::startPoint() const {
  return onCircle(center_, radius_, start_);
}

QxGePoint2d QxGeCircArc2d::endPoint() const {
  return onCircle(center_, radius_, end_);
}

QxGePoint2d QxGeEllipArc2d::pointAtParam(double param) const {
  QxGeVector2d minor = minorAxis();
  double c = std::cos(param) * majorRadius_, s = std::sin(param) * minorRadius_;
  return {center_.x + major_.x * c + minor.x * s, center_.y + major_.y * c + minor.y * s};
}

QxGeNurbCurve2d::QxGeNurbCurve2d(int degree, const QxGeDoubleArray& knots,
                                 const QxGePoint2dArray& controlPoints,
                                 const QxGeDoubleArray& weights, bool periodic)
    : degree_(degree),
      periodic_(periodic),
      knots_(knots),
      control_(controlPoints),
      weights_(weights) {}

QxGePoint2d QxGeNurbCurve2d::evalPoint(double param) const {
  if (control_.isEmpty()) return {};
  korva::geom::Vec3 p = korva::geom::evaluate(curveOf(degree_, knots_, control_, weights_), param);
  return {p.x, p.y};
}

QxGePoint2d QxGeNurbCurve2d::startPoint() const {
  if (knots_.length() <= degree_) return control_.isEmpty() ? QxGePoint2d() : control_[0];
  return evalPoint(knots_[degree_]);
}

QxGePoint2d QxGeNurbCurve2d::endPoint() const {
  int last = knots_.length() - degree_ - 1;
  if (last < 0 || last >= knots_.length())
    return control_.isEmpty() ? QxGePoint2d() : control_[control_.length() - 1];
  return evalPoint(knots_[last]);
}
