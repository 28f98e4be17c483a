// QxDbMline over its MLINE record: for each vertex its position (11), direction (12),
// miter (13) and, per element of the style, the element's offsets along the miter.
#include <algorithm>

#include "db/value_text.h"
#include "entity_members.h"
#include "planar_box.h"
#include "qx_db_curves.h"
#include "qx_db_mline.h"
#include "repeated_groups.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

constexpr std::string_view kMline = "AcDbMline";

std::string_view partOf(const QxDbMline* mline) {
  return m::part(mline, kMline);
}

struct MlineVertex {
  Vec3 position, direction, miter;
  std::vector<double> elementOffsets;  // the first parameter of each element
};

// The vertices in order; reading stops at anything out of place.
std::vector<MlineVertex> verticesOf(const QxDbMline* mline) {
  std::vector<korva::db::Group> groups = korva::api::partGroups(m::record(mline), partOf(mline));
  auto real = [&](size_t i) { return korva::db::parseReal(groups[i].value).value_or(0); };
  auto point = [&](size_t& i, int code, Vec3& out) {
    if (i + 2 >= groups.size() || groups[i].code != code || groups[i + 1].code != code + 10 ||
        groups[i + 2].code != code + 20) {
      return false;
    }
    out = {real(i), real(i + 1), real(i + 2)};
    i += 3;
    return true;
  };
  std::vector<MlineVertex> vertices;
  size_t i = 0;
  while (i < groups.size() && groups[i].code != 11) ++i;
  while (i < groups.size()) {
    MlineVertex vertex;
    if (!point(i, 11, vertex.position) || !point(i, 12, vertex.direction) ||
        !point(i, 13, vertex.miter)) {
      break;
    }
    // Each element: 74 count, its 41 parameters, 75 count, its 42 fill parameters.
    while (i < groups.size() && groups[i].code == 74) {
      long long count = korva::db::parseInteger(groups[i++].value).value_or(0);
      for (long long k = 0; k < count && i < groups.size() && groups[i].code == 41; ++k, ++i) {
        if (k == 0) vertex.elementOffsets.push_back(real(i));
      }
      if (i < groups.size() && groups[i].code == 75) {
        long long fills = korva::db::parseInteger(groups[i++].value).value_or(0);
        for (long long k = 0; k < fills && i < groups.size() && groups[i].code == 42; ++k) ++i;
      }
    }
    vertices.push_back(std::move(vertex));
  }
  return vertices;
}

}  // namespace

const QxRxClass* QxDbMline::desc() {
  static const QxRxClass record(L"QxDbMline", QxDbEntity::desc(), "MLINE");
  return &record;
}

static korva::api::ObjectClassRegistration mlineClass("MLINE", [] {
  return static_cast<QxDbObject*>(new QxDbMline);
});

QxDbMline::QxDbMline() : QxDbEntity("MLINE") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  const double up[3] = {0, 0, 1};
  korva::api::setGroupText(record, 2, "STANDARD", kMline);
  korva::api::setGroupReal(record, 40, 1, kMline);
  korva::api::setGroupInteger(record, 70, QxMline::kTop, kMline);
  korva::api::setGroupInteger(record, 71, 1, kMline);
  korva::api::setGroupInteger(record, 72, 0, kMline);
  korva::api::setGroupInteger(record, 73, 0, kMline);
  korva::api::setGroupPoint(record, 10, origin, kMline);
  korva::api::setGroupPoint(record, 210, up, kMline);
}

QxMline::MlineJustification QxDbMline::justification() const {
  return static_cast<QxMline::MlineJustification>(m::integer(this, 70, QxMline::kTop, kMline));
}

double QxDbMline::scale() const {
  return m::real(this, 40, 1, kMline);
}

Qxad::ErrorStatus QxDbMline::setScale(double scale) {
  return m::setReal(this, 40, scale, kMline);
}

QxDbObjectId QxDbMline::style() const {
  return m::reference(this, 340, kMline);
}

QxGeVector3d QxDbMline::normal() const {
  return m::toVector(m::normal(this, kMline));
}

bool QxDbMline::closedMline() const {
  return (m::integer(this, 71, 0, kMline) & 2) != 0;
}

int QxDbMline::numVertices() const {
  return korva::api::countGroups(m::record(this), 11, partOf(this));
}

QxGePoint3d QxDbMline::vertexAt(int index) const {
  if (index < 0) return QxGePoint3d::kOrigin;
  return m::toPoint(m::point(this, 11, kMline, {}, index));
}

Qxad::ErrorStatus QxDbMline::moveVertexAt(int index, const QxGePoint3d& point) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  const double p[3] = {point.x, point.y, point.z};
  if (index < 0 || !korva::api::setRepeatedPoint(m::record(this), 11, index, p, partOf(this)))
    return Qxad::eInvalidIndex;
  // The start point (10) is the first vertex.
  if (index == 0) return m::setPoint(this, 10, m::fromPoint(point), kMline);
  m::changed(this);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbMline::getGeomExtents(QxDbExtents& extents) const {
  korva::geom::SpaceBox box;
  for (const MlineVertex& vertex : verticesOf(this)) {
    if (vertex.elementOffsets.empty()) box.add(vertex.position);
    for (double offset : vertex.elementOffsets) box.add(vertex.position + vertex.miter * offset);
  }
  return korva::api::extentsOfBox(box, extents);
}

Qxad::ErrorStatus QxDbMline::explode(QxDbVoidPtrArray& pieces) const {
  std::vector<MlineVertex> vertices = verticesOf(this);
  if (vertices.size() < 2) return Qxad::eDegenerateGeometry;
  size_t segments = closedMline() ? vertices.size() : vertices.size() - 1;
  for (size_t i = 0; i < segments; ++i) {
    const MlineVertex& from = vertices[i];
    const MlineVertex& to = vertices[(i + 1) % vertices.size()];
    size_t elements = std::min(from.elementOffsets.size(), to.elementOffsets.size());
    for (size_t element = 0; element < elements; ++element) {
      auto* line =
          new QxDbLine(m::toPoint(from.position + from.miter * from.elementOffsets[element]),
                       m::toPoint(to.position + to.miter * to.elementOffsets[element]));
      line->setPropertiesFrom(this);
      pieces.append(line);
    }
  }
  return Qxad::eOk;
}
