// The selection prompt's own options, and the list of what it expects.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva::api {

enum class SelectionOption {
  Window,
  Last,
  Crossing,
  All,
  Fence,
  WPolygon,
  CPolygon,
  Add,
  Remove,
  Previous,
  Undo
};

// The option typed (short form, longer beginning, or "_" and the word); nullopt for
// anything else.
std::optional<SelectionOption> findSelectionOption(std::wstring_view typed);

// "Window/Last/.../Undo", followed by the local words of the caller's keyword list.
std::wstring expectedOptions(const std::wstring& callerKeywords);

}  // namespace korva::api
