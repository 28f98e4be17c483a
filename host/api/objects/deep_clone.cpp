// Copying entities into a block of the same or another database: new handles, the
// pointers among the copies translated, and what the copies name brought along.
#include <map>
#include <set>

#include "api/record_places.h"
#include "database_registry.h"
#include "db/value_text.h"
#include "object_access.h"
#include "qx_db_database.h"

using korva::db::Database;
using korva::db::Handle;
using korva::db::OwnedGroup;
using korva::db::Record;

namespace {

bool isBlockNamingType(std::string_view type) {
  return type == "INSERT" || type == "DIMENSION";
}

class Cloner {
 public:
  Cloner(Database& from, Database& to, QxDbIdMapping& mapping)
      : from_(from), to_(to), mapping_(mapping) {}

  // The entity and its sub-entities (attributes, vertices, SEQEND) into the block.
  Qxad::ErrorStatus cloneEntity(Record& entity, Record& blockRecord, bool primary) {
    Record* copy = add(entity, blockRecord, true);
    if (!copy) return Qxad::eInvalidOwnerObject;
    mapping_.assign(
        QxDbIdPair(korva::api::idOf(from_, entity), korva::api::idOf(to_, *copy), true, primary));
    korva::api::EntityPlace place = korva::api::placeOf(from_, entity);
    if (!place.list) return Qxad::eOk;
    for (size_t i = place.index + 1; i < place.list->size(); ++i) {
      Record& part = *(*place.list)[i];
      if (!korva::api::isSubEntityType(part.type()) || part.owner() != entity.handle()) break;
      Record* partCopy = add(part, blockRecord, false);
      mapping_.assign(
          QxDbIdPair(korva::api::idOf(from_, part), korva::api::idOf(to_, *partCopy), true, false));
      if (part.type() == "SEQEND") break;
    }
    return Qxad::eOk;
  }

  // Rewrites the pointers of every copy through the mapping.
  void translate() {
    for (auto& [copy, isMain] : made_) translate(*copy, isMain);
  }

 private:
  Record* add(Record& source, Record& blockRecord, bool isMain) {
    std::vector<OwnedGroup> groups = source.ownedGroups();
    std::erase_if(groups, [](const OwnedGroup& group) { return group.code == 5; });
    if (&from_ != &to_) bringAlong(source, groups);
    if (isMain) {
      // The owner link is the new block's; sub-entities follow their main entity.
      setOwner(groups, blockRecord.handle());
      std::string_view space = blockRecord.find(2).value_or("");
      bool paper = korva::db::sameName(space, "*Paper_Space");
      std::erase_if(groups, [](const OwnedGroup& group) { return group.code == 67; });
      if (paper) insertAfterEntityMarker(groups, {67, "1"});
    }
    korva::db::BlockDefinition* definition = nullptr;
    std::string_view name = blockRecord.find(2).value_or("");
    if (!korva::db::sameName(name, "*Model_Space") && !korva::db::sameName(name, "*Paper_Space")) {
      definition = korva::api::definitionOf(to_, blockRecord);
      if (!definition) return nullptr;
    }
    Record* copy = to_.addEntity(std::move(groups), source.type(), definition);
    handles_[source.handle()] = copy->handle();
    made_.emplace_back(copy, isMain);
    return copy;
  }

  static void setOwner(std::vector<OwnedGroup>& groups, Handle owner) {
    bool inAppGroup = false;
    for (OwnedGroup& group : groups) {
      if (group.code == 102) inAppGroup = !group.value.empty() && group.value[0] == '{';
      if (group.code == 330 && !inAppGroup) {
        group.value = korva::db::formatHandle(owner);
        return;
      }
    }
    groups.insert(groups.begin(), {330, korva::db::formatHandle(owner)});
  }

  static void insertAfterEntityMarker(std::vector<OwnedGroup>& groups, OwnedGroup group) {
    auto marker = std::find_if(groups.begin(), groups.end(), [](const OwnedGroup& each) {
      return each.code == 100 && each.value == "AcDbEntity";
    });
    groups.insert(marker == groups.end() ? groups.begin() : marker + 1, std::move(group));
  }

  // Into another drawing: the layer, linetype, text style and block the copy names.
  void bringAlong(const Record& source, std::vector<OwnedGroup>& groups) {
    for (OwnedGroup& group : groups) {
      if (group.code == 8) ensureEntry("LAYER", group.value);
      if (group.code == 6) ensureEntry("LTYPE", group.value);
      if (group.code == 7) ensureEntry("STYLE", group.value);
      if (group.code == 2 && isBlockNamingType(source.type()))
        group.value = ensureBlock(group.value);
    }
  }

  void ensureEntry(std::string_view table, std::string_view name) {
    if (name.empty() || korva::api::liveTableEntry(to_, table, name)) return;
    Record* source = korva::api::liveTableEntry(from_, table, name);
    korva::db::Table* target = to_.table(table);
    if (!source || !target) return;
    std::vector<OwnedGroup> groups = source->ownedGroups();
    // Links to objects of the source drawing (plot styles, materials) stay behind.
    std::erase_if(groups, [](const OwnedGroup& group) {
      return group.code == 5 || group.code == 330 || (group.code >= 340 && group.code <= 349) ||
             (group.code >= 390 && group.code <= 399) || group.code == 102;
    });
    if (table == "LAYER") {
      if (std::optional<std::string_view> linetype = source->find(6))
        ensureEntry("LTYPE", *linetype);
    }
    to_.addTableEntry(*target, table, std::move(groups));
  }

  // The block's name in the target; copied there when missing. Anonymous blocks always
  // get a copy of their own under a name the target doesn't use yet.
  std::string ensureBlock(const std::string& name) {
    auto done = blockNames_.find(name);
    if (done != blockNames_.end()) return done->second;
    bool anonymous = !name.empty() && name[0] == '*';
    if (!anonymous && korva::api::liveTableEntry(to_, "BLOCK_RECORD", name)) return name;
    Record* sourceRecord = korva::api::liveTableEntry(from_, "BLOCK_RECORD", name);
    korva::db::BlockDefinition* sourceDefinition =
        sourceRecord ? korva::api::definitionOf(from_, *sourceRecord) : nullptr;
    if (!sourceDefinition) return name;
    std::string targetName = anonymous ? unusedAnonymousName(name) : name;
    blockNames_[name] = targetName;
    double base[3];
    korva::api::groupPoint(*sourceDefinition->begin, 10, base);
    korva::db::BlockDefinition* definition = to_.addBlock(targetName, base[0], base[1], base[2]);
    if (!definition) return name;
    korva::api::setGroupInteger(*definition->begin, 70,
                                korva::api::groupInteger(*sourceDefinition->begin, 70, 0),
                                "AcDbBlockBegin");
    Record* targetRecord = to_.lookup(definition->begin->owner());
    for (Record* entity : korva::api::entitiesOfBlock(from_, *sourceRecord)) {
      cloneEntity(*entity, *targetRecord, false);
    }
    return targetName;
  }

  std::string unusedAnonymousName(const std::string& name) {
    std::string prefix = name.substr(0, 2);  // "*D", "*U", "*X"
    for (int number = 1;; ++number) {
      std::string candidate = prefix + std::to_string(number);
      if (!korva::api::liveTableEntry(to_, "BLOCK_RECORD", candidate)) return candidate;
    }
  }

  void translate(Record& copy, bool isMain) {
    std::vector<OwnedGroup> groups = copy.ownedGroups();
    std::vector<OwnedGroup> result;
    bool sameDrawing = &from_ == &to_;
    bool inAppGroup = false;
    bool ownerSeen = false;
    size_t appGroupStart = 0;
    for (OwnedGroup& group : groups) {
      if (group.code == 102) {
        bool opening = !group.value.empty() && group.value[0] == '{';
        if (opening) {
          inAppGroup = true;
          appGroupStart = result.size();
        } else if (inAppGroup) {
          inAppGroup = false;
          // A group whose links all pointed at objects that weren't copied goes: the
          // copy neither shares the extension dictionary nor the reactors.
          if (result.size() == appGroupStart + 1) {
            result.resize(appGroupStart);
            continue;
          }
        }
        result.push_back(std::move(group));
        continue;
      }
      if (group.code == 330 && !inAppGroup && !ownerSeen) {
        ownerSeen = true;
        if (isMain) {
          result.push_back(std::move(group));
          continue;
        }
      }
      if (!korva::api::isPointerCode(group.code)) {
        result.push_back(std::move(group));
        continue;
      }
      Handle handle = korva::db::parseHandle(group.value).value_or(korva::db::kNoHandle);
      auto mapped = handles_.find(handle);
      if (mapped != handles_.end()) {
        group.value = korva::db::formatHandle(mapped->second);
      } else if (inAppGroup) {
        continue;  // reactors of objects that weren't copied don't watch the copy
      } else if (!sameDrawing && handle != korva::db::kNoHandle && group.code != 1005) {
        group.value = "0";  // nothing of that name exists in the other drawing
      }
      result.push_back(std::move(group));
    }
    copy.assign(std::move(result));
  }

  Database& from_;
  Database& to_;
  QxDbIdMapping& mapping_;
  std::map<Handle, Handle> handles_;
  std::vector<std::pair<Record*, bool>> made_;
  std::map<std::string, std::string> blockNames_;
};

}  // namespace

// ---- Id mappings

void QxDbIdMapping::assign(const QxDbIdPair& pair) {
  for (QxDbIdPair& each : pairs_) {
    if (each.key() == pair.key()) {
      each = pair;
      return;
    }
  }
  pairs_.push_back(pair);
}

bool QxDbIdMapping::compute(QxDbIdPair& pair) const {
  for (const QxDbIdPair& each : pairs_) {
    if (each.key() == pair.key()) {
      pair = each;
      return true;
    }
  }
  return false;
}

bool QxDbIdMapping::del(QxDbObjectId key) {
  return std::erase_if(pairs_, [key](const QxDbIdPair& each) { return each.key() == key; }) > 0;
}

bool QxDbIdMappingIter::getMap(QxDbIdPair& pair) const {
  if (done()) return false;
  pair = mapping_.pairs()[index_];
  return true;
}

// ---- Copying

Qxad::ErrorStatus QxDbDatabase::deepCloneObjects(const QxDbObjectIdArray& ids, QxDbObjectId owner,
                                                 QxDbIdMapping& mapping, bool) {
  if (ids.isEmpty()) return Qxad::eOk;
  Database* to = nullptr;
  Record* blockRecord = korva::api::recordOf(owner, &to);
  if (!blockRecord || blockRecord->type() != "BLOCK_RECORD" || blockRecord->isErased()) {
    return Qxad::eInvalidOwnerObject;
  }
  Database* from = korva::api::drawingOf(*this);
  if (!from) return Qxad::eNotInDatabase;
  std::vector<Record*> sources;
  for (int i = 0; i < ids.length(); ++i) {
    Database* holder = nullptr;
    Record* source = korva::api::recordOf(ids[i], &holder);
    if (!source || holder != from) return Qxad::eInvalidInput;
    if (source->isErased()) return Qxad::eWasErased;
    if (!korva::api::isEntity(*from, *source) || korva::api::isSubEntityType(source->type())) {
      return Qxad::eWrongObjectType;
    }
    sources.push_back(source);
  }
  mapping.setOrigDb(this);
  mapping.setDestDb(QxDbDatabase::wrapping(to->serial()));
  Cloner cloner(*from, *to, mapping);
  for (Record* source : sources) {
    if (Qxad::ErrorStatus status = cloner.cloneEntity(*source, *blockRecord, true);
        status != Qxad::eOk) {
      return status;
    }
  }
  cloner.translate();
  to->recordChanged();
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbDatabase::wblock(QxDbDatabase*& output, const QxDbObjectIdArray& ids,
                                       const QxGePoint3d& base) {
  output = nullptr;
  auto* made = new QxDbDatabase(true);
  Database* target = korva::api::drawingOf(*made);
  Record* modelSpace =
      target ? korva::api::liveTableEntry(*target, "BLOCK_RECORD", "*Model_Space") : nullptr;
  if (!modelSpace) {
    delete made;
    return Qxad::eNotApplicable;
  }
  QxDbIdMapping mapping;
  Qxad::ErrorStatus status = deepCloneObjects(ids, korva::api::idOf(*target, *modelSpace), mapping);
  if (status != Qxad::eOk) {
    delete made;
    return status;
  }
  target->setHeaderVariable("$INSBASE", {{10, korva::db::formatReal(base.x)},
                                         {20, korva::db::formatReal(base.y)},
                                         {30, korva::db::formatReal(base.z)}});
  output = made;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbDatabase::wblock(QxDbDatabase*& output, QxDbObjectId blockId) {
  output = nullptr;
  Database* from = korva::api::drawingOf(*this);
  Database* holder = nullptr;
  Record* blockRecord = korva::api::recordOf(blockId, &holder);
  if (!from || holder != from || !blockRecord || blockRecord->type() != "BLOCK_RECORD") {
    return Qxad::eInvalidInput;
  }
  QxDbObjectIdArray ids;
  for (Record* entity : korva::api::entitiesOfBlock(*from, *blockRecord))
    ids.append(korva::api::idOf(*from, *entity));
  QxGePoint3d origin;
  if (korva::db::BlockDefinition* definition = korva::api::definitionOf(*from, *blockRecord)) {
    double point[3];
    korva::api::groupPoint(*definition->begin, 10, point);
    origin = QxGePoint3d(point[0], point[1], point[2]);
  }
  return wblock(output, ids, origin);
}
