#include "cmd/blocks/block_listing.h"

#include <string>

#include "cmd/blocks/open_object.h"
#include "cmd/drawing/command_input.h"
#include "qx_db_blocks.h"
#include "qx_db_database.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_util.h"

namespace korva::cmd::blocks {

namespace {

struct BlockCounts {
  int user = 0;
  int external = 0;
  int dependent = 0;
  int unnamed = 0;
};

void noteBlock(const QxDbBlockTableRecord& block, const std::wstring& pattern,
               BlockCounts& counts) {
  if (block.isLayout()) return;
  wchar_t* name = nullptr;
  if (block.getName(name) != Qxad::eOk) return;
  wchar_t* path = block.pathName();
  bool external = path && *path;
  qxad_free(path);
  if (block.isAnonymous()) {
    ++counts.unnamed;
  } else if (external) {
    ++counts.external;
  } else if (block.isDependent()) {
    ++counts.dependent;
  } else {
    ++counts.user;
  }
  if (!block.isAnonymous() && qxutWcMatch(name, pattern.c_str()) == RTNORM) {
    qxutPrintf(L"\n  %ls", name);
  }
  qxad_free(name);
}

}  // namespace

void listBlocks() {
  std::wstring pattern;
  if (!drawing::askString(L"\nEnter block(s) to list <*>: ", false, pattern).value()) return;
  if (pattern.empty()) pattern = L"*";
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  QxDbBlockTable* table = nullptr;
  if (!database || database->getSymbolTable(table, QxDb::kForRead) != Qxad::eOk) return;
  OpenObject<QxDbBlockTable> heldTable(table);
  QxDbBlockTableIterator* iterator = nullptr;
  if (table->newIterator(iterator) != Qxad::eOk) return;
  qxutPrintf(L"\nDefined blocks.");
  BlockCounts counts;
  for (; !iterator->done(); iterator->step()) {
    QxDbBlockTableRecord* block = nullptr;
    if (iterator->getRecord(block, QxDb::kForRead) != Qxad::eOk) continue;
    OpenObject<QxDbBlockTableRecord> held(block);
    noteBlock(*block, pattern, counts);
  }
  delete iterator;
  qxutPrintf(
      L"\n\n  User      External     Dependent    Unnamed"
      L"\n  Blocks   References    Blocks      Blocks"
      L"\n  %5d      %5d        %5d      %5d",
      counts.user, counts.external, counts.dependent, counts.unnamed);
}

}  // namespace korva::cmd::blocks
