// The LIST report of one entity: its kind, layer, space and handle, then its geometry
// in the current user system and units.
#pragma once

#include "qx_types.h"

namespace korva::cmd::drawing {

void listEntity(const EntityName name);

}  // namespace korva::cmd::drawing
