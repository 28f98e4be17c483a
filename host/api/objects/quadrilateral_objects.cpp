// QxDbSolid and QxDbTrace over SOLID and TRACE records (corners 10 to 13 in the object
// system of 210, thickness 39, all in the AcDbTrace part), and QxDbFace over 3DFACE
// (world corners 10 to 13, hidden edges as bits of 70).
#include "entity_members.h"
#include "geom/affine.h"
#include "planar_box.h"
#include "qx_db_quadrilaterals.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

constexpr std::string_view kTrace = "AcDbTrace";
constexpr std::string_view kFace = "AcDbFace";
constexpr int kCornerCodes[4] = {10, 11, 12, 13};

// A missing fourth corner repeats the third: a triangle.
Vec3 cornerOf(const QxDbEntity* entity, std::uint16_t index, std::string_view part) {
  if (index == 3 && !m::text(entity, 13, part)) return m::point(entity, 12, part);
  return m::point(entity, kCornerCodes[index], part);
}

void writeCorners(QxDbEntity* entity, std::string_view part, const Vec3 corners[4]) {
  for (int i = 0; i < 4; ++i) m::setPoint(entity, kCornerCodes[i], corners[i], part);
}

// Solids and traces: corners in the object system.
Qxad::ErrorStatus getPlanarCorner(const QxDbEntity* entity, std::uint16_t index,
                                  QxGePoint3d& point) {
  if (index > 3) return Qxad::eInvalidIndex;
  korva::geom::Affine3 toWorld = korva::geom::objectToWorld(m::normal(entity, kTrace));
  point = m::toPoint(toWorld.point(cornerOf(entity, index, kTrace)));
  return Qxad::eOk;
}

Qxad::ErrorStatus setPlanarCorner(QxDbEntity* entity, std::uint16_t index,
                                  const QxGePoint3d& point) {
  if (index > 3) return Qxad::eInvalidIndex;
  korva::geom::Affine3 toObject = korva::geom::objectToWorld(m::normal(entity, kTrace)).inverse();
  if (index == 2 && !m::text(entity, 13, kTrace)) {
    // The fourth corner stood for the third; it keeps its place when the third moves.
    if (Qxad::ErrorStatus status = m::setPoint(entity, 13, cornerOf(entity, 3, kTrace), kTrace);
        status != Qxad::eOk) {
      return status;
    }
  }
  return m::setPoint(entity, kCornerCodes[index], toObject.point(m::fromPoint(point)), kTrace);
}

Qxad::ErrorStatus planarExtents(const QxDbEntity* entity, QxDbExtents& extents) {
  Vec3 normal = m::normal(entity, kTrace);
  korva::geom::Affine3 toWorld = korva::geom::objectToWorld(normal);
  korva::geom::SpaceBox box;
  for (std::uint16_t i = 0; i < 4; ++i) box.add(toWorld.point(cornerOf(entity, i, kTrace)));
  box.sweep(normal * m::real(entity, 39, 0, kTrace));
  return korva::api::extentsOfBox(box, extents);
}

void initializePlanar(QxDbEntity* entity) {
  korva::db::Record& record = m::record(entity);
  const double origin[3] = {0, 0, 0};
  for (int code : kCornerCodes) korva::api::setGroupPoint(record, code, origin, kTrace);
}

}  // namespace

// ---- Solid

const QxRxClass* QxDbSolid::desc() {
  static const QxRxClass record(L"QxDbSolid", QxDbEntity::desc(), "SOLID");
  return &record;
}

static korva::api::ObjectClassRegistration solidClass("SOLID", [] {
  return static_cast<QxDbObject*>(new QxDbSolid);
});

QxDbSolid::QxDbSolid() : QxDbSolid("SOLID") {}

QxDbSolid::QxDbSolid(const char* dxfType) : QxDbEntity(dxfType) {
  initializePlanar(this);
}

QxDbSolid::QxDbSolid(const QxGePoint3d& corner0, const QxGePoint3d& corner1,
                     const QxGePoint3d& corner2, const QxGePoint3d& corner3)
    : QxDbSolid() {
  const Vec3 corners[4] = {m::fromPoint(corner0), m::fromPoint(corner1), m::fromPoint(corner2),
                           m::fromPoint(corner3)};
  writeCorners(this, kTrace, corners);
}

Qxad::ErrorStatus QxDbSolid::getPointAt(std::uint16_t index, QxGePoint3d& point) const {
  return getPlanarCorner(this, index, point);
}
Qxad::ErrorStatus QxDbSolid::setPointAt(std::uint16_t index, const QxGePoint3d& point) {
  return setPlanarCorner(this, index, point);
}
double QxDbSolid::thickness() const {
  return m::real(this, 39, 0, kTrace);
}
Qxad::ErrorStatus QxDbSolid::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kTrace);
}
QxGeVector3d QxDbSolid::normal() const {
  return m::toVector(m::normal(this, kTrace));
}
Qxad::ErrorStatus QxDbSolid::getGeomExtents(QxDbExtents& extents) const {
  return planarExtents(this, extents);
}

// ---- Trace

const QxRxClass* QxDbTrace::desc() {
  static const QxRxClass record(L"QxDbTrace", QxDbEntity::desc(), "TRACE");
  return &record;
}

static korva::api::ObjectClassRegistration traceClass("TRACE", [] {
  return static_cast<QxDbObject*>(new QxDbTrace);
});

QxDbTrace::QxDbTrace() : QxDbEntity("TRACE") {
  initializePlanar(this);
}

Qxad::ErrorStatus QxDbTrace::getPointAt(std::uint16_t index, QxGePoint3d& point) const {
  return getPlanarCorner(this, index, point);
}
Qxad::ErrorStatus QxDbTrace::setPointAt(std::uint16_t index, const QxGePoint3d& point) {
  return setPlanarCorner(this, index, point);
}
double QxDbTrace::thickness() const {
  return m::real(this, 39, 0, kTrace);
}
Qxad::ErrorStatus QxDbTrace::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kTrace);
}
QxGeVector3d QxDbTrace::normal() const {
  return m::toVector(m::normal(this, kTrace));
}
Qxad::ErrorStatus QxDbTrace::getGeomExtents(QxDbExtents& extents) const {
  return planarExtents(this, extents);
}

// ---- Face

const QxRxClass* QxDbFace::desc() {
  static const QxRxClass record(L"QxDbFace", QxDbEntity::desc(), "3DFACE");
  return &record;
}

static korva::api::ObjectClassRegistration faceClass("3DFACE", [] {
  return static_cast<QxDbObject*>(new QxDbFace);
});

QxDbFace::QxDbFace() : QxDbEntity("3DFACE") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  for (int code : kCornerCodes) korva::api::setGroupPoint(record, code, origin, kFace);
}

QxDbFace::QxDbFace(const QxGePoint3d& corner0, const QxGePoint3d& corner1,
                   const QxGePoint3d& corner2, const QxGePoint3d& corner3, bool edge0Visible,
                   bool edge1Visible, bool edge2Visible, bool edge3Visible)
    : QxDbFace() {
  const Vec3 corners[4] = {m::fromPoint(corner0), m::fromPoint(corner1), m::fromPoint(corner2),
                           m::fromPoint(corner3)};
  writeCorners(this, kFace, corners);
  int hidden = (edge0Visible ? 0 : 1) | (edge1Visible ? 0 : 2) | (edge2Visible ? 0 : 4) |
               (edge3Visible ? 0 : 8);
  if (hidden) m::setInteger(this, 70, hidden, kFace);
}

Qxad::ErrorStatus QxDbFace::getVertexAt(std::uint16_t index, QxGePoint3d& point) const {
  if (index > 3) return Qxad::eInvalidIndex;
  point = m::toPoint(cornerOf(this, index, kFace));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbFace::setVertexAt(std::uint16_t index, const QxGePoint3d& point) {
  if (index > 3) return Qxad::eInvalidIndex;
  return m::setPoint(this, kCornerCodes[index], m::fromPoint(point), kFace);
}

Qxad::ErrorStatus QxDbFace::isEdgeVisibleAt(std::uint16_t index, bool& visible) const {
  if (index > 3) return Qxad::eInvalidIndex;
  visible = (m::integer(this, 70, 0, kFace) & (1 << index)) == 0;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbFace::makeEdgeVisibleAt(std::uint16_t index) {
  if (index > 3) return Qxad::eInvalidIndex;
  return m::setFlag(this, 70, 1 << index, false, kFace);
}

Qxad::ErrorStatus QxDbFace::makeEdgeInvisibleAt(std::uint16_t index) {
  if (index > 3) return Qxad::eInvalidIndex;
  return m::setFlag(this, 70, 1 << index, true, kFace);
}

Qxad::ErrorStatus QxDbFace::getGeomExtents(QxDbExtents& extents) const {
  korva::geom::SpaceBox box;
  for (std::uint16_t i = 0; i < 4; ++i) box.add(cornerOf(this, i, kFace));
  return korva::api::extentsOfBox(box, extents);
}
