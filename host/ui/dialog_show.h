// What "show" prints of a dialog: a title line, then one line per control in template
// order with its id, kind, text and state (docs/DIALOGS.md).
#pragma once

#include <string>

#include "qx_ui_dialog.h"

namespace korva::ui {

std::wstring describeDialog(const CQxUiDialog& dialog);
std::wstring describeControl(const CQxUiDialog& dialog, const CQxUiWnd& control);
// The word for a control's kind: "edit", "list", "checklist" ...
std::wstring kindWord(QxUiControlKind kind);
// Text in double quotes, with quotes, backslashes and line ends escaped.
std::wstring quoted(const std::wstring& text);

}  // namespace korva::ui
