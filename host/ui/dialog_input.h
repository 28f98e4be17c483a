// The command line as dialogs and message boxes use it: one input line per action.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva::ui {

// Shows the prompt and reads one whole line of input, echoed in the transcript as
// answers are; nullopt when the input ran out.
std::optional<std::wstring> readActionLine(std::wstring_view prompt);
// Whether the next line comes from the terminal (the user types it).
bool readingFromTerminal();
// Prints text on a line of its own.
void printLine(std::wstring_view text);

}  // namespace korva::ui
