// What korva's dialog layer keeps of an open dialog, and its access to the parts of
// windows and dialogs that module code doesn't see.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "qx_ui_dialog.h"
#include "ui/resource_module.h"

struct CQxUiDialog::State {
  unsigned templateId = 0;
  CQxUiWnd* parentWindow = nullptr;

  struct Slot {
    CQxUiWnd* window = nullptr;
    std::unique_ptr<CQxUiWnd> owned;  // made by the dialog; null for a bound object
  };
  std::vector<Slot> controls;              // template order, while the dialog is open
  std::map<unsigned, CQxUiWnd*> bindings;  // objects bound to ids
  CQxUiWnd* focus = nullptr;
  unsigned defaultId = 0;

  bool running = false;
  bool ended = false;
  int result = 0;

  struct Command {
    unsigned firstId = 0;
    unsigned lastId = 0;
    QxUiNotification code = QxUiNotification::Clicked;
    RangeHandler handler;
  };
  std::vector<Command> commands;
  std::map<unsigned, MessageHandler> messages;

  struct Posted {
    unsigned message = 0;
    std::uintptr_t wordParameter = 0;
    std::intptr_t longParameter = 0;
  };
  std::deque<Posted> posted;
};

namespace korva::ui {

struct DialogAccess {
  static CQxUiDialog::State& state(CQxUiDialog& dialog) { return *dialog.state_; }
  static const CQxUiDialog::State& state(const CQxUiDialog& dialog) { return *dialog.state_; }

  // Makes the window the control of a template line in an open dialog.
  static void attach(CQxUiWnd& window, CQxUiDialog& parent, const ControlTemplate& line);
  // Makes the window an open dialog of its template.
  static void openDialog(CQxUiDialog& dialog, const DialogTemplate& dialogTemplate);
  static void detach(CQxUiWnd& window);
  // The bound object takes the place (and the state) of the control made for its id.
  static void replace(CQxUiWnd& made, CQxUiWnd& bound);
  // Text as the user types it: no notification of its own.
  static void setTextQuietly(CQxUiWnd& window, const std::wstring& text) { window.text_ = text; }

  // Focus to window (null: none), with KillFocus and SetFocus notifications.
  static void moveFocus(CQxUiDialog& dialog, CQxUiWnd* window);
  // Handles the posted messages until none is left or the dialog ended.
  static void handlePosted(CQxUiDialog& dialog);
  static bool ended(const CQxUiDialog& dialog) { return dialog.state_->ended; }

  static std::vector<CQxUiMenu::Item>& items(CQxUiMenu& menu) { return menu.items_; }
};

// Whether the user can put the focus on the window: enabled, visible and not a label.
bool takesFocus(const CQxUiWnd& window);

}  // namespace korva::ui
