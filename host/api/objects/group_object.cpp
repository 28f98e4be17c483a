// Groups: a description, flags, and the members as hard pointers (340).
#include <algorithm>

#include "api/record_places.h"
#include "object_access.h"
#include "qx_db_dictionary.h"
#include "qx_db_entity.h"
#include "table_classes.h"

using korva::db::Database;
using korva::db::OwnedGroup;
using korva::db::Record;

namespace {

constexpr std::string_view kGroupPart = "AcDbGroup";

Record& recordOf(const QxDbGroup* group) {
  return korva::api::recordOf(*group);
}

std::vector<korva::db::Handle> memberHandles(const QxDbGroup* group) {
  std::vector<korva::db::Handle> handles;
  for (int i = 0;; ++i) {
    std::optional<std::string_view> text =
        korva::api::groupText(recordOf(group), 340, kGroupPart, i);
    if (!text) break;
    if (std::optional<korva::db::Handle> handle = korva::db::parseHandle(*text))
      handles.push_back(*handle);
  }
  return handles;
}

bool isMember(const QxDbGroup* group, QxDbObjectId id) {
  Database* database = korva::api::databaseOf(*group);
  if (database && id.databaseSerial() != database->serial()) return false;
  std::vector<korva::db::Handle> handles = memberHandles(group);
  return std::find(handles.begin(), handles.end(), id.handle().value()) != handles.end();
}

Qxad::ErrorStatus setFlag(QxDbGroup* group, int code, bool on) {
  if (Qxad::ErrorStatus status = group->assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupInteger(recordOf(group), code, on ? 1 : 0, kGroupPart);
  korva::api::noteChanged(*group);
  return Qxad::eOk;
}

}  // namespace

KORVA_DEFINE_CLASS(QxDbGroup, QxDbObject)
static korva::api::ObjectClassRegistration groupClass("GROUP", [] {
  return static_cast<QxDbObject*>(new QxDbGroup);
});

QxDbGroup::QxDbGroup(const wchar_t* description, bool selectable) : QxDbObject("GROUP") {
  recordOf(this).assign({{100, std::string(kGroupPart)},
                         {300, korva::api::drawingText(nullptr, description ? description : L"")},
                         {70, "0"},
                         {71, selectable ? "1" : "0"}});
}

wchar_t* QxDbGroup::description() const {
  return korva::api::newWideText(
      korva::api::databaseOf(*this),
      korva::api::groupText(recordOf(this), 300, kGroupPart).value_or(""));
}

Qxad::ErrorStatus QxDbGroup::setDescription(const wchar_t* description) {
  if (!description) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupText(recordOf(this), 300,
                           korva::api::drawingText(korva::api::databaseOf(*this), description),
                           kGroupPart);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

bool QxDbGroup::isSelectable() const {
  return korva::api::groupInteger(recordOf(this), 71, 1, kGroupPart) != 0;
}
Qxad::ErrorStatus QxDbGroup::setSelectable(bool selectable) {
  return setFlag(this, 71, selectable);
}
bool QxDbGroup::isAnonymous() const {
  return korva::api::groupInteger(recordOf(this), 70, 0, kGroupPart) != 0;
}
Qxad::ErrorStatus QxDbGroup::setAnonymous() {
  return setFlag(this, 70, true);
}

Qxad::ErrorStatus QxDbGroup::append(QxDbObjectId id) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Database* entityDatabase = nullptr;
  Record* entity = korva::api::recordOf(id, &entityDatabase);
  if (!entity || entity->isErased()) return Qxad::eInvalidInput;
  Database* database = korva::api::databaseOf(*this);
  if (database && database != entityDatabase) return Qxad::eInvalidInput;
  if (!korva::api::isEntity(*entityDatabase, *entity)) return Qxad::eWrongObjectType;
  if (isMember(this, id)) return Qxad::eOk;
  std::vector<OwnedGroup> groups = recordOf(this).ownedGroups();
  auto end = std::find_if(groups.begin(), groups.end(),
                          [](const OwnedGroup& group) { return group.code == 1001; });
  groups.insert(end, {340, korva::db::formatHandle(entity->handle())});
  recordOf(this).assign(std::move(groups));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbGroup::append(const QxDbObjectIdArray& ids) {
  for (int i = 0; i < ids.length(); ++i) {
    if (Qxad::ErrorStatus status = append(ids[i]); status != Qxad::eOk) return status;
  }
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbGroup::remove(QxDbObjectId id) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  if (!isMember(this, id)) return Qxad::eInvalidInput;
  std::vector<OwnedGroup> groups = recordOf(this).ownedGroups();
  std::erase_if(groups, [&](const OwnedGroup& group) {
    return group.code == 340 && korva::db::parseHandle(group.value) == id.handle().value();
  });
  recordOf(this).assign(std::move(groups));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbGroup::clear() {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::removeGroups(recordOf(this), 340, kGroupPart);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

bool QxDbGroup::has(const QxDbEntity* entity) const {
  return entity && !entity->isNewObject() && isMember(this, entity->objectId());
}

bool QxDbGroup::has(QxDbObjectId id) const {
  return isMember(this, id);
}

std::size_t QxDbGroup::allEntityIds(QxDbObjectIdArray& ids) const {
  Database* database = korva::api::databaseOf(*this);
  if (!database) return 0;
  std::size_t count = 0;
  for (korva::db::Handle handle : memberHandles(this)) {
    Record* member = database->lookup(handle);
    if (!member || member->isErased()) continue;
    ids.append(korva::api::idOf(*database, *member));
    ++count;
  }
  return count;
}

std::size_t QxDbGroup::numEntities() const {
  QxDbObjectIdArray ids;
  return allEntityIds(ids);
}

QxDbObjectIterator* QxDbGroup::newIterator() const {
  QxDbObjectIdArray ids;
  allEntityIds(ids);
  return new QxDbObjectIterator(ids);
}
