// Commands and messages of dialogs: registration, sending, posting.
#include "qx_ui_dialog.h"
#include "ui/dialog_access.h"

using korva::ui::DialogAccess;

void CQxUiDialog::HandleCommand(unsigned id, QxUiNotification code, CommandHandler handler) {
  HandleCommandRange(id, id, code, [handler = std::move(handler)](unsigned) { handler(); });
}

void CQxUiDialog::HandleCommandRange(unsigned firstId, unsigned lastId, QxUiNotification code,
                                     RangeHandler handler) {
  for (State::Command& command : state_->commands) {
    if (command.firstId == firstId && command.lastId == lastId && command.code == code) {
      command.handler = std::move(handler);
      return;
    }
  }
  state_->commands.push_back({firstId, lastId, code, std::move(handler)});
}

void CQxUiDialog::HandleMessage(unsigned message, MessageHandler handler) {
  state_->messages[message] = std::move(handler);
}

void CQxUiDialog::SendCommand(unsigned id, QxUiNotification code) {
  if (CQxUiWnd* control = GetDlgItem(id)) control->OnReflectedNotification(code);
  // A handler for the id alone comes before one for a range that holds it.
  const State::Command* chosen = nullptr;
  for (const State::Command& command : state_->commands) {
    if (command.code != code || id < command.firstId || id > command.lastId) continue;
    if (chosen == nullptr || command.lastId - command.firstId < chosen->lastId - chosen->firstId) {
      chosen = &command;
    }
  }
  if (chosen != nullptr) {
    // A copy: the handler may register handlers again.
    const RangeHandler handler = chosen->handler;
    handler(id);
    return;
  }
  if (code != QxUiNotification::Clicked) return;
  if (id == kQxUiIdOk) OnOK();
  if (id == kQxUiIdCancel) OnCancel();
}

std::intptr_t CQxUiDialog::SendMessage(unsigned message, std::uintptr_t wordParameter,
                                       std::intptr_t longParameter) {
  const auto found = state_->messages.find(message);
  if (found != state_->messages.end()) {
    const MessageHandler handler = found->second;
    return handler(wordParameter, longParameter);
  }
  switch (message) {
    case kQxUiMessageCommand:
      SendCommand(static_cast<unsigned>(wordParameter & 0xFFFF),
                  static_cast<QxUiNotification>((wordParameter >> 16) & 0xFFFF));
      return 0;
    case kQxUiMessageClose:
      SendCommand(kQxUiIdCancel, QxUiNotification::Clicked);
      return 0;
    default:
      return 0;
  }
}

void CQxUiDialog::PostMessage(unsigned message, std::uintptr_t wordParameter,
                              std::intptr_t longParameter) {
  // Only an open dialog has a queue; its messages die with it.
  if (!state_->running) return;
  state_->posted.push_back({message, wordParameter, longParameter});
}

namespace korva::ui {

void DialogAccess::handlePosted(CQxUiDialog& dialog) {
  CQxUiDialog::State& state = *dialog.state_;
  while (!state.ended && !state.posted.empty()) {
    const CQxUiDialog::State::Posted posted = state.posted.front();
    state.posted.pop_front();
    dialog.SendMessage(posted.message, posted.wordParameter, posted.longParameter);
  }
}

}  // namespace korva::ui
