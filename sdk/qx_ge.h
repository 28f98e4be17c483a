// Geometry values of the object layer: points, vectors, scales, matrices, planes and
// lines, with the tolerance that decides when two of them are equal.
#pragma once

class QxGeMatrix3d;
class QxGePlane;

// Two lengths: points closer than equalPoint are equal; vectors whose difference is
// shorter than equalVector are equal.
class QxGeTol {
 public:
  QxGeTol() = default;
  double equalPoint() const { return equalPoint_; }
  double equalVector() const { return equalVector_; }
  void setEqualPoint(double value) { equalPoint_ = value; }
  void setEqualVector(double value) { equalVector_ = value; }

 private:
  double equalPoint_ = 1e-10;
  double equalVector_ = 1e-10;
};

struct QxGeContext {
  // The tolerance that every comparison uses unless it is given one.
  static QxGeTol gTol;
};

class QxGeVector2d {
 public:
  QxGeVector2d() = default;
  QxGeVector2d(double xValue, double yValue) : x(xValue), y(yValue) {}

  double length() const;
  double dotProduct(const QxGeVector2d& other) const { return x * other.x + y * other.y; }
  // Counterclockwise angle from the X axis, in [0, 2 pi).
  double angle() const;
  QxGeVector2d normal(const QxGeTol& tol = QxGeContext::gTol) const;
  QxGeVector2d& normalize(const QxGeTol& tol = QxGeContext::gTol);
  bool isEqualTo(const QxGeVector2d& other, const QxGeTol& tol = QxGeContext::gTol) const;

  QxGeVector2d operator+(const QxGeVector2d& v) const { return {x + v.x, y + v.y}; }
  QxGeVector2d operator-(const QxGeVector2d& v) const { return {x - v.x, y - v.y}; }
  QxGeVector2d operator-() const { return {-x, -y}; }
  QxGeVector2d operator*(double f) const { return {x * f, y * f}; }
  bool operator==(const QxGeVector2d& v) const { return isEqualTo(v); }

  static const QxGeVector2d kXAxis;
  static const QxGeVector2d kYAxis;
  double x = 0, y = 0;
};

class QxGePoint2d {
 public:
  QxGePoint2d() = default;
  QxGePoint2d(double xValue, double yValue) : x(xValue), y(yValue) {}

  double distanceTo(const QxGePoint2d& other) const;
  bool isEqualTo(const QxGePoint2d& other, const QxGeTol& tol = QxGeContext::gTol) const;

  QxGePoint2d operator+(const QxGeVector2d& v) const { return {x + v.x, y + v.y}; }
  QxGePoint2d operator-(const QxGeVector2d& v) const { return {x - v.x, y - v.y}; }
  QxGeVector2d operator-(const QxGePoint2d& p) const { return {x - p.x, y - p.y}; }
  bool operator==(const QxGePoint2d& p) const { return isEqualTo(p); }

  static const QxGePoint2d kOrigin;
  double x = 0, y = 0;
};

class QxGeVector3d {
 public:
  QxGeVector3d() = default;
  QxGeVector3d(double xValue, double yValue, double zValue) : x(xValue), y(yValue), z(zValue) {}

  double length() const;
  double lengthSqrd() const { return x * x + y * y + z * z; }
  bool isZeroLength(const QxGeTol& tol = QxGeContext::gTol) const;
  double dotProduct(const QxGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
  QxGeVector3d crossProduct(const QxGeVector3d& v) const {
    return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
  }
  // The angle between the two, in [0, pi].
  double angleTo(const QxGeVector3d& other) const;
  // Counterclockwise about reference, in [0, 2 pi).
  double angleTo(const QxGeVector3d& other, const QxGeVector3d& reference) const;
  // The unit vector of the same direction; a vector shorter than equalVector stays as it is.
  QxGeVector3d normal(const QxGeTol& tol = QxGeContext::gTol) const;
  QxGeVector3d& normalize(const QxGeTol& tol = QxGeContext::gTol);
  // Some unit vector perpendicular to this one.
  QxGeVector3d perpVector() const;
  bool isEqualTo(const QxGeVector3d& other, const QxGeTol& tol = QxGeContext::gTol) const;
  bool isParallelTo(const QxGeVector3d& other, const QxGeTol& tol = QxGeContext::gTol) const;
  bool isPerpendicularTo(const QxGeVector3d& other, const QxGeTol& tol = QxGeContext::gTol) const;
  QxGeVector3d& transformBy(const QxGeMatrix3d& matrix);  // the linear part only
  QxGeVector3d& rotateBy(double angle, const QxGeVector3d& axis);
  QxGeVector3d& negate() {
    x = -x, y = -y, z = -z;
    return *this;
  }

  QxGeVector3d operator+(const QxGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
  QxGeVector3d operator-(const QxGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
  QxGeVector3d operator-() const { return {-x, -y, -z}; }
  QxGeVector3d operator*(double f) const { return {x * f, y * f, z * f}; }
  QxGeVector3d operator/(double f) const { return {x / f, y / f, z / f}; }
  QxGeVector3d& operator+=(const QxGeVector3d& v) {
    x += v.x, y += v.y, z += v.z;
    return *this;
  }
  QxGeVector3d& operator-=(const QxGeVector3d& v) {
    x -= v.x, y -= v.y, z -= v.z;
    return *this;
  }
  QxGeVector3d& operator*=(double f) {
    x *= f, y *= f, z *= f;
    return *this;
  }
  bool operator==(const QxGeVector3d& v) const { return isEqualTo(v); }
  double operator[](int i) const { return i == 0 ? x : i == 1 ? y : z; }

  static const QxGeVector3d kIdentity;  // zero
  static const QxGeVector3d kXAxis;
  static const QxGeVector3d kYAxis;
  static const QxGeVector3d kZAxis;
  double x = 0, y = 0, z = 0;
};

inline QxGeVector3d operator*(double f, const QxGeVector3d& v) {
  return v * f;
}

class QxGePoint3d {
 public:
  QxGePoint3d() = default;
  QxGePoint3d(double xValue, double yValue, double zValue) : x(xValue), y(yValue), z(zValue) {}

  double distanceTo(const QxGePoint3d& other) const;
  bool isEqualTo(const QxGePoint3d& other, const QxGeTol& tol = QxGeContext::gTol) const;
  // About the axis through wrtPoint, counterclockwise looking down the axis.
  QxGePoint3d& rotateBy(double angle, const QxGeVector3d& axis,
                        const QxGePoint3d& wrtPoint = kOrigin);
  QxGePoint3d& transformBy(const QxGeMatrix3d& matrix);
  QxGePoint3d& scaleBy(double factor, const QxGePoint3d& wrtPoint = kOrigin);
  // The point projected perpendicularly on the plane.
  QxGePoint3d orthoProject(const QxGePlane& plane) const;
  QxGeVector3d asVector() const { return {x, y, z}; }

  QxGePoint3d operator+(const QxGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
  QxGePoint3d operator-(const QxGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
  QxGeVector3d operator-(const QxGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
  QxGePoint3d& operator+=(const QxGeVector3d& v) {
    x += v.x, y += v.y, z += v.z;
    return *this;
  }
  QxGePoint3d& operator-=(const QxGeVector3d& v) {
    x -= v.x, y -= v.y, z -= v.z;
    return *this;
  }
  bool operator==(const QxGePoint3d& p) const { return isEqualTo(p); }
  double operator[](int i) const { return i == 0 ? x : i == 1 ? y : z; }

  static const QxGePoint3d kOrigin;
  double x = 0, y = 0, z = 0;
};

QxGePoint3d operator*(const QxGeMatrix3d& matrix, const QxGePoint3d& point);
QxGeVector3d operator*(const QxGeMatrix3d& matrix, const QxGeVector3d& vector);

class QxGeScale3d {
 public:
  QxGeScale3d() = default;
  explicit QxGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
  QxGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}
  // Factors compare as lengths, by equalPoint.
  bool isEqualTo(const QxGeScale3d& other, const QxGeTol& tol = QxGeContext::gTol) const;
  QxGeScale3d operator*(const QxGeScale3d& o) const { return {sx * o.sx, sy * o.sy, sz * o.sz}; }
  QxGeScale3d operator*(double f) const { return {sx * f, sy * f, sz * f}; }
  bool operator==(const QxGeScale3d& o) const { return isEqualTo(o); }

  double sx = 1, sy = 1, sz = 1;
};

// An affine map of space as a 4x4 matrix acting on column vectors: entry[row][col],
// translation in the last column.
class QxGeMatrix3d {
 public:
  QxGeMatrix3d();  // the identity

  QxGeMatrix3d& setToIdentity();
  QxGeMatrix3d& setToProduct(const QxGeMatrix3d& left, const QxGeMatrix3d& right);
  QxGeMatrix3d& preMultBy(const QxGeMatrix3d& left);    // left * this
  QxGeMatrix3d& postMultBy(const QxGeMatrix3d& right);  // this * right
  QxGeMatrix3d operator*(const QxGeMatrix3d& right) const;
  QxGeMatrix3d& operator*=(const QxGeMatrix3d& right) { return postMultBy(right); }

  // The inverse; a singular matrix gives the identity (and invert() false).
  QxGeMatrix3d inverse() const;
  bool invert();
  bool isSingular(const QxGeTol& tol = QxGeContext::gTol) const;
  double det() const;
  bool isEqualTo(const QxGeMatrix3d& other, const QxGeTol& tol = QxGeContext::gTol) const;
  // Whether the linear part is a rotation (or mirror) times one scale factor.
  bool isUniScaledOrtho(const QxGeTol& tol = QxGeContext::gTol) const;
  // The largest factor by which the map stretches a length.
  double scale() const;

  // The translation part.
  QxGeVector3d translation() const;

  QxGeMatrix3d& setToTranslation(const QxGeVector3d& vector);
  QxGeMatrix3d& setToRotation(double angle, const QxGeVector3d& axis,
                              const QxGePoint3d& center = QxGePoint3d::kOrigin);
  QxGeMatrix3d& setToScaling(double factor, const QxGePoint3d& center = QxGePoint3d::kOrigin);
  QxGeMatrix3d& setToScaling(const QxGeScale3d& factors,
                             const QxGePoint3d& center = QxGePoint3d::kOrigin);
  QxGeMatrix3d& setToMirroring(const QxGePlane& plane);
  QxGeMatrix3d& setToMirroring(const QxGePoint3d& point);
  // Maps the world to the coordinate system of the plane whose normal is given, by the
  // arbitrary-axis rule (origin at the world origin).
  QxGeMatrix3d& setToWorldToPlane(const QxGeVector3d& normal);
  QxGeMatrix3d& setToWorldToPlane(const QxGePlane& plane);
  QxGeMatrix3d& setToPlaneToWorld(const QxGeVector3d& normal);
  QxGeMatrix3d& setToPlaneToWorld(const QxGePlane& plane);
  // Maps the coordinates of a system given in world terms to the world: columns are
  // the axes, the last column the origin.
  QxGeMatrix3d& setCoordSystem(const QxGePoint3d& origin, const QxGeVector3d& xAxis,
                               const QxGeVector3d& yAxis, const QxGeVector3d& zAxis);
  void getCoordSystem(QxGePoint3d& origin, QxGeVector3d& xAxis, QxGeVector3d& yAxis,
                      QxGeVector3d& zAxis) const;
  // Carries the first system onto the second.
  QxGeMatrix3d& setToAlignCoordSys(const QxGePoint3d& fromOrigin, const QxGeVector3d& fromXAxis,
                                   const QxGeVector3d& fromYAxis, const QxGeVector3d& fromZAxis,
                                   const QxGePoint3d& toOrigin, const QxGeVector3d& toXAxis,
                                   const QxGeVector3d& toYAxis, const QxGeVector3d& toZAxis);

  static QxGeMatrix3d translation(const QxGeVector3d& vector);
  static QxGeMatrix3d rotation(double angle, const QxGeVector3d& axis,
                               const QxGePoint3d& center = QxGePoint3d::kOrigin);
  static QxGeMatrix3d scaling(double factor, const QxGePoint3d& center = QxGePoint3d::kOrigin);
  static QxGeMatrix3d scaling(const QxGeScale3d& factors,
                              const QxGePoint3d& center = QxGePoint3d::kOrigin);
  static QxGeMatrix3d mirroring(const QxGePlane& plane);
  static QxGeMatrix3d mirroring(const QxGePoint3d& point);
  static QxGeMatrix3d worldToPlane(const QxGeVector3d& normal);
  static QxGeMatrix3d worldToPlane(const QxGePlane& plane);
  static QxGeMatrix3d planeToWorld(const QxGeVector3d& normal);
  static QxGeMatrix3d planeToWorld(const QxGePlane& plane);
  static QxGeMatrix3d alignCoordSys(const QxGePoint3d& fromOrigin, const QxGeVector3d& fromXAxis,
                                    const QxGeVector3d& fromYAxis, const QxGeVector3d& fromZAxis,
                                    const QxGePoint3d& toOrigin, const QxGeVector3d& toXAxis,
                                    const QxGeVector3d& toYAxis, const QxGeVector3d& toZAxis);

  double operator()(int row, int column) const { return entry[row][column]; }
  double& operator()(int row, int column) { return entry[row][column]; }

  static const QxGeMatrix3d kIdentity;
  double entry[4][4];
};

// An unbounded plane through a point with a unit normal.
class QxGePlane {
 public:
  QxGePlane();  // the world X-Y plane
  QxGePlane(const QxGePoint3d& origin, const QxGeVector3d& normal);
  // Through origin, spanned by the two vectors (normal = u x v).
  QxGePlane(const QxGePoint3d& origin, const QxGeVector3d& uAxis, const QxGeVector3d& vAxis);

  QxGePlane& set(const QxGePoint3d& origin, const QxGeVector3d& normal);
  QxGePlane& set(const QxGePoint3d& origin, const QxGeVector3d& uAxis, const QxGeVector3d& vAxis);
  QxGeVector3d normal() const { return normal_; }
  QxGePoint3d pointOnPlane() const { return origin_; }
  // ax + by + cz + d = 0
  void getCoefficients(double& a, double& b, double& c, double& d) const;
  // Signed: positive on the side the normal points to.
  double signedDistanceTo(const QxGePoint3d& point) const;
  double distanceTo(const QxGePoint3d& point) const;
  QxGePoint3d closestPointTo(const QxGePoint3d& point) const;
  bool isOn(const QxGePoint3d& point, const QxGeTol& tol = QxGeContext::gTol) const;

  static const QxGePlane kXYPlane;

 private:
  QxGePoint3d origin_;
  QxGeVector3d normal_{0, 0, 1};
};

// A curve of space, of which the object layer needs only the nearest point.
class QxGeCurve3d {
 public:
  virtual ~QxGeCurve3d() = default;
  virtual QxGePoint3d closestPointTo(const QxGePoint3d& point,
                                     const QxGeTol& tol = QxGeContext::gTol) const = 0;
};

// An unbounded line.
class QxGeLine3d : public QxGeCurve3d {
 public:
  QxGeLine3d() = default;  // the world X axis
  QxGeLine3d(const QxGePoint3d& point, const QxGeVector3d& direction);
  QxGeLine3d(const QxGePoint3d& first, const QxGePoint3d& second);

  QxGePoint3d pointOnLine() const { return point_; }
  QxGeVector3d direction() const { return direction_; }  // unit length
  QxGePoint3d closestPointTo(const QxGePoint3d& point,
                             const QxGeTol& tol = QxGeContext::gTol) const override;
  double distanceTo(const QxGePoint3d& point) const;

 private:
  QxGePoint3d point_;
  QxGeVector3d direction_{1, 0, 0};
};

// The segment between two points.
class QxGeLineSeg3d : public QxGeCurve3d {
 public:
  QxGeLineSeg3d() = default;
  QxGeLineSeg3d(const QxGePoint3d& start, const QxGePoint3d& end) : start_(start), end_(end) {}

  QxGePoint3d startPoint() const { return start_; }
  QxGePoint3d endPoint() const { return end_; }
  QxGePoint3d midPoint() const;
  double length() const;
  QxGeVector3d direction() const;  // unit length; zero for a degenerate segment
  QxGePoint3d closestPointTo(const QxGePoint3d& point,
                             const QxGeTol& tol = QxGeContext::gTol) const override;
  QxGeLineSeg3d& set(const QxGePoint3d& start, const QxGePoint3d& end) {
    start_ = start, end_ = end;
    return *this;
  }

 private:
  QxGePoint3d start_;
  QxGePoint3d end_;
};
