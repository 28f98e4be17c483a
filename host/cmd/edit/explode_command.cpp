// EXPLODE: each selected entity is replaced by what its class breaks it into, in the
// same block. Run from another command, one selection step is the whole answer, so that
// "_.EXPLODE" with a set ends with or without a closing Enter.
#include <cstring>
#include <string>
#include <vector>

#include "cmd/edit/edit_commands.h"
#include "cmd/edit/edit_selection.h"
#include "cmd/processor.h"
#include "qx_db_block_reference.h"
#include "qx_db_blocks.h"
#include "qx_db_dimension.h"
#include "qx_db_table.h"
#include "qx_entities.h"
#include "qx_memory.h"
#include "qx_print.h"

namespace korva::cmd::edit {

namespace {

// A name the object layer handed out, freed on every path.
class OwnedText {
 public:
  explicit OwnedText(wchar_t* text) : text_(text) {}
  ~OwnedText() { qxad_free(text_); }
  OwnedText(const OwnedText&) = delete;
  OwnedText& operator=(const OwnedText&) = delete;
  const wchar_t* get() const { return text_ ? text_ : L""; }

 private:
  wchar_t* text_;
};

// Blocks marked as not explodable keep their references whole.
bool blockAllowsExplode(const QxDbEntity& entity) {
  const auto* reference = QxDbBlockReference::cast(const_cast<QxDbEntity*>(&entity));
  if (!reference || QxDbTable::cast(const_cast<QxDbEntity*>(&entity))) return true;
  QxDbObject* block = nullptr;
  if (qxdbOpenQxDbObject(block, reference->blockTableRecord(), QxDb::kForRead) != Qxad::eOk)
    return false;
  const auto* record = QxDbBlockTableRecord::cast(block);
  bool allowed = record && record->explodable();
  block->close();
  return allowed;
}

// Dimensions and tables draw through a block of their own whose entities stand on
// layer 0 by block: their pieces take the entity's layer, colour and linetype.
void takeOwnersProperties(const QxDbEntity& owner, QxDbEntity& piece) {
  OwnedText layer(piece.layer());
  if (std::wcscmp(layer.get(), L"0") == 0) {
    OwnedText ownerLayer(owner.layer());
    piece.setLayer(ownerLayer.get());
  }
  if (piece.colorIndex() == 0) piece.setColor(owner.color());
  OwnedText linetype(piece.linetype());
  if (std::wcscmp(linetype.get(), L"ByBlock") == 0 ||
      std::wcscmp(linetype.get(), L"BYBLOCK") == 0) {
    OwnedText ownerLinetype(owner.linetype());
    piece.setLinetype(ownerLinetype.get());
  }
}

// Adds the pieces to the block; on failure takes back those added and deletes the rest.
bool appendPieces(QxDbObjectId blockId, std::vector<QxDbEntity*>& pieces) {
  QxDbObject* object = nullptr;
  if (qxdbOpenQxDbObject(object, blockId, QxDb::kForWrite) != Qxad::eOk) return false;
  auto* block = QxDbBlockTableRecord::cast(object);
  std::vector<QxDbEntity*> added;
  bool ok = block != nullptr;
  for (QxDbEntity*& piece : pieces) {
    if (!ok || block->appendQxDbEntity(piece) != Qxad::eOk) {
      ok = false;
      delete piece;
    } else {
      added.push_back(piece);
    }
    piece = nullptr;
  }
  object->close();
  for (QxDbEntity* piece : added) {
    if (!ok) piece->erase();
    piece->close();
  }
  return ok;
}

bool explodeOne(const EntityName name) {
  QxDbObjectId id;
  QxDbEntity* entity = nullptr;
  if (qxdbGetObjectId(id, name) != Qxad::eOk ||
      qxdbOpenQxDbEntity(entity, id, QxDb::kForWrite) != Qxad::eOk) {
    return false;
  }
  QxDbVoidPtrArray parts;
  bool done =
      blockAllowsExplode(*entity) && entity->explode(parts) == Qxad::eOk && parts.length() > 0;
  std::vector<QxDbEntity*> pieces;
  bool ownBlock = QxDbDimension::cast(entity) || QxDbTable::cast(entity);
  for (int i = 0; i < parts.length(); ++i) {
    auto* piece = static_cast<QxDbEntity*>(parts[i]);
    if (ownBlock) takeOwnersProperties(*entity, *piece);
    pieces.push_back(piece);
  }
  if (done) done = appendPieces(entity->blockId(), pieces);
  for (QxDbEntity* piece : pieces) delete piece;
  entity->close();
  // The flat layer's erase takes the attributes and vertices along.
  return done && qxdbEntDel(name) == RTNORM;
}

}  // namespace

void explodeCommand() {
  bool scripted = Processor::instance().commandDepth() > 1;
  EditSelection selection;
  if (selection.select(!scripted, scripted) != RTNORM) return;
  selection.unhighlight();
  int kept = 0;
  for (std::int32_t i = 0, count = selection.length(); i < count; ++i) {
    EntityName name;
    if (!selection.member(i, name) || !explodeOne(name)) ++kept;
  }
  if (kept == 1) qxutPrintf(L"\n1 was not able to be exploded.");
  if (kept > 1) qxutPrintf(L"\n%d were not able to be exploded.", kept);
}

}  // namespace korva::cmd::edit
