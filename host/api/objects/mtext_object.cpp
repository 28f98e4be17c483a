// QxDbMText: a paragraph text over its MTEXT record. The location (10) and direction
// (11) are world values; the rotation (50) is an angle in the object system.
#include <cmath>

#include "api/utf8.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "paragraph_layout.h"
#include "qx_db_text.h"
#include "qx_ge.h"
#include "qx_memory.h"
#include "text_fonts.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

constexpr std::string_view kMText = "AcDbMText";
// Contents longer than this go into leading 3 groups, the rest into the 1 group.
constexpr size_t kChunk = 250;

korva::geom::Affine3 toWorld(const QxDbMText* text) {
  return korva::geom::objectToWorld(m::normal(text, kMText));
}

std::string contentsOf(const QxDbMText* text) {
  std::string contents;
  for (int k = 0; std::optional<std::string_view> chunk = m::text(text, 3, kMText, k); ++k) {
    contents += *chunk;
  }
  return contents + std::string(m::text(text, 1, kMText).value_or(""));
}

// Cuts between UTF-8 sequences, so every group stays valid text.
size_t cutAt(const std::string& text, size_t at) {
  while (at > 0 && at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) --at;
  return at;
}

}  // namespace

korva::api::ParagraphSize korva::api::paragraphLayoutOf(const QxDbMText* text) {
  korva::api::ParagraphFacts facts;
  std::string_view style = m::text(text, 7, kMText).value_or("Standard");
  facts.metrics = &korva::api::metricsOfStyle(korva::api::databaseOf(*text), style);
  facts.contents = korva::api::toUtf8(m::wide(text, contentsOf(text)));
  facts.textHeight = text->textHeight();
  facts.width = text->width();
  facts.lineSpacingFactor = text->lineSpacingFactor();
  return korva::api::layOutParagraph(facts);
}

const QxRxClass* QxDbMText::desc() {
  static const QxRxClass record(L"QxDbMText", QxDbEntity::desc(), "MTEXT");
  return &record;
}

static korva::api::ObjectClassRegistration mtextClass("MTEXT", [] {
  return static_cast<QxDbObject*>(new QxDbMText);
});

QxDbMText::QxDbMText() : QxDbEntity("MTEXT") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  korva::api::setGroupPoint(record, 10, origin, kMText);
  korva::api::setGroupReal(record, 40, 2.5, kMText);
  korva::api::setGroupReal(record, 41, 0, kMText);
  korva::api::setGroupInteger(record, 71, kTopLeft, kMText);
  korva::api::setGroupInteger(record, 72, kLtoR, kMText);
  korva::api::setGroupText(record, 1, "", kMText);
}

QxDbMText::~QxDbMText() = default;

QxGePoint3d QxDbMText::location() const {
  return m::toPoint(m::point(this, 10, kMText));
}
Qxad::ErrorStatus QxDbMText::setLocation(const QxGePoint3d& point) {
  return m::setPoint(this, 10, m::fromPoint(point), kMText);
}

QxGeVector3d QxDbMText::normal() const {
  return m::toVector(m::normal(this, kMText));
}
Qxad::ErrorStatus QxDbMText::setNormal(const QxGeVector3d& normal) {
  Vec3 n = m::fromVector(normal);
  if (korva::geom::length(n) == 0) return Qxad::eInvalidInput;
  double angle = rotation();
  Qxad::ErrorStatus status = m::setPoint(this, 210, korva::geom::normalized(n), kMText);
  return status == Qxad::eOk ? setRotation(angle) : status;
}

QxGeVector3d QxDbMText::direction() const {
  if (m::text(this, 11, kMText)) {
    Vec3 given = m::point(this, 11, kMText);
    if (korva::geom::length(given) > 0) return m::toVector(korva::geom::normalized(given));
  }
  double angle = m::real(this, 50, 0, kMText);
  return m::toVector(toWorld(this).vector({std::cos(angle), std::sin(angle), 0}));
}

Qxad::ErrorStatus QxDbMText::setDirection(const QxGeVector3d& direction) {
  Vec3 d = toWorld(this).inverse().vector(m::fromVector(direction));
  if (std::hypot(d.x, d.y) == 0) return Qxad::eInvalidInput;
  return setRotation(std::atan2(d.y, d.x));
}

double QxDbMText::rotation() const {
  if (!m::text(this, 11, kMText)) return m::real(this, 50, 0, kMText);
  Vec3 d = toWorld(this).inverse().vector(m::fromVector(direction()));
  return std::atan2(d.y, d.x);
}

Qxad::ErrorStatus QxDbMText::setRotation(double angle) {
  Qxad::ErrorStatus status = m::setReal(this, 50, angle, kMText);
  if (status != Qxad::eOk || !m::text(this, 11, kMText)) return status;
  // A stored direction wins over the angle in readers: keep both in step.
  return m::setPoint(this, 11, toWorld(this).vector({std::cos(angle), std::sin(angle), 0}), kMText);
}

double QxDbMText::width() const {
  return m::real(this, 41, 0, kMText);
}
Qxad::ErrorStatus QxDbMText::setWidth(double width) {
  if (width < 0) return Qxad::eInvalidInput;
  return m::setReal(this, 41, width, kMText);
}

double QxDbMText::height() const {
  return m::real(this, 46, 0, kMText);
}
Qxad::ErrorStatus QxDbMText::setHeight(double height) {
  if (height < 0) return Qxad::eInvalidInput;
  return m::setReal(this, 46, height, kMText);
}

double QxDbMText::textHeight() const {
  return m::real(this, 40, 0, kMText);
}
Qxad::ErrorStatus QxDbMText::setTextHeight(double height) {
  if (height <= 0) return Qxad::eInvalidInput;
  return m::setReal(this, 40, height, kMText);
}

QxDbMText::AttachmentPoint QxDbMText::attachment() const {
  long long value = m::integer(this, 71, kTopLeft, kMText);
  return static_cast<AttachmentPoint>(value >= 1 && value <= 9 ? value : 1);
}
Qxad::ErrorStatus QxDbMText::setAttachment(AttachmentPoint attachment) {
  if (attachment < kTopLeft || attachment > kBottomRight) return Qxad::eInvalidInput;
  return m::setInteger(this, 71, attachment, kMText);
}

QxDbMText::FlowDirection QxDbMText::flowDirection() const {
  return static_cast<FlowDirection>(m::integer(this, 72, kLtoR, kMText));
}
Qxad::ErrorStatus QxDbMText::setFlowDirection(FlowDirection direction) {
  if (direction < kLtoR || direction > kByStyle) return Qxad::eInvalidInput;
  return m::setInteger(this, 72, direction, kMText);
}

double QxDbMText::lineSpacingFactor() const {
  return m::real(this, 44, 1, kMText);
}
Qxad::ErrorStatus QxDbMText::setLineSpacingFactor(double factor) {
  if (factor < 0.25 || factor > 4) return Qxad::eInvalidInput;
  return m::setReal(this, 44, factor, kMText);
}

QxDbMText::LineSpacingStyle QxDbMText::lineSpacingStyle() const {
  return static_cast<LineSpacingStyle>(m::integer(this, 73, kAtLeast, kMText));
}
Qxad::ErrorStatus QxDbMText::setLineSpacingStyle(LineSpacingStyle style) {
  if (style != kAtLeast && style != kExactly) return Qxad::eInvalidInput;
  return m::setInteger(this, 73, style, kMText);
}

wchar_t* QxDbMText::contents() const {
  return qxutNewString(m::wide(this, contentsOf(this)).c_str());
}

Qxad::ErrorStatus QxDbMText::setContents(const wchar_t* text) {
  if (!text) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::string contents = m::drawing(this, text);
  std::vector<korva::db::OwnedGroup> chunks;
  size_t start = 0;
  while (contents.size() - start > kChunk) {
    size_t end = cutAt(contents, start + kChunk);
    if (end <= start) end = start + kChunk;
    chunks.push_back({3, contents.substr(start, end - start)});
    start = end;
  }
  chunks.push_back({1, contents.substr(start)});
  // The chunks take the place of the old ones, in order.
  korva::db::Record& record = m::record(this);
  std::vector<korva::db::OwnedGroup> groups = record.ownedGroups();
  std::string_view part = m::part(this, kMText);
  constexpr size_t kNone = static_cast<size_t>(-1);
  bool inPart = part.empty();
  size_t at = kNone, partEnd = kNone;
  std::vector<korva::db::OwnedGroup> kept;
  for (const korva::db::OwnedGroup& group : groups) {
    bool endsPart = group.code == 1001 || (group.code == 100 && !part.empty());
    if (endsPart && inPart && partEnd == kNone) partEnd = kept.size();
    if (group.code == 1001) inPart = false;
    if (group.code == 100 && !part.empty() && group.code != 1001) inPart = group.value == part;
    if (inPart && (group.code == 1 || group.code == 3)) {
      if (at == kNone) at = kept.size();
      continue;
    }
    kept.push_back(group);
  }
  if (inPart && partEnd == kNone) partEnd = kept.size();
  if (at == kNone) at = partEnd == kNone ? kept.size() : partEnd;
  kept.insert(kept.begin() + static_cast<long>(at), chunks.begin(), chunks.end());
  record.assign(std::move(kept));
  m::changed(this);
  return Qxad::eOk;
}

QxDbObjectId QxDbMText::textStyle() const {
  return m::tableEntryId(this, "STYLE", 7, kMText, "Standard");
}
Qxad::ErrorStatus QxDbMText::setTextStyle(QxDbObjectId style) {
  std::optional<std::string> name = m::tableEntryName(this, style);
  if (!name) return Qxad::eInvalidInput;
  return m::setText(this, 7, *name, kMText);
}

double QxDbMText::actualWidth() const {
  return korva::api::paragraphLayoutOf(this).width;
}
double QxDbMText::actualHeight() const {
  return korva::api::paragraphLayoutOf(this).height;
}
