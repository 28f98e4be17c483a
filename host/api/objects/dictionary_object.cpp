// Dictionaries: pairs of key (group 3) and owned object (350, or 360 for hard owners).
#include <algorithm>
#include <cwctype>

#include "api/utf8.h"
#include "db/value_text.h"
#include "object_access.h"
#include "qx_db_dictionary.h"
#include "table_classes.h"

using korva::db::Database;
using korva::db::OwnedGroup;
using korva::db::Record;

namespace {

struct Entry {
  std::string key;
  korva::db::Handle handle = korva::db::kNoHandle;
  size_t keyIndex = 0;  // in the owned groups
};

std::vector<Entry> entriesOf(const std::vector<OwnedGroup>& groups) {
  std::vector<Entry> entries;
  for (size_t i = 0; i + 1 < groups.size(); ++i) {
    if (groups[i].code == 1001) break;
    if (groups[i].code != 3) continue;
    int next = groups[i + 1].code;
    if (next != 350 && next != 360) continue;
    entries.push_back({groups[i].value,
                       korva::db::parseHandle(groups[i + 1].value).value_or(korva::db::kNoHandle),
                       i});
    ++i;
  }
  return entries;
}

Record& recordOf(const QxDbDictionary* dictionary) {
  return korva::api::recordOf(*dictionary);
}

// The live entry of a key; keys compare without regard to case.
std::optional<Entry> liveEntry(const QxDbDictionary* dictionary, std::string_view key) {
  Database* database = korva::api::databaseOf(*dictionary);
  for (const Entry& entry : entriesOf(recordOf(dictionary).ownedGroups())) {
    if (!korva::db::sameName(entry.key, key)) continue;
    Record* object = database ? database->lookup(entry.handle) : nullptr;
    if (object && !object->isErased()) return entry;
  }
  return std::nullopt;
}

void removeEntryAt(Record& record, size_t keyIndex) {
  std::vector<OwnedGroup> groups = record.ownedGroups();
  groups.erase(groups.begin() + static_cast<long>(keyIndex),
               groups.begin() + static_cast<long>(keyIndex) + 2);
  record.assign(std::move(groups));
}

// "*A" becomes "*A" and the next number no key of that form has yet.
std::string uniqueAnonymousKey(const std::vector<Entry>& entries, std::string_view prefix) {
  long long highest = 0;
  for (const Entry& entry : entries) {
    if (entry.key.size() <= prefix.size() ||
        !korva::db::sameName(entry.key.substr(0, prefix.size()), prefix)) {
      continue;
    }
    std::string_view digits = std::string_view(entry.key).substr(prefix.size());
    if (std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; })) {
      highest = std::max(highest, korva::db::parseInteger(digits).value_or(0));
    }
  }
  return std::string(prefix) + std::to_string(highest + 1);
}

bool isAnonymousPrefix(std::string_view key) {
  return key.size() >= 2 && key[0] == '*' &&
         std::none_of(key.begin() + 1, key.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Sets the object's owner link (the first 330 outside application groups).
void setOwnerLink(Record& record, korva::db::Handle owner) {
  std::vector<OwnedGroup> groups = record.ownedGroups();
  bool inAppGroup = false;
  for (OwnedGroup& group : groups) {
    if (group.code == 102) inAppGroup = !group.value.empty() && group.value[0] == '{';
    if (group.code == 330 && !inAppGroup) {
      group.value = korva::db::formatHandle(owner);
      record.assign(std::move(groups));
      return;
    }
  }
  auto handle = std::find_if(groups.begin(), groups.end(),
                             [](const OwnedGroup& group) { return group.code == 5; });
  groups.insert(handle == groups.end() ? groups.begin() : handle + 1,
                {330, korva::db::formatHandle(owner)});
  record.assign(std::move(groups));
}

}  // namespace

KORVA_DEFINE_CLASS(QxDbDictionary, QxDbObject)
static korva::api::ObjectClassRegistration dictionaryClass("DICTIONARY", [] {
  return static_cast<QxDbObject*>(new QxDbDictionary);
});
static korva::api::ObjectClassRegistration dictionaryWithDefaultClass("ACDBDICTIONARYWDFLT", [] {
  return static_cast<QxDbObject*>(new QxDbDictionary);
});

QxDbDictionary::QxDbDictionary() : QxDbObject("DICTIONARY") {
  recordOf(this).assign({{100, "AcDbDictionary"}, {281, "1"}});
}

Qxad::ErrorStatus QxDbDictionary::getAt(const wchar_t* key, QxDbObjectId& id) const {
  id = QxDbObjectId::kNull;
  if (!key) return Qxad::eInvalidInput;
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  std::optional<Entry> entry = liveEntry(this, korva::api::drawingText(database, key));
  if (!entry) return Qxad::eKeyNotFound;
  id = QxDbObjectId::fromParts(database->serial(), entry->handle);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbDictionary::getAt(const wchar_t* key, QxDbObject*& object, int mode) const {
  object = nullptr;
  QxDbObjectId id;
  if (Qxad::ErrorStatus status = getAt(key, id); status != Qxad::eOk) return status;
  return qxdbOpenQxDbObject(object, id, mode);
}

Qxad::ErrorStatus QxDbDictionary::nameAt(QxDbObjectId id, wchar_t*& key) const {
  key = nullptr;
  Database* database = korva::api::databaseOf(*this);
  if (!database || id.databaseSerial() != database->serial()) return Qxad::eInvalidInput;
  for (const Entry& entry : entriesOf(recordOf(this).ownedGroups())) {
    if (entry.handle == id.handle().value()) {
      key = korva::api::newWideText(database, entry.key);
      return Qxad::eOk;
    }
  }
  return Qxad::eKeyNotFound;
}

bool QxDbDictionary::has(const wchar_t* key) const {
  QxDbObjectId id;
  return getAt(key, id) == Qxad::eOk;
}

bool QxDbDictionary::has(QxDbObjectId id) const {
  wchar_t* key = nullptr;
  bool found = nameAt(id, key) == Qxad::eOk;
  qxad_free(key);
  return found && !id.isErased();
}

std::size_t QxDbDictionary::numEntries() const {
  Database* database = korva::api::databaseOf(*this);
  std::size_t count = 0;
  for (const Entry& entry : entriesOf(recordOf(this).ownedGroups())) {
    Record* object = database ? database->lookup(entry.handle) : nullptr;
    if (object && !object->isErased()) ++count;
  }
  return count;
}

Qxad::ErrorStatus QxDbDictionary::setAt(const wchar_t* key, QxDbObject* object) {
  QxDbObjectId id;
  return setAt(key, object, id);
}

Qxad::ErrorStatus QxDbDictionary::setAt(const wchar_t* key, QxDbObject* object, QxDbObjectId& id) {
  id = QxDbObjectId::kNull;
  if (!key || !*key || !object || object == this) return Qxad::eInvalidInput;
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  if (!object->isNewObject() && korva::api::databaseOf(*object) != database)
    return Qxad::eInvalidInput;  // objects stay in their database
  Record& dictionary = recordOf(this);
  std::string name = korva::api::drawingText(database, key);
  std::vector<Entry> entries = entriesOf(dictionary.ownedGroups());
  if (isAnonymousPrefix(name) && object->isKindOf(QxDbGroup::desc())) {
    name = uniqueAnonymousKey(entries, name);
  }
  std::string owner = korva::db::formatHandle(dictionary.handle());
  Record* target = nullptr;
  if (object->isNewObject()) {
    std::vector<OwnedGroup> groups =
        korva::api::groupsForDatabase(*database, korva::api::recordOf(*object));
    std::erase_if(groups, [](const OwnedGroup& group) { return group.code == 330; });
    groups.insert(groups.begin(),
                  {{102, "{ACAD_REACTORS"}, {330, owner}, {102, "}"}, {330, owner}});
    target = database->addObject(korva::api::recordOf(*object).type(), std::move(groups));
  } else {
    target = &korva::api::recordOf(*object);
    setOwnerLink(*target, dictionary.handle());
  }
  // An object that stood under the key gives way.
  std::vector<OwnedGroup> groups = dictionary.ownedGroups();
  std::string value = korva::db::formatHandle(target->handle());
  bool replaced = false;
  for (const Entry& entry : entries) {
    if (!korva::db::sameName(entry.key, name)) continue;
    Record* previous = database->lookup(entry.handle);
    if (previous && previous != target && !previous->isErased())
      database->setErased(*previous, true);
    groups[entry.keyIndex + 1].value = value;
    replaced = true;
    break;
  }
  if (!replaced) {
    // Hard owners (360) where the dictionary already uses them.
    bool hardOwner = std::any_of(groups.begin(), groups.end(),
                                 [](const OwnedGroup& group) { return group.code == 360; });
    auto end = std::find_if(groups.begin(), groups.end(),
                            [](const OwnedGroup& group) { return group.code == 1001; });
    groups.insert(end, {{3, name}, {hardOwner ? 360 : 350, value}});
  }
  dictionary.assign(std::move(groups));
  if (object->isNewObject()) korva::api::bindNewObject(*object, *database, *target);
  database->recordChanged();
  id = korva::api::idOf(*database, *target);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbDictionary::remove(const wchar_t* key, QxDbObjectId& returnedId) {
  returnedId = QxDbObjectId::kNull;
  if (!key) return Qxad::eInvalidInput;
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::optional<Entry> entry = liveEntry(this, korva::api::drawingText(database, key));
  if (!entry) return Qxad::eKeyNotFound;
  removeEntryAt(recordOf(this), entry->keyIndex);
  if (Record* object = database->lookup(entry->handle)) setOwnerLink(*object, korva::db::kNoHandle);
  database->recordChanged();
  returnedId = QxDbObjectId::fromParts(database->serial(), entry->handle);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbDictionary::remove(const wchar_t* key) {
  QxDbObjectId id;
  if (Qxad::ErrorStatus status = remove(key, id); status != Qxad::eOk) return status;
  // korva keeps no objects without owner: what the dictionary held leaves with its key.
  Database* database = korva::api::databaseOf(*this);
  if (Record* object = database->lookup(id.handle().value())) database->setErased(*object, true);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbDictionary::remove(QxDbObjectId id) {
  wchar_t* key = nullptr;
  if (Qxad::ErrorStatus status = nameAt(id, key); status != Qxad::eOk) return status;
  Qxad::ErrorStatus status = remove(key);
  qxad_free(key);
  return status;
}

Qxad::ErrorStatus QxDbDictionary::setName(const wchar_t* oldKey, const wchar_t* newKey) {
  if (!oldKey || !newKey || !*newKey) return Qxad::eInvalidInput;
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::string name = korva::api::drawingText(database, newKey);
  std::optional<Entry> entry = liveEntry(this, korva::api::drawingText(database, oldKey));
  if (!entry) return Qxad::eKeyNotFound;
  std::optional<Entry> clash = liveEntry(this, name);
  if (clash && clash->handle != entry->handle) return Qxad::eDuplicateKey;
  std::vector<OwnedGroup> groups = recordOf(this).ownedGroups();
  groups[entry->keyIndex].value = name;
  recordOf(this).assign(std::move(groups));
  database->recordChanged();
  return Qxad::eOk;
}

QxDbDictionaryIterator* QxDbDictionary::newIterator() const {
  Database* database = korva::api::databaseOf(*this);
  if (!database) return nullptr;
  auto* iterator = new QxDbDictionaryIterator;
  for (const Entry& entry : entriesOf(recordOf(this).ownedGroups())) {
    Record* object = database->lookup(entry.handle);
    if (!object || object->isErased()) continue;
    iterator->add(QxDbObjectId::fromParts(database->serial(), entry.handle));
    iterator->keys_.push_back(korva::api::wideText(database, entry.key));
  }
  return iterator;
}

wchar_t* QxDbDictionaryIterator::name() const {
  if (done()) return nullptr;
  return qxutNewString(keys_[static_cast<size_t>(position())].c_str());
}

// ---- Walks over ids

QxDbObjectIterator::QxDbObjectIterator(const QxDbObjectIdArray& ids) {
  for (int i = 0; i < ids.length(); ++i) ids_.push_back(ids[i]);
}

void QxDbObjectIterator::start(bool atEnd) {
  index_ = atEnd ? static_cast<std::ptrdiff_t>(ids_.size()) - 1 : 0;
}

bool QxDbObjectIterator::done() const {
  return index_ < 0 || index_ >= static_cast<std::ptrdiff_t>(ids_.size());
}

void QxDbObjectIterator::step(bool backwards, bool skipErased) {
  if (done()) return;
  do {
    index_ += backwards ? -1 : 1;
  } while (skipErased && !done() && ids_[static_cast<size_t>(index_)].isErased());
}

QxDbObjectId QxDbObjectIterator::objectId() const {
  return done() ? QxDbObjectId::kNull : ids_[static_cast<size_t>(index_)];
}

Qxad::ErrorStatus QxDbObjectIterator::getObject(QxDbObject*& object, int mode) const {
  object = nullptr;
  if (done()) return Qxad::eInvalidIndex;
  return qxdbOpenQxDbObject(object, objectId(), mode);
}
