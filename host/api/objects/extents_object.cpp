// QxDbExtents: a box of world space.
#include <algorithm>
#include <cmath>

#include "qx_db_extents.h"

QxDbExtents::QxDbExtents() : min_(1e300, 1e300, 1e300), max_(-1e300, -1e300, -1e300) {}

QxDbExtents::QxDbExtents(const QxGePoint3d& minimum, const QxGePoint3d& maximum)
    : min_(minimum), max_(maximum) {}

Qxad::ErrorStatus QxDbExtents::set(const QxGePoint3d& minimum, const QxGePoint3d& maximum) {
  if (minimum.x > maximum.x || minimum.y > maximum.y || minimum.z > maximum.z) {
    return Qxad::eInvalidInput;
  }
  min_ = minimum;
  max_ = maximum;
  return Qxad::eOk;
}

void QxDbExtents::addPoint(const QxGePoint3d& p) {
  min_ = {std::fmin(min_.x, p.x), std::fmin(min_.y, p.y), std::fmin(min_.z, p.z)};
  max_ = {std::fmax(max_.x, p.x), std::fmax(max_.y, p.y), std::fmax(max_.z, p.z)};
}

void QxDbExtents::addExt(const QxDbExtents& other) {
  if (other.isEmpty()) return;
  addPoint(other.min_);
  addPoint(other.max_);
}

void QxDbExtents::expandBy(const QxGeVector3d& vector) {
  if (isEmpty()) return;
  QxDbExtents moved(min_ + vector, max_ + vector);
  addExt(moved);
}

void QxDbExtents::transformBy(const QxGeMatrix3d& matrix) {
  if (isEmpty()) return;
  QxDbExtents result;
  for (int corner = 0; corner < 8; ++corner) {
    QxGePoint3d p((corner & 1) ? max_.x : min_.x, (corner & 2) ? max_.y : min_.y,
                  (corner & 4) ? max_.z : min_.z);
    result.addPoint(matrix * p);
  }
  *this = result;
}
