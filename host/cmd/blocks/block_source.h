// What the block name answer of INSERT names: a block of the drawing, or a drawing
// file read in as a block.
#pragma once

#include <string>

#include "qx_db_core.h"

class QxDbDatabase;

namespace korva::cmd::blocks {

// Whether the answer names a file: it holds a folder separator or ends in the
// drawing extension.
bool namesDrawingFile(const std::wstring& answer);
// The block name a drawing file gives: its name without folder and extension.
std::wstring blockNameOfFile(const std::wstring& path);

// The block to insert. A block of the drawing is taken as it is; a file (named as a
// path, or a name the drawing lacks found on the support path with the drawing
// extension) is read into the block of its name, after asking whether to redefine a
// block of that name. Null, with the reason printed, when there is none.
QxDbObjectId blockToInsert(QxDbDatabase& database, const std::wstring& answer);

}  // namespace korva::cmd::blocks
