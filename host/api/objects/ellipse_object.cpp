// Ellipses over their records: world center and major axis, ratio, and the start and
// end parameters (eccentric angles) in 41 and 42.
#include <cmath>
#include <numbers>

#include "entity_members.h"
#include "qx_db_curves.h"

namespace m = korva::api::members;

namespace {
constexpr std::string_view kEllipse = "AcDbEllipse";
constexpr double kTwoPi = 2 * std::numbers::pi;

korva::api::ObjectClassRegistration ellipseClass("ELLIPSE", [] {
  return static_cast<QxDbObject*>(new QxDbEllipse);
});
}  // namespace

const QxRxClass* QxDbEllipse::desc() {
  static const QxRxClass record(L"QxDbEllipse", QxDbCurve::desc(), "ELLIPSE");
  return &record;
}

QxDbEllipse::QxDbEllipse()
    : QxDbEllipse(QxGePoint3d::kOrigin, QxGeVector3d::kZAxis, QxGeVector3d::kXAxis, 1.0) {}

QxDbEllipse::QxDbEllipse(const QxGePoint3d& center, const QxGeVector3d& unitNormal,
                         const QxGeVector3d& majorAxis, double radiusRatio, double startParam,
                         double endParam)
    : QxDbCurve("ELLIPSE") {
  // Invalid data leave the defaults of a unit circle.
  if (set(center, unitNormal, majorAxis, radiusRatio, startParam, endParam) != Qxad::eOk) {
    set(QxGePoint3d::kOrigin, QxGeVector3d::kZAxis, QxGeVector3d::kXAxis, 1.0);
  }
}

Qxad::ErrorStatus QxDbEllipse::set(const QxGePoint3d& center, const QxGeVector3d& unitNormal,
                                   const QxGeVector3d& majorAxis, double radiusRatio,
                                   double startParam, double endParam) {
  QxGeTol square;  // axes given by hand are perpendicular to a few digits only
  square.setEqualVector(1e-6);
  if (majorAxis.isZeroLength() || unitNormal.isZeroLength() || !(radiusRatio > 0) ||
      radiusRatio > 1 || !unitNormal.isPerpendicularTo(majorAxis, square)) {
    return Qxad::eInvalidInput;
  }
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  m::setPoint(this, 10, m::fromPoint(center), kEllipse);
  m::setPoint(this, 11, m::fromVector(majorAxis), kEllipse);
  m::setPoint(this, 210, m::fromVector(unitNormal.normal()), kEllipse);
  m::setReal(this, 40, radiusRatio, kEllipse);
  m::setReal(this, 41, startParam, kEllipse);
  return m::setReal(this, 42, endParam, kEllipse);
}

QxGePoint3d QxDbEllipse::center() const {
  return m::toPoint(m::point(this, 10, kEllipse));
}
Qxad::ErrorStatus QxDbEllipse::setCenter(const QxGePoint3d& center) {
  return m::setPoint(this, 10, m::fromPoint(center), kEllipse);
}
QxGeVector3d QxDbEllipse::normal() const {
  return m::toVector(m::normal(this, kEllipse));
}
QxGeVector3d QxDbEllipse::majorAxis() const {
  return m::toVector(m::point(this, 11, kEllipse, {1, 0, 0}));
}
QxGeVector3d QxDbEllipse::minorAxis() const {
  return normal().crossProduct(majorAxis()) * radiusRatio();
}
double QxDbEllipse::radiusRatio() const {
  return m::real(this, 40, 1, kEllipse);
}
Qxad::ErrorStatus QxDbEllipse::setRadiusRatio(double ratio) {
  if (!(ratio > 0) || ratio > 1) return Qxad::eInvalidInput;
  return m::setReal(this, 40, ratio, kEllipse);
}

double QxDbEllipse::angleAtParam(double param) const {
  // The polar angle of the point at the parameter, kept in the parameter's turn.
  double ratio = radiusRatio();
  double angle = std::atan2(ratio * std::sin(param), std::cos(param));
  return angle + kTwoPi * std::round((param - angle) / kTwoPi);
}

double QxDbEllipse::paramAtAngle(double angle) const {
  double ratio = radiusRatio();
  double param = std::atan2(std::sin(angle), ratio * std::cos(angle));
  return param + kTwoPi * std::round((angle - param) / kTwoPi);
}

double QxDbEllipse::startAngle() const {
  return angleAtParam(m::real(this, 41, 0, kEllipse));
}
double QxDbEllipse::endAngle() const {
  return angleAtParam(m::real(this, 42, kTwoPi, kEllipse));
}
Qxad::ErrorStatus QxDbEllipse::setStartAngle(double angle) {
  return m::setReal(this, 41, paramAtAngle(angle), kEllipse);
}
Qxad::ErrorStatus QxDbEllipse::setEndAngle(double angle) {
  return m::setReal(this, 42, paramAtAngle(angle), kEllipse);
}
