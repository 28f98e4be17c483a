#include "drawing_groups.h"

#include <memory>

int CreateGroup(const wchar_t* name, const wchar_t* description, EntityName groupOut) {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  QxDbDictionary* dictionary = nullptr;
  if (!database || database->getGroupDictionary(dictionary, QxDb::kForWrite) != Qxad::eOk) {
    return RTERROR;
  }
  auto group = std::make_unique<QxDbGroup>();
  group->setDescription(description);
  QxDbObjectId id;
  const Qxad::ErrorStatus added = dictionary->setAt(name, group.get(), id);
  dictionary->close();
  if (added != Qxad::eOk) return RTERROR;
  // The dictionary owns the group now; it stays open for write until closed here.
  QxDbGroup* member = group.release();
  if (name[0] == L'*') member->setAnonymous();
  const Qxad::ErrorStatus named = qxdbGetHysName(groupOut, id);
  member->close();
  return named == Qxad::eOk ? RTNORM : RTERROR;
}

int AppendSetToGroup(const SelectionSet set, const EntityName group) {
  std::int32_t count = 0;
  if (qxedSSLength(set, &count) != RTNORM) return RTERROR;
  QxDbObjectIdArray ids;
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName name;
    QxDbObjectId id;
    if (qxedSSName(set, index, name) == RTNORM && qxdbGetObjectId(id, name) == Qxad::eOk) {
      ids.append(id);
    }
  }
  QxDbObjectId groupId;
  QxDbObject* object = nullptr;
  if (qxdbGetObjectId(groupId, group) != Qxad::eOk ||
      qxdbOpenQxDbObject(object, groupId, QxDb::kForWrite) != Qxad::eOk) {
    return RTERROR;
  }
  QxDbGroup* opened = QxDbGroup::cast(object);
  const bool appended = opened && opened->append(ids) == Qxad::eOk;
  object->close();
  return appended ? RTNORM : RTERROR;
}

std::vector<GroupHolding> FindGroupsOfEntity(QxDbObjectId entity) {
  std::vector<GroupHolding> holders;
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  QxDbDictionary* dictionary = nullptr;
  if (!database || database->getGroupDictionary(dictionary, QxDb::kForRead) != Qxad::eOk) {
    return holders;
  }
  std::unique_ptr<QxDbDictionaryIterator> entries(dictionary->newIterator());
  for (; entries && !entries->done(); entries->step()) {
    QxDbObject* object = nullptr;
    // Erased groups don't open: dissolved groups hold nothing any more.
    if (entries->getObject(object, QxDb::kForRead) != Qxad::eOk) continue;
    const QxDbGroup* group = QxDbGroup::cast(object);
    if (group && !group->isErased() && group->has(entity)) {
      holders.push_back({group->objectId(), group->numEntities()});
    }
    object->close();
  }
  dictionary->close();
  return holders;
}

int DissolveGroup(QxDbObjectId group) {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  QxDbDictionary* dictionary = nullptr;
  if (!database || database->getGroupDictionary(dictionary, QxDb::kForWrite) != Qxad::eOk) {
    return RTERROR;
  }
  const Qxad::ErrorStatus removed = dictionary->remove(group);
  dictionary->close();
  return removed == Qxad::eOk ? RTNORM : RTERROR;
}
