// BLOCK: a block made or redefined from the selected objects, which leave the
// drawing to live in the block.
#include <string>

#include "cmd/blocks/block_commands.h"
#include "cmd/blocks/block_definition.h"
#include "cmd/blocks/block_listing.h"
#include "cmd/blocks/block_names.h"
#include "cmd/blocks/open_object.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/selection_input.h"
#include "cmd/drawing/user_system.h"
#include "qx_db_database.h"
#include "qx_db_entity.h"
#include "qx_print.h"
#include "qx_selection.h"

namespace korva::cmd::blocks {

namespace {

using drawing::Answer;

// The block's name; "?" lists the blocks and asks again. Empty when the user stopped.
std::wstring askNewBlockName() {
  for (;;) {
    std::wstring name;
    Answer answer = drawing::askString(L"\nEnter block name or [?]: ", false, name);
    if (!answer.value() || name.empty()) return {};
    if (name == L"?") {
      listBlocks();
      continue;
    }
    if (isValidBlockName(name)) return name;
    qxutPrintf(L"\nInvalid block name.");
  }
}

bool confirmRedefinition(const std::wstring& name) {
  std::wstring prompt = L"\nBlock \"" + name + L"\" already exists. Redefine it? [Yes/No] <N>: ";
  Answer answer = drawing::askKeyword(prompt.c_str(), {0, L"Yes No _ Yes No"});
  return answer.is(L"Yes");
}

// The selected entities; those on locked layers stay in the drawing, as they can't
// be erased.
QxDbObjectIdArray idsOf(const drawing::HeldSelection& selection) {
  QxDbObjectIdArray ids;
  int locked = 0;
  for (std::int32_t i = 0, count = selection.length(); i < count; ++i) {
    EntityName name;
    QxDbObjectId id;
    if (!selection.member(i, name) || qxdbGetObjectId(id, name) != Qxad::eOk) continue;
    if (OpenObject<QxDbEntity>(id, QxDb::kForWrite).status() == Qxad::eOnLockedLayer) {
      ++locked;
      continue;
    }
    ids.append(id);
  }
  if (locked == 1) qxutPrintf(L"\n1 was on a locked layer.");
  if (locked > 1) qxutPrintf(L"\n%d were on a locked layer.", locked);
  return ids;
}

}  // namespace

void blockCommand() {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  if (!database) return;
  std::wstring name = askNewBlockName();
  if (name.empty()) return;
  QxDbObjectId existing = findBlock(*database, name);
  if (!existing.isNull() && !confirmRedefinition(name)) return;
  drawing::Vec3 base;
  if (!drawing::askPoint(L"\nSpecify insertion base point: ", std::nullopt, base).value()) return;
  drawing::HeldSelection selection;
  if (selection.select() != RTNORM) {
    qxutPrintf(L"\nNothing selected; the block is left as it was.");
    return;
  }
  selection.unhighlight();
  QxDbObjectIdArray entities = idsOf(selection);
  if (entities.length() == 0) {
    qxutPrintf(L"\nNothing selected; the block is left as it was.");
    return;
  }
  if (!existing.isNull()) {
    for (int i = 0; i < entities.length(); ++i) {
      if (showsBlock(entities[i], existing)) {
        qxutPrintf(L"\nBlock \"%ls\" references itself; it is left as it was.", name.c_str());
        return;
      }
    }
  }
  QxDbObjectId blockId;
  Qxad::ErrorStatus status = prepareBlock(*database, name, blockId);
  if (status == Qxad::eOk) {
    status = fillBlock(*database, blockId, entities, drawing::currentUserSystem(), base);
  }
  if (status != Qxad::eOk) qxutPrintf(L"\nThe block \"%ls\" could not be made.", name.c_str());
}

}  // namespace korva::cmd::blocks
