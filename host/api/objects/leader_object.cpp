// QxDbLeader over its LEADER record: vertices are the repeated 10 groups, world points.
#include "db/handle.h"
#include "dimension_overrides.h"
#include "entity_members.h"
#include "object_access.h"
#include "planar_box.h"
#include "qx_db_leader.h"
#include "qx_db_text.h"
#include "repeated_groups.h"

namespace m = korva::api::members;
namespace variable = korva::api::dimension_variable;

namespace {

constexpr std::string_view kLeader = "AcDbLeader";
constexpr int kStyleCode = 3;

std::string_view partOf(const QxDbLeader* leader) {
  return m::part(leader, kLeader);
}

// The arrow size, gap and scale of a drawing made without any dimension style settings.
constexpr double kDefaultArrowSize = 0.18;
constexpr double kDefaultGap = 0.09;

}  // namespace

const QxRxClass* QxDbLeader::desc() {
  static const QxRxClass record(L"QxDbLeader", QxDbEntity::desc(), "LEADER");
  return &record;
}

static korva::api::ObjectClassRegistration leaderClass("LEADER", [] {
  return static_cast<QxDbObject*>(new QxDbLeader);
});

QxDbLeader::QxDbLeader() : QxDbEntity("LEADER") {
  korva::db::Record& record = m::record(this);
  korva::api::setGroupText(record, 3, "Standard", kLeader);
  korva::api::setGroupInteger(record, 71, 1, kLeader);
  korva::api::setGroupInteger(record, 72, 0, kLeader);
  korva::api::setGroupInteger(record, 73, kNoAnno, kLeader);
  korva::api::setGroupInteger(record, 74, 0, kLeader);
  korva::api::setGroupInteger(record, 75, 0, kLeader);
  korva::api::setGroupInteger(record, 76, 0, kLeader);
}

// ---- Vertices

int QxDbLeader::numVertices() const {
  return korva::api::countGroups(m::record(this), 10, partOf(this));
}

QxGePoint3d QxDbLeader::vertexAt(int index) const {
  if (index < 0) return QxGePoint3d::kOrigin;
  return m::toPoint(m::point(this, 10, kLeader, {}, index));
}

Qxad::ErrorStatus QxDbLeader::setVertexAt(int index, const QxGePoint3d& point) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  const double p[3] = {point.x, point.y, point.z};
  if (index < 0 || !korva::api::setRepeatedPoint(m::record(this), 10, index, p, partOf(this)))
    return Qxad::eInvalidIndex;
  m::changed(this);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbLeader::appendVertex(const QxGePoint3d& point) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  const double p[3] = {point.x, point.y, point.z};
  korva::api::appendRepeatedPoint(m::record(this), 10, p, partOf(this));
  return m::setInteger(this, 76, numVertices(), kLeader);
}

QxGeVector3d QxDbLeader::normal() const {
  return m::toVector(m::normal(this, kLeader));
}

bool QxDbLeader::hasArrowHead() const {
  return m::integer(this, 71, 1, kLeader) != 0;
}

Qxad::ErrorStatus QxDbLeader::enableArrowHead() {
  return m::setInteger(this, 71, 1, kLeader);
}

Qxad::ErrorStatus QxDbLeader::disableArrowHead() {
  return m::setInteger(this, 71, 0, kLeader);
}

// ---- Annotation

QxDbObjectId QxDbLeader::annotationObjId() const {
  return m::reference(this, 340, kLeader);
}

QxDbLeader::AnnoType QxDbLeader::annoType() const {
  return static_cast<AnnoType>(m::integer(this, 73, kNoAnno, kLeader));
}

Qxad::ErrorStatus QxDbLeader::attachAnnotation(QxDbObjectId annotationId) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::db::Database* database = korva::api::databaseOf(*this);
  korva::db::Database* annotationDatabase = nullptr;
  korva::db::Record* annotation = korva::api::recordOf(annotationId, &annotationDatabase);
  if (!database || !annotation || annotationDatabase != database) return Qxad::eInvalidInput;
  std::string_view type = annotation->type();
  AnnoType kind = type == "MTEXT"       ? kMText
                  : type == "TOLERANCE" ? kFcf
                  : type == "INSERT"    ? kBlockRef
                                        : kNoAnno;
  if (kind == kNoAnno) return Qxad::eWrongObjectType;
  // A paragraph text lends its measured size; one open for write elsewhere keeps the old.
  if (kind == kMText) {
    QxDbMText* text = nullptr;
    if (korva::api::openAs(text, annotationId, QxDb::kForRead) == Qxad::eOk) {
      m::setReal(this, 40, text->actualHeight(), kLeader);
      m::setReal(this, 41, text->actualWidth(), kLeader);
      text->close();
    }
  }
  m::setText(this, 340, korva::db::formatHandle(annotation->handle()), kLeader);
  return m::setInteger(this, 73, kind, kLeader);
}

Qxad::ErrorStatus QxDbLeader::detachAnnotation() {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::removeGroups(m::record(this), 340, partOf(this));
  return m::setInteger(this, 73, kNoAnno, kLeader);
}

double QxDbLeader::annoHeight() const {
  return m::real(this, 40, 0, kLeader);
}

double QxDbLeader::annoWidth() const {
  return m::real(this, 41, 0, kLeader);
}

// ---- Dimension variables

QxDbObjectId QxDbLeader::dimensionStyle() const {
  return m::tableEntryId(this, "DIMSTYLE", kStyleCode, kLeader, "Standard");
}

double QxDbLeader::dimasz() const {
  return korva::api::dimensionReal(this, variable::kArrowSize, kStyleCode, kLeader,
                                   kDefaultArrowSize);
}

double QxDbLeader::dimgap() const {
  return korva::api::dimensionReal(this, variable::kGap, kStyleCode, kLeader, kDefaultGap);
}

double QxDbLeader::dimscale() const {
  return korva::api::dimensionReal(this, variable::kScale, kStyleCode, kLeader, 1.0);
}

QxCmColor QxDbLeader::dimclrd() const {
  return korva::api::colorOfIndex(
      korva::api::dimensionInteger(this, variable::kLineColor, kStyleCode, kLeader, 0));
}

Qxad::ErrorStatus QxDbLeader::setDimasz(double value) {
  return korva::api::setDimensionReal(this, variable::kArrowSize, value);
}

Qxad::ErrorStatus QxDbLeader::setDimgap(double value) {
  return korva::api::setDimensionReal(this, variable::kGap, value);
}

Qxad::ErrorStatus QxDbLeader::setDimscale(double value) {
  return korva::api::setDimensionReal(this, variable::kScale, value);
}

Qxad::ErrorStatus QxDbLeader::setDimclrd(const QxCmColor& color) {
  return korva::api::setDimensionInteger(this, variable::kLineColor, color.colorIndex());
}

// ---- Extents

Qxad::ErrorStatus QxDbLeader::getGeomExtents(QxDbExtents& extents) const {
  korva::geom::SpaceBox box;
  int count = numVertices();
  for (int i = 0; i < count; ++i) box.add(m::point(this, 10, kLeader, {}, i));
  return korva::api::extentsOfBox(box, extents);
}
