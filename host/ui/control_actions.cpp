// The user's actions on controls.
#include <algorithm>
#include <cwctype>

#include "ui/control_items.h"
#include "ui/dialog_access.h"
#include "ui/dialog_actions.h"
#include "ui/dialog_input.h"
#include "ui/dialog_show.h"
#include "ui/menu_popup.h"

namespace korva::ui {
namespace {

bool isPushButton(QxUiControlKind kind) {
  return kind == QxUiControlKind::Button || kind == QxUiControlKind::DefaultButton ||
         kind == QxUiControlKind::OwnerDrawnButton;
}

void wrongKind(const CQxUiWnd& control, const std::wstring& action, const std::wstring& takes) {
  printLine(L"\"" + action + L"\" doesn't work on " + controlName(control) + L"; it works on " +
            takes + L".");
}

bool validLine(const CQxUiWnd& control, int line, int count) {
  if (line >= 0 && line < count) return true;
  printLine(controlName(control) + L" has " + std::to_wstring(count) + L" lines; " +
            std::to_wstring(line) + L" is not one of them.");
  return false;
}

// The radio buttons of control's group, in template order.
std::vector<CQxUiButton*> radioGroup(CQxUiDialog& dialog, CQxUiWnd& control) {
  std::vector<CQxUiButton*> group;
  bool found = false;
  for (CQxUiWnd* window : dialog.GetControls()) {
    const bool radio = window->GetKind() == QxUiControlKind::RadioButton;
    if (!radio || window->GetControlStyle().groupStart) {
      if (found) break;
      group.clear();
    }
    if (radio) group.push_back(dynamic_cast<CQxUiButton*>(window));
    if (window == &control) found = true;
  }
  return group;
}

void checkRadio(CQxUiDialog& dialog, CQxUiButton& button) {
  for (CQxUiButton* member : radioGroup(dialog, button)) {
    if (member != nullptr) member->SetCheck(member == &button ? 1 : 0);
  }
}

// A mouse click on a button: the focus moves to it, an automatic check box or radio
// button changes, and the button tells the dialog.
void pressButton(CQxUiDialog& dialog, CQxUiButton& button) {
  button.SetFocus();
  if (button.GetKind() == QxUiControlKind::CheckBox) {
    button.SetCheck(button.GetCheck() == 1 ? 0 : 1);
  } else if (button.GetKind() == QxUiControlKind::RadioButton) {
    checkRadio(dialog, button);
  }
  dialog.SendCommand(button.GetDlgCtrlID(), QxUiNotification::Clicked);
}

QxUiPoint centreOf(const CQxUiWnd& control) {
  const QxUiRect rect = control.GetClientRect();
  return {rect.Width() / 2, rect.Height() / 2};
}

// The access key of a caption ("&Name" gives N), 0 for none.
wchar_t accessKey(const std::wstring& caption) {
  for (size_t index = 0; index + 1 < caption.size(); ++index) {
    if (caption[index] != L'&') continue;
    if (caption[index + 1] == L'&') {
      ++index;
      continue;
    }
    return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(caption[index + 1])));
  }
  return 0;
}

// The dialog's own handling of Alt and a letter: a button with that access key is
// pressed; a label's moves the focus to the next control that takes it.
bool useAccessKey(CQxUiDialog& dialog, wchar_t letter) {
  const std::vector<CQxUiWnd*> controls = dialog.GetControls();
  for (size_t index = 0; index < controls.size(); ++index) {
    CQxUiWnd& window = *controls[index];
    if (!window.IsWindowVisible() || !window.IsWindowEnabled()) continue;
    if (accessKey(window.GetWindowText()) != letter) continue;
    if (auto* button = dynamic_cast<CQxUiButton*>(&window)) {
      pressButton(dialog, *button);
      return true;
    }
    for (size_t next = index + 1; next < controls.size(); ++next) {
      if (takesFocus(*controls[next])) {
        dialog.GotoDlgCtrl(controls[next]);
        return true;
      }
    }
  }
  return false;
}

}  // namespace

std::wstring controlName(const CQxUiWnd& control) {
  return kindWord(control.GetKind()) + L" " + std::to_wstring(control.GetDlgCtrlID());
}

void typeText(CQxUiDialog& dialog, CQxUiWnd& control, const std::wstring& typed) {
  auto* edit = dynamic_cast<CQxUiEdit*>(&control);
  auto* combo = dynamic_cast<CQxUiComboBox*>(&control);
  if (combo != nullptr && !combo->GetControlStyle().editable) {
    printLine(controlName(control) + L" is a drop-down list: choose a line with \"select\".");
    return;
  }
  if (edit == nullptr && combo == nullptr) {
    wrongKind(control, L"set", L"edits and editable combo boxes");
    return;
  }
  if (edit != nullptr && edit->IsReadOnly()) {
    printLine(controlName(control) + L" is read-only.");
    return;
  }
  const int limit = edit != nullptr ? edit->GetLimitText() : combo->GetLimitText();
  std::wstring text = typed;
  if (static_cast<int>(text.size()) > limit) {
    text.resize(static_cast<size_t>(limit));
    printLine(controlName(control) + L" takes at most " + std::to_wstring(limit) +
              L" characters; the text was cut.");
  }
  control.SetFocus();
  DialogAccess::setTextQuietly(control, text);
  const int end = static_cast<int>(text.size());
  if (edit != nullptr) {
    edit->SetSel(end, end);
  } else {
    // Typing leaves no line of the list selected.
    combo->SetCurSel(-1);
    DialogAccess::setTextQuietly(control, text);
    combo->SetEditSel(end, end);
  }
  dialog.SendCommand(control.GetDlgCtrlID(), QxUiNotification::Changed);
}

void setCheck(CQxUiDialog& dialog, CQxUiWnd& control, const std::vector<int>& numbers) {
  if (auto* list = dynamic_cast<CQxUiCheckListBox*>(&control)) {
    if (numbers.size() != 2 || (numbers[1] != 0 && numbers[1] != 1)) {
      printLine(L"A check list box takes \"check ID LINE 0|1\".");
      return;
    }
    if (!validLine(control, numbers[0], list->GetCount())) return;
    list->SetFocus();
    // Clicking a line's box ticks it and selects the line.
    if (list->GetCheck(numbers[0]) != numbers[1]) {
      list->SetCheck(numbers[0], numbers[1]);
      dialog.SendCommand(list->GetDlgCtrlID(), QxUiNotification::CheckChanged);
    }
    if (list->GetControlStyle().multipleSelection) {
      list->SetSel(numbers[0], true);
      list->SetCaretIndex(numbers[0]);
    } else {
      list->SetCurSel(numbers[0]);
    }
    dialog.SendCommand(list->GetDlgCtrlID(), QxUiNotification::SelectionChanged);
    return;
  }
  auto* button = dynamic_cast<CQxUiButton*>(&control);
  const QxUiControlKind kind = control.GetKind();
  if (button == nullptr ||
      (kind != QxUiControlKind::CheckBox && kind != QxUiControlKind::RadioButton)) {
    wrongKind(control, L"check", L"check boxes, radio buttons and check list boxes");
    return;
  }
  if (numbers.size() != 1 || (numbers[0] != 0 && numbers[0] != 1)) {
    printLine(L"\"check\" takes the id and 0 or 1.");
    return;
  }
  if (kind == QxUiControlKind::RadioButton && numbers[0] == 0) {
    printLine(L"A radio button is cleared by checking another one of its group.");
    return;
  }
  if (button->GetCheck() == numbers[0]) return;
  pressButton(dialog, *button);
}

void selectLines(CQxUiDialog& dialog, CQxUiWnd& control, const std::vector<int>& lines) {
  if (auto* list = dynamic_cast<CQxUiListBox*>(&control)) {
    const bool multiple = list->GetControlStyle().multipleSelection;
    if (!multiple && lines.size() != 1) {
      printLine(controlName(control) + L" takes one line.");
      return;
    }
    for (int line : lines) {
      if (!validLine(control, line, list->GetCount())) return;
    }
    list->SetFocus();
    if (multiple) {
      list->SetSel(-1, false);
      for (int line : lines) list->SetSel(line, true);
      if (!lines.empty()) list->SetCaretIndex(lines.back());
    } else {
      list->SetCurSel(lines.front());
    }
    dialog.SendCommand(list->GetDlgCtrlID(), QxUiNotification::SelectionChanged);
    return;
  }
  auto* combo = dynamic_cast<CQxUiComboBox*>(&control);
  if (combo == nullptr) {
    wrongKind(control, L"select", L"list and combo boxes");
    return;
  }
  if (lines.size() != 1) {
    printLine(controlName(control) + L" takes one line.");
    return;
  }
  if (!validLine(control, lines.front(), combo->GetCount())) return;
  combo->SetFocus();
  combo->SetCurSel(lines.front());
  // Choosing a line from the open list ends the choice, then reports the change.
  dialog.SendCommand(combo->GetDlgCtrlID(), QxUiNotification::SelectionEnded);
  dialog.SendCommand(combo->GetDlgCtrlID(), QxUiNotification::SelectionChanged);
}

void click(CQxUiDialog& dialog, CQxUiWnd& control) {
  auto* button = dynamic_cast<CQxUiButton*>(&control);
  if (button == nullptr) {
    wrongKind(control, L"click", L"buttons, check boxes and radio buttons");
    return;
  }
  pressButton(dialog, *button);
}

void doubleClick(CQxUiDialog& dialog, CQxUiWnd& control, int line) {
  auto* list = dynamic_cast<CQxUiListBox*>(&control);
  if (list == nullptr) {
    wrongKind(control, L"dblclick", L"list boxes");
    return;
  }
  if (!validLine(control, line, list->GetCount())) return;
  // The first click of the two selects the line (in a multiple-selection list it
  // joins the selection).
  list->SetFocus();
  if (list->GetControlStyle().multipleSelection) {
    list->SetSel(line, true);
    list->SetCaretIndex(line);
  } else {
    list->SetCurSel(line);
  }
  dialog.SendCommand(list->GetDlgCtrlID(), QxUiNotification::SelectionChanged);
  if (DialogAccess::ended(dialog)) return;
  QxUiRect rect;
  list->GetItemRect(line, rect);
  list->OnLeftButtonDoubleClick({rect.left + rect.Width() / 2, rect.top + rect.Height() / 2});
}

void rightClick(CQxUiDialog& dialog, CQxUiWnd& control) {
  const unsigned menusBefore = popupMenusShown();
  control.OnRightButtonDown(centreOf(control));
  DialogAccess::handlePosted(dialog);
  if (popupMenusShown() == menusBefore && !DialogAccess::ended(dialog)) {
    printLine(L"No menu opens on " + controlName(control) + L".");
  }
}

void pressKey(CQxUiDialog& dialog, const std::wstring& key) {
  std::wstring name = key;
  std::transform(name.begin(), name.end(), name.begin(),
                 [](wchar_t c) { return static_cast<wchar_t>(std::towupper(c)); });
  if (name == L"ENTER") {
    // Enter presses the focused push button, else the default one.
    CQxUiWnd* focus = dialog.GetFocus();
    unsigned id = dialog.GetDefID() != 0 ? dialog.GetDefID() : kQxUiIdOk;
    if (focus != nullptr && isPushButton(focus->GetKind())) id = focus->GetDlgCtrlID();
    const CQxUiWnd* target = dialog.GetDlgItem(id);
    if (target != nullptr && !target->IsWindowEnabled()) {
      printLine(controlName(*target) + L" is disabled.");
      return;
    }
    dialog.SendCommand(id, QxUiNotification::Clicked);
    return;
  }
  if (name == L"ESC" || name == L"ESCAPE") {
    dialog.SendCommand(kQxUiIdCancel, QxUiNotification::Clicked);
    return;
  }
  const std::wstring prefix = L"ALT+";
  const bool alt = name.size() == prefix.size() + 1 && name.starts_with(prefix) &&
                   std::iswalnum(static_cast<wint_t>(name.back()));
  if (!alt) {
    printLine(L"Keys are ALT+LETTER, ENTER and ESC.");
    return;
  }
  const wchar_t letter = name.back();
  // The dialog's code sees the key first, as it does on a screen.
  if (dialog.SendMessage(kQxUiMessageSystemKeyDown, letter, kQxUiAltHeld) != 0) return;
  if (DialogAccess::ended(dialog)) return;
  if (!useAccessKey(dialog, letter)) {
    printLine(L"No control answers to Alt+" + std::wstring(1, letter) + L".");
  }
}

}  // namespace korva::ui
