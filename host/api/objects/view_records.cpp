// Views and viewport settings: the same camera under different group codes.
#include <cmath>

#include "table_classes.h"

using korva::db::Record;

namespace {

// View mode bits of group 71.
constexpr int kPerspective = 1;
constexpr int kFrontClip = 2;
constexpr int kBackClip = 4;
constexpr int kFrontClipNotAtEye = 16;

const QxDbAbstractViewTableRecord::Codes kViewCodes{10, 40, 41, 12, 11, 50, false};
const QxDbAbstractViewTableRecord::Codes kViewportCodes{12, 40, 41, 17, 16, 51, true};

Record& recordOf(const QxDbAbstractViewTableRecord* view) {
  return korva::api::recordOf(*view);
}

}  // namespace

KORVA_DEFINE_CLASS(QxDbAbstractViewTableRecord, QxDbSymbolTableRecord)
KORVA_DEFINE_CLASS(QxDbViewTableRecord, QxDbAbstractViewTableRecord)
KORVA_DEFINE_CLASS(QxDbViewportTableRecord, QxDbAbstractViewTableRecord)
KORVA_DEFINE_CLASS(QxDbAbstractViewTable, QxDbSymbolTable)
KORVA_DEFINE_TABLE(QxDbViewTable, QxDbAbstractViewTable, QxDbViewTableRecord, QxDbViewTableIterator,
                   "VIEW")
KORVA_DEFINE_TABLE(QxDbViewportTable, QxDbAbstractViewTable, QxDbViewportTableRecord,
                   QxDbViewportTableIterator, "VPORT")

QxDbAbstractViewTableRecord::QxDbAbstractViewTableRecord(const char* dxfType, const char* subclass,
                                                         const Codes& codes)
    : QxDbSymbolTableRecord(dxfType, subclass), codes_(codes) {}

QxDbViewTableRecord::QxDbViewTableRecord()
    : QxDbAbstractViewTableRecord("VIEW", "AcDbViewTableRecord", kViewCodes) {
  setHeight(1.0);
  setWidth(1.0);
  setCenterPoint(QxGePoint2d(0, 0));
  setViewDirection(QxGeVector3d(0, 0, 1));
  setTarget(QxGePoint3d(0, 0, 0));
  setLensLength(50.0);
  setFrontClipDistance(0.0);
  setBackClipDistance(0.0);
  setViewTwist(0.0);
  korva::api::setGroupInteger(recordOf(this), 71, 0, "AcDbViewTableRecord");
}

QxDbViewportTableRecord::QxDbViewportTableRecord()
    : QxDbAbstractViewTableRecord("VPORT", "AcDbViewportTableRecord", kViewportCodes) {
  Record& record = recordOf(this);
  const double lowerLeft[3] = {0, 0, 0};
  const double upperRight[3] = {1, 1, 0};
  korva::api::setGroupPoint(record, 10, lowerLeft, "AcDbViewportTableRecord", false);
  korva::api::setGroupPoint(record, 11, upperRight, "AcDbViewportTableRecord", false);
  setCenterPoint(QxGePoint2d(0, 0));
  setViewDirection(QxGeVector3d(0, 0, 1));
  setTarget(QxGePoint3d(0, 0, 0));
  setHeight(1.0);
  setWidth(1.0);
  setLensLength(50.0);
  setFrontClipDistance(0.0);
  setBackClipDistance(0.0);
  setViewTwist(0.0);
  korva::api::setGroupInteger(record, 71, 0, "AcDbViewportTableRecord");
}

namespace {
std::string_view partOf(const QxDbAbstractViewTableRecord* view) {
  return view->isKindOf(QxDbViewportTableRecord::desc()) ? "AcDbViewportTableRecord"
                                                         : "AcDbViewTableRecord";
}
}  // namespace

QxGePoint2d QxDbAbstractViewTableRecord::centerPoint() const {
  double point[3];
  korva::api::groupPoint(recordOf(this), codes_.center, point, partOf(this));
  return {point[0], point[1]};
}

Qxad::ErrorStatus QxDbAbstractViewTableRecord::setCenterPoint(const QxGePoint2d& center) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  const double point[3] = {center.x, center.y, 0};
  korva::api::setGroupPoint(recordOf(this), codes_.center, point, partOf(this), false);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

double QxDbAbstractViewTableRecord::height() const {
  return korva::api::groupReal(recordOf(this), codes_.height, 1.0, partOf(this));
}

Qxad::ErrorStatus QxDbAbstractViewTableRecord::setHeight(double height) {
  if (!(height > 0)) return Qxad::eOutOfRange;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  double width = this->width();
  korva::api::setGroupReal(recordOf(this), codes_.height, height, partOf(this));
  // A viewport setting keeps the aspect ratio: the width stays what it was.
  if (codes_.widthIsAspectRatio)
    korva::api::setGroupReal(recordOf(this), codes_.width, width / height, partOf(this));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

double QxDbAbstractViewTableRecord::width() const {
  double value = korva::api::groupReal(recordOf(this), codes_.width, 1.0, partOf(this));
  return codes_.widthIsAspectRatio ? value * height() : value;
}

Qxad::ErrorStatus QxDbAbstractViewTableRecord::setWidth(double width) {
  if (!(width > 0)) return Qxad::eOutOfRange;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupReal(recordOf(this), codes_.width,
                           codes_.widthIsAspectRatio ? width / height() : width, partOf(this));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

QxGePoint3d QxDbAbstractViewTableRecord::target() const {
  double point[3];
  korva::api::groupPoint(recordOf(this), codes_.target, point, partOf(this));
  return {point[0], point[1], point[2]};
}

Qxad::ErrorStatus QxDbAbstractViewTableRecord::setTarget(const QxGePoint3d& target) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  const double point[3] = {target.x, target.y, target.z};
  korva::api::setGroupPoint(recordOf(this), codes_.target, point, partOf(this));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

QxGeVector3d QxDbAbstractViewTableRecord::viewDirection() const {
  double point[3];
  korva::api::groupPoint(recordOf(this), codes_.direction, point, partOf(this));
  return {point[0], point[1], point[2]};
}

Qxad::ErrorStatus QxDbAbstractViewTableRecord::setViewDirection(const QxGeVector3d& direction) {
  if (direction.isZeroLength()) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  const double point[3] = {direction.x, direction.y, direction.z};
  korva::api::setGroupPoint(recordOf(this), codes_.direction, point, partOf(this));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

namespace {
Qxad::ErrorStatus setRealOf(QxDbAbstractViewTableRecord* view, int code, double value) {
  if (Qxad::ErrorStatus status = view->assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupReal(recordOf(view), code, value, partOf(view));
  korva::api::noteChanged(*view);
  return Qxad::eOk;
}
}  // namespace

double QxDbAbstractViewTableRecord::viewTwist() const {
  return korva::api::groupReal(recordOf(this), codes_.twist, 0.0, partOf(this));
}
Qxad::ErrorStatus QxDbAbstractViewTableRecord::setViewTwist(double angle) {
  return setRealOf(this, codes_.twist, angle);
}
double QxDbAbstractViewTableRecord::lensLength() const {
  return korva::api::groupReal(recordOf(this), 42, 50.0, partOf(this));
}
Qxad::ErrorStatus QxDbAbstractViewTableRecord::setLensLength(double length) {
  if (!(length > 0)) return Qxad::eOutOfRange;
  return setRealOf(this, 42, length);
}
double QxDbAbstractViewTableRecord::frontClipDistance() const {
  return korva::api::groupReal(recordOf(this), 43, 0.0, partOf(this));
}
Qxad::ErrorStatus QxDbAbstractViewTableRecord::setFrontClipDistance(double distance) {
  return setRealOf(this, 43, distance);
}
double QxDbAbstractViewTableRecord::backClipDistance() const {
  return korva::api::groupReal(recordOf(this), 44, 0.0, partOf(this));
}
Qxad::ErrorStatus QxDbAbstractViewTableRecord::setBackClipDistance(double distance) {
  return setRealOf(this, 44, distance);
}

Qxad::ErrorStatus QxDbAbstractViewTableRecord::setModeBit(int bit, bool on) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  long long mode = korva::api::groupInteger(recordOf(this), 71, 0, partOf(this));
  mode = on ? (mode | bit) : (mode & ~static_cast<long long>(bit));
  korva::api::setGroupInteger(recordOf(this), 71, mode, partOf(this));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

namespace {
bool modeBit(const QxDbAbstractViewTableRecord* view, int bit) {
  return (korva::api::groupInteger(recordOf(view), 71, 0, partOf(view)) & bit) != 0;
}
}  // namespace

bool QxDbAbstractViewTableRecord::perspectiveEnabled() const {
  return modeBit(this, kPerspective);
}
Qxad::ErrorStatus QxDbAbstractViewTableRecord::setPerspectiveEnabled(bool enabled) {
  return setModeBit(kPerspective, enabled);
}
bool QxDbAbstractViewTableRecord::frontClipEnabled() const {
  return modeBit(this, kFrontClip);
}
Qxad::ErrorStatus QxDbAbstractViewTableRecord::setFrontClipEnabled(bool enabled) {
  return setModeBit(kFrontClip, enabled);
}
bool QxDbAbstractViewTableRecord::backClipEnabled() const {
  return modeBit(this, kBackClip);
}
Qxad::ErrorStatus QxDbAbstractViewTableRecord::setBackClipEnabled(bool enabled) {
  return setModeBit(kBackClip, enabled);
}
bool QxDbAbstractViewTableRecord::frontClipAtEye() const {
  return !modeBit(this, kFrontClipNotAtEye);
}
Qxad::ErrorStatus QxDbAbstractViewTableRecord::setFrontClipAtEye(bool atEye) {
  return setModeBit(kFrontClipNotAtEye, !atEye);
}

bool QxDbViewTableRecord::isPaperspaceView() const {
  return (korva::api::groupInteger(recordOf(this), 70, 0) & 1) != 0;
}

Qxad::ErrorStatus QxDbViewTableRecord::setIsPaperspaceView(bool paperSpace) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  long long flags = korva::api::groupInteger(recordOf(this), 70, 0);
  korva::api::setGroupInteger(recordOf(this), 70, paperSpace ? (flags | 1) : (flags & ~1LL));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}
