#include "table_rename.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "record_places.h"

namespace korva::api {
namespace {

// Which groups of a record may name the renamed record.
struct Naming {
  std::initializer_list<int> codes;
  bool extendedData = false;  // 1001 groups name applications
};

bool isListed(std::string_view type, std::initializer_list<std::string_view> types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

// Whether a group at this place can name a record: outside the application groups, and
// before the extended data unless it is the extended data's own naming.
template <class Visit>
void forEachNamingGroup(const Naming& naming, std::vector<db::OwnedGroup>& groups, Visit visit) {
  bool inAppGroup = false;
  bool extended = false;
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) extended = true;
    if (!extended && group.code == 102) {
      inAppGroup = !group.value.empty() && group.value[0] == '{';
      continue;
    }
    if (inAppGroup || extended != naming.extendedData) continue;
    if (std::find(naming.codes.begin(), naming.codes.end(), group.code) == naming.codes.end())
      continue;
    visit(group);
  }
}

void rename(db::Record& record, const Naming& naming, std::string_view oldName,
            std::string_view newName) {
  // Most records don't name it: look before copying their groups.
  bool names = false;
  record.forEachGroup([&](const db::Group& group) {
    names = std::find(naming.codes.begin(), naming.codes.end(), group.code) != naming.codes.end() &&
            db::sameName(group.value, oldName);
    return !names;
  });
  if (!names) return;
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  bool changed = false;
  forEachNamingGroup(naming, groups, [&](db::OwnedGroup& group) {
    if (!db::sameName(group.value, oldName)) return;
    group.value = newName;
    changed = true;
  });
  if (changed) record.assign(std::move(groups));
}

void renameHeaderVariable(db::Database& database, std::string_view variable, int code,
                          std::string_view oldName, std::string_view newName) {
  std::optional<std::string_view> value = database.headerValue(variable, code);
  if (value && db::sameName(*value, oldName))
    database.setHeaderVariable(variable, {{code, std::string(newName)}});
}

// Every record that can name another: entities of the spaces and blocks with the
// blocks' own BLOCK and ENDBLK, table records and objects.
template <class Visit>
void forEachRecord(db::Database& database, Visit visit) {
  if (std::vector<db::Record*>* entities = database.entities()) {
    for (db::Record* record : *entities) visit(*record, true);
  }
  if (db::Section* blocks = database.section(db::SectionKind::Blocks)) {
    for (db::BlockDefinition& block : blocks->blocks) {
      if (block.begin) visit(*block.begin, true);
      for (db::Record* record : block.entities) visit(*record, true);
      if (block.end) visit(*block.end, true);
    }
  }
  if (db::Section* tables = database.section(db::SectionKind::Tables)) {
    for (db::Table& table : tables->tables) {
      for (db::Record* record : table.entries) visit(*record, false);
    }
  }
  if (std::vector<db::Record*>* objects = database.objects()) {
    for (db::Record* record : *objects) visit(*record, false);
  }
}

// The block record and the BLOCK header of one block, from either of them.
struct BlockPair {
  db::Record* record = nullptr;
  db::Record* header = nullptr;
};

BlockPair blockPairOf(db::Database& database, const db::Record& either) {
  BlockPair pair;
  db::Section* blocks = database.section(db::SectionKind::Blocks);
  if (either.type() == "BLOCK") {
    pair.header = const_cast<db::Record*>(&either);
    db::Record* owner = database.lookup(either.owner());
    if (owner && owner->type() == "BLOCK_RECORD") pair.record = owner;
    return pair;
  }
  pair.record = const_cast<db::Record*>(&either);
  if (!blocks) return pair;
  for (db::BlockDefinition& block : blocks->blocks) {
    if (block.begin && block.begin->owner() == either.handle()) pair.header = block.begin;
  }
  return pair;
}

bool hasFixedName(std::string_view type, std::string_view name) {
  if (!name.empty() && name[0] == '*') return true;  // spaces, anonymous blocks, *Active
  if (type == "LAYER") return name == "0";
  if (type == "LTYPE") {
    return db::sameName(name, "BYLAYER") || db::sameName(name, "BYBLOCK") ||
           db::sameName(name, "Continuous");
  }
  return false;
}

bool isValidName(std::string_view name) {
  return !name.empty() && name.find_first_of("<>/\\\":;?*|,=`") == std::string_view::npos;
}

}  // namespace

bool isTableRecordType(std::string_view type) {
  return isListed(type, {"LAYER", "LTYPE", "STYLE", "DIMSTYLE", "APPID", "UCS", "VIEW", "VPORT",
                         "BLOCK_RECORD"});
}

bool acceptableNewName(db::Database& database, const db::Record& record, std::string_view newName) {
  std::string_view oldName = record.find(2).value_or("");
  if (newName == oldName) return true;
  std::string_view type = record.type();
  if (!isValidName(newName) || hasFixedName(type, oldName)) return false;
  if (type == "BLOCK" || type == "BLOCK_RECORD") {
    BlockPair own = blockPairOf(database, record);
    db::BlockDefinition* namesake = database.block(newName);
    if (namesake && namesake->begin != own.header) return false;
    db::Record* namesakeRecord = database.tableEntry("BLOCK_RECORD", newName);
    return !namesakeRecord || namesakeRecord == own.record;
  }
  db::Record* namesake = database.tableEntry(type, newName);
  return !namesake || namesake == &record;
}

void renameReferences(db::Database& database, const db::Record& record, std::string_view oldName,
                      std::string_view newName) {
  // The names are copied: the groups they may point into are about to change.
  std::string from(oldName), to(newName);
  std::string_view type = record.type();
  if (type == "LAYER") {
    forEachRecord(database, [&](db::Record& each, bool entity) {
      if (entity) rename(each, {{8}}, from, to);
    });
    renameHeaderVariable(database, "$CLAYER", 8, from, to);
  } else if (type == "LTYPE") {
    forEachRecord(database, [&](db::Record& each, bool entity) {
      if (entity || each.type() == "LAYER" || each.type() == "MLINESTYLE")
        rename(each, {{6}}, from, to);
    });
    renameHeaderVariable(database, "$CELTYPE", 6, from, to);
  } else if (type == "STYLE") {
    forEachRecord(database, [&](db::Record& each, bool entity) {
      if (entity && isListed(each.type(), {"TEXT", "MTEXT", "ATTRIB", "ATTDEF"}))
        rename(each, {{7}}, from, to);
    });
    renameHeaderVariable(database, "$TEXTSTYLE", 7, from, to);
    renameHeaderVariable(database, "$DIMTXSTY", 7, from, to);
  } else if (type == "DIMSTYLE") {
    forEachRecord(database, [&](db::Record& each, bool entity) {
      if (entity &&
          (each.type().ends_with("DIMENSION") || isListed(each.type(), {"LEADER", "TOLERANCE"})))
        rename(each, {{3}}, from, to);
    });
    renameHeaderVariable(database, "$DIMSTYLE", 2, from, to);
  } else if (type == "BLOCK" || type == "BLOCK_RECORD") {
    BlockPair pair = blockPairOf(database, record);
    if (pair.record) rename(*pair.record, {{2}}, from, to);
    if (pair.header) rename(*pair.header, {{2, 3}}, from, to);
    forEachRecord(database, [&](db::Record& each, bool entity) {
      if (entity && each.type() == "INSERT") rename(each, {{2}}, from, to);
      // Dimension styles of old drawings name their arrow blocks.
      if (each.type() == "DIMSTYLE") rename(each, {{5, 6, 7}}, from, to);
    });
    for (std::string_view variable : {"$DIMBLK", "$DIMBLK1", "$DIMBLK2", "$DIMLDRBLK"})
      renameHeaderVariable(database, variable, 1, from, to);
  } else if (type == "APPID") {
    forEachRecord(database, [&](db::Record& each, bool) {
      rename(each, {{1001}, true}, from, to);
    });
  } else if (type == "UCS") {
    renameHeaderVariable(database, "$UCSNAME", 2, from, to);
    renameHeaderVariable(database, "$PUCSNAME", 2, from, to);
  }
  database.recordChanged();
}

}  // namespace korva::api
