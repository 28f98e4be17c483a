#include "database.h"

#include <algorithm>
#include <unordered_map>

#include "change_journal.h"
#include "value_text.h"

namespace korva::db {

namespace {
constexpr size_t kChunkSize = 4096;

char upper(char c) {
  return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

// The owner link goes after the handle, where DXF puts it.
void ensureOwner(std::vector<OwnedGroup>& groups, Handle owner) {
  for (const OwnedGroup& group : groups) {
    if (group.code == 330) return;
  }
  auto position = std::find_if(groups.begin(), groups.end(),
                               [](const OwnedGroup& group) { return group.code == 5; });
  position = position == groups.end() ? groups.begin() : position + 1;
  groups.insert(position, OwnedGroup{330, formatHandle(owner)});
}
}  // namespace

bool sameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (upper(a[i]) != upper(b[i])) return false;
  }
  return true;
}

std::string_view BlockDefinition::name() const {
  return begin ? begin->find(2).value_or(std::string_view()) : std::string_view();
}

namespace {
std::unordered_map<uint64_t, Database*>& liveDatabases() {
  static std::unordered_map<uint64_t, Database*> databases;
  return databases;
}
uint64_t nextSerial = 1;

// Databases that keep an undo journal; a record's change is told to the one that holds it.
std::vector<Database*>& journalledDatabases() {
  static std::vector<Database*> databases;
  return databases;
}

void tellJournal(Record& record) {
  for (Database* database : journalledDatabases()) {
    if (database->holds(&record)) {
      database->journalIfStarted()->recordChanging(record);
      return;
    }
  }
}
}  // namespace

Database::Database() : serial_(nextSerial++) {
  liveDatabases()[serial_] = this;
}

Database::~Database() {
  liveDatabases().erase(serial_);
  if (journal_) {
    std::erase(journalledDatabases(), this);
    if (journalledDatabases().empty()) Record::beforeChange = nullptr;
  }
}

ChangeJournal& Database::journal() {
  if (!journal_) {
    journal_ = std::make_unique<ChangeJournal>();
    journalledDatabases().push_back(this);
    Record::beforeChange = &tellJournal;
  }
  return *journal_;
}

bool Database::holds(const Record* record) const {
  std::less<const Record*> before;
  auto next = std::upper_bound(chunkStarts_.begin(), chunkStarts_.end(), record, before);
  if (next == chunkStarts_.begin()) return false;
  const Record* start = *(next - 1);
  return before(record, start + kChunkSize);
}

Database* Database::bySerial(uint64_t serial) {
  auto found = liveDatabases().find(serial);
  return found == liveDatabases().end() ? nullptr : found->second;
}

Record* Database::allocate() {
  if (chunks_.empty() || usedInChunk_ == kChunkSize) {
    chunks_.push_back(std::make_unique<Record[]>(kChunkSize));
    usedInChunk_ = 0;
    const Record* start = chunks_.back().get();
    chunkStarts_.insert(std::upper_bound(chunkStarts_.begin(), chunkStarts_.end(), start,
                                         std::less<const Record*>()),
                        start);
  }
  return &chunks_.back()[usedInChunk_++];
}

std::string_view Database::intern(std::string_view text) {
  return *names_.emplace(text).first;
}

Section* Database::section(SectionKind kind) {
  for (Section& each : sections_) {
    if (each.kind == kind) return &each;
  }
  return nullptr;
}

const Section* Database::section(SectionKind kind) const {
  return const_cast<Database*>(this)->section(kind);
}

Record* Database::header() const {
  const Section* headerSection = section(SectionKind::Header);
  return headerSection ? headerSection->header : nullptr;
}

std::vector<Group> Database::headerVariable(std::string_view name) const {
  std::vector<Group> values;
  Record* variables = header();
  if (!variables) return values;
  bool inVariable = false;
  for (const Group& group : variables->groups()) {
    if (group.code == 9) {
      if (inVariable) break;
      inVariable = group.value == name;
    } else if (inVariable) {
      values.push_back(group);
    }
  }
  return values;
}

std::optional<std::string_view> Database::headerValue(std::string_view name, int code) const {
  for (const Group& group : headerVariable(name)) {
    if (code == 0 || group.code == code) return group.value;
  }
  return std::nullopt;
}

void Database::setHeaderVariable(std::string_view name, const std::vector<OwnedGroup>& values) {
  Record* variables = header();
  if (!variables) return;
  std::vector<OwnedGroup> groups = variables->ownedGroups();
  auto first = std::find_if(groups.begin(), groups.end(), [&](const OwnedGroup& group) {
    return group.code == 9 && group.value == name;
  });
  if (first == groups.end()) {
    groups.push_back({9, std::string(name)});
    groups.insert(groups.end(), values.begin(), values.end());
  } else {
    auto last = std::find_if(first + 1, groups.end(),
                             [](const OwnedGroup& group) { return group.code == 9; });
    first = groups.erase(first + 1, last);
    groups.insert(first, values.begin(), values.end());
  }
  variables->assign(std::move(groups));
  modified_ = true;
}

std::string Database::version() const {
  return std::string(headerValue("$ACADVER", 1).value_or("AC1009"));
}

bool Database::hasUtf8Text() const {
  return version() >= "AC1021";
}

std::string Database::codePage() const {
  return std::string(headerValue("$DWGCODEPAGE", 3).value_or("ANSI_1252"));
}

Table* Database::table(std::string_view name) {
  Section* tables = section(SectionKind::Tables);
  if (!tables) return nullptr;
  for (Table& each : tables->tables) {
    if (sameName(each.name, name)) return &each;
  }
  return nullptr;
}

Record* Database::tableEntry(std::string_view tableName, std::string_view entryName) {
  Table* found = table(tableName);
  if (!found) return nullptr;
  std::string key(entryName);
  for (char& c : key) c = upper(c);
  auto& names = tableNames_[found];
  auto isMatch = [&](Record* entry) {
    return !entry->isErased() && sameName(entry->find(2).value_or(""), entryName);
  };
  if (auto hit = names.find(key); hit != names.end() && isMatch(hit->second)) return hit->second;
  // A miss or a stale entry: index the table as it is now.
  names.clear();
  Record* match = nullptr;
  for (Record* entry : found->entries) {
    if (entry->isErased()) continue;
    std::string name(entry->find(2).value_or(""));
    for (char& c : name) c = upper(c);
    names.emplace(name, entry);
    if (!match && name == key) match = entry;
  }
  return match;
}

BlockDefinition* Database::block(std::string_view name) {
  Section* blocks = section(SectionKind::Blocks);
  if (!blocks) return nullptr;
  for (BlockDefinition& each : blocks->blocks) {
    if (!each.begin->isErased() && sameName(each.name(), name)) return &each;
  }
  return nullptr;
}

std::vector<Record*>* Database::entities() {
  Section* found = section(SectionKind::Entities);
  return found ? &found->records : nullptr;
}

std::vector<Record*>* Database::objects() {
  Section* found = section(SectionKind::Objects);
  return found ? &found->records : nullptr;
}

Record* Database::newRecord(std::string_view type, std::vector<OwnedGroup> groups) {
  Record* record = allocate();
  *record = Record(intern(type), std::move(groups));
  record->setHandle(allocateHandle(), true);
  record->deriveLinks();
  index_.insert(record->handle(), record);
  modified_ = true;
  if (journal_) journal_->recordMade(*record);
  return record;
}

Record* Database::addEntity(std::vector<OwnedGroup> groups, std::string_view type,
                            BlockDefinition* block) {
  Handle owner = kNoHandle;
  if (block) {
    owner = block->begin->owner();
  } else if (Record* modelSpace = tableEntry("BLOCK_RECORD", "*Model_Space")) {
    owner = modelSpace->handle();
  }
  if (owner != kNoHandle) ensureOwner(groups, owner);
  Record* record = newRecord(type, std::move(groups));
  if (block) {
    block->entities.push_back(record);
  } else if (std::vector<Record*>* list = entities()) {
    list->push_back(record);
  }
  return record;
}

Record* Database::addObject(std::string_view type, std::vector<OwnedGroup> groups) {
  Record* record = newRecord(type, std::move(groups));
  if (std::vector<Record*>* list = objects()) list->push_back(record);
  return record;
}

Record* Database::addTableEntry(Table& target, std::string_view type,
                                std::vector<OwnedGroup> groups) {
  if (target.head && target.head->handle() != kNoHandle) ensureOwner(groups, target.head->handle());
  Record* record = newRecord(type, std::move(groups));
  target.entries.push_back(record);
  return record;
}

BlockDefinition* Database::addBlock(std::string_view name, double baseX, double baseY,
                                    double baseZ) {
  Table* blockRecords = table("BLOCK_RECORD");
  Section* blocks = section(SectionKind::Blocks);
  if (!blockRecords || !blocks) return nullptr;
  std::string blockName(name);
  Record* blockRecord = addTableEntry(*blockRecords, "BLOCK_RECORD",
                                      {{100, "AcDbSymbolTableRecord"},
                                       {100, "AcDbBlockTableRecord"},
                                       {2, blockName},
                                       {340, "0"},
                                       {70, "0"},
                                       {280, "1"},
                                       {281, "0"}});
  std::string owner = formatHandle(blockRecord->handle());
  BlockDefinition definition;
  definition.begin = newRecord("BLOCK", {{330, owner},
                                         {100, "AcDbEntity"},
                                         {8, "0"},
                                         {100, "AcDbBlockBegin"},
                                         {2, blockName},
                                         {70, "0"},
                                         {10, formatReal(baseX)},
                                         {20, formatReal(baseY)},
                                         {30, formatReal(baseZ)},
                                         {3, blockName},
                                         {1, ""}});
  definition.end =
      newRecord("ENDBLK", {{330, owner}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockEnd"}});
  blocks->blocks.push_back(std::move(definition));
  return &blocks->blocks.back();
}

void Database::setErased(Record& record, bool erased) {
  if (journal_ && record.isErased() != erased) journal_->recordErasing(record);
  record.setErased(erased);
  modified_ = true;
}

void Database::dropErased() {
  std::unordered_set<const Record*> restorable;
  if (journal_) restorable = journal_->recordsItCanRestore();
  auto gone = [&restorable](const Record* record) {
    return record->isErased() && !restorable.contains(record);
  };
  auto drop = [this, &gone](std::vector<Record*>& list) {
    std::erase_if(list, [this, &gone](Record* record) {
      if (!gone(record)) return false;
      index_.erase(record->handle());
      return true;
    });
  };
  for (Section& each : sections_) {
    drop(each.records);
    for (Table& table : each.tables) drop(table.entries);
    std::erase_if(each.blocks, [this, &gone](BlockDefinition& block) {
      if (!gone(block.begin)) return false;
      for (Record* record : block.entities) index_.erase(record->handle());
      index_.erase(block.begin->handle());
      if (block.end) index_.erase(block.end->handle());
      return true;
    });
    for (BlockDefinition& block : each.blocks) drop(block.entities);
  }
}

void Database::setLinks(Record& record, Handle handle, Handle owner) {
  record.handle_ = handle;
  record.owner_ = owner;
}

void Database::giveUnwrittenHandle(Record& record, Handle handle) {
  record.handle_ = handle;
  record.flags_ |= Record::kHandleNotInFile;
}

void Database::setRecordHandle(Record& record, Handle handle, bool writeGroup) {
  record.setHandle(handle, writeGroup);
}

}  // namespace korva::db
