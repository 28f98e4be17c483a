#include "ui/dialog_show.h"

#include "api/quoted_text.h"

namespace korva::ui {
namespace {

constexpr unsigned kNoId = 0xFFFF;

std::wstring checkWord(int state) {
  switch (state) {
    case 0:
      return L"unchecked";
    case 1:
      return L"checked";
    default:
      return L"indeterminate";
  }
}

std::wstring checkMark(int state) {
  switch (state) {
    case 0:
      return L"[ ] ";
    case 1:
      return L"[x] ";
    default:
      return L"[-] ";
  }
}

std::wstring joined(const std::vector<int>& numbers) {
  if (numbers.empty()) return L"none";
  std::wstring text;
  for (int number : numbers) {
    if (!text.empty()) text += L',';
    text += std::to_wstring(number);
  }
  return text;
}

std::wstring itemsText(const std::vector<QxUiListItem>& items, bool withChecks) {
  if (items.empty()) return L" items: none";
  std::wstring text = L" items: ";
  for (size_t index = 0; index < items.size(); ++index) {
    if (index > 0) text += L", ";
    if (withChecks) text += checkMark(items[index].check);
    text += quoted(items[index].text);
  }
  return text;
}

std::wstring selectionRange(int start, int end) {
  if (start == end) return {};
  return L" selected=" + std::to_wstring(start) + L"-" + std::to_wstring(end);
}

}  // namespace

std::wstring quoted(const std::wstring& text) {
  return api::quotedText(text);
}

std::wstring kindWord(QxUiControlKind kind) {
  switch (kind) {
    case QxUiControlKind::Static:
      return L"static";
    case QxUiControlKind::Edit:
      return L"edit";
    case QxUiControlKind::Button:
    case QxUiControlKind::DefaultButton:
      return L"button";
    case QxUiControlKind::CheckBox:
      return L"check";
    case QxUiControlKind::RadioButton:
      return L"radio";
    case QxUiControlKind::ListBox:
      return L"list";
    case QxUiControlKind::ComboBox:
      return L"combo";
    case QxUiControlKind::CheckListBox:
      return L"checklist";
    case QxUiControlKind::OwnerDrawnButton:
      return L"owner-drawn";
    case QxUiControlKind::GroupBox:
      return L"group";
    case QxUiControlKind::Icon:
      return L"icon";
    case QxUiControlKind::Dialog:
      return L"dialog";
  }
  return L"control";
}

std::wstring describeControl(const CQxUiDialog& dialog, const CQxUiWnd& control) {
  const unsigned id = control.GetDlgCtrlID();
  const QxUiControlKind kind = control.GetKind();
  std::wstring line = L"  " + (id == kNoId ? std::wstring(L"-") : std::to_wstring(id)) + L" " +
                      kindWord(kind) + L" " + quoted(control.GetWindowText());
  line += control.IsWindowEnabled() ? L" enabled" : L" disabled";
  if (!control.IsWindowVisible()) line += L" hidden";

  if (const auto* edit = dynamic_cast<const CQxUiEdit*>(&control)) {
    if (edit->IsReadOnly()) line += L" read-only";
    if (edit->GetLimitText() != CQxUiEdit::kLargestLimit) {
      line += L" limit=" + std::to_wstring(edit->GetLimitText());
    }
    int start = 0;
    int end = 0;
    edit->GetSel(start, end);
    line += selectionRange(start, end);
  }
  if (const auto* button = dynamic_cast<const CQxUiButton*>(&control)) {
    if (kind == QxUiControlKind::CheckBox || kind == QxUiControlKind::RadioButton) {
      line += L" " + checkWord(button->GetCheck());
    } else if (id == dialog.GetDefID()) {
      line += L" default";
    }
  }
  if (dialog.GetFocus() == &control) line += L" focus";

  if (const auto* list = dynamic_cast<const CQxUiListBox*>(&control)) {
    line += L" selection=" + joined(list->GetSelItems());
    line += itemsText(list->Items(), kind == QxUiControlKind::CheckListBox);
  }
  if (const auto* combo = dynamic_cast<const CQxUiComboBox*>(&control)) {
    if (combo->GetControlStyle().editable) {
      int start = 0;
      int end = 0;
      combo->GetEditSel(start, end);
      line += selectionRange(start, end);
    }
    const int current = combo->GetCurSel();
    line += L" selection=" + (current < 0 ? std::wstring(L"none") : std::to_wstring(current));
    line += itemsText(combo->Items(), false);
  }
  return line;
}

std::wstring describeDialog(const CQxUiDialog& dialog) {
  const QxUiRect rect = dialog.GetPlacement();
  std::wstring text =
      L"Dialog " + std::to_wstring(dialog.GetTemplateId()) + L" " + quoted(dialog.GetWindowText());
  if (dialog.GetIcon() != 0) text += L" icon=" + std::to_wstring(dialog.GetIcon());
  text += L" size=" + std::to_wstring(rect.Width()) + L"x" + std::to_wstring(rect.Height());
  for (const CQxUiWnd* control : dialog.GetControls()) {
    text += L"\n" + describeControl(dialog, *control);
  }
  return text;
}

}  // namespace korva::ui
