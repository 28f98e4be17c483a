// Old-style polylines (POLYLINE, its VERTEX records, SEQEND) and their vertices. The
// flags (70) tell the kinds apart: 8 makes a 3D polyline, 2 fit and 4 spline curves.
#include "entity_members.h"
#include "object_groups.h"
#include "polyline_vertices.h"
#include "qx_db_polylines.h"

namespace m = korva::api::members;

namespace {
constexpr std::string_view k2dPolyline = "AcDb2dPolyline";
constexpr std::string_view k3dPolyline = "AcDb3dPolyline";
constexpr std::string_view k2dVertex = "AcDb2dVertex";
constexpr std::string_view k3dVertex = "AcDb3dPolylineVertex";

// POLYLINE and VERTEX records open as the class their flags name; meshes fall through
// to the general entity.
korva::api::ObjectChooserRegistration polylineClass("POLYLINE", [](const korva::db::Record& r) {
  long long flags = korva::api::groupInteger(r, 70, 0);
  if (flags & (16 | 64)) return static_cast<QxDbObject*>(nullptr);
  if (flags & 8) return static_cast<QxDbObject*>(new QxDb3dPolyline);
  return static_cast<QxDbObject*>(new QxDb2dPolyline);
});
korva::api::ObjectChooserRegistration vertexClass("VERTEX", [](const korva::db::Record& r) {
  long long flags = korva::api::groupInteger(r, 70, 0);
  if (flags & (64 | 128)) return static_cast<QxDbObject*>(nullptr);
  if (flags & 32) return static_cast<QxDbObject*>(new QxDb3dPolylineVertex);
  return static_cast<QxDbObject*>(new QxDb2dVertex);
});

QxDbObjectIterator* iteratorOf(const QxDbObject* polyline) {
  korva::db::Database* database = korva::api::databaseOf(*polyline);
  if (!database) return nullptr;
  std::vector<QxDbObjectId> ids;
  for (korva::db::Record* vertex :
       korva::api::vertexRecordsOf(*database, korva::api::recordOf(*polyline))) {
    ids.push_back(korva::api::idOf(*database, *vertex));
  }
  return new QxDbObjectIterator(std::move(ids));
}

// The polyline a vertex follows, for defaults it takes from there.
// The polyline a vertex belongs to, by its owner link.
const korva::db::Record* ownerPolyline(const QxDbObject* vertex) {
  korva::db::Database* database = korva::api::databaseOf(*vertex);
  if (!database) return nullptr;
  const korva::db::Record* owner = database->lookup(korva::api::recordOf(*vertex).owner());
  return owner && owner->type() == "POLYLINE" ? owner : nullptr;
}

}  // namespace

// ---- 2D polyline

const QxRxClass* QxDb2dPolyline::desc() {
  static const QxRxClass record(L"QxDb2dPolyline", QxDbCurve::desc(), "POLYLINE");
  return &record;
}

QxDb2dPolyline::QxDb2dPolyline() : QxDbCurve("POLYLINE") {
  m::setInteger(this, 66, 1, k2dPolyline);
  m::setPoint(this, 10, {}, k2dPolyline);
  m::setInteger(this, 70, 0, k2dPolyline);
}

QxDb::Poly2dType QxDb2dPolyline::polyType() const {
  long long flags = m::integer(this, 70, 0, k2dPolyline);
  if (flags & 4) {
    return m::integer(this, 75, 0, k2dPolyline) == 5 ? QxDb::k2dQuadSplinePoly
                                                     : QxDb::k2dCubicSplinePoly;
  }
  return (flags & 2) ? QxDb::k2dFitCurvePoly : QxDb::k2dSimplePoly;
}

double QxDb2dPolyline::elevation() const {
  return m::point(this, 10, k2dPolyline).z;
}
Qxad::ErrorStatus QxDb2dPolyline::setElevation(double elevation) {
  return m::setPoint(this, 10, {0, 0, elevation}, k2dPolyline);
}
double QxDb2dPolyline::thickness() const {
  return m::real(this, 39, 0, k2dPolyline);
}
Qxad::ErrorStatus QxDb2dPolyline::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, k2dPolyline);
}
QxGeVector3d QxDb2dPolyline::normal() const {
  return m::toVector(m::normal(this, k2dPolyline));
}
double QxDb2dPolyline::defaultStartWidth() const {
  return m::real(this, 40, 0, k2dPolyline);
}
double QxDb2dPolyline::defaultEndWidth() const {
  return m::real(this, 41, 0, k2dPolyline);
}
Qxad::ErrorStatus QxDb2dPolyline::setClosed(bool closed) {
  return m::setFlag(this, 70, 1, closed, k2dPolyline);
}
QxDbObjectIterator* QxDb2dPolyline::vertexIterator() const {
  return iteratorOf(this);
}

// ---- 3D polyline

const QxRxClass* QxDb3dPolyline::desc() {
  static const QxRxClass record(L"QxDb3dPolyline", QxDbCurve::desc(), "POLYLINE");
  return &record;
}

QxDb3dPolyline::QxDb3dPolyline() : QxDbCurve("POLYLINE") {
  m::setInteger(this, 66, 1, k3dPolyline);
  m::setPoint(this, 10, {}, k3dPolyline);
  m::setInteger(this, 70, 8, k3dPolyline);
}

QxDb::Poly3dType QxDb3dPolyline::polyType() const {
  long long flags = m::integer(this, 70, 0, k3dPolyline);
  if (!(flags & 4)) return QxDb::k3dSimplePoly;
  return m::integer(this, 75, 0, k3dPolyline) == 5 ? QxDb::k3dQuadSplinePoly
                                                   : QxDb::k3dCubicSplinePoly;
}
Qxad::ErrorStatus QxDb3dPolyline::setClosed(bool closed) {
  return m::setFlag(this, 70, 1, closed, k3dPolyline);
}
QxDbObjectIterator* QxDb3dPolyline::vertexIterator() const {
  return iteratorOf(this);
}

// ---- Vertices

const QxRxClass* QxDb2dVertex::desc() {
  static const QxRxClass record(L"QxDb2dVertex", QxDbEntity::desc(), "VERTEX");
  return &record;
}

QxDb2dVertex::QxDb2dVertex() : QxDbEntity("VERTEX") {
  m::setPoint(this, 10, {}, k2dVertex);
  m::setInteger(this, 70, 0, k2dVertex);
}

QxGePoint3d QxDb2dVertex::position() const {
  // The Z of a 2D vertex is the polyline's elevation.
  QxGePoint3d p = m::toPoint(m::point(this, 10, k2dVertex));
  if (const korva::db::Record* owner = ownerPolyline(this)) {
    double base[3];
    korva::api::groupPoint(*owner, 10, base);
    p.z = base[2];
  }
  return p;
}
Qxad::ErrorStatus QxDb2dVertex::setPosition(const QxGePoint3d& position) {
  return m::setPoint(this, 10, m::fromPoint(position), k2dVertex);
}
double QxDb2dVertex::bulge() const {
  return m::real(this, 42, 0, k2dVertex);
}
Qxad::ErrorStatus QxDb2dVertex::setBulge(double bulge) {
  return m::setReal(this, 42, bulge, k2dVertex);
}
double QxDb2dVertex::startWidth() const {
  const korva::db::Record* owner = ownerPolyline(this);
  return m::real(this, 40, owner ? korva::api::groupReal(*owner, 40, 0) : 0, k2dVertex);
}
Qxad::ErrorStatus QxDb2dVertex::setStartWidth(double width) {
  if (width < 0) return Qxad::eInvalidInput;
  return m::setReal(this, 40, width, k2dVertex);
}
double QxDb2dVertex::endWidth() const {
  const korva::db::Record* owner = ownerPolyline(this);
  return m::real(this, 41, owner ? korva::api::groupReal(*owner, 41, 0) : 0, k2dVertex);
}
Qxad::ErrorStatus QxDb2dVertex::setEndWidth(double width) {
  if (width < 0) return Qxad::eInvalidInput;
  return m::setReal(this, 41, width, k2dVertex);
}

const QxRxClass* QxDb3dPolylineVertex::desc() {
  static const QxRxClass record(L"QxDb3dPolylineVertex", QxDbEntity::desc(), "VERTEX");
  return &record;
}

QxDb3dPolylineVertex::QxDb3dPolylineVertex() : QxDbEntity("VERTEX") {
  m::setPoint(this, 10, {}, k3dVertex);
  m::setInteger(this, 70, 32, k3dVertex);
}

QxGePoint3d QxDb3dPolylineVertex::position() const {
  return m::toPoint(m::point(this, 10, k3dVertex));
}
Qxad::ErrorStatus QxDb3dPolylineVertex::setPosition(const QxGePoint3d& position) {
  return m::setPoint(this, 10, m::fromPoint(position), k3dVertex);
}
