// Prompts shared by OFFSET, TRIM and FILLET.
#pragma once

#include <array>
#include <cstdint>

#include "cmd/drawing/command_input.h"
#include "geom/plane_pieces.h"
#include "qx_types.h"

namespace korva::cmd::modify {

using geom::Vec2;

using drawing::Answer;

// An entity name held by value.
using HeldName = std::array<std::int64_t, 2>;
inline HeldName held(const EntityName name) {
  return {name[0], name[1]};
}

// One entity picked, or a keyword of the list (as for qxedInitGet), or Enter (RTNONE).
// A pick that hits nothing asks again. worldPick is the pick in the world's X-Y plane.
Answer pickEntity(const wchar_t* prompt, const wchar_t* keywords, EntityName name, Vec2& worldPick);

}  // namespace korva::cmd::modify
