// Combo boxes and the colour combo box.
#include <algorithm>
#include <array>

#include "qx_ui_controls.h"
#include "qx_ui_services.h"
#include "ui/control_items.h"

using namespace korva::ui;

void CQxUiComboBox::SetWindowText(const std::wstring& text) {
  if (GetControlStyle().editable) {
    CQxUiWnd::SetWindowText(text);
    selectionStart_ = selectionEnd_ = 0;
    return;
  }
  const int index = FindStringExact(-1, text);
  if (index != kQxUiListError) SetCurSel(index);
}

std::wstring CQxUiComboBox::GetWindowText() const {
  if (GetControlStyle().editable) return CQxUiWnd::GetWindowText();
  return Valid(current_) ? items_[static_cast<size_t>(current_)].text : std::wstring();
}

int CQxUiComboBox::AddString(const std::wstring& text) {
  const int index = addItem(items_, text, GetControlStyle().sorted);
  current_ = indexAfterInsertion(current_, index);
  return index;
}

int CQxUiComboBox::InsertString(int index, const std::wstring& text) {
  const int inserted = insertItem(items_, index, text);
  if (inserted == kQxUiListError) return kQxUiListError;
  if (current_ >= 0) current_ = indexAfterInsertion(current_, inserted);
  return inserted;
}

int CQxUiComboBox::DeleteString(int index) {
  if (!Valid(index)) return kQxUiListError;
  items_.erase(items_.begin() + index);
  current_ = indexAfterRemoval(current_, index);
  return GetCount();
}

void CQxUiComboBox::ResetContent() {
  items_.clear();
  current_ = -1;
  if (GetControlStyle().editable) CQxUiWnd::SetWindowText(L"");
}

int CQxUiComboBox::GetLBText(int index, std::wstring& text) const {
  if (!Valid(index)) return kQxUiListError;
  text = items_[static_cast<size_t>(index)].text;
  return static_cast<int>(text.size());
}

std::wstring CQxUiComboBox::GetLBText(int index) const {
  return Valid(index) ? items_[static_cast<size_t>(index)].text : std::wstring();
}

int CQxUiComboBox::GetLBTextLen(int index) const {
  return Valid(index) ? static_cast<int>(items_[static_cast<size_t>(index)].text.size())
                      : kQxUiListError;
}

int CQxUiComboBox::SetItemData(int index, std::uintptr_t data) {
  if (!Valid(index)) return kQxUiListError;
  items_[static_cast<size_t>(index)].data = data;
  return 0;
}

std::uintptr_t CQxUiComboBox::GetItemData(int index) const {
  return Valid(index) ? items_[static_cast<size_t>(index)].data : 0;
}

int CQxUiComboBox::SetItemDataPtr(int index, void* data) {
  return SetItemData(index, reinterpret_cast<std::uintptr_t>(data));
}

void* CQxUiComboBox::GetItemDataPtr(int index) const {
  return reinterpret_cast<void*>(GetItemData(index));
}

int CQxUiComboBox::SetCurSel(int index) {
  if (index != -1 && !Valid(index)) return kQxUiListError;
  previous_ = current_;
  current_ = index;
  // The edit shows the chosen line, and is cleared with the selection.
  if (GetControlStyle().editable) {
    CQxUiWnd::SetWindowText(index == -1 ? std::wstring() : items_[static_cast<size_t>(index)].text);
    selectionStart_ = 0;
    selectionEnd_ = static_cast<int>(CQxUiWnd::GetWindowText().size());
  }
  return index == -1 ? kQxUiListError : index;
}

int CQxUiComboBox::FindString(int startAfter, const std::wstring& text) const {
  return findItem(items_, startAfter, text, false);
}

int CQxUiComboBox::FindStringExact(int startAfter, const std::wstring& text) const {
  return findItem(items_, startAfter, text, true);
}

int CQxUiComboBox::SelectString(int startAfter, const std::wstring& text) {
  const int index = FindString(startAfter, text);
  return index == kQxUiListError ? kQxUiListError : SetCurSel(index);
}

void CQxUiComboBox::LimitText(int maxCharacters) {
  limit_ = maxCharacters <= 0 ? CQxUiEdit::kLargestLimit : maxCharacters;
}

void CQxUiComboBox::SetEditSel(int start, int end) {
  const int length = static_cast<int>(GetWindowText().size());
  if (start < 0) {
    selectionStart_ = selectionEnd_;
    return;
  }
  if (end < 0 || end > length) end = length;
  start = std::min(start, length);
  selectionStart_ = std::min(start, end);
  selectionEnd_ = std::max(start, end);
}

void CQxUiComboBox::GetEditSel(int& start, int& end) const {
  start = selectionStart_;
  end = selectionEnd_;
}

void CQxUiComboBox::OnCreated() {
  items_.clear();
  current_ = previous_ = -1;
  limit_ = CQxUiEdit::kLargestLimit;
  selectionStart_ = selectionEnd_ = 0;
}

void CQxUiComboBox::OnLeftButtonDoubleClick(QxUiPoint) {
  NotifyParent(QxUiNotification::DoubleClicked);
}

void CQxUiComboBox::TakeContents(CQxUiWnd& from) {
  if (auto* combo = dynamic_cast<CQxUiComboBox*>(&from)) {
    items_ = combo->items_;
    current_ = combo->current_;
    previous_ = combo->previous_;
    limit_ = combo->limit_;
    selectionStart_ = combo->selectionStart_;
    selectionEnd_ = combo->selectionEnd_;
  }
}

// The colour combo box.

namespace {

struct NamedColor {
  int index;
  const wchar_t* name;
};
constexpr std::array<NamedColor, 9> kStandardColors = {{{256, L"ByLayer"},
                                                        {0, L"ByBlock"},
                                                        {1, L"Red"},
                                                        {2, L"Yellow"},
                                                        {3, L"Green"},
                                                        {4, L"Cyan"},
                                                        {5, L"Blue"},
                                                        {6, L"Magenta"},
                                                        {7, L"White"}}};

}  // namespace

void CQxUiColorComboBox::OnCreated() {
  CQxUiComboBox::OnCreated();
  for (const NamedColor& color : kStandardColors) {
    SetItemData(InsertString(-1, color.name), static_cast<std::uintptr_t>(color.index));
  }
  SetItemData(InsertString(-1, L"Select colour..."), kAskForColor);
}

int CQxUiColorComboBox::AddColorToMRU(int colorIndex) {
  if (colorIndex < 0 || colorIndex > 256) return kQxUiListError;
  const int found = FindItemByColorIndex(colorIndex);
  if (found >= 0) return found;
  // Ahead of the line that asks for a colour, when there is one.
  int place = GetCount();
  if (place > 0 && GetItemData(place - 1) == kAskForColor) --place;
  const int index = InsertString(place, L"Colour " + std::to_wstring(colorIndex));
  SetItemData(index, static_cast<std::uintptr_t>(colorIndex));
  return index;
}

int CQxUiColorComboBox::FindItemByColorIndex(int colorIndex) const {
  for (int index = 0; index < GetCount(); ++index) {
    if (GetItemData(index) == static_cast<std::uintptr_t>(colorIndex)) return index;
  }
  return -1;
}

int CQxUiColorComboBox::GetCurrentItemColorIndex() const {
  const int index = GetCurSel();
  if (index < 0 || GetItemData(index) == kAskForColor) return -1;
  return static_cast<int>(GetItemData(index));
}

int CQxUiColorComboBox::SetCurrentItemColorIndex(int colorIndex) {
  const int index = AddColorToMRU(colorIndex);
  return index == kQxUiListError ? kQxUiListError : SetCurSel(index);
}

void CQxUiColorComboBox::OnReflectedNotification(QxUiNotification code) {
  if (code != QxUiNotification::SelectionEnded) return;
  const int chosen = GetCurSel();
  if (chosen < 0 || GetItemData(chosen) != kAskForColor) return;
  const int previous = PreviousSelection();
  int color = previous >= 0 ? static_cast<int>(GetItemData(previous)) : 7;
  if (qxedSetColorDialog(&color, 1, 7) == 1) {
    SetCurrentItemColorIndex(color);
  } else {
    SetCurSel(previous);
  }
}

void CQxUiColorComboBox::TakeContents(CQxUiWnd& from) {
  CQxUiComboBox::TakeContents(from);
  // A combo box the dialog made holds no colours yet.
  if (GetCount() == 0) OnCreated();
}
