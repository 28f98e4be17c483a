// Circles and arcs over their records: center in the object system of the normal,
// angles in degrees in the groups and radians in the interface.
#include <cmath>
#include <numbers>

#include "entity_members.h"
#include "object_system.h"
#include "qx_db_curves.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {
constexpr std::string_view kCircle = "AcDbCircle";
constexpr std::string_view kArc = "AcDbArc";
constexpr double kDegree = std::numbers::pi / 180;

korva::api::ObjectClassRegistration circleClass("CIRCLE", [] {
  return static_cast<QxDbObject*>(new QxDbCircle);
});
korva::api::ObjectClassRegistration arcClass("ARC",
                                             [] { return static_cast<QxDbObject*>(new QxDbArc); });

QxGePoint3d worldCenter(const QxDbObject* object) {
  return m::toPoint(
      korva::api::objectToWorld(m::point(object, 10, kCircle), m::normal(object, kCircle)));
}

Qxad::ErrorStatus setWorldCenter(QxDbObject* object, const QxGePoint3d& center) {
  Vec3 normal = m::normal(object, kCircle);
  return m::setPoint(object, 10, korva::api::worldToObject(m::fromPoint(center), normal), kCircle);
}

// A new normal keeps the center where it is in the world.
Qxad::ErrorStatus setNormalKeepingCenter(QxDbObject* object, const QxGeVector3d& normal) {
  if (normal.isZeroLength()) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = object->assertWriteEnabled(); status != Qxad::eOk) return status;
  QxGePoint3d center = worldCenter(object);
  m::setPoint(object, 210, m::fromVector(normal.normal()), kCircle);
  return setWorldCenter(object, center);
}

// Writes the planar groups in their usual order: thickness, center, radius, normal.
void writeCircleGroups(QxDbObject* object, const QxGePoint3d& center, const QxGeVector3d& normal,
                       double radius) {
  QxGeVector3d unit = normal.isZeroLength() ? QxGeVector3d::kZAxis : normal.normal();
  m::setPoint(object, 10, korva::api::worldToObject(m::fromPoint(center), m::fromVector(unit)),
              kCircle);
  m::setReal(object, 40, radius, kCircle);
  if (!unit.isEqualTo(QxGeVector3d::kZAxis)) m::setPoint(object, 210, m::fromVector(unit), kCircle);
}

}  // namespace

// ---- Circle

const QxRxClass* QxDbCircle::desc() {
  static const QxRxClass record(L"QxDbCircle", QxDbCurve::desc(), "CIRCLE");
  return &record;
}

QxDbCircle::QxDbCircle() : QxDbCircle(QxGePoint3d::kOrigin, QxGeVector3d::kZAxis, 1.0) {}

QxDbCircle::QxDbCircle(const QxGePoint3d& center, const QxGeVector3d& normal, double radius)
    : QxDbCurve("CIRCLE") {
  writeCircleGroups(this, center, normal, radius);
}

QxGePoint3d QxDbCircle::center() const {
  return worldCenter(this);
}
Qxad::ErrorStatus QxDbCircle::setCenter(const QxGePoint3d& center) {
  return setWorldCenter(this, center);
}
double QxDbCircle::radius() const {
  return m::real(this, 40, 0, kCircle);
}
Qxad::ErrorStatus QxDbCircle::setRadius(double radius) {
  if (!(radius > 0)) return Qxad::eInvalidInput;
  return m::setReal(this, 40, radius, kCircle);
}
QxGeVector3d QxDbCircle::normal() const {
  return m::toVector(m::normal(this, kCircle));
}
Qxad::ErrorStatus QxDbCircle::setNormal(const QxGeVector3d& normal) {
  return setNormalKeepingCenter(this, normal);
}
double QxDbCircle::thickness() const {
  return m::real(this, 39, 0, kCircle);
}
Qxad::ErrorStatus QxDbCircle::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kCircle);
}
double QxDbCircle::circumference() const {
  return 2 * std::numbers::pi * radius();
}

// ---- Arc

const QxRxClass* QxDbArc::desc() {
  static const QxRxClass record(L"QxDbArc", QxDbCurve::desc(), "ARC");
  return &record;
}

QxDbArc::QxDbArc() : QxDbArc(QxGePoint3d::kOrigin, 1.0, 0, std::numbers::pi) {}

QxDbArc::QxDbArc(const QxGePoint3d& center, double radius, double startAngle, double endAngle)
    : QxDbArc(center, QxGeVector3d::kZAxis, radius, startAngle, endAngle) {}

QxDbArc::QxDbArc(const QxGePoint3d& center, const QxGeVector3d& normal, double radius,
                 double startAngle, double endAngle)
    : QxDbCurve("ARC") {
  writeCircleGroups(this, center, normal, radius);
  m::setReal(this, 50, startAngle / kDegree, kArc);
  m::setReal(this, 51, endAngle / kDegree, kArc);
}

QxGePoint3d QxDbArc::center() const {
  return worldCenter(this);
}
Qxad::ErrorStatus QxDbArc::setCenter(const QxGePoint3d& center) {
  return setWorldCenter(this, center);
}
double QxDbArc::radius() const {
  return m::real(this, 40, 0, kCircle);
}
Qxad::ErrorStatus QxDbArc::setRadius(double radius) {
  if (!(radius > 0)) return Qxad::eInvalidInput;
  return m::setReal(this, 40, radius, kCircle);
}
double QxDbArc::startAngle() const {
  return m::real(this, 50, 0, kArc) * kDegree;
}
Qxad::ErrorStatus QxDbArc::setStartAngle(double angle) {
  return m::setReal(this, 50, angle / kDegree, kArc);
}
double QxDbArc::endAngle() const {
  return m::real(this, 51, 0, kArc) * kDegree;
}
Qxad::ErrorStatus QxDbArc::setEndAngle(double angle) {
  return m::setReal(this, 51, angle / kDegree, kArc);
}
double QxDbArc::totalAngle() const {
  double sweep = std::fmod(endAngle() - startAngle(), 2 * std::numbers::pi);
  if (sweep <= 0) sweep += 2 * std::numbers::pi;
  return sweep;
}
QxGeVector3d QxDbArc::normal() const {
  return m::toVector(m::normal(this, kCircle));
}
Qxad::ErrorStatus QxDbArc::setNormal(const QxGeVector3d& normal) {
  return setNormalKeepingCenter(this, normal);
}
double QxDbArc::thickness() const {
  return m::real(this, 39, 0, kCircle);
}
Qxad::ErrorStatus QxDbArc::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kCircle);
}
