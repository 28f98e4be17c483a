// Named scales of the scale list (SCALE): name 300, paper units 140, drawing units 141,
// unit scale 290.
#include "object_access.h"
#include "qx_db_dictionary.h"
#include "table_classes.h"

using korva::db::Record;

namespace {

constexpr std::string_view kScalePart = "AcDbScale";

Record& recordOf(const QxDbScale* scale) {
  return korva::api::recordOf(*scale);
}

Qxad::ErrorStatus setUnits(QxDbScale* scale, int code, double units) {
  if (!(units > 0)) return Qxad::eOutOfRange;
  if (Qxad::ErrorStatus status = scale->assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupReal(recordOf(scale), code, units, kScalePart);
  korva::api::noteChanged(*scale);
  return Qxad::eOk;
}

}  // namespace

KORVA_DEFINE_CLASS(QxDbScale, QxDbObject)
static korva::api::ObjectClassRegistration scaleClass("SCALE", [] {
  return static_cast<QxDbObject*>(new QxDbScale);
});

QxDbScale::QxDbScale() : QxDbObject("SCALE") {
  recordOf(this).assign({{100, std::string(kScalePart)},
                         {70, "0"},
                         {300, "1:1"},
                         {140, "1.0"},
                         {141, "1.0"},
                         {290, "0"}});
}

wchar_t* QxDbScale::scaleName() const {
  return korva::api::newWideText(
      korva::api::databaseOf(*this),
      korva::api::groupText(recordOf(this), 300, kScalePart).value_or(""));
}

Qxad::ErrorStatus QxDbScale::setScaleName(const wchar_t* name) {
  if (!name || !*name) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupText(recordOf(this), 300,
                           korva::api::drawingText(korva::api::databaseOf(*this), name),
                           kScalePart);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

double QxDbScale::paperUnits() const {
  return korva::api::groupReal(recordOf(this), 140, 1.0, kScalePart);
}
Qxad::ErrorStatus QxDbScale::setPaperUnits(double units) {
  return setUnits(this, 140, units);
}
double QxDbScale::drawingUnits() const {
  return korva::api::groupReal(recordOf(this), 141, 1.0, kScalePart);
}
Qxad::ErrorStatus QxDbScale::setDrawingUnits(double units) {
  return setUnits(this, 141, units);
}

bool QxDbScale::isUnitScale() const {
  return korva::api::groupInteger(recordOf(this), 290, 0, kScalePart) != 0;
}

Qxad::ErrorStatus QxDbScale::setIsUnitScale(bool unitScale) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupInteger(recordOf(this), 290, unitScale ? 1 : 0, kScalePart);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}
