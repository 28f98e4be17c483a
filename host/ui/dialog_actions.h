// The user's actions on the controls of an open dialog, as the dialog driver reads
// them. Each acts as the same action on a screen: the focus moves to the control, its
// state changes, and it notifies the dialog. A wrong action prints what is wrong.
#pragma once

#include <string>
#include <vector>

#include "qx_ui_dialog.h"

namespace korva::ui {

void typeText(CQxUiDialog& dialog, CQxUiWnd& control, const std::wstring& text);
// numbers: the state (0 or 1), or for a check list box the line and the state.
void setCheck(CQxUiDialog& dialog, CQxUiWnd& control, const std::vector<int>& numbers);
// lines: the lines to select (none for no selection in a multiple-selection list).
void selectLines(CQxUiDialog& dialog, CQxUiWnd& control, const std::vector<int>& lines);
void click(CQxUiDialog& dialog, CQxUiWnd& control);
void doubleClick(CQxUiDialog& dialog, CQxUiWnd& control, int line);
void rightClick(CQxUiDialog& dialog, CQxUiWnd& control);
// "ALT+O", "ENTER", "ESC".
void pressKey(CQxUiDialog& dialog, const std::wstring& key);

// A name of the control for messages: "edit 101".
std::wstring controlName(const CQxUiWnd& control);

}  // namespace korva::ui
