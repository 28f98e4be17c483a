// The point entity: a world position (10), thickness (39) and normal (210).
#include "entity_members.h"
#include "qx_db_point.h"

namespace m = korva::api::members;

namespace {
constexpr std::string_view kPoint = "AcDbPoint";

korva::api::ObjectClassRegistration pointClass("POINT", [] {
  return static_cast<QxDbObject*>(new QxDbPoint);
});
}  // namespace

const QxRxClass* QxDbPoint::desc() {
  static const QxRxClass record(L"QxDbPoint", QxDbEntity::desc(), "POINT");
  return &record;
}

QxDbPoint::QxDbPoint() : QxDbPoint(QxGePoint3d::kOrigin) {}

QxDbPoint::QxDbPoint(const QxGePoint3d& position) : QxDbEntity("POINT") {
  m::setPoint(this, 10, m::fromPoint(position), kPoint);
}

QxGePoint3d QxDbPoint::position() const {
  return m::toPoint(m::point(this, 10, kPoint));
}
Qxad::ErrorStatus QxDbPoint::setPosition(const QxGePoint3d& position) {
  return m::setPoint(this, 10, m::fromPoint(position), kPoint);
}
double QxDbPoint::thickness() const {
  return m::real(this, 39, 0, kPoint);
}
Qxad::ErrorStatus QxDbPoint::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kPoint);
}
QxGeVector3d QxDbPoint::normal() const {
  return m::toVector(m::normal(this, kPoint));
}
Qxad::ErrorStatus QxDbPoint::setNormal(const QxGeVector3d& normal) {
  if (normal.isZeroLength()) return Qxad::eInvalidInput;
  return m::setPoint(this, 210, m::fromVector(normal.normal()), kPoint);
}

Qxad::ErrorStatus QxDbPoint::getGeomExtents(QxDbExtents& extents) const {
  extents = QxDbExtents(position(), position());
  extents.expandBy(normal() * thickness());
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbPoint::transformBy(const QxGeMatrix3d& matrix) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  QxGeVector3d extrusion = matrix * (normal() * thickness());
  setPosition(matrix * position());
  if (!extrusion.isZeroLength()) {
    setNormal(extrusion);
    setThickness(extrusion.length());
  }
  return Qxad::eOk;
}
