// The 4x4 affine matrix of the geometry values.
#include <cmath>
#include <cstring>

#include "qx_ge.h"

namespace {

// The axes of a plane's coordinate system by the arbitrary-axis rule.
void planeAxes(const QxGeVector3d& normal, QxGeVector3d& x, QxGeVector3d& y, QxGeVector3d& z) {
  z = normal.normal();
  x = z.perpVector();
  y = z.crossProduct(x).normal();
}

}  // namespace

const QxGeMatrix3d QxGeMatrix3d::kIdentity;

QxGeMatrix3d::QxGeMatrix3d() {
  setToIdentity();
}

QxGeMatrix3d& QxGeMatrix3d::setToIdentity() {
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) entry[r][c] = r == c ? 1 : 0;
  }
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::setToProduct(const QxGeMatrix3d& left, const QxGeMatrix3d& right) {
  double result[4][4];
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      double sum = 0;
      for (int k = 0; k < 4; ++k) sum += left.entry[r][k] * right.entry[k][c];
      result[r][c] = sum;
    }
  }
  std::memcpy(entry, result, sizeof entry);
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::preMultBy(const QxGeMatrix3d& left) {
  return setToProduct(left, QxGeMatrix3d(*this));
}

QxGeMatrix3d& QxGeMatrix3d::postMultBy(const QxGeMatrix3d& right) {
  return setToProduct(QxGeMatrix3d(*this), right);
}

QxGeMatrix3d QxGeMatrix3d::operator*(const QxGeMatrix3d& right) const {
  QxGeMatrix3d product;
  return product.setToProduct(*this, right);
}

double QxGeMatrix3d::det() const {
  // The maps are affine: the determinant of the linear part.
  const auto& m = entry;
  return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
         m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
         m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

bool QxGeMatrix3d::isSingular(const QxGeTol& tol) const {
  return std::fabs(det()) <= tol.equalVector() * tol.equalVector();
}

bool QxGeMatrix3d::invert() {
  // Gauss-Jordan with partial pivoting on the full 4x4, so that any matrix set by
  // hand inverts too.
  double a[4][8];
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      a[r][c] = entry[r][c];
      a[r][c + 4] = r == c ? 1 : 0;
    }
  }
  for (int col = 0; col < 4; ++col) {
    int pivot = col;
    for (int r = col + 1; r < 4; ++r) {
      if (std::fabs(a[r][col]) > std::fabs(a[pivot][col])) pivot = r;
    }
    if (std::fabs(a[pivot][col]) < 1e-300) {
      setToIdentity();
      return false;
    }
    if (pivot != col) {
      for (int c = 0; c < 8; ++c) std::swap(a[pivot][c], a[col][c]);
    }
    double divisor = a[col][col];
    for (int c = 0; c < 8; ++c) a[col][c] /= divisor;
    for (int r = 0; r < 4; ++r) {
      if (r == col || a[r][col] == 0) continue;
      double factor = a[r][col];
      for (int c = 0; c < 8; ++c) a[r][c] -= factor * a[col][c];
    }
  }
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) entry[r][c] = a[r][c + 4];
  }
  return true;
}

QxGeMatrix3d QxGeMatrix3d::inverse() const {
  QxGeMatrix3d copy = *this;
  copy.invert();
  return copy;
}

bool QxGeMatrix3d::isEqualTo(const QxGeMatrix3d& other, const QxGeTol& tol) const {
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      if (std::fabs(entry[r][c] - other.entry[r][c]) > tol.equalVector()) return false;
    }
  }
  return true;
}

bool QxGeMatrix3d::isUniScaledOrtho(const QxGeTol& tol) const {
  QxGeVector3d axes[3];
  for (int c = 0; c < 3; ++c) axes[c] = {entry[0][c], entry[1][c], entry[2][c]};
  double length = axes[0].length();
  if (length <= tol.equalVector()) return false;
  // Relative comparisons, so that a drawing in large units is judged as a small one.
  double limit = 1e-9 * length * length;
  for (int c = 1; c < 3; ++c) {
    if (std::fabs(axes[c].length() - length) > 1e-9 * length) return false;
  }
  return std::fabs(axes[0].dotProduct(axes[1])) <= limit &&
         std::fabs(axes[0].dotProduct(axes[2])) <= limit &&
         std::fabs(axes[1].dotProduct(axes[2])) <= limit;
}

double QxGeMatrix3d::scale() const {
  double largest = 0;
  for (int c = 0; c < 3; ++c) {
    largest = std::fmax(largest, QxGeVector3d(entry[0][c], entry[1][c], entry[2][c]).length());
  }
  return largest;
}

QxGeVector3d QxGeMatrix3d::translation() const {
  return {entry[0][3], entry[1][3], entry[2][3]};
}

QxGeMatrix3d& QxGeMatrix3d::setToTranslation(const QxGeVector3d& vector) {
  setToIdentity();
  entry[0][3] = vector.x;
  entry[1][3] = vector.y;
  entry[2][3] = vector.z;
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::setToRotation(double angle, const QxGeVector3d& axis,
                                          const QxGePoint3d& center) {
  QxGeVector3d u = axis.normal();
  double c = std::cos(angle), s = std::sin(angle), t = 1 - c;
  setToIdentity();
  entry[0][0] = t * u.x * u.x + c;
  entry[0][1] = t * u.x * u.y - s * u.z;
  entry[0][2] = t * u.x * u.z + s * u.y;
  entry[1][0] = t * u.x * u.y + s * u.z;
  entry[1][1] = t * u.y * u.y + c;
  entry[1][2] = t * u.y * u.z - s * u.x;
  entry[2][0] = t * u.x * u.z - s * u.y;
  entry[2][1] = t * u.y * u.z + s * u.x;
  entry[2][2] = t * u.z * u.z + c;
  // Keep the center fixed: p -> R (p - c) + c.
  QxGeVector3d offset = center.asVector() - (*this * center.asVector());
  entry[0][3] = offset.x;
  entry[1][3] = offset.y;
  entry[2][3] = offset.z;
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::setToScaling(double factor, const QxGePoint3d& center) {
  return setToScaling(QxGeScale3d(factor), center);
}

QxGeMatrix3d& QxGeMatrix3d::setToScaling(const QxGeScale3d& factors, const QxGePoint3d& center) {
  setToIdentity();
  entry[0][0] = factors.sx;
  entry[1][1] = factors.sy;
  entry[2][2] = factors.sz;
  entry[0][3] = center.x * (1 - factors.sx);
  entry[1][3] = center.y * (1 - factors.sy);
  entry[2][3] = center.z * (1 - factors.sz);
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::setToMirroring(const QxGePlane& plane) {
  // p -> p - 2 ((p - o) . n) n
  QxGeVector3d n = plane.normal().normal();
  QxGePoint3d o = plane.pointOnPlane();
  setToIdentity();
  double nn[3] = {n.x, n.y, n.z};
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) entry[r][c] -= 2 * nn[r] * nn[c];
  }
  double d = 2 * o.asVector().dotProduct(n);
  entry[0][3] = d * n.x;
  entry[1][3] = d * n.y;
  entry[2][3] = d * n.z;
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::setToMirroring(const QxGePoint3d& point) {
  setToScaling(-1.0, point);
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::setToPlaneToWorld(const QxGeVector3d& normal) {
  QxGeVector3d x, y, z;
  planeAxes(normal, x, y, z);
  return setCoordSystem(QxGePoint3d::kOrigin, x, y, z);
}

QxGeMatrix3d& QxGeMatrix3d::setToPlaneToWorld(const QxGePlane& plane) {
  QxGeVector3d x, y, z;
  planeAxes(plane.normal(), x, y, z);
  // The plane's own origin is the point of the plane nearest the world origin.
  return setCoordSystem(plane.closestPointTo(QxGePoint3d::kOrigin), x, y, z);
}

QxGeMatrix3d& QxGeMatrix3d::setToWorldToPlane(const QxGeVector3d& normal) {
  setToPlaneToWorld(normal);
  invert();
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::setToWorldToPlane(const QxGePlane& plane) {
  setToPlaneToWorld(plane);
  invert();
  return *this;
}

QxGeMatrix3d& QxGeMatrix3d::setCoordSystem(const QxGePoint3d& origin, const QxGeVector3d& xAxis,
                                           const QxGeVector3d& yAxis, const QxGeVector3d& zAxis) {
  setToIdentity();
  const QxGeVector3d* axes[3] = {&xAxis, &yAxis, &zAxis};
  for (int c = 0; c < 3; ++c) {
    entry[0][c] = axes[c]->x;
    entry[1][c] = axes[c]->y;
    entry[2][c] = axes[c]->z;
  }
  entry[0][3] = origin.x;
  entry[1][3] = origin.y;
  entry[2][3] = origin.z;
  return *this;
}

void QxGeMatrix3d::getCoordSystem(QxGePoint3d& origin, QxGeVector3d& xAxis, QxGeVector3d& yAxis,
                                  QxGeVector3d& zAxis) const {
  xAxis = {entry[0][0], entry[1][0], entry[2][0]};
  yAxis = {entry[0][1], entry[1][1], entry[2][1]};
  zAxis = {entry[0][2], entry[1][2], entry[2][2]};
  origin = {entry[0][3], entry[1][3], entry[2][3]};
}

QxGeMatrix3d& QxGeMatrix3d::setToAlignCoordSys(
    const QxGePoint3d& fromOrigin, const QxGeVector3d& fromXAxis, const QxGeVector3d& fromYAxis,
    const QxGeVector3d& fromZAxis, const QxGePoint3d& toOrigin, const QxGeVector3d& toXAxis,
    const QxGeVector3d& toYAxis, const QxGeVector3d& toZAxis) {
  QxGeMatrix3d from, to;
  from.setCoordSystem(fromOrigin, fromXAxis, fromYAxis, fromZAxis);
  to.setCoordSystem(toOrigin, toXAxis, toYAxis, toZAxis);
  return setToProduct(to, from.inverse());
}

QxGeMatrix3d QxGeMatrix3d::translation(const QxGeVector3d& vector) {
  return QxGeMatrix3d().setToTranslation(vector);
}

QxGeMatrix3d QxGeMatrix3d::rotation(double angle, const QxGeVector3d& axis,
                                    const QxGePoint3d& center) {
  return QxGeMatrix3d().setToRotation(angle, axis, center);
}

QxGeMatrix3d QxGeMatrix3d::scaling(double factor, const QxGePoint3d& center) {
  return QxGeMatrix3d().setToScaling(factor, center);
}

QxGeMatrix3d QxGeMatrix3d::scaling(const QxGeScale3d& factors, const QxGePoint3d& center) {
  return QxGeMatrix3d().setToScaling(factors, center);
}

QxGeMatrix3d QxGeMatrix3d::mirroring(const QxGePlane& plane) {
  return QxGeMatrix3d().setToMirroring(plane);
}

QxGeMatrix3d QxGeMatrix3d::mirroring(const QxGePoint3d& point) {
  return QxGeMatrix3d().setToMirroring(point);
}

QxGeMatrix3d QxGeMatrix3d::worldToPlane(const QxGeVector3d& normal) {
  return QxGeMatrix3d().setToWorldToPlane(normal);
}

QxGeMatrix3d QxGeMatrix3d::worldToPlane(const QxGePlane& plane) {
  return QxGeMatrix3d().setToWorldToPlane(plane);
}

QxGeMatrix3d QxGeMatrix3d::planeToWorld(const QxGeVector3d& normal) {
  return QxGeMatrix3d().setToPlaneToWorld(normal);
}

QxGeMatrix3d QxGeMatrix3d::planeToWorld(const QxGePlane& plane) {
  return QxGeMatrix3d().setToPlaneToWorld(plane);
}

QxGeMatrix3d QxGeMatrix3d::alignCoordSys(const QxGePoint3d& fromOrigin,
                                         const QxGeVector3d& fromXAxis,
                                         const QxGeVector3d& fromYAxis,
                                         const QxGeVector3d& fromZAxis, const QxGePoint3d& toOrigin,
                                         const QxGeVector3d& toXAxis, const QxGeVector3d& toYAxis,
                                         const QxGeVector3d& toZAxis) {
  return QxGeMatrix3d().setToAlignCoordSys(fromOrigin, fromXAxis, fromYAxis, fromZAxis, toOrigin,
                                           toXAxis, toYAxis, toZAxis);
}
