// QxDbAttributeDefinition and QxDbAttribute: texts with a tag and flags in their own
// subclass part (AcDbAttributeDefinition, AcDbAttribute).
#include <vector>

#include "entity_members.h"
#include "qx_db_text.h"
#include "qx_ge.h"
#include "qx_memory.h"

namespace m = korva::api::members;

namespace {

constexpr std::string_view kDefinition = "AcDbAttributeDefinition";
constexpr std::string_view kAttribute = "AcDbAttribute";

enum Flag : long long { kInvisible = 1, kConstant = 2, kVerifiable = 4, kPreset = 8 };

bool hasFlag(const QxDbObject* object, std::string_view part, long long flag) {
  return (m::integer(object, 70, 0, part) & flag) != 0;
}

// The lock flag is the 280 after the tag; an earlier 280 is the part's version.
std::optional<size_t> lockGroupIndex(const std::vector<korva::db::OwnedGroup>& groups,
                                     std::string_view part, size_t& partEnd) {
  bool inPart = false;
  bool afterTag = false;
  std::optional<size_t> found;
  partEnd = groups.size();
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code == 1001) {
      if (inPart) partEnd = i;
      break;
    }
    if (groups[i].code == 100) {
      if (inPart) {
        partEnd = i;
        break;
      }
      inPart = groups[i].value == part;
      continue;
    }
    if (!inPart) continue;
    if (groups[i].code == 2) afterTag = true;
    if (groups[i].code == 280 && afterTag) found = i;
  }
  return found;
}

bool lockPosition(const QxDbObject* object, std::string_view part) {
  size_t end = 0;
  std::vector<korva::db::OwnedGroup> groups = m::record(object).ownedGroups();
  std::optional<size_t> index = lockGroupIndex(groups, m::part(object, part), end);
  return index && groups[*index].value.find('1') != std::string::npos;
}

Qxad::ErrorStatus setLockPosition(QxDbObject* object, std::string_view part, bool value) {
  if (Qxad::ErrorStatus status = object->assertWriteEnabled(); status != Qxad::eOk) return status;
  size_t end = 0;
  std::vector<korva::db::OwnedGroup> groups = m::record(object).ownedGroups();
  std::optional<size_t> index = lockGroupIndex(groups, m::part(object, part), end);
  if (index) {
    groups[*index].value = value ? "1" : "0";
  } else {
    groups.insert(groups.begin() + static_cast<long>(end), {280, value ? "1" : "0"});
  }
  m::record(object).assign(std::move(groups));
  m::changed(object);
  return Qxad::eOk;
}

bool isMultiline(const QxDbObject* object) {
  for (const korva::db::Group& group : m::record(object).groups()) {
    if (group.code == 101) return true;  // the embedded paragraph text
  }
  return false;
}

const wchar_t* cached(wchar_t*& slot, wchar_t* fresh) {
  qxad_free(slot);
  slot = fresh;
  return slot;
}

}  // namespace

// ---- Definitions

const QxRxClass* QxDbAttributeDefinition::desc() {
  static const QxRxClass record(L"QxDbAttributeDefinition", QxDbText::desc(), "ATTDEF");
  return &record;
}

static korva::api::ObjectClassRegistration definitionClass("ATTDEF", [] {
  return static_cast<QxDbObject*>(new QxDbAttributeDefinition);
});

QxDbAttributeDefinition::QxDbAttributeDefinition() : QxDbText("ATTDEF") {
  korva::db::Record& record = m::record(this);
  korva::api::setGroupText(record, 3, "", kDefinition);
  korva::api::setGroupText(record, 2, "", kDefinition);
  korva::api::setGroupInteger(record, 70, 0, kDefinition);
}

QxDbAttributeDefinition::QxDbAttributeDefinition(const QxGePoint3d& position, const wchar_t* text,
                                                 const wchar_t* tag, const wchar_t* prompt,
                                                 QxDbObjectId style)
    : QxDbAttributeDefinition() {
  setPosition(position);
  setTextString(text ? text : L"");
  setTag(tag);
  setPrompt(prompt);
  if (!style.isNull()) setTextStyle(style);
}

QxDbAttributeDefinition::~QxDbAttributeDefinition() {
  qxad_free(constTag_);
}

wchar_t* QxDbAttributeDefinition::tag() const {
  return m::newWide(this, 2, kDefinition);
}
const wchar_t* QxDbAttributeDefinition::tagConst() const {
  return cached(constTag_, tag());
}
Qxad::ErrorStatus QxDbAttributeDefinition::setTag(const wchar_t* tag) {
  if (!tag || !*tag) return Qxad::eInvalidInput;
  return m::setText(this, 2, m::drawing(this, tag), kDefinition);
}
wchar_t* QxDbAttributeDefinition::prompt() const {
  return m::newWide(this, 3, kDefinition);
}
Qxad::ErrorStatus QxDbAttributeDefinition::setPrompt(const wchar_t* prompt) {
  return m::setText(this, 3, m::drawing(this, prompt), kDefinition);
}
bool QxDbAttributeDefinition::isInvisible() const {
  return hasFlag(this, kDefinition, kInvisible);
}
Qxad::ErrorStatus QxDbAttributeDefinition::setInvisible(bool value) {
  return m::setFlag(this, 70, kInvisible, value, kDefinition);
}
bool QxDbAttributeDefinition::isConstant() const {
  return hasFlag(this, kDefinition, kConstant);
}
Qxad::ErrorStatus QxDbAttributeDefinition::setConstant(bool value) {
  return m::setFlag(this, 70, kConstant, value, kDefinition);
}
bool QxDbAttributeDefinition::isVerifiable() const {
  return hasFlag(this, kDefinition, kVerifiable);
}
Qxad::ErrorStatus QxDbAttributeDefinition::setVerifiable(bool value) {
  return m::setFlag(this, 70, kVerifiable, value, kDefinition);
}
bool QxDbAttributeDefinition::isPreset() const {
  return hasFlag(this, kDefinition, kPreset);
}
Qxad::ErrorStatus QxDbAttributeDefinition::setPreset(bool value) {
  return m::setFlag(this, 70, kPreset, value, kDefinition);
}
int QxDbAttributeDefinition::fieldLength() const {
  return static_cast<int>(m::integer(this, 73, 0, kDefinition));
}
Qxad::ErrorStatus QxDbAttributeDefinition::setFieldLength(int length) {
  if (length < 0) return Qxad::eInvalidInput;
  return m::setInteger(this, 73, length, kDefinition);
}
bool QxDbAttributeDefinition::lockPositionInBlock() const {
  return lockPosition(this, kDefinition);
}
Qxad::ErrorStatus QxDbAttributeDefinition::setLockPositionInBlock(bool value) {
  return setLockPosition(this, kDefinition, value);
}
bool QxDbAttributeDefinition::isMTextAttributeDefinition() const {
  return isMultiline(this);
}

// ---- Attributes

const QxRxClass* QxDbAttribute::desc() {
  static const QxRxClass record(L"QxDbAttribute", QxDbText::desc(), "ATTRIB");
  return &record;
}

static korva::api::ObjectClassRegistration attributeClass("ATTRIB", [] {
  return static_cast<QxDbObject*>(new QxDbAttribute);
});

QxDbAttribute::QxDbAttribute() : QxDbText("ATTRIB") {
  korva::db::Record& record = m::record(this);
  korva::api::setGroupText(record, 2, "", kAttribute);
  korva::api::setGroupInteger(record, 70, 0, kAttribute);
}

QxDbAttribute::QxDbAttribute(const QxGePoint3d& position, const wchar_t* text, const wchar_t* tag,
                             QxDbObjectId style)
    : QxDbAttribute() {
  setPosition(position);
  setTextString(text ? text : L"");
  setTag(tag);
  if (!style.isNull()) setTextStyle(style);
}

QxDbAttribute::~QxDbAttribute() {
  qxad_free(constTag_);
}

wchar_t* QxDbAttribute::tag() const {
  return m::newWide(this, 2, kAttribute);
}
const wchar_t* QxDbAttribute::tagConst() const {
  return cached(constTag_, tag());
}
Qxad::ErrorStatus QxDbAttribute::setTag(const wchar_t* tag) {
  if (!tag || !*tag) return Qxad::eInvalidInput;
  return m::setText(this, 2, m::drawing(this, tag), kAttribute);
}
bool QxDbAttribute::isInvisible() const {
  return hasFlag(this, kAttribute, kInvisible);
}
Qxad::ErrorStatus QxDbAttribute::setInvisible(bool value) {
  return m::setFlag(this, 70, kInvisible, value, kAttribute);
}
bool QxDbAttribute::isConstant() const {
  return hasFlag(this, kAttribute, kConstant);
}
bool QxDbAttribute::isVerifiable() const {
  return hasFlag(this, kAttribute, kVerifiable);
}
bool QxDbAttribute::isPreset() const {
  return hasFlag(this, kAttribute, kPreset);
}
int QxDbAttribute::fieldLength() const {
  return static_cast<int>(m::integer(this, 73, 0, kAttribute));
}
Qxad::ErrorStatus QxDbAttribute::setFieldLength(int length) {
  if (length < 0) return Qxad::eInvalidInput;
  return m::setInteger(this, 73, length, kAttribute);
}
bool QxDbAttribute::lockPositionInBlock() const {
  return lockPosition(this, kAttribute);
}
Qxad::ErrorStatus QxDbAttribute::setLockPositionInBlock(bool value) {
  return setLockPosition(this, kAttribute, value);
}
bool QxDbAttribute::isMTextAttribute() const {
  return isMultiline(this);
}

Qxad::ErrorStatus QxDbAttribute::setAttributeFromBlock(const QxDbAttributeDefinition* definition) {
  if (!definition) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  wchar_t* tagText = definition->tag();
  setTag(tagText);
  qxad_free(tagText);
  m::setInteger(this, 70, m::integer(definition, 70, 0, kDefinition), kAttribute);
  m::setInteger(this, 73, definition->fieldLength(), kAttribute);
  setLockPositionInBlock(definition->lockPositionInBlock());
  // The text groups are the same in both records.
  for (int code : {1, 7, 39, 40, 41, 50, 51, 71, 72}) {
    if (std::optional<std::string_view> value = m::text(definition, code, "AcDbText")) {
      m::setText(this, code, *value, "AcDbText");
    }
  }
  m::setInteger(this, 74, definition->verticalMode(), kAttribute);
  m::setPoint(this, 210, m::normal(definition, "AcDbText"), "AcDbText");
  m::setPoint(this, 10, m::point(definition, 10, "AcDbText"), "AcDbText");
  if (m::text(definition, 11, "AcDbText"))
    m::setPoint(this, 11, m::point(definition, 11, "AcDbText"), "AcDbText");
  return Qxad::eOk;
}
