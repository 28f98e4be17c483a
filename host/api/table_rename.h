// Renaming symbol table records: which names may change, and the references by name
// that follow a new name, so that the drawing stays whole.
#pragma once

#include <string_view>

#include "db/database.h"

namespace korva::api {

// LAYER, LTYPE, STYLE, DIMSTYLE, APPID, UCS, VIEW, VPORT and BLOCK_RECORD.
bool isTableRecordType(std::string_view type);

// Whether a table record (or a block's BLOCK header) may take `newName`: not empty, no
// other record of its table has it, it holds no character names cannot hold, and the
// record is not one whose name is fixed (layer 0, the linetypes BYLAYER, BYBLOCK and
// Continuous, and names starting with "*"). Keeping the name is always acceptable.
bool acceptableNewName(db::Database& database, const db::Record& record, std::string_view newName);

// After `record` took `newName`: every group that names it by its old name takes the
// new one. Entities name layers (8), linetypes (6), text styles (7), dimension styles (3)
// and blocks (2); layers name linetypes; a block's BLOCK_RECORD and BLOCK name each
// other; extended data names applications (1001); header variables name the current
// ones. References by handle need nothing.
void renameReferences(db::Database& database, const db::Record& record, std::string_view oldName,
                      std::string_view newName);

}  // namespace korva::api
