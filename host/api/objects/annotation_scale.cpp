// Annotation scales and the viewport's: an xrecord ASDK_XREC_ANNOTATION_SCALE_INFO in
// the viewport's extension dictionary points (340) at a SCALE of ACAD_SCALELIST.
#include "db/handle.h"
#include "db/value_text.h"
#include "extension_dictionary.h"
#include "object_access.h"
#include "qx_db_annotation_scale.h"
#include "qx_db_viewport.h"

using korva::db::Database;
using korva::db::Record;

namespace {

constexpr std::string_view kScaleInfo = "ASDK_XREC_ANNOTATION_SCALE_INFO";
constexpr std::string_view kScalePart = "AcDbScale";

bool isLiveScale(const Record* record) {
  return record && !record->isErased() && record->type() == "SCALE";
}

// The SCALE an annotation scale names in this drawing: by id, else by name.
Record* scaleRecordFor(Database& database, const QxDbAnnotationScale& scale) {
  Database* owner = nullptr;
  Record* named = korva::api::recordOf(scale.scaleId(), &owner);
  if (isLiveScale(named) && owner == &database) return named;
  wchar_t* wide = nullptr;
  scale.getName(wide);
  std::string name = korva::api::drawingText(&database, wide ? wide : L"");
  qxad_free(wide);
  Record* root = korva::api::namedObjectsDictionary(database);
  Record* list = root ? korva::api::dictionaryEntry(database, *root, "ACAD_SCALELIST") : nullptr;
  if (!list) return nullptr;
  std::vector<korva::db::Group> groups = list->groupList();
  for (size_t i = 0; i + 1 < groups.size(); ++i) {
    if (groups[i].code != 3) continue;
    Record* entry = database.lookup(korva::db::parseHandle(groups[i + 1].value).value_or(0));
    if (isLiveScale(entry) && korva::api::groupText(*entry, 300, kScalePart) == name) return entry;
  }
  return nullptr;
}

Record* scaleInfoOf(Database& database, const Record& viewport) {
  Record* dictionary = korva::api::extensionDictionaryOf(database, viewport);
  return dictionary ? korva::api::dictionaryEntry(database, *dictionary, kScaleInfo) : nullptr;
}

}  // namespace

// ---- The value and its implementation

Qxad::ErrorStatus QxDbImpAnnotationScale::setName(const wchar_t* name) {
  if (!name || !*name) return Qxad::eInvalidInput;
  name_ = name;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbImpAnnotationScale::setPaperUnits(double units) {
  if (!(units > 0)) return Qxad::eOutOfRange;
  paperUnits_ = units;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbImpAnnotationScale::setDrawingUnits(double units) {
  if (!(units > 0)) return Qxad::eOutOfRange;
  drawingUnits_ = units;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbImpAnnotationScale::setScaleId(QxDbObjectId id) {
  if (id.isNull()) {
    scaleId_ = id;
    return Qxad::eOk;
  }
  Database* database = nullptr;
  Record* record = korva::api::recordOf(id, &database);
  if (record && record->type() != "SCALE") return Qxad::eInvalidInput;
  scaleId_ = id;
  if (!isLiveScale(record)) return Qxad::eOk;
  name_ =
      korva::api::wideText(database, korva::api::groupText(*record, 300, kScalePart).value_or(""));
  paperUnits_ = korva::api::groupReal(*record, 140, 1, kScalePart);
  drawingUnits_ = korva::api::groupReal(*record, 141, 1, kScalePart);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbAnnotationScale::getName(wchar_t*& name) const {
  name = qxutNewString(imp_.name_.c_str());
  return name ? Qxad::eOk : Qxad::eOutOfRange;
}

Qxad::ErrorStatus QxDbAnnotationScale::getScale(double& scale) const {
  if (!(imp_.drawingUnits_ > 0)) return Qxad::eInvalidInput;
  scale = imp_.paperUnits_ / imp_.drawingUnits_;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbAnnotationScale::getPaperUnits(double& units) const {
  units = imp_.paperUnits_;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbAnnotationScale::getDrawingUnits(double& units) const {
  units = imp_.drawingUnits_;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbAnnotationScale::copyFrom(const QxDbAnnotationScale* other) {
  if (!other) return Qxad::eInvalidInput;
  imp_.name_ = other->imp_.name_;
  imp_.paperUnits_ = other->imp_.paperUnits_;
  imp_.drawingUnits_ = other->imp_.drawingUnits_;
  imp_.scaleId_ = other->imp_.scaleId_;
  return Qxad::eOk;
}

QxDbImpAnnotationScale* QxDbSystemInternals::getImpAnnotationScale(QxDbAnnotationScale* scale) {
  return scale ? &scale->imp_ : nullptr;
}

// ---- The viewport's

QxDbAnnotationScale* QxDbViewport::annotationScale() const {
  Database* database = korva::api::databaseOf(*this);
  if (!database) return nullptr;
  Record* info = scaleInfoOf(*database, korva::api::recordOf(*this));
  std::optional<std::string_view> link = info ? korva::api::groupText(*info, 340) : std::nullopt;
  Record* scale = link ? database->lookup(korva::db::parseHandle(*link).value_or(0)) : nullptr;
  if (!isLiveScale(scale)) return nullptr;
  auto* result = new QxDbAnnotationScale;
  QxDbSystemInternals::getImpAnnotationScale(result)->setScaleId(
      korva::api::idOf(*database, *scale));
  return result;
}

Qxad::ErrorStatus QxDbViewport::setAnnotationScale(const QxDbAnnotationScale* scale) {
  if (!scale) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  Record* target = scaleRecordFor(*database, *scale);
  if (!target) return Qxad::eKeyNotFound;
  std::string link = korva::db::formatHandle(target->handle());
  Record& viewport = korva::api::recordOf(*this);
  if (Record* info = scaleInfoOf(*database, viewport)) {
    if (!info->setValue(340, link)) {
      std::vector<korva::db::OwnedGroup> groups = info->ownedGroups();
      groups.push_back({340, link});
      info->assign(std::move(groups));
    }
  } else {
    Record* dictionary = korva::api::ensureExtensionDictionary(*database, viewport);
    Record* made =
        database->addObject("XRECORD", {{330, korva::db::formatHandle(dictionary->handle())},
                                        {100, "AcDbXrecord"},
                                        {280, "1"},
                                        {340, link}});
    korva::api::setDictionaryEntry(*dictionary, kScaleInfo, made->handle());
  }
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}
