// Dimensions over DIMENSION, ARC_DIMENSION and LARGE_RADIAL_DIMENSION records. The
// definition points 10, 13, 14 and 15 are world points; 11 and 16 lie in the object
// system of the dimension's normal.
#include <numbers>

#include "entity_members.h"
#include "geom/affine.h"
#include "qx_db_dimension.h"
#include "qx_ge.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

constexpr std::string_view kDimension = "AcDbDimension";
constexpr std::string_view kAligned = "AcDbAlignedDimension";
constexpr double kDegree = std::numbers::pi / 180;

bool inObjectSystem(int code) {
  return code == 11 || code == 16 || code == 12;
}

// The DIMENSION type bits (the low three of group 70) choose the class.
QxDbObject* chooseDimensionClass(const korva::db::Record& record) {
  switch (korva::api::groupInteger(record, 70, 0) & 7) {
    case 1:
      return new QxDbAlignedDimension;
    case 2:
      return new QxDb2LineAngularDimension;
    case 3:
      return new QxDbDiametricDimension;
    case 4:
      return new QxDbRadialDimension;
    case 5:
      return new QxDb3PointAngularDimension;
    case 6:
      return new QxDbOrdinateDimension;
    default:
      return new QxDbRotatedDimension;
  }
}

}  // namespace

static korva::api::ObjectChooserRegistration dimensionKinds("DIMENSION", chooseDimensionClass);
static korva::api::ObjectClassRegistration arcDimension("ARC_DIMENSION", [] {
  return static_cast<QxDbObject*>(new QxDbArcDimension);
});
static korva::api::ObjectClassRegistration largeRadial("LARGE_RADIAL_DIMENSION", [] {
  return static_cast<QxDbObject*>(new QxDbRadialDimensionLarge);
});

// ---- The common part

const QxRxClass* QxDbDimension::desc() {
  static const QxRxClass record(L"QxDbDimension", QxDbEntity::desc());
  return &record;
}

QxDbDimension::QxDbDimension(const char* dxfType, int typeBits, const char* subclass)
    : QxDbEntity(dxfType), subclass_(subclass) {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  korva::api::setGroupText(record, 2, "", kDimension);
  korva::api::setGroupPoint(record, 10, origin, kDimension);
  korva::api::setGroupPoint(record, 11, origin, kDimension);
  korva::api::setGroupInteger(record, 70, typeBits, kDimension);
  korva::api::setGroupText(record, 1, "", kDimension);
  korva::api::setGroupText(record, 3, "Standard", kDimension);
  korva::api::setGroupText(record, 71, "5", kDimension);
  if (subclass && std::string_view(subclass) != kDimension) {
    if (std::string_view(subclass) == "AcDbRotatedDimension") {
      korva::api::setGroupPoint(record, 13, origin, kAligned);
      korva::api::setGroupPoint(record, 14, origin, kAligned);
    }
    korva::api::setGroupText(record, 100, subclass, subclass);
  }
}

QxDbObjectId QxDbDimension::dimBlockId() const {
  korva::db::Database* database = korva::api::databaseOf(*this);
  std::optional<std::string_view> name = m::text(this, 2, kDimension);
  if (!database || !name || name->empty()) return QxDbObjectId::kNull;
  korva::db::Record* block = database->tableEntry("BLOCK_RECORD", *name);
  return block ? korva::api::idOf(*database, *block) : QxDbObjectId::kNull;
}

QxDbObjectId QxDbDimension::dimensionStyle() const {
  return m::tableEntryId(this, "DIMSTYLE", 3, kDimension, "Standard");
}

Qxad::ErrorStatus QxDbDimension::setDimensionStyle(QxDbObjectId style) {
  std::optional<std::string> name = m::tableEntryName(this, style);
  if (!name) return Qxad::eInvalidInput;
  return m::setText(this, 3, *name, kDimension);
}

wchar_t* QxDbDimension::dimensionText() const {
  return m::newWide(this, 1, kDimension);
}
Qxad::ErrorStatus QxDbDimension::setDimensionText(const wchar_t* text) {
  return m::setText(this, 1, m::drawing(this, text), kDimension);
}

QxGePoint3d QxDbDimension::textPosition() const {
  return m::toPoint(korva::geom::objectToWorld(m::normal(this, kDimension))
                        .point(m::point(this, 11, kDimension)));
}

Qxad::ErrorStatus QxDbDimension::setTextPosition(const QxGePoint3d& point) {
  Vec3 local =
      korva::geom::objectToWorld(m::normal(this, kDimension)).inverse().point(m::fromPoint(point));
  Qxad::ErrorStatus status = m::setPoint(this, 11, local, kDimension);
  // The text stands where it was put, not where the style would place it.
  return status == Qxad::eOk ? m::setFlag(this, 70, 128, true, kDimension) : status;
}

double QxDbDimension::textRotation() const {
  return m::real(this, 53, 0, kDimension) * kDegree;
}
Qxad::ErrorStatus QxDbDimension::setTextRotation(double angle) {
  return m::setReal(this, 53, angle / kDegree, kDimension);
}

QxGeVector3d QxDbDimension::normal() const {
  return m::toVector(m::normal(this, kDimension));
}

QxGePoint3d QxDbDimension::pointOf(int code) const {
  std::string_view part = code == 10 || code == 11 ? kDimension : std::string_view(subclass_);
  if (std::string_view(subclass_) == "AcDbRotatedDimension" && code != 10 && code != 11)
    part = kAligned;
  Vec3 p = m::point(this, code, part);
  if (inObjectSystem(code)) p = korva::geom::objectToWorld(m::normal(this, kDimension)).point(p);
  return m::toPoint(p);
}

Qxad::ErrorStatus QxDbDimension::setPointOf(int code, const QxGePoint3d& point) {
  std::string_view part = code == 10 || code == 11 ? kDimension : std::string_view(subclass_);
  if (std::string_view(subclass_) == "AcDbRotatedDimension" && code != 10 && code != 11)
    part = kAligned;
  Vec3 p = m::fromPoint(point);
  if (inObjectSystem(code))
    p = korva::geom::objectToWorld(m::normal(this, kDimension)).inverse().point(p);
  return m::setPoint(this, code, p, part);
}

double QxDbDimension::realOf(int code, double fallback) const {
  std::string_view part = subclass_;
  if (part == "AcDbRotatedDimension") part = kAligned;
  return m::real(this, code, fallback, part);
}

Qxad::ErrorStatus QxDbDimension::setRealOf(int code, double value) {
  std::string_view part = subclass_;
  if (part == "AcDbRotatedDimension") part = kAligned;
  return m::setReal(this, code, value, part);
}

// ---- Linear dimensions

const QxRxClass* QxDbAlignedDimension::desc() {
  static const QxRxClass record(L"QxDbAlignedDimension", QxDbDimension::desc(), "DIMENSION");
  return &record;
}
QxDbAlignedDimension::QxDbAlignedDimension()
    : QxDbDimension("DIMENSION", 1, "AcDbAlignedDimension") {}
QxGePoint3d QxDbAlignedDimension::xLine1Point() const {
  return pointOf(13);
}
Qxad::ErrorStatus QxDbAlignedDimension::setXLine1Point(const QxGePoint3d& p) {
  return setPointOf(13, p);
}
QxGePoint3d QxDbAlignedDimension::xLine2Point() const {
  return pointOf(14);
}
Qxad::ErrorStatus QxDbAlignedDimension::setXLine2Point(const QxGePoint3d& p) {
  return setPointOf(14, p);
}
QxGePoint3d QxDbAlignedDimension::dimLinePoint() const {
  return pointOf(10);
}
Qxad::ErrorStatus QxDbAlignedDimension::setDimLinePoint(const QxGePoint3d& p) {
  return setPointOf(10, p);
}
double QxDbAlignedDimension::oblique() const {
  return realOf(52, 0) * kDegree;
}
Qxad::ErrorStatus QxDbAlignedDimension::setOblique(double angle) {
  return setRealOf(52, angle / kDegree);
}

const QxRxClass* QxDbRotatedDimension::desc() {
  static const QxRxClass record(L"QxDbRotatedDimension", QxDbDimension::desc(), "DIMENSION");
  return &record;
}
QxDbRotatedDimension::QxDbRotatedDimension()
    : QxDbDimension("DIMENSION", 0, "AcDbRotatedDimension") {}
QxGePoint3d QxDbRotatedDimension::xLine1Point() const {
  return pointOf(13);
}
Qxad::ErrorStatus QxDbRotatedDimension::setXLine1Point(const QxGePoint3d& p) {
  return setPointOf(13, p);
}
QxGePoint3d QxDbRotatedDimension::xLine2Point() const {
  return pointOf(14);
}
Qxad::ErrorStatus QxDbRotatedDimension::setXLine2Point(const QxGePoint3d& p) {
  return setPointOf(14, p);
}
QxGePoint3d QxDbRotatedDimension::dimLinePoint() const {
  return pointOf(10);
}
Qxad::ErrorStatus QxDbRotatedDimension::setDimLinePoint(const QxGePoint3d& p) {
  return setPointOf(10, p);
}
double QxDbRotatedDimension::oblique() const {
  return realOf(52, 0) * kDegree;
}
double QxDbRotatedDimension::rotation() const {
  return realOf(50, 0) * kDegree;
}
Qxad::ErrorStatus QxDbRotatedDimension::setRotation(double angle) {
  return setRealOf(50, angle / kDegree);
}

// ---- Angular dimensions

const QxRxClass* QxDb2LineAngularDimension::desc() {
  static const QxRxClass record(L"QxDb2LineAngularDimension", QxDbDimension::desc(), "DIMENSION");
  return &record;
}
QxDb2LineAngularDimension::QxDb2LineAngularDimension()
    : QxDbDimension("DIMENSION", 2, "AcDb2LineAngularDimension") {}
QxGePoint3d QxDb2LineAngularDimension::xLine1Start() const {
  return pointOf(13);
}
QxGePoint3d QxDb2LineAngularDimension::xLine1End() const {
  return pointOf(14);
}
QxGePoint3d QxDb2LineAngularDimension::xLine2Start() const {
  return pointOf(15);
}
QxGePoint3d QxDb2LineAngularDimension::xLine2End() const {
  return pointOf(10);
}
QxGePoint3d QxDb2LineAngularDimension::arcPoint() const {
  return pointOf(16);
}
Qxad::ErrorStatus QxDb2LineAngularDimension::setArcPoint(const QxGePoint3d& p) {
  return setPointOf(16, p);
}

const QxRxClass* QxDb3PointAngularDimension::desc() {
  static const QxRxClass record(L"QxDb3PointAngularDimension", QxDbDimension::desc(), "DIMENSION");
  return &record;
}
QxDb3PointAngularDimension::QxDb3PointAngularDimension()
    : QxDbDimension("DIMENSION", 5, "AcDb3PointAngularDimension") {}
QxGePoint3d QxDb3PointAngularDimension::centerPoint() const {
  return pointOf(15);
}
QxGePoint3d QxDb3PointAngularDimension::xLine1Point() const {
  return pointOf(13);
}
QxGePoint3d QxDb3PointAngularDimension::xLine2Point() const {
  return pointOf(14);
}
QxGePoint3d QxDb3PointAngularDimension::arcPoint() const {
  return pointOf(10);
}
Qxad::ErrorStatus QxDb3PointAngularDimension::setArcPoint(const QxGePoint3d& p) {
  return setPointOf(10, p);
}

const QxRxClass* QxDbArcDimension::desc() {
  static const QxRxClass record(L"QxDbArcDimension", QxDbDimension::desc(), "ARC_DIMENSION");
  return &record;
}
QxDbArcDimension::QxDbArcDimension() : QxDbDimension("ARC_DIMENSION", 5, "AcDbArcDimension") {}
QxGePoint3d QxDbArcDimension::centerPoint() const {
  return pointOf(15);
}
QxGePoint3d QxDbArcDimension::xLine1Point() const {
  return pointOf(13);
}
QxGePoint3d QxDbArcDimension::xLine2Point() const {
  return pointOf(14);
}
QxGePoint3d QxDbArcDimension::arcPoint() const {
  return pointOf(10);
}

// ---- Radial dimensions

const QxRxClass* QxDbRadialDimension::desc() {
  static const QxRxClass record(L"QxDbRadialDimension", QxDbDimension::desc(), "DIMENSION");
  return &record;
}
QxDbRadialDimension::QxDbRadialDimension() : QxDbDimension("DIMENSION", 4, "AcDbRadialDimension") {}
QxGePoint3d QxDbRadialDimension::center() const {
  return pointOf(10);
}
QxGePoint3d QxDbRadialDimension::chordPoint() const {
  return pointOf(15);
}
Qxad::ErrorStatus QxDbRadialDimension::setChordPoint(const QxGePoint3d& p) {
  return setPointOf(15, p);
}
double QxDbRadialDimension::leaderLength() const {
  return realOf(40, 0);
}
Qxad::ErrorStatus QxDbRadialDimension::setLeaderLength(double length) {
  return setRealOf(40, length);
}

const QxRxClass* QxDbDiametricDimension::desc() {
  static const QxRxClass record(L"QxDbDiametricDimension", QxDbDimension::desc(), "DIMENSION");
  return &record;
}
QxDbDiametricDimension::QxDbDiametricDimension()
    : QxDbDimension("DIMENSION", 3, "AcDbDiametricDimension") {}
QxGePoint3d QxDbDiametricDimension::chordPoint() const {
  return pointOf(15);
}
QxGePoint3d QxDbDiametricDimension::farChordPoint() const {
  return pointOf(10);
}
double QxDbDiametricDimension::leaderLength() const {
  return realOf(40, 0);
}
Qxad::ErrorStatus QxDbDiametricDimension::setLeaderLength(double length) {
  return setRealOf(40, length);
}
// The extension arcs (R2010 and later) are not stored by this host: none.
double QxDbDiametricDimension::extArcStartAngle() const {
  return realOf(50, 0) * kDegree;
}
double QxDbDiametricDimension::extArcEndAngle() const {
  return realOf(51, 0) * kDegree;
}

const QxRxClass* QxDbOrdinateDimension::desc() {
  static const QxRxClass record(L"QxDbOrdinateDimension", QxDbDimension::desc(), "DIMENSION");
  return &record;
}
QxDbOrdinateDimension::QxDbOrdinateDimension()
    : QxDbDimension("DIMENSION", 6, "AcDbOrdinateDimension") {}
QxGePoint3d QxDbOrdinateDimension::origin() const {
  return pointOf(10);
}
QxGePoint3d QxDbOrdinateDimension::definingPoint() const {
  return pointOf(13);
}
QxGePoint3d QxDbOrdinateDimension::leaderEndPoint() const {
  return pointOf(14);
}
bool QxDbOrdinateDimension::isUsingXAxis() const {
  return (m::integer(this, 70, 0, kDimension) & 64) != 0;
}

const QxRxClass* QxDbRadialDimensionLarge::desc() {
  static const QxRxClass record(L"QxDbRadialDimensionLarge", QxDbDimension::desc(),
                                "LARGE_RADIAL_DIMENSION");
  return &record;
}
QxDbRadialDimensionLarge::QxDbRadialDimensionLarge()
    : QxDbDimension("LARGE_RADIAL_DIMENSION", 9, "AcDbRadialDimensionLarge") {}
QxGePoint3d QxDbRadialDimensionLarge::center() const {
  return pointOf(10);
}
QxGePoint3d QxDbRadialDimensionLarge::chordPoint() const {
  return pointOf(13);
}
QxGePoint3d QxDbRadialDimensionLarge::overrideCenter() const {
  return pointOf(14);
}
QxGePoint3d QxDbRadialDimensionLarge::jogPoint() const {
  return pointOf(15);
}
double QxDbRadialDimensionLarge::jogAngle() const {
  return realOf(40, 0);
}
double QxDbRadialDimensionLarge::extArcStartAngle() const {
  return realOf(50, 0) * kDegree;
}
double QxDbRadialDimensionLarge::extArcEndAngle() const {
  return realOf(51, 0) * kDegree;
}
