// Dialogs that step aside while the user selects in the drawing.
#include "qx_ui_dialog.h"
#include "ui/dialog_input.h"
#include "ui/dialog_show.h"

void CHyUiBaseDialog::BeginEditorCommand() {
  editorCommand_ = true;
  ShowWindow(false);
}

void CHyUiBaseDialog::CompleteEditorCommand(bool restoreDialogs) {
  editorCommand_ = false;
  if (!restoreDialogs) return;
  ShowWindow(true);
  // The user at the terminal sees the dialog again, as it comes back on a screen.
  if (IsCreated() && korva::ui::readingFromTerminal()) {
    korva::ui::printLine(korva::ui::describeDialog(*this));
  }
}

void CHyUiBaseDialog::CancelEditorCommand() {
  CompleteEditorCommand(true);
}
