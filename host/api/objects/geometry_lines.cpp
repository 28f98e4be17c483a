// Planes and straight lines of the geometry values.
#include <algorithm>
#include <cmath>

#include "qx_ge.h"

const QxGePlane QxGePlane::kXYPlane;

QxGePlane::QxGePlane() = default;

QxGePlane::QxGePlane(const QxGePoint3d& origin, const QxGeVector3d& normal) {
  set(origin, normal);
}

QxGePlane::QxGePlane(const QxGePoint3d& origin, const QxGeVector3d& uAxis,
                     const QxGeVector3d& vAxis) {
  set(origin, uAxis, vAxis);
}

QxGePlane& QxGePlane::set(const QxGePoint3d& origin, const QxGeVector3d& normal) {
  origin_ = origin;
  normal_ = normal.normal();
  return *this;
}

QxGePlane& QxGePlane::set(const QxGePoint3d& origin, const QxGeVector3d& uAxis,
                          const QxGeVector3d& vAxis) {
  return set(origin, uAxis.crossProduct(vAxis));
}

void QxGePlane::getCoefficients(double& a, double& b, double& c, double& d) const {
  a = normal_.x;
  b = normal_.y;
  c = normal_.z;
  d = -normal_.dotProduct(origin_.asVector());
}

double QxGePlane::signedDistanceTo(const QxGePoint3d& point) const {
  return (point - origin_).dotProduct(normal_);
}

double QxGePlane::distanceTo(const QxGePoint3d& point) const {
  return std::fabs(signedDistanceTo(point));
}

QxGePoint3d QxGePlane::closestPointTo(const QxGePoint3d& point) const {
  return point - normal_ * signedDistanceTo(point);
}

bool QxGePlane::isOn(const QxGePoint3d& point, const QxGeTol& tol) const {
  return distanceTo(point) <= tol.equalPoint();
}

QxGeLine3d::QxGeLine3d(const QxGePoint3d& point, const QxGeVector3d& direction)
    : point_(point), direction_(direction.normal()) {}

QxGeLine3d::QxGeLine3d(const QxGePoint3d& first, const QxGePoint3d& second)
    : QxGeLine3d(first, second - first) {}

QxGePoint3d QxGeLine3d::closestPointTo(const QxGePoint3d& point, const QxGeTol&) const {
  return point_ + direction_ * (point - point_).dotProduct(direction_);
}

double QxGeLine3d::distanceTo(const QxGePoint3d& point) const {
  return point.distanceTo(closestPointTo(point));
}

QxGePoint3d QxGeLineSeg3d::midPoint() const {
  return start_ + (end_ - start_) * 0.5;
}

double QxGeLineSeg3d::length() const {
  return start_.distanceTo(end_);
}

QxGeVector3d QxGeLineSeg3d::direction() const {
  QxGeVector3d d = end_ - start_;
  double l = d.length();
  return l > 0 ? d / l : QxGeVector3d();
}

QxGePoint3d QxGeLineSeg3d::closestPointTo(const QxGePoint3d& point, const QxGeTol&) const {
  QxGeVector3d d = end_ - start_;
  double squared = d.lengthSqrd();
  if (squared == 0) return start_;
  double t = std::clamp((point - start_).dotProduct(d) / squared, 0.0, 1.0);
  return start_ + d * t;
}
