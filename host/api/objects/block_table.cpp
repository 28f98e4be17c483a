// The block table: a record added through it comes with its definition.
#include "db/value_text.h"
#include "qx_db_blocks.h"
#include "table_classes.h"

using korva::db::Database;
using korva::db::Record;

KORVA_DEFINE_TABLE(QxDbBlockTable, QxDbSymbolTable, QxDbBlockTableRecord, QxDbBlockTableIterator,
                   "BLOCK_RECORD")

Qxad::ErrorStatus QxDbBlockTable::addRecord(QxDbSymbolTableRecord& record) {
  Database& database = *korva::api::databaseOf(*this);
  std::vector<korva::db::OwnedGroup> groups =
      korva::api::groupsForDatabase(database, korva::api::recordOf(record));
  // Base point and path of a record not yet in a drawing wait in its own groups; they
  // belong to the definition's BLOCK.
  double origin[3] = {0, 0, 0};
  std::string path;
  std::vector<korva::db::OwnedGroup> kept;
  for (korva::db::OwnedGroup& group : groups) {
    if (group.code == 10 || group.code == 20 || group.code == 30) {
      origin[group.code / 10 - 1] = korva::db::parseReal(group.value).value_or(0.0);
    } else if (group.code == 1) {
      path = group.value;
    } else if (group.code != 330) {
      kept.push_back(std::move(group));
    }
  }
  std::string name;
  for (const korva::db::OwnedGroup& group : kept) {
    if (group.code == 2) name = group.value;
  }
  korva::db::BlockDefinition* definition = database.addBlock(name, origin[0], origin[1], origin[2]);
  if (!definition) return Qxad::eNotApplicable;
  Record* blockRecord = database.lookup(definition->begin->owner());
  kept.insert(kept.begin(), {330, korva::db::formatHandle(korva::api::recordOf(*this).handle())});
  kept.insert(kept.begin(), {5, korva::db::formatHandle(blockRecord->handle())});
  blockRecord->assign(std::move(kept));
  if (!path.empty()) korva::api::setGroupText(*definition->begin, 1, path, "AcDbBlockBegin");
  korva::api::bindNewObject(record, database, *blockRecord);
  return Qxad::eOk;
}
