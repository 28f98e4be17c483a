// Text styles, dimension styles, linetypes, registered applications and user coordinate
// systems; and which table class a TABLE record opens as.
#include "entity_members.h"
#include "qx_db_blocks.h"
#include "table_classes.h"

using korva::db::Record;

namespace {

constexpr std::string_view kStylePart = "AcDbTextStyleTableRecord";
constexpr std::string_view kDimStylePart = "AcDbDimStyleTableRecord";
constexpr std::string_view kLinetypePart = "AcDbLinetypeTableRecord";
constexpr std::string_view kUcsPart = "AcDbUCSTableRecord";

Qxad::ErrorStatus setReal(QxDbObject* object, int code, double value, std::string_view part) {
  if (Qxad::ErrorStatus status = object->assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupReal(korva::api::recordOf(*object), code, value, part);
  korva::api::noteChanged(*object);
  return Qxad::eOk;
}

Qxad::ErrorStatus setText(QxDbObject* object, int code, const wchar_t* text,
                          std::string_view part) {
  if (!text) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = object->assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupText(korva::api::recordOf(*object), code,
                           korva::api::drawingText(korva::api::databaseOf(*object), text), part);
  korva::api::noteChanged(*object);
  return Qxad::eOk;
}

Qxad::ErrorStatus setPoint(QxDbObject* object, int code, double x, double y, double z,
                           std::string_view part) {
  if (Qxad::ErrorStatus status = object->assertWriteEnabled(); status != Qxad::eOk) return status;
  const double point[3] = {x, y, z};
  korva::api::setGroupPoint(korva::api::recordOf(*object), code, point, part);
  korva::api::noteChanged(*object);
  return Qxad::eOk;
}

QxGePoint3d pointAt(const QxDbObject* object, int code, std::string_view part) {
  double point[3];
  korva::api::groupPoint(korva::api::recordOf(*object), code, point, part);
  return {point[0], point[1], point[2]};
}

QxDbObject* chooseTable(const Record& record) {
  std::string_view name = record.find(2).value_or("");
  if (name == "LAYER") return new QxDbLayerTable;
  if (name == "STYLE") return new QxDbTextStyleTable;
  if (name == "DIMSTYLE") return new QxDbDimStyleTable;
  if (name == "LTYPE") return new QxDbLinetypeTable;
  if (name == "APPID") return new QxDbRegAppTable;
  if (name == "VIEW") return new QxDbViewTable;
  if (name == "VPORT") return new QxDbViewportTable;
  if (name == "UCS") return new QxDbUCSTable;
  if (name == "BLOCK_RECORD") return new QxDbBlockTable;
  return nullptr;
}
korva::api::ObjectChooserRegistration tableChooser("TABLE", chooseTable);

}  // namespace

// ---- Text styles

KORVA_DEFINE_CLASS(QxDbTextStyleTableRecord, QxDbSymbolTableRecord)
KORVA_DEFINE_TABLE(QxDbTextStyleTable, QxDbSymbolTable, QxDbTextStyleTableRecord,
                   QxDbTextStyleTableIterator, "STYLE")

QxDbTextStyleTableRecord::QxDbTextStyleTableRecord()
    : QxDbSymbolTableRecord("STYLE", "AcDbTextStyleTableRecord") {
  Record& record = korva::api::recordOf(*this);
  korva::api::setGroupReal(record, 40, 0.0, kStylePart);
  korva::api::setGroupReal(record, 41, 1.0, kStylePart);
  korva::api::setGroupReal(record, 50, 0.0, kStylePart);
  korva::api::setGroupInteger(record, 71, 0, kStylePart);
  korva::api::setGroupReal(record, 42, 2.5, kStylePart);
  korva::api::setGroupText(record, 3, "txt", kStylePart);
  korva::api::setGroupText(record, 4, "", kStylePart);
}

double QxDbTextStyleTableRecord::textSize() const {
  return korva::api::groupReal(korva::api::recordOf(*this), 40, 0.0, kStylePart);
}
Qxad::ErrorStatus QxDbTextStyleTableRecord::setTextSize(double size) {
  if (size < 0) return Qxad::eOutOfRange;
  return setReal(this, 40, size, kStylePart);
}
wchar_t* QxDbTextStyleTableRecord::fileName() const {
  return korva::api::newWideText(
      korva::api::databaseOf(*this),
      korva::api::groupText(korva::api::recordOf(*this), 3, kStylePart).value_or(""));
}
Qxad::ErrorStatus QxDbTextStyleTableRecord::setFileName(const wchar_t* fileName) {
  return setText(this, 3, fileName, kStylePart);
}

// ---- Dimension styles

KORVA_DEFINE_CLASS(QxDbDimStyleTableRecord, QxDbSymbolTableRecord)
KORVA_DEFINE_TABLE(QxDbDimStyleTable, QxDbSymbolTable, QxDbDimStyleTableRecord,
                   QxDbDimStyleTableIterator, "DIMSTYLE")

QxDbDimStyleTableRecord::QxDbDimStyleTableRecord()
    : QxDbSymbolTableRecord("DIMSTYLE", "AcDbDimStyleTableRecord") {}

double QxDbDimStyleTableRecord::dimscale() const {
  return korva::api::members::real(this, 40, 1.0, kDimStylePart);
}
double QxDbDimStyleTableRecord::dimasz() const {
  return korva::api::members::real(this, 41, 0.18, kDimStylePart);
}
double QxDbDimStyleTableRecord::dimexo() const {
  return korva::api::members::real(this, 42, 0.0625, kDimStylePart);
}
double QxDbDimStyleTableRecord::dimexe() const {
  return korva::api::members::real(this, 44, 0.18, kDimStylePart);
}
double QxDbDimStyleTableRecord::dimtxt() const {
  return korva::api::members::real(this, 140, 0.18, kDimStylePart);
}
double QxDbDimStyleTableRecord::dimgap() const {
  return korva::api::members::real(this, 147, 0.09, kDimStylePart);
}
Qxad::ErrorStatus QxDbDimStyleTableRecord::setDimscale(double scale) {
  if (scale < 0) return Qxad::eOutOfRange;
  return setReal(this, 40, scale, korva::api::members::part(this, kDimStylePart));
}

// ---- Linetypes

KORVA_DEFINE_CLASS(QxDbLinetypeTableRecord, QxDbSymbolTableRecord)
KORVA_DEFINE_TABLE(QxDbLinetypeTable, QxDbSymbolTable, QxDbLinetypeTableRecord,
                   QxDbLinetypeTableIterator, "LTYPE")

QxDbLinetypeTableRecord::QxDbLinetypeTableRecord()
    : QxDbSymbolTableRecord("LTYPE", "AcDbLinetypeTableRecord") {
  Record& record = korva::api::recordOf(*this);
  korva::api::setGroupText(record, 3, "", kLinetypePart);
  korva::api::setGroupInteger(record, 72, 65, kLinetypePart);
  korva::api::setGroupInteger(record, 73, 0, kLinetypePart);
  korva::api::setGroupReal(record, 40, 0.0, kLinetypePart);
}

wchar_t* QxDbLinetypeTableRecord::comments() const {
  return korva::api::newWideText(
      korva::api::databaseOf(*this),
      korva::api::groupText(korva::api::recordOf(*this), 3, kLinetypePart).value_or(""));
}
Qxad::ErrorStatus QxDbLinetypeTableRecord::setComments(const wchar_t* comments) {
  return setText(this, 3, comments, kLinetypePart);
}

// ---- Registered applications

KORVA_DEFINE_CLASS(QxDbRegAppTableRecord, QxDbSymbolTableRecord)
KORVA_DEFINE_TABLE(QxDbRegAppTable, QxDbSymbolTable, QxDbRegAppTableRecord, QxDbRegAppTableIterator,
                   "APPID")

QxDbRegAppTableRecord::QxDbRegAppTableRecord()
    : QxDbSymbolTableRecord("APPID", "AcDbRegAppTableRecord") {}

// ---- User coordinate systems

KORVA_DEFINE_CLASS(QxDbUCSTableRecord, QxDbSymbolTableRecord)
KORVA_DEFINE_TABLE(QxDbUCSTable, QxDbSymbolTable, QxDbUCSTableRecord, QxDbUCSTableIterator, "UCS")

QxDbUCSTableRecord::QxDbUCSTableRecord() : QxDbSymbolTableRecord("UCS", "AcDbUCSTableRecord") {
  Record& record = korva::api::recordOf(*this);
  const double origin[3] = {0, 0, 0};
  const double xAxis[3] = {1, 0, 0};
  const double yAxis[3] = {0, 1, 0};
  korva::api::setGroupPoint(record, 10, origin, kUcsPart);
  korva::api::setGroupPoint(record, 11, xAxis, kUcsPart);
  korva::api::setGroupPoint(record, 12, yAxis, kUcsPart);
}

QxGePoint3d QxDbUCSTableRecord::origin() const {
  return pointAt(this, 10, kUcsPart);
}
Qxad::ErrorStatus QxDbUCSTableRecord::setOrigin(const QxGePoint3d& origin) {
  return setPoint(this, 10, origin.x, origin.y, origin.z, kUcsPart);
}
QxGeVector3d QxDbUCSTableRecord::xAxis() const {
  QxGePoint3d axis = pointAt(this, 11, kUcsPart);
  return {axis.x, axis.y, axis.z};
}
Qxad::ErrorStatus QxDbUCSTableRecord::setXAxis(const QxGeVector3d& axis) {
  if (axis.isZeroLength()) return Qxad::eInvalidInput;
  return setPoint(this, 11, axis.x, axis.y, axis.z, kUcsPart);
}
QxGeVector3d QxDbUCSTableRecord::yAxis() const {
  QxGePoint3d axis = pointAt(this, 12, kUcsPart);
  return {axis.x, axis.y, axis.z};
}
Qxad::ErrorStatus QxDbUCSTableRecord::setYAxis(const QxGeVector3d& axis) {
  if (axis.isZeroLength()) return Qxad::eInvalidInput;
  return setPoint(this, 12, axis.x, axis.y, axis.z, kUcsPart);
}
