// Block names and the block table of the working drawing.
#pragma once

#include <string>

#include "qx_db_core.h"

class QxDbDatabase;

namespace korva::cmd::blocks {

// Names a user may give a block: not empty, at most 255 characters, none of the
// characters the table names keep for themselves, and not starting with "*".
bool isValidBlockName(const std::wstring& name);

// The block table record of that name; null when the drawing has none.
QxDbObjectId findBlock(QxDbDatabase& database, const std::wstring& name);

// Whether the entity is a reference that shows the block `blockId`, directly or
// through the blocks it holds: putting it into that block would make the block
// contain itself.
bool showsBlock(QxDbObjectId entityId, QxDbObjectId blockId);

}  // namespace korva::cmd::blocks
