// Making, loading and erasing block definitions of the working drawing.
#pragma once

#include <string>

#include "api/coordinate_systems.h"
#include "geom/vec.h"
#include "qx_array.h"
#include "qx_db_core.h"

class QxDbDatabase;

namespace korva::cmd::blocks {

// The block record of that name, made when the drawing has none and emptied when it
// has one (its references then show what is put in next).
Qxad::ErrorStatus prepareBlock(QxDbDatabase& database, const std::wstring& name,
                               QxDbObjectId& blockId);

// Copies the entities into the prepared block, in the coordinates of the user system
// with `base` (a point of that system) as the block's base point, and erases the
// originals: they now live in the block.
Qxad::ErrorStatus fillBlock(QxDbDatabase& database, QxDbObjectId blockId,
                            const QxDbObjectIdArray& entities, const api::CoordinateSystem& user,
                            geom::Vec3 base);

// Reads a drawing file into the block `name`: the model space entities, with the
// file's insertion base ($INSBASE) as base point. Layers, linetypes, styles and blocks
// the entities need come along when the drawing lacks them.
Qxad::ErrorStatus loadBlockFile(QxDbDatabase& database, const std::wstring& path,
                                const std::wstring& name);

// Erases the block's record and its definition with everything it holds.
Qxad::ErrorStatus eraseBlock(QxDbObjectId blockId);

}  // namespace korva::cmd::blocks
