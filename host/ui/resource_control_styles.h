// The style words of a resource source and what they mean to korva's controls.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/resource_module.h"

namespace korva::ui {

struct StyleWord {
  std::wstring word;
  bool negated = false;  // "NOT WS_VISIBLE"
};

// Sets the style fields the words name, in order. Button styles (BS_CHECKBOX ...,
// BS_OWNERDRAW) refine a button's kind and SS_ICON makes a static an icon. False with
// unknownWord set when a word isn't one korva knows.
bool applyControlStyles(const std::vector<StyleWord>& words, ControlKind& kind, ControlStyle& style,
                        std::wstring& unknownWord);

// The kind of a CONTROL statement's window class ("Button", "Edit", "CheckListBox" ...),
// compared without regard to case; false for a class korva doesn't know.
bool controlKindOfClass(std::wstring_view className, ControlKind& kind);

// True for a style word korva knows (dialog styles are accepted and have no effect).
bool isKnownStyleWord(std::wstring_view word);

}  // namespace korva::ui
