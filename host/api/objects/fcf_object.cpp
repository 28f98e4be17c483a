// QxDbFcf over its TOLERANCE record. The location (10) and direction (11) are world
// values; the lines of the text are separated by "^J".
#include "dimension_overrides.h"
#include "entity_members.h"
#include "qx_db_leader.h"
#include "qx_memory.h"

namespace m = korva::api::members;
namespace variable = korva::api::dimension_variable;

namespace {

constexpr std::string_view kFcf = "AcDbFcf";
constexpr int kStyleCode = 3;
constexpr std::wstring_view kLineBreak = L"^J";

constexpr double kDefaultGap = 0.09;
constexpr double kDefaultTextHeight = 0.18;

}  // namespace

const QxRxClass* QxDbFcf::desc() {
  static const QxRxClass record(L"QxDbFcf", QxDbEntity::desc(), "TOLERANCE");
  return &record;
}

static korva::api::ObjectClassRegistration fcfClass("TOLERANCE", [] {
  return static_cast<QxDbObject*>(new QxDbFcf);
});

QxDbFcf::QxDbFcf() : QxDbEntity("TOLERANCE") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  const double xAxis[3] = {1, 0, 0};
  korva::api::setGroupText(record, 3, "Standard", kFcf);
  korva::api::setGroupPoint(record, 10, origin, kFcf);
  korva::api::setGroupText(record, 1, "", kFcf);
  korva::api::setGroupPoint(record, 11, xAxis, kFcf);
}

wchar_t* QxDbFcf::text(int lineNumber) const {
  std::wstring whole = m::wide(this, m::text(this, 1, kFcf).value_or(""));
  if (lineNumber < 0) return qxutNewString(whole.c_str());
  size_t start = 0;
  for (int line = 0; line < lineNumber; ++line) {
    size_t next = whole.find(kLineBreak, start);
    if (next == std::wstring::npos) return qxutNewString(L"");
    start = next + kLineBreak.size();
  }
  size_t end = whole.find(kLineBreak, start);
  return qxutNewString(whole.substr(start, end == std::wstring::npos ? end : end - start).c_str());
}

Qxad::ErrorStatus QxDbFcf::setText(const wchar_t* text) {
  return m::setText(this, 1, m::drawing(this, text), kFcf);
}

QxGePoint3d QxDbFcf::location() const {
  return m::toPoint(m::point(this, 10, kFcf));
}

Qxad::ErrorStatus QxDbFcf::setLocation(const QxGePoint3d& point) {
  return m::setPoint(this, 10, m::fromPoint(point), kFcf);
}

QxGeVector3d QxDbFcf::normal() const {
  return m::toVector(m::normal(this, kFcf));
}

QxGeVector3d QxDbFcf::direction() const {
  return m::toVector(m::point(this, 11, kFcf, {1, 0, 0}));
}

// ---- Dimension variables

QxDbObjectId QxDbFcf::dimensionStyle() const {
  return m::tableEntryId(this, "DIMSTYLE", kStyleCode, kFcf, "Standard");
}

double QxDbFcf::dimgap() const {
  return korva::api::dimensionReal(this, variable::kGap, kStyleCode, kFcf, kDefaultGap);
}

double QxDbFcf::dimscale() const {
  return korva::api::dimensionReal(this, variable::kScale, kStyleCode, kFcf, 1.0);
}

double QxDbFcf::dimtxt() const {
  return korva::api::dimensionReal(this, variable::kTextHeight, kStyleCode, kFcf,
                                   kDefaultTextHeight);
}

QxCmColor QxDbFcf::dimclrd() const {
  return korva::api::colorOfIndex(
      korva::api::dimensionInteger(this, variable::kLineColor, kStyleCode, kFcf, 0));
}

QxCmColor QxDbFcf::dimclrt() const {
  return korva::api::colorOfIndex(
      korva::api::dimensionInteger(this, variable::kTextColor, kStyleCode, kFcf, 0));
}

Qxad::ErrorStatus QxDbFcf::setDimgap(double value) {
  return korva::api::setDimensionReal(this, variable::kGap, value);
}

Qxad::ErrorStatus QxDbFcf::setDimscale(double value) {
  return korva::api::setDimensionReal(this, variable::kScale, value);
}

Qxad::ErrorStatus QxDbFcf::setDimtxt(double value) {
  return korva::api::setDimensionReal(this, variable::kTextHeight, value);
}

Qxad::ErrorStatus QxDbFcf::setDimclrd(const QxCmColor& color) {
  return korva::api::setDimensionInteger(this, variable::kLineColor, color.colorIndex());
}

Qxad::ErrorStatus QxDbFcf::setDimclrt(const QxCmColor& color) {
  return korva::api::setDimensionInteger(this, variable::kTextColor, color.colorIndex());
}
