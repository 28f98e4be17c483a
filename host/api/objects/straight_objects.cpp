// Lines, rays and construction lines over their records.
#include "entity_members.h"
#include "qx_db_curves.h"

namespace m = korva::api::members;

namespace {
constexpr std::string_view kLine = "AcDbLine";
constexpr std::string_view kRay = "AcDbRay";
constexpr std::string_view kXline = "AcDbXline";

korva::api::ObjectClassRegistration lineClass("LINE", [] {
  return static_cast<QxDbObject*>(new QxDbLine);
});
korva::api::ObjectClassRegistration rayClass("RAY",
                                             [] { return static_cast<QxDbObject*>(new QxDbRay); });
korva::api::ObjectClassRegistration xlineClass("XLINE", [] {
  return static_cast<QxDbObject*>(new QxDbXline);
});

Qxad::ErrorStatus setDirection(QxDbObject* object, const QxGeVector3d& direction,
                               std::string_view part) {
  if (direction.isZeroLength()) return Qxad::eInvalidInput;
  return m::setPoint(object, 11, m::fromVector(direction.normal()), part);
}

}  // namespace

// ---- Line

const QxRxClass* QxDbLine::desc() {
  static const QxRxClass record(L"QxDbLine", QxDbCurve::desc(), "LINE");
  return &record;
}

QxDbLine::QxDbLine() : QxDbLine(QxGePoint3d::kOrigin, QxGePoint3d::kOrigin) {}

QxDbLine::QxDbLine(const QxGePoint3d& start, const QxGePoint3d& end) : QxDbCurve("LINE") {
  m::setPoint(this, 10, m::fromPoint(start), kLine);
  m::setPoint(this, 11, m::fromPoint(end), kLine);
}

QxGePoint3d QxDbLine::startPoint() const {
  return m::toPoint(m::point(this, 10, kLine));
}
QxGePoint3d QxDbLine::endPoint() const {
  return m::toPoint(m::point(this, 11, kLine));
}
Qxad::ErrorStatus QxDbLine::setStartPoint(const QxGePoint3d& point) {
  return m::setPoint(this, 10, m::fromPoint(point), kLine);
}
Qxad::ErrorStatus QxDbLine::setEndPoint(const QxGePoint3d& point) {
  return m::setPoint(this, 11, m::fromPoint(point), kLine);
}
double QxDbLine::thickness() const {
  return m::real(this, 39, 0, kLine);
}
Qxad::ErrorStatus QxDbLine::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kLine);
}
QxGeVector3d QxDbLine::normal() const {
  return m::toVector(m::normal(this, kLine));
}
Qxad::ErrorStatus QxDbLine::setNormal(const QxGeVector3d& normal) {
  if (normal.isZeroLength()) return Qxad::eInvalidInput;
  return m::setPoint(this, 210, m::fromVector(normal.normal()), kLine);
}

// ---- Ray

const QxRxClass* QxDbRay::desc() {
  static const QxRxClass record(L"QxDbRay", QxDbCurve::desc(), "RAY");
  return &record;
}

QxDbRay::QxDbRay() : QxDbCurve("RAY") {
  m::setPoint(this, 10, {}, kRay);
  m::setPoint(this, 11, {1, 0, 0}, kRay);
}

QxGePoint3d QxDbRay::basePoint() const {
  return m::toPoint(m::point(this, 10, kRay));
}
Qxad::ErrorStatus QxDbRay::setBasePoint(const QxGePoint3d& point) {
  return m::setPoint(this, 10, m::fromPoint(point), kRay);
}
QxGeVector3d QxDbRay::unitDir() const {
  return m::toVector(m::point(this, 11, kRay, {1, 0, 0}));
}
Qxad::ErrorStatus QxDbRay::setUnitDir(const QxGeVector3d& direction) {
  return setDirection(this, direction, kRay);
}

// ---- Construction line

const QxRxClass* QxDbXline::desc() {
  static const QxRxClass record(L"QxDbXline", QxDbCurve::desc(), "XLINE");
  return &record;
}

QxDbXline::QxDbXline() : QxDbCurve("XLINE") {
  m::setPoint(this, 10, {}, kXline);
  m::setPoint(this, 11, {1, 0, 0}, kXline);
}

QxGePoint3d QxDbXline::basePoint() const {
  return m::toPoint(m::point(this, 10, kXline));
}
Qxad::ErrorStatus QxDbXline::setBasePoint(const QxGePoint3d& point) {
  return m::setPoint(this, 10, m::fromPoint(point), kXline);
}
QxGeVector3d QxDbXline::unitDir() const {
  return m::toVector(m::point(this, 11, kXline, {1, 0, 0}));
}
Qxad::ErrorStatus QxDbXline::setUnitDir(const QxGeVector3d& direction) {
  return setDirection(this, direction, kXline);
}
