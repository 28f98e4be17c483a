// Entities named at a prompt: by handle or by a point picked.
#pragma once

#include <string_view>

#include "qx_types.h"

namespace korva::input {

// "#HANDLE": the entity of the current drawing with that handle (not erased).
bool entityFromHandleInput(std::wstring_view text, EntityName name);

// The entity under a point (current user system) within the pick box: half-size = PICKBOX
// pixels (variable PICKBOX, default 3) * VIEWSIZE / SCREENSIZE.y in drawing units; the
// newest such entity of the current space wins. false when nothing is there.
bool pickEntityAt(const double ucsPoint[3], EntityName name);

}  // namespace korva::input
