// The attributes a new block reference gets from its block's attribute definitions.
#pragma once

#include <string>
#include <vector>

#include "qx_db_core.h"

namespace korva::cmd::blocks {

struct AttributeValue {
  QxDbObjectId definition;
  std::wstring value;
};

// One value per definition that isn't constant, in the block's order: asked for at
// the prompt when ATTREQ is 1 (Enter keeps the default), the defaults otherwise.
// False when the user cancelled.
bool attributeValues(QxDbObjectId blockId, std::vector<AttributeValue>& values);

// Adds the attributes to the reference, placed as the reference places its block.
Qxad::ErrorStatus attachAttributes(QxDbObjectId referenceId,
                                   const std::vector<AttributeValue>& values);

}  // namespace korva::cmd::blocks
