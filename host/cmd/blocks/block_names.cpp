#include "cmd/blocks/block_names.h"

#include <set>
#include <string_view>

#include "cmd/blocks/open_object.h"
#include "qx_db_block_reference.h"
#include "qx_db_blocks.h"
#include "qx_db_database.h"

namespace korva::cmd::blocks {

bool isValidBlockName(const std::wstring& name) {
  constexpr std::wstring_view kReserved = L"<>/\\\":;?*|,=`";
  if (name.empty() || name.size() > 255 || name.front() == L'*') return false;
  if (name.find_first_not_of(L' ') == std::wstring::npos) return false;
  for (wchar_t character : name) {
    if (character < L' ' || kReserved.find(character) != std::wstring_view::npos) return false;
  }
  return true;
}

QxDbObjectId findBlock(QxDbDatabase& database, const std::wstring& name) {
  QxDbBlockTable* table = nullptr;
  if (database.getSymbolTable(table, QxDb::kForRead) != Qxad::eOk) return QxDbObjectId::kNull;
  OpenObject<QxDbBlockTable> held(table);
  QxDbObjectId id;
  if (table->getAt(name.c_str(), id) != Qxad::eOk) return QxDbObjectId::kNull;
  return id;
}

namespace {

// Walks the blocks a reference shows, each block once.
bool blockShows(QxDbObjectId shownId, QxDbObjectId blockId, std::set<QxDbObjectId>& visited) {
  if (shownId == blockId) return true;
  if (shownId.isNull() || !visited.insert(shownId).second) return false;
  OpenObject<QxDbBlockTableRecord> block(shownId, QxDb::kForRead);
  if (!block) return false;
  QxDbBlockTableRecordIterator* iterator = nullptr;
  if (block->newIterator(iterator) != Qxad::eOk) return false;
  bool shows = false;
  for (; !shows && !iterator->done(); iterator->step()) {
    QxDbObjectId entityId;
    if (iterator->getEntityId(entityId) != Qxad::eOk) continue;
    OpenObject<QxDbBlockReference> reference(entityId, QxDb::kForRead);
    if (!reference) continue;
    QxDbObjectId nested = reference->blockTableRecord();
    reference.close();
    shows = blockShows(nested, blockId, visited);
  }
  delete iterator;
  return shows;
}

}  // namespace

bool showsBlock(QxDbObjectId entityId, QxDbObjectId blockId) {
  OpenObject<QxDbBlockReference> reference(entityId, QxDb::kForRead);
  if (!reference) return false;
  QxDbObjectId shown = reference->blockTableRecord();
  reference.close();
  std::set<QxDbObjectId> visited;
  return blockShows(shown, blockId, visited);
}

}  // namespace korva::cmd::blocks
