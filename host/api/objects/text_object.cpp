// QxDbText: a single-line text over its TEXT record. Points 10 and 11 are stored in the
// text's object system; the interface speaks world coordinates.
#include <cmath>
#include <numbers>

#include "api/utf8.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "line_text_layout.h"
#include "qx_db_text.h"
#include "qx_ge.h"
#include "qx_memory.h"
#include "text_fonts.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

constexpr std::string_view kText = "AcDbText";
constexpr double kDegree = std::numbers::pi / 180;

korva::geom::Affine3 toWorld(const QxDbText* text) {
  return korva::geom::objectToWorld(m::normal(text, kText));
}

Vec3 objectPoint(const QxDbText* text, int code) {
  return m::point(text, code, kText);
}

Qxad::ErrorStatus setObjectPoint(QxDbText* text, int code, Vec3 point) {
  return m::setPoint(text, code, point, kText);
}

bool isTwoPoint(int mode) {
  return mode == QxDb::kTextAlign || mode == QxDb::kTextFit;
}

// A TEXT record keeps its vertical mode (73) behind a second AcDbText marker.
void writeTextVerticalMode(korva::db::Record& record, int mode) {
  std::vector<korva::db::OwnedGroup> groups = record.ownedGroups();
  size_t end = 0;
  while (end < groups.size() && groups[end].code != 1001) ++end;
  int markers = 0;
  size_t second = end;
  bool anyMarker = false;
  for (size_t i = 0; i < end; ++i) {
    if (groups[i].code != 100) continue;
    anyMarker = true;
    if (groups[i].value == kText && ++markers == 2) second = i;
  }
  std::erase_if(groups, [&](const korva::db::OwnedGroup& group) { return group.code == 73; });
  end = 0;
  while (end < groups.size() && groups[end].code != 1001) ++end;
  if (!anyMarker) {
    groups.insert(groups.begin() + static_cast<long>(end), {73, std::to_string(mode)});
  } else if (markers < 2) {
    groups.insert(groups.begin() + static_cast<long>(end), {100, std::string(kText)});
    groups.insert(groups.begin() + static_cast<long>(end) + 1, {73, std::to_string(mode)});
  } else {
    second = 0;
    markers = 0;
    for (size_t i = 0; i < groups.size(); ++i) {
      if (groups[i].code == 100 && groups[i].value == kText && ++markers == 2) second = i;
    }
    groups.insert(groups.begin() + static_cast<long>(second) + 1, {73, std::to_string(mode)});
  }
  record.assign(std::move(groups));
}

}  // namespace

const QxRxClass* QxDbText::desc() {
  static const QxRxClass record(L"QxDbText", QxDbEntity::desc(), "TEXT");
  return &record;
}

static korva::api::ObjectClassRegistration textClass("TEXT", [] {
  return static_cast<QxDbObject*>(new QxDbText);
});

QxDbText::QxDbText() : QxDbText("TEXT") {}

QxDbText::QxDbText(const char* dxfType) : QxDbEntity(dxfType) {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  korva::api::setGroupPoint(record, 10, origin, kText);
  korva::api::setGroupReal(record, 40, 2.5, kText);
  korva::api::setGroupText(record, 1, "", kText);
  if (std::string_view(dxfType) == "TEXT") writeTextVerticalMode(record, 0);
}

QxDbText::QxDbText(const QxGePoint3d& position, const wchar_t* text, QxDbObjectId style,
                   double height, double rotation)
    : QxDbText("TEXT") {
  setPosition(position);
  setTextString(text);
  if (height > 0) setHeight(height);
  if (rotation != 0) setRotation(rotation);
  if (!style.isNull()) setTextStyle(style);
}

QxDbText::~QxDbText() {
  qxad_free(constText_);
}

// ---- Placement

QxGePoint3d QxDbText::position() const {
  return m::toPoint(toWorld(this).point(objectPoint(this, 10)));
}

QxGePoint3d QxDbText::alignmentPoint() const {
  if (!m::text(this, 11, kText)) return position();
  return m::toPoint(toWorld(this).point(objectPoint(this, 11)));
}

bool QxDbText::isDefaultAlignment() const {
  return horizontalMode() == QxDb::kTextLeft && verticalMode() == QxDb::kTextBase;
}

Qxad::ErrorStatus QxDbText::setPosition(const QxGePoint3d& position) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Vec3 target = toWorld(this).inverse().point(m::fromPoint(position));
  if (!isDefaultAlignment() && !isTwoPoint(horizontalMode())) {
    // The position of a justified text follows its anchor: move both together.
    Vec3 shift = target - objectPoint(this, 10);
    setObjectPoint(this, 11, objectPoint(this, 11) + shift);
  }
  return setObjectPoint(this, 10, target);
}

Qxad::ErrorStatus QxDbText::setAlignmentPoint(const QxGePoint3d& point) {
  Qxad::ErrorStatus status =
      setObjectPoint(this, 11, toWorld(this).inverse().point(m::fromPoint(point)));
  return status == Qxad::eOk ? adjustAlignment() : status;
}

namespace {

korva::api::LineTextFacts factsOf(const QxDbText* text) {
  korva::api::LineTextFacts facts;
  std::string_view style = m::text(text, 7, kText).value_or("Standard");
  facts.metrics = &korva::api::metricsOfStyle(korva::api::databaseOf(*text), style);
  std::wstring wide = m::wide(text, m::text(text, 1, kText).value_or(""));
  facts.utf8 = korva::geom::resolveTextCodes(korva::api::toUtf8(wide));
  facts.height = text->height();
  facts.widthFactor = text->widthFactor();
  facts.oblique = text->oblique();
  facts.horizontal = text->horizontalMode();
  facts.vertical = text->verticalMode();
  facts.backward = text->isMirroredInX();
  facts.upsideDown = text->isMirroredInY();
  return facts;
}

}  // namespace

korva::api::LineTextFacts korva::api::lineTextFactsOf(const QxDbText* text) {
  return factsOf(text);
}

namespace {

Vec3 rotated(korva::geom::Vec2 v, double angle) {
  return {v.x * std::cos(angle) - v.y * std::sin(angle),
          v.x * std::sin(angle) + v.y * std::cos(angle), 0};
}

}  // namespace

Qxad::ErrorStatus QxDbText::adjustAlignment() {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  if (isDefaultAlignment() || isTwoPoint(horizontalMode())) return Qxad::eOk;
  Vec3 anchor = objectPoint(this, 11);
  Vec3 position = anchor + rotated(korva::api::positionOffset(factsOf(this)), rotation());
  position.z = anchor.z;
  return setObjectPoint(this, 10, position);
}

QxDb::TextHorzMode QxDbText::horizontalMode() const {
  return static_cast<QxDb::TextHorzMode>(m::integer(this, 72, 0, kText));
}

QxDb::TextVertMode QxDbText::verticalMode() const {
  std::string_view part = verticalModeCode() == 73 ? kText : std::string_view{};
  if (verticalModeCode() == 74) {
    part = isKindOf(QxDbAttributeDefinition::desc()) ? "AcDbAttributeDefinition" : "AcDbAttribute";
  }
  return static_cast<QxDb::TextVertMode>(m::integer(this, verticalModeCode(), 0, part));
}

namespace {

// Switching from left/baseline to another justification keeps the text where it is:
// the anchor is put where the new justification finds it in the current box.
Qxad::ErrorStatus seedAnchor(QxDbText* text, bool wasDefault) {
  if (!wasDefault || text->isDefaultAlignment()) return Qxad::eOk;
  Vec3 position = m::point(text, 10, kText);
  korva::api::LineTextFacts facts = factsOf(text);
  Vec3 anchor;
  if (isTwoPoint(text->horizontalMode())) {
    facts.horizontal = 0;
    korva::api::LocalBox box = korva::api::lineTextBox(facts);
    double length = facts.backward ? box.left : box.right;
    anchor = position + rotated({length, 0}, text->rotation());
  } else {
    anchor = position - rotated(korva::api::positionOffset(facts), text->rotation());
  }
  anchor.z = position.z;
  return m::setPoint(text, 11, anchor, kText);
}

}  // namespace

Qxad::ErrorStatus QxDbText::setHorizontalMode(QxDb::TextHorzMode mode) {
  if (mode < QxDb::kTextLeft || mode > QxDb::kTextFit) return Qxad::eInvalidInput;
  bool wasDefault = isDefaultAlignment();
  if (Qxad::ErrorStatus status = m::setInteger(this, 72, mode, kText); status != Qxad::eOk) {
    return status;
  }
  seedAnchor(this, wasDefault);
  return adjustAlignment();
}

Qxad::ErrorStatus QxDbText::setVerticalMode(QxDb::TextVertMode mode) {
  if (mode < QxDb::kTextBase || mode > QxDb::kTextTop) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  bool wasDefault = isDefaultAlignment();
  if (verticalModeCode() == 73) {
    writeTextVerticalMode(m::record(this), mode);
    m::changed(this);
  } else {
    std::string_view part =
        isKindOf(QxDbAttributeDefinition::desc()) ? "AcDbAttributeDefinition" : "AcDbAttribute";
    m::setInteger(this, 74, mode, part);
  }
  seedAnchor(this, wasDefault);
  return adjustAlignment();
}

// ---- Shape of the text

QxGeVector3d QxDbText::normal() const {
  return m::toVector(m::normal(this, kText));
}

Qxad::ErrorStatus QxDbText::setNormal(const QxGeVector3d& normal) {
  Vec3 n = m::fromVector(normal);
  if (korva::geom::length(n) == 0) return Qxad::eInvalidInput;
  return m::setPoint(this, 210, korva::geom::normalized(n), kText);
}

double QxDbText::thickness() const {
  return m::real(this, 39, 0, kText);
}
Qxad::ErrorStatus QxDbText::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kText);
}

double QxDbText::oblique() const {
  return m::real(this, 51, 0, kText) * kDegree;
}
Qxad::ErrorStatus QxDbText::setOblique(double angle) {
  if (std::fabs(angle) >= 85 * kDegree) return Qxad::eInvalidInput;
  Qxad::ErrorStatus status = m::setReal(this, 51, angle / kDegree, kText);
  return status == Qxad::eOk ? adjustAlignment() : status;
}

double QxDbText::rotation() const {
  return m::real(this, 50, 0, kText) * kDegree;
}
Qxad::ErrorStatus QxDbText::setRotation(double angle) {
  Qxad::ErrorStatus status = m::setReal(this, 50, angle / kDegree, kText);
  return status == Qxad::eOk ? adjustAlignment() : status;
}

double QxDbText::height() const {
  return m::real(this, 40, 0, kText);
}
Qxad::ErrorStatus QxDbText::setHeight(double height) {
  if (height <= 0) return Qxad::eInvalidInput;
  Qxad::ErrorStatus status = m::setReal(this, 40, height, kText);
  return status == Qxad::eOk ? adjustAlignment() : status;
}

double QxDbText::widthFactor() const {
  return m::real(this, 41, 1, kText);
}
Qxad::ErrorStatus QxDbText::setWidthFactor(double factor) {
  if (factor <= 0) return Qxad::eInvalidInput;
  Qxad::ErrorStatus status = m::setReal(this, 41, factor, kText);
  return status == Qxad::eOk ? adjustAlignment() : status;
}

bool QxDbText::isMirroredInX() const {
  return (m::integer(this, 71, 0, kText) & 2) != 0;
}
Qxad::ErrorStatus QxDbText::mirrorInX(bool mirrored) {
  Qxad::ErrorStatus status = m::setFlag(this, 71, 2, mirrored, kText);
  return status == Qxad::eOk ? adjustAlignment() : status;
}

bool QxDbText::isMirroredInY() const {
  return (m::integer(this, 71, 0, kText) & 4) != 0;
}
Qxad::ErrorStatus QxDbText::mirrorInY(bool mirrored) {
  Qxad::ErrorStatus status = m::setFlag(this, 71, 4, mirrored, kText);
  return status == Qxad::eOk ? adjustAlignment() : status;
}

// ---- String and style

wchar_t* QxDbText::textString() const {
  return m::newWide(this, 1, kText);
}

const wchar_t* QxDbText::textStringConst() const {
  qxad_free(constText_);
  constText_ = textString();
  return constText_;
}

Qxad::ErrorStatus QxDbText::setTextString(const wchar_t* text) {
  if (!text) return Qxad::eInvalidInput;
  Qxad::ErrorStatus status = m::setText(this, 1, m::drawing(this, text), kText);
  return status == Qxad::eOk ? adjustAlignment() : status;
}

QxDbObjectId QxDbText::textStyle() const {
  return m::tableEntryId(this, "STYLE", 7, kText, "Standard");
}

Qxad::ErrorStatus QxDbText::setTextStyle(QxDbObjectId style) {
  std::optional<std::string> name = m::tableEntryName(this, style);
  if (!name) return Qxad::eInvalidInput;
  Qxad::ErrorStatus status = m::setText(this, 7, *name, kText);
  return status == Qxad::eOk ? adjustAlignment() : status;
}
