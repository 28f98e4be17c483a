// The prompting modes of qxedSSGet, as a mode string spells them.
#pragma once

#include <optional>

namespace korva::api {

struct PromptMode {
  bool ownPrompts = false;       // ":$"
  bool single = false;           // ":S"
  bool rejectLocked = false;     // ":L"
  bool otherInput = false;       // ":?"
  bool keywords = false;         // ":K"
  bool returnOnKeyword = false;  // "-M"

  // Only the plain prompt (with or without own prompts) hands out the pick-first set.
  bool takesPickFirst() const {
    return !single && !rejectLocked && !otherInput && !keywords && !returnOnKeyword;
  }
};

// Null is the plain prompt. Flags are joined with ":" in any order ("-M:$:K", ":$:S",
// "_:L"); nullopt for a mode that isn't a prompting one or holds an unknown flag.
std::optional<PromptMode> parsePromptMode(const wchar_t* mode);

}  // namespace korva::api
