// Walking, finding, erasing and refreshing entities of the current drawing.
#include <string>

#include "db/handle.h"
#include "document.h"
#include "drawing_text.h"
#include "qx_entities.h"
#include "record_places.h"

namespace korva::api {
namespace {

Document* currentDocument() {
  return DocumentList::instance().current();
}

int giveName(const Document& document, const db::Record& record, EntityName result) {
  nameOf(document, record, result);
  return RTNORM;
}

// The first live record of `lists`, starting at list `listIndex`, position `from`.
db::Record* firstLive(const std::vector<std::vector<db::Record*>*>& lists, size_t listIndex,
                      size_t from) {
  for (; listIndex < lists.size(); ++listIndex, from = 0) {
    const std::vector<db::Record*>& list = *lists[listIndex];
    for (size_t i = from; i < list.size(); ++i) {
      if (!list[i]->isErased()) return list[i];
    }
  }
  return nullptr;
}

db::BlockDefinition* blockOfHeader(db::Database& database, const db::Record& record) {
  db::Section* blocks = database.section(db::SectionKind::Blocks);
  if (!blocks) return nullptr;
  for (db::BlockDefinition& block : blocks->blocks) {
    if (block.begin == &record) return &block;
  }
  return nullptr;
}

}  // namespace
}  // namespace korva::api

using namespace korva::api;

int qxdbEntLast(EntityName result) {
  Document* document = currentDocument();
  if (!document || !result) return RTERROR;
  for (std::vector<korva::db::Record*>* list : layoutEntityLists(document->database())) {
    for (auto it = list->rbegin(); it != list->rend(); ++it) {
      if (!(*it)->isErased() && !isSubEntityType((*it)->type())) {
        return giveName(*document, **it, result);
      }
    }
  }
  return RTERROR;
}

int qxdbEntNext(const EntityName name, EntityName result) {
  Document* document = currentDocument();
  if (!document || !result) return RTERROR;
  korva::db::Database& database = document->database();
  auto lists = layoutEntityLists(database);
  korva::db::Record* next = nullptr;
  if (isNull(name)) {
    next = firstLive(lists, 0, 0);
  } else {
    Document* owner = nullptr;
    korva::db::Record* record = recordOf(name, &owner);
    if (!record || owner != document) return RTERROR;
    if (korva::db::BlockDefinition* block = blockOfHeader(database, *record)) {
      next = firstLive({&block->entities}, 0, 0);
    } else {
      EntityPlace place = placeOf(database, *record);
      if (!place.list) return RTERROR;
      if (place.block) {
        next = firstLive({place.list}, 0, place.index + 1);
      } else {
        size_t listIndex = 0;
        while (listIndex < lists.size() && lists[listIndex] != place.list) ++listIndex;
        next = firstLive(lists, listIndex, place.index + 1);
      }
    }
  }
  return next ? giveName(*document, *next, result) : RTERROR;
}

int qxdbHandEnt(const wchar_t* handle, EntityName result) {
  Document* document = currentDocument();
  if (!document || !handle || !result) return RTERROR;
  std::string text = toDrawingText(*document, handle);
  std::optional<korva::db::Handle> value = korva::db::parseHandle(text);
  if (!value || *value == korva::db::kNoHandle) return RTERROR;
  korva::db::Record* record = document->database().lookup(*value);
  return record ? giveName(*document, *record, result) : RTERROR;
}

int qxdbEntDel(const EntityName name) {
  Document* document = currentDocument();
  Document* owner = nullptr;
  korva::db::Record* record = recordOf(name, &owner);
  if (!document || !record || owner != document) return RTERROR;
  korva::db::Database& database = document->database();
  // Parts of complex entities go with their entity; block headers and table records
  // are not entities to erase.
  if (isSubEntityType(record->type()) || !owningBlockRecord(database, *record)) return RTERROR;
  if (record->type() == "BLOCK" || record->type() == "ENDBLK") return RTERROR;
  if (isLayerLocked(database, record->find(8).value_or("0"))) return RTERROR;
  bool erase = !record->isErased();
  database.setErased(*record, erase);
  // The parts follow the entity, so a saved file never holds a VERTEX without its POLYLINE.
  EntityPlace place = placeOf(database, *record);
  if (place.list) {
    std::vector<korva::db::Record*>& list = *place.list;
    // Some writers give the parts the block as owner: the parts are those that follow, up
    // to the SEQEND.
    for (size_t i = place.index + 1; i < list.size(); ++i) {
      if (!isSubEntityType(list[i]->type())) break;
      database.setErased(*list[i], erase);
      if (list[i]->type() == "SEQEND") break;
    }
  }
  return RTNORM;
}

int qxdbEntUpd(const EntityName name) {
  korva::db::Record* record = recordOf(name);
  return record && !record->isErased() ? RTNORM : RTERROR;
}
