// What the drawing aids (ORTHO, SNAP, GRID) share: their spacings as variable pairs,
// the questions with Yes/No answers, and the "2X" form of grid spacings.
#pragma once

#include <optional>
#include <string>

#include "cmd/drawing/command_input.h"
#include "geom/vec.h"

namespace korva::cmd::blocks {

// An X and Y spacing variable (SNAPUNIT, GRIDUNIT).
geom::Vec2 spacingVariable(const wchar_t* name);
bool setSpacingVariable(const wchar_t* name, geom::Vec2 spacing);

// "[Yes/No] <Y>" questions; nothing when the user stopped.
std::optional<bool> askYesNo(const std::wstring& question, bool fallback);

// A spacing answer typed as text: a plain length, or a multiple of the snap
// spacing ("2x"). Nothing for other text.
struct TypedSpacing {
  double value = 0;
  bool timesSnap = false;
};
std::optional<TypedSpacing> parseTypedSpacing(const std::wstring& text);

// A spacing prompt (qxedGetDist, so two points show it too) with keywords: Enter
// keeps `spacing`. With allowSnapMultiple the "2x" form is taken as well and scaled by
// snapSpacing. Zero and negative lengths are refused.
drawing::Answer askSpacing(const std::wstring& prompt, const wchar_t* keywords,
                           bool allowSnapMultiple, double snapSpacing, double& spacing);

}  // namespace korva::cmd::blocks
