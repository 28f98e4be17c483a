// Lightweight polylines over their records: vertices in the object system of the
// normal, at the elevation (38).
#include "entity_members.h"
#include "lwpolyline_vertices.h"
#include "object_system.h"
#include "qx_db_polylines.h"

namespace m = korva::api::members;
using korva::api::LwVertex;

namespace {
constexpr std::string_view kPolyline = "AcDbPolyline";

korva::api::ObjectClassRegistration lwpolylineClass("LWPOLYLINE", [] {
  return static_cast<QxDbObject*>(new QxDbPolyline);
});

std::vector<LwVertex> verticesOf(const QxDbPolyline* polyline) {
  return korva::api::readLwVertices(korva::api::recordOf(*polyline));
}

Qxad::ErrorStatus writeVertices(QxDbPolyline* polyline, const std::vector<LwVertex>& vertices) {
  if (Qxad::ErrorStatus status = polyline->assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::writeLwVertices(korva::api::recordOf(*polyline), vertices);
  m::changed(polyline);
  return Qxad::eOk;
}

}  // namespace

const QxRxClass* QxDbPolyline::desc() {
  static const QxRxClass record(L"QxDbPolyline", QxDbCurve::desc(), "LWPOLYLINE");
  return &record;
}

QxDbPolyline::QxDbPolyline() : QxDbCurve("LWPOLYLINE") {
  m::setInteger(this, 90, 0, kPolyline);
  m::setInteger(this, 70, 0, kPolyline);
}

QxDbPolyline::QxDbPolyline(unsigned int) : QxDbPolyline() {}

unsigned int QxDbPolyline::numVerts() const {
  return static_cast<unsigned int>(korva::api::countLwVertices(korva::api::recordOf(*this)));
}

bool QxDbPolyline::isClosed() const {
  return (m::integer(this, 70, 0, kPolyline) & 1) != 0;
}

Qxad::ErrorStatus QxDbPolyline::addVertexAt(unsigned int index, const QxGePoint2d& point,
                                            double bulge, double startWidth, double endWidth) {
  std::vector<LwVertex> vertices = verticesOf(this);
  if (index > vertices.size()) return Qxad::eInvalidIndex;
  LwVertex vertex;
  vertex.point = {point.x, point.y};
  vertex.bulge = bulge;
  // Negative widths leave the vertex without widths of its own.
  if (startWidth >= 0 || endWidth >= 0) {
    vertex.hasWidths = true;
    vertex.startWidth = startWidth >= 0 ? startWidth : 0;
    vertex.endWidth = endWidth >= 0 ? endWidth : 0;
  }
  vertices.insert(vertices.begin() + index, vertex);
  return writeVertices(this, vertices);
}

Qxad::ErrorStatus QxDbPolyline::removeVertexAt(unsigned int index) {
  std::vector<LwVertex> vertices = verticesOf(this);
  if (index >= vertices.size()) return Qxad::eInvalidIndex;
  vertices.erase(vertices.begin() + index);
  return writeVertices(this, vertices);
}

Qxad::ErrorStatus QxDbPolyline::getPointAt(unsigned int index, QxGePoint2d& point) const {
  LwVertex vertex;
  if (!korva::api::readLwVertex(korva::api::recordOf(*this), index, vertex)) {
    return Qxad::eInvalidIndex;
  }
  point = {vertex.point.x, vertex.point.y};
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbPolyline::getPointAt(unsigned int index, QxGePoint3d& point) const {
  QxGePoint2d local;
  if (Qxad::ErrorStatus status = getPointAt(index, local); status != Qxad::eOk) return status;
  point = m::toPoint(
      korva::api::objectToWorld({local.x, local.y, elevation()}, m::normal(this, kPolyline)));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbPolyline::setPointAt(unsigned int index, const QxGePoint2d& point) {
  std::vector<LwVertex> vertices = verticesOf(this);
  if (index >= vertices.size()) return Qxad::eInvalidIndex;
  vertices[index].point = {point.x, point.y};
  return writeVertices(this, vertices);
}

Qxad::ErrorStatus QxDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
  LwVertex vertex;
  if (!korva::api::readLwVertex(korva::api::recordOf(*this), index, vertex)) {
    return Qxad::eInvalidIndex;
  }
  bulge = vertex.bulge;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbPolyline::setBulgeAt(unsigned int index, double bulge) {
  std::vector<LwVertex> vertices = verticesOf(this);
  if (index >= vertices.size()) return Qxad::eInvalidIndex;
  vertices[index].bulge = bulge;
  return writeVertices(this, vertices);
}

Qxad::ErrorStatus QxDbPolyline::getWidthsAt(unsigned int index, double& startWidth,
                                            double& endWidth) const {
  LwVertex vertex;
  if (!korva::api::readLwVertex(korva::api::recordOf(*this), index, vertex)) {
    return Qxad::eInvalidIndex;
  }
  // Without widths of its own a vertex has the constant width.
  double constant = m::real(this, 43, 0, kPolyline);
  startWidth = vertex.hasWidths ? vertex.startWidth : constant;
  endWidth = vertex.hasWidths ? vertex.endWidth : constant;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbPolyline::setWidthsAt(unsigned int index, double startWidth,
                                            double endWidth) {
  std::vector<LwVertex> vertices = verticesOf(this);
  if (index >= vertices.size()) return Qxad::eInvalidIndex;
  if (startWidth < 0 || endWidth < 0) return Qxad::eInvalidInput;
  vertices[index].hasWidths = true;
  vertices[index].startWidth = startWidth;
  vertices[index].endWidth = endWidth;
  return writeVertices(this, vertices);
}

Qxad::ErrorStatus QxDbPolyline::getConstantWidth(double& width) const {
  double constant = m::real(this, 43, 0, kPolyline);
  std::vector<LwVertex> vertices = verticesOf(this);
  size_t segments = vertices.empty() ? 0 : (isClosed() ? vertices.size() : vertices.size() - 1);
  for (size_t i = 0; i < segments; ++i) {
    const LwVertex& v = vertices[i];
    double start = v.hasWidths ? v.startWidth : constant;
    double end = v.hasWidths ? v.endWidth : constant;
    if (start != constant || end != constant) {
      width = 0;
      return Qxad::eNotApplicable;
    }
  }
  width = constant;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbPolyline::setConstantWidth(double width) {
  if (width < 0) return Qxad::eInvalidInput;
  std::vector<LwVertex> vertices = verticesOf(this);
  for (LwVertex& v : vertices) v.hasWidths = false;
  if (Qxad::ErrorStatus status = writeVertices(this, vertices); status != Qxad::eOk) return status;
  return m::setReal(this, 43, width, kPolyline);
}

Qxad::ErrorStatus QxDbPolyline::setClosed(bool closed) {
  return m::setFlag(this, 70, 1, closed, kPolyline);
}
bool QxDbPolyline::hasPlinegen() const {
  return (m::integer(this, 70, 0, kPolyline) & 128) != 0;
}
Qxad::ErrorStatus QxDbPolyline::setPlinegen(bool on) {
  return m::setFlag(this, 70, 128, on, kPolyline);
}
double QxDbPolyline::elevation() const {
  return m::real(this, 38, 0, kPolyline);
}
Qxad::ErrorStatus QxDbPolyline::setElevation(double elevation) {
  return m::setReal(this, 38, elevation, kPolyline);
}
double QxDbPolyline::thickness() const {
  return m::real(this, 39, 0, kPolyline);
}
Qxad::ErrorStatus QxDbPolyline::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kPolyline);
}
QxGeVector3d QxDbPolyline::normal() const {
  return m::toVector(m::normal(this, kPolyline));
}
Qxad::ErrorStatus QxDbPolyline::setNormal(const QxGeVector3d& normal) {
  if (normal.isZeroLength()) return Qxad::eInvalidInput;
  return m::setPoint(this, 210, m::fromVector(normal.normal()), kPolyline);
}
bool QxDbPolyline::isOnlyLines() const {
  for (const LwVertex& v : verticesOf(this)) {
    if (v.bulge != 0) return false;
  }
  return true;
}
