// The dialog driver: the user's actions on a modal dialog, one input line each
// (docs/DIALOGS.md).
#pragma once

#include <string>

#include "qx_ui_dialog.h"

namespace korva::ui {

// Reads and carries out actions on an open dialog until it ends; the end of the input
// cancels it as the Cancel button does. At the terminal the dialog is shown first.
void runDialog(CQxUiDialog& dialog);

// Carries out one action line ("show", "set 101 text", "click 1" ...) on an open
// dialog. A wrong action or an unknown id prints what is wrong and changes nothing.
void performAction(CQxUiDialog& dialog, const std::wstring& line);

}  // namespace korva::ui
