// Puts entities a command made into the current space of the current drawing.
#pragma once

#include "qx_db_entity.h"

namespace korva::cmd::drawing {

// Gives the new entity the current layer, colour and linetype, appends it to the
// current space and closes it. On failure the entity is deleted. The entity's name
// goes to `name` when it isn't null. False when the drawing refused it.
bool appendToCurrentSpace(QxDbEntity* entity, EntityName name = nullptr);
// The same into a given block, with the properties the entity has.
bool appendToBlock(QxDbEntity* entity, QxDbObjectId blockId, EntityName name = nullptr);

}  // namespace korva::cmd::drawing
