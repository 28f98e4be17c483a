// Points, vectors and scales of the geometry values, and the global tolerance.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "geom/vec.h"
#include "qx_ge.h"

QxGeTol QxGeContext::gTol;

const QxGeVector2d QxGeVector2d::kXAxis(1, 0);
const QxGeVector2d QxGeVector2d::kYAxis(0, 1);
const QxGePoint2d QxGePoint2d::kOrigin(0, 0);
const QxGeVector3d QxGeVector3d::kIdentity(0, 0, 0);
const QxGeVector3d QxGeVector3d::kXAxis(1, 0, 0);
const QxGeVector3d QxGeVector3d::kYAxis(0, 1, 0);
const QxGeVector3d QxGeVector3d::kZAxis(0, 0, 1);
const QxGePoint3d QxGePoint3d::kOrigin(0, 0, 0);

// ---- Two dimensions

double QxGeVector2d::length() const {
  return std::hypot(x, y);
}

double QxGeVector2d::angle() const {
  double a = std::atan2(y, x);
  return a < 0 ? a + 2 * std::numbers::pi : a;
}

QxGeVector2d QxGeVector2d::normal(const QxGeTol& tol) const {
  QxGeVector2d copy = *this;
  return copy.normalize(tol);
}

QxGeVector2d& QxGeVector2d::normalize(const QxGeTol& tol) {
  double l = length();
  if (l > tol.equalVector()) x /= l, y /= l;
  return *this;
}

bool QxGeVector2d::isEqualTo(const QxGeVector2d& other, const QxGeTol& tol) const {
  return (*this - other).length() <= tol.equalVector();
}

double QxGePoint2d::distanceTo(const QxGePoint2d& other) const {
  return std::hypot(x - other.x, y - other.y);
}

bool QxGePoint2d::isEqualTo(const QxGePoint2d& other, const QxGeTol& tol) const {
  return distanceTo(other) <= tol.equalPoint();
}

// ---- Three dimensions

double QxGeVector3d::length() const {
  return std::sqrt(lengthSqrd());
}

bool QxGeVector3d::isZeroLength(const QxGeTol& tol) const {
  return length() <= tol.equalVector();
}

double QxGeVector3d::angleTo(const QxGeVector3d& other) const {
  // atan2 of |a x b| and a . b keeps precision near 0 and pi, where acos loses it.
  return std::atan2(crossProduct(other).length(), dotProduct(other));
}

double QxGeVector3d::angleTo(const QxGeVector3d& other, const QxGeVector3d& reference) const {
  double angle = angleTo(other);
  if (crossProduct(other).dotProduct(reference) < 0) angle = 2 * std::numbers::pi - angle;
  return angle >= 2 * std::numbers::pi ? 0 : angle;
}

QxGeVector3d QxGeVector3d::normal(const QxGeTol& tol) const {
  QxGeVector3d copy = *this;
  return copy.normalize(tol);
}

QxGeVector3d& QxGeVector3d::normalize(const QxGeTol& tol) {
  double l = length();
  if (l > tol.equalVector()) *this = *this / l;
  return *this;
}

QxGeVector3d QxGeVector3d::perpVector() const {
  QxGeVector3d unit = normal();
  korva::geom::Vec3 axis = korva::geom::arbitraryXAxis({unit.x, unit.y, unit.z});
  return QxGeVector3d(axis.x, axis.y, axis.z);
}

bool QxGeVector3d::isEqualTo(const QxGeVector3d& other, const QxGeTol& tol) const {
  return (*this - other).length() <= tol.equalVector();
}

bool QxGeVector3d::isParallelTo(const QxGeVector3d& other, const QxGeTol& tol) const {
  return normal(tol).crossProduct(other.normal(tol)).length() <= tol.equalVector();
}

bool QxGeVector3d::isPerpendicularTo(const QxGeVector3d& other, const QxGeTol& tol) const {
  return std::fabs(normal(tol).dotProduct(other.normal(tol))) <= tol.equalVector();
}

QxGeVector3d& QxGeVector3d::transformBy(const QxGeMatrix3d& matrix) {
  *this = matrix * *this;
  return *this;
}

QxGeVector3d& QxGeVector3d::rotateBy(double angle, const QxGeVector3d& axis) {
  return transformBy(QxGeMatrix3d::rotation(angle, axis));
}

double QxGePoint3d::distanceTo(const QxGePoint3d& other) const {
  return (*this - other).length();
}

bool QxGePoint3d::isEqualTo(const QxGePoint3d& other, const QxGeTol& tol) const {
  return distanceTo(other) <= tol.equalPoint();
}

QxGePoint3d& QxGePoint3d::rotateBy(double angle, const QxGeVector3d& axis,
                                   const QxGePoint3d& wrtPoint) {
  return transformBy(QxGeMatrix3d::rotation(angle, axis, wrtPoint));
}

QxGePoint3d& QxGePoint3d::transformBy(const QxGeMatrix3d& matrix) {
  *this = matrix * *this;
  return *this;
}

QxGePoint3d& QxGePoint3d::scaleBy(double factor, const QxGePoint3d& wrtPoint) {
  *this = wrtPoint + (*this - wrtPoint) * factor;
  return *this;
}

QxGePoint3d QxGePoint3d::orthoProject(const QxGePlane& plane) const {
  return plane.closestPointTo(*this);
}

QxGePoint3d operator*(const QxGeMatrix3d& m, const QxGePoint3d& p) {
  const auto& e = m.entry;
  return {e[0][0] * p.x + e[0][1] * p.y + e[0][2] * p.z + e[0][3],
          e[1][0] * p.x + e[1][1] * p.y + e[1][2] * p.z + e[1][3],
          e[2][0] * p.x + e[2][1] * p.y + e[2][2] * p.z + e[2][3]};
}

QxGeVector3d operator*(const QxGeMatrix3d& m, const QxGeVector3d& v) {
  const auto& e = m.entry;
  return {e[0][0] * v.x + e[0][1] * v.y + e[0][2] * v.z,
          e[1][0] * v.x + e[1][1] * v.y + e[1][2] * v.z,
          e[2][0] * v.x + e[2][1] * v.y + e[2][2] * v.z};
}

bool QxGeScale3d::isEqualTo(const QxGeScale3d& other, const QxGeTol& tol) const {
  double limit = tol.equalPoint();
  return std::fabs(sx - other.sx) <= limit && std::fabs(sy - other.sy) <= limit &&
         std::fabs(sz - other.sz) <= limit;
}
