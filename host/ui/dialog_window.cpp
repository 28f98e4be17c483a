// Dialogs: opening from the template, the controls, focus, placement, ending.
#include <cwchar>

#include "qx_ui_dialog.h"
#include "ui/dialog_access.h"
#include "ui/dialog_driver.h"
#include "ui/dialog_input.h"
#include "ui/dialog_resources.h"

namespace korva::ui {
namespace {

// The desktop that dialogs without a parent are centred on, in dialog units.
constexpr QxUiRect kDesktop = {0, 0, 640, 480};

QxUiControlStyle styleOf(const ControlStyle& style) {
  QxUiControlStyle result;
  result.multipleSelection = style.multipleSelection;
  result.editable = style.editable;
  result.sorted = style.sorted;
  result.readOnly = style.readOnly;
  result.multiline = style.multiline;
  result.password = style.password;
  result.groupStart = style.groupStart;
  result.notify = style.notify;
  return result;
}

std::unique_ptr<CQxUiWnd> makeControl(ControlKind kind) {
  switch (kind) {
    case ControlKind::Edit:
      return std::make_unique<CQxUiEdit>();
    case ControlKind::Button:
    case ControlKind::DefaultButton:
    case ControlKind::CheckBox:
    case ControlKind::RadioButton:
    case ControlKind::OwnerDrawnButton:
      return std::make_unique<CQxUiButton>();
    case ControlKind::ListBox:
      return std::make_unique<CQxUiListBox>();
    case ControlKind::CheckListBox:
      return std::make_unique<CQxUiCheckListBox>();
    case ControlKind::ComboBox:
      return std::make_unique<CQxUiComboBox>();
    case ControlKind::Static:
    case ControlKind::GroupBox:
    case ControlKind::Icon:
    case ControlKind::Dialog:  // templates hold no dialogs
      return std::make_unique<CQxUiStatic>();
  }
  return std::make_unique<CQxUiStatic>();
}

// Whether an object bound to an id is of a class that can be the control of its kind.
bool fits(const CQxUiWnd& window, QxUiControlKind kind) {
  switch (kind) {
    case QxUiControlKind::Edit:
      return dynamic_cast<const CQxUiEdit*>(&window) != nullptr;
    case QxUiControlKind::Button:
    case QxUiControlKind::DefaultButton:
    case QxUiControlKind::CheckBox:
    case QxUiControlKind::RadioButton:
    case QxUiControlKind::OwnerDrawnButton:
      return dynamic_cast<const CQxUiButton*>(&window) != nullptr;
    case QxUiControlKind::ListBox:
      return dynamic_cast<const CQxUiListBox*>(&window) != nullptr;
    case QxUiControlKind::CheckListBox:
      return dynamic_cast<const CQxUiCheckListBox*>(&window) != nullptr;
    case QxUiControlKind::ComboBox:
      return dynamic_cast<const CQxUiComboBox*>(&window) != nullptr;
    case QxUiControlKind::Static:
    case QxUiControlKind::GroupBox:
    case QxUiControlKind::Icon:
      return dynamic_cast<const CQxUiStatic*>(&window) != nullptr;
    case QxUiControlKind::Dialog:
      return false;
  }
  return false;
}

void reportMisfit(const CQxUiDialog& dialog, unsigned id) {
  printLine(L"Dialog " + std::to_wstring(dialog.GetTemplateId()) + L": the object bound to " +
            std::to_wstring(id) + L" is not of its kind; a plain control is used.");
}

}  // namespace

bool takesFocus(const CQxUiWnd& window) {
  switch (window.GetKind()) {
    case QxUiControlKind::Static:
    case QxUiControlKind::GroupBox:
    case QxUiControlKind::Icon:
    case QxUiControlKind::Dialog:
      return false;
    default:
      return window.IsWindowEnabled() && window.IsWindowVisible();
  }
}

void DialogAccess::attach(CQxUiWnd& window, CQxUiDialog& parent, const ControlTemplate& line) {
  window.parent_ = &parent;
  window.created_ = true;
  window.id_ = line.id;
  window.kind_ = line.kind;
  window.style_ = styleOf(line.style);
  window.text_ = line.caption;
  window.rect_ = {line.x, line.y, line.x + line.width, line.y + line.height};
  window.enabled_ = !line.style.disabled;
  window.visible_ = !line.style.hidden;
  window.icon_ = 0;
  window.OnCreated();
}

void DialogAccess::openDialog(CQxUiDialog& dialog, const DialogTemplate& dialogTemplate) {
  CQxUiDialog::State& state = *dialog.state_;
  dialog.created_ = true;
  dialog.id_ = dialogTemplate.id;
  dialog.kind_ = QxUiControlKind::Dialog;
  dialog.text_ = dialogTemplate.title;
  dialog.rect_ = {dialogTemplate.x, dialogTemplate.y, dialogTemplate.x + dialogTemplate.width,
                  dialogTemplate.y + dialogTemplate.height};
  dialog.enabled_ = dialog.visible_ = true;
  state.controls.clear();
  state.focus = nullptr;
  state.defaultId = 0;
  for (const ControlTemplate& line : dialogTemplate.controls) {
    CQxUiDialog::State::Slot slot;
    const auto bound = state.bindings.find(line.id);
    if (bound != state.bindings.end() && fits(*bound->second, line.kind)) {
      slot.window = bound->second;
    } else {
      if (bound != state.bindings.end()) reportMisfit(dialog, line.id);
      slot.owned = makeControl(line.kind);
      slot.window = slot.owned.get();
    }
    attach(*slot.window, dialog, line);
    if (line.kind == ControlKind::DefaultButton && state.defaultId == 0) state.defaultId = line.id;
    state.controls.push_back(std::move(slot));
  }
}

void DialogAccess::detach(CQxUiWnd& window) {
  window.created_ = false;
  window.parent_ = nullptr;
}

void DialogAccess::replace(CQxUiWnd& made, CQxUiWnd& bound) {
  bound.parent_ = made.parent_;
  bound.created_ = made.created_;
  bound.id_ = made.id_;
  bound.kind_ = made.kind_;
  bound.style_ = made.style_;
  bound.text_ = made.text_;
  bound.rect_ = made.rect_;
  bound.enabled_ = made.enabled_;
  bound.visible_ = made.visible_;
  bound.icon_ = made.icon_;
  bound.TakeContents(made);
}

void DialogAccess::moveFocus(CQxUiDialog& dialog, CQxUiWnd* window) {
  CQxUiDialog::State& state = *dialog.state_;
  if (state.focus == window) return;
  CQxUiWnd* previous = state.focus;
  state.focus = window;
  if (previous != nullptr) previous->NotifyParent(QxUiNotification::KillFocus);
  if (window != nullptr && state.focus == window) {
    window->NotifyParent(QxUiNotification::SetFocus);
  }
}

}  // namespace korva::ui

using korva::ui::DialogAccess;

CQxUiDialog::CQxUiDialog(unsigned templateId, CQxUiWnd* parent)
    : state_(std::make_unique<State>()) {
  state_->templateId = templateId;
  state_->parentWindow = parent;
}

CQxUiDialog::~CQxUiDialog() {
  for (State::Slot& slot : state_->controls) DialogAccess::detach(*slot.window);
}

unsigned CQxUiDialog::GetTemplateId() const {
  return state_->templateId;
}

CQxUiWnd* CQxUiDialog::GetParentWindow() const {
  return state_->parentWindow;
}

int CQxUiDialog::DoModal() {
  const korva::ui::DialogTemplate* found = korva::ui::findDialogTemplate(state_->templateId);
  if (found == nullptr) {
    korva::ui::printLine(L"Dialog " + std::to_wstring(state_->templateId) +
                         L" is not in the resources.");
    return -1;
  }
  if (state_->running) return -1;
  DialogAccess::openDialog(*this, *found);
  state_->running = true;
  state_->ended = false;
  state_->result = 0;
  state_->posted.clear();

  if (OnInitDialog() && state_->focus == nullptr) {
    for (const State::Slot& slot : state_->controls) {
      if (korva::ui::takesFocus(*slot.window)) {
        GotoDlgCtrl(slot.window);
        break;
      }
    }
  }
  DialogAccess::handlePosted(*this);
  if (!state_->ended) korva::ui::runDialog(*this);

  for (State::Slot& slot : state_->controls) DialogAccess::detach(*slot.window);
  state_->controls.clear();
  state_->focus = nullptr;
  state_->posted.clear();
  state_->running = false;
  DialogAccess::detach(*this);
  return state_->result;
}

void CQxUiDialog::EndDialog(int result) {
  state_->ended = true;
  state_->result = result;
}

bool CQxUiDialog::OnInitDialog() {
  UpdateData(false);
  return true;
}

void CQxUiDialog::OnOK() {
  if (UpdateData(true)) EndDialog(kQxUiIdOk);
}

void CQxUiDialog::OnCancel() {
  EndDialog(kQxUiIdCancel);
}

void CQxUiDialog::DoDataExchange(CQxUiDataExchange&) {}

bool CQxUiDialog::UpdateData(bool saveAndValidate) {
  CQxUiDataExchange exchange(*this, saveAndValidate);
  DoDataExchange(exchange);
  return !exchange.Failed();
}

CQxUiWnd* CQxUiDialog::GetDlgItem(unsigned id) const {
  for (const State::Slot& slot : state_->controls) {
    if (slot.window->GetDlgCtrlID() == id) return slot.window;
  }
  return nullptr;
}

void CQxUiDialog::BindControl(unsigned id, CQxUiWnd& control) {
  state_->bindings[id] = &control;
  if (!state_->running) return;
  for (State::Slot& slot : state_->controls) {
    if (slot.window->GetDlgCtrlID() != id || slot.window == &control) continue;
    if (!korva::ui::fits(control, slot.window->GetKind())) {
      korva::ui::reportMisfit(*this, id);
      return;
    }
    DialogAccess::replace(*slot.window, control);
    if (state_->focus == slot.window) state_->focus = &control;
    DialogAccess::detach(*slot.window);
    slot.window = &control;
    slot.owned.reset();
    return;
  }
}

std::vector<CQxUiWnd*> CQxUiDialog::GetControls() const {
  std::vector<CQxUiWnd*> windows;
  for (const State::Slot& slot : state_->controls) windows.push_back(slot.window);
  return windows;
}

void CQxUiDialog::SetDlgItemText(unsigned id, const std::wstring& text) {
  if (CQxUiWnd* window = GetDlgItem(id)) window->SetWindowText(text);
}

std::wstring CQxUiDialog::GetDlgItemText(unsigned id) const {
  const CQxUiWnd* window = GetDlgItem(id);
  return window != nullptr ? window->GetWindowText() : std::wstring();
}

void CQxUiDialog::SetDlgItemInt(unsigned id, int value) {
  SetDlgItemText(id, std::to_wstring(value));
}

int CQxUiDialog::GetDlgItemInt(unsigned id, bool* translated) const {
  const std::wstring text = GetDlgItemText(id);
  wchar_t* end = nullptr;
  const long value = std::wcstol(text.c_str(), &end, 10);
  bool read = end != text.c_str();
  while (read && *end == L' ') ++end;
  read = read && *end == L'\0';
  if (translated != nullptr) *translated = read;
  return read ? static_cast<int>(value) : 0;
}

void CQxUiDialog::CheckDlgButton(unsigned id, int state) {
  if (auto* button = dynamic_cast<CQxUiButton*>(GetDlgItem(id))) button->SetCheck(state);
}

int CQxUiDialog::IsDlgButtonChecked(unsigned id) const {
  const auto* button = dynamic_cast<const CQxUiButton*>(GetDlgItem(id));
  return button != nullptr ? button->GetCheck() : 0;
}

void CQxUiDialog::CheckRadioButton(unsigned firstId, unsigned lastId, unsigned checkedId) {
  for (const State::Slot& slot : state_->controls) {
    const unsigned id = slot.window->GetDlgCtrlID();
    if (id < firstId || id > lastId) continue;
    if (auto* button = dynamic_cast<CQxUiButton*>(slot.window)) {
      button->SetCheck(id == checkedId ? 1 : 0);
    }
  }
}

unsigned CQxUiDialog::GetCheckedRadioButton(unsigned firstId, unsigned lastId) const {
  for (const State::Slot& slot : state_->controls) {
    const unsigned id = slot.window->GetDlgCtrlID();
    const auto* button = dynamic_cast<const CQxUiButton*>(slot.window);
    if (id >= firstId && id <= lastId && button != nullptr && button->GetCheck() == 1) return id;
  }
  return 0;
}

CQxUiWnd* CQxUiDialog::GetFocus() const {
  return state_->focus;
}

void CQxUiDialog::GotoDlgCtrl(CQxUiWnd* control) {
  DialogAccess::moveFocus(*this, control);
  if (auto* edit = dynamic_cast<CQxUiEdit*>(control)) edit->SetSel(0, -1);
  auto* combo = dynamic_cast<CQxUiComboBox*>(control);
  if (combo != nullptr && combo->GetControlStyle().editable) combo->SetEditSel(0, -1);
}

void CQxUiDialog::SetDefID(unsigned id) {
  state_->defaultId = id;
}

unsigned CQxUiDialog::GetDefID() const {
  return state_->defaultId;
}

void CQxUiDialog::CenterWindow() {
  const QxUiRect area =
      state_->parentWindow != nullptr ? state_->parentWindow->GetWindowRect() : korva::ui::kDesktop;
  const QxUiRect own = GetWindowRect();
  MoveWindow(area.left + (area.Width() - own.Width()) / 2,
             area.top + (area.Height() - own.Height()) / 2, own.Width(), own.Height());
}

void CQxUiDialog::MoveWindow(int x, int y, int width, int height) {
  const QxUiRect before = GetPlacement();
  CQxUiWnd::MoveWindow(x, y, width, height);
  if (IsCreated() && (before.Width() != width || before.Height() != height)) {
    SendMessage(kQxUiMessageSize, 0, qxuiPackPoint({width, height}));
  }
}
