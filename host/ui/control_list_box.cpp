// List boxes and check list boxes.
#include <algorithm>

#include "qx_ui_controls.h"
#include "ui/control_items.h"

using namespace korva::ui;

int CQxUiListBox::AddString(const std::wstring& text) {
  const int index = addItem(items_, text, GetControlStyle().sorted);
  current_ = indexAfterInsertion(current_, index);
  if (caret_ >= 0) caret_ = indexAfterInsertion(caret_, index);
  return index;
}

int CQxUiListBox::InsertString(int index, const std::wstring& text) {
  const int inserted = insertItem(items_, index, text);
  if (inserted == kQxUiListError) return kQxUiListError;
  if (current_ >= 0) current_ = indexAfterInsertion(current_, inserted);
  if (caret_ >= 0) caret_ = indexAfterInsertion(caret_, inserted);
  return inserted;
}

int CQxUiListBox::DeleteString(int index) {
  if (!Valid(index)) return kQxUiListError;
  items_.erase(items_.begin() + index);
  current_ = indexAfterRemoval(current_, index);
  if (caret_ > index) --caret_;
  caret_ = std::min(caret_, GetCount() - 1);
  top_ = std::max(0, std::min(top_, GetCount() - 1));
  return GetCount();
}

void CQxUiListBox::ResetContent() {
  items_.clear();
  current_ = caret_ = -1;
  top_ = 0;
}

int CQxUiListBox::GetText(int index, std::wstring& text) const {
  if (!Valid(index)) return kQxUiListError;
  text = items_[static_cast<size_t>(index)].text;
  return static_cast<int>(text.size());
}

std::wstring CQxUiListBox::GetText(int index) const {
  return Valid(index) ? items_[static_cast<size_t>(index)].text : std::wstring();
}

int CQxUiListBox::GetTextLen(int index) const {
  return Valid(index) ? static_cast<int>(items_[static_cast<size_t>(index)].text.size())
                      : kQxUiListError;
}

int CQxUiListBox::SetItemData(int index, std::uintptr_t data) {
  if (!Valid(index)) return kQxUiListError;
  items_[static_cast<size_t>(index)].data = data;
  return 0;
}

std::uintptr_t CQxUiListBox::GetItemData(int index) const {
  return Valid(index) ? items_[static_cast<size_t>(index)].data : 0;
}

int CQxUiListBox::SetItemDataPtr(int index, void* data) {
  return SetItemData(index, reinterpret_cast<std::uintptr_t>(data));
}

void* CQxUiListBox::GetItemDataPtr(int index) const {
  return reinterpret_cast<void*>(GetItemData(index));
}

int CQxUiListBox::GetCurSel() const {
  return Multiple() ? caret_ : current_;
}

int CQxUiListBox::SetCurSel(int index) {
  if (Multiple()) return kQxUiListError;
  if (index == -1) {
    current_ = -1;
    return kQxUiListError;
  }
  if (!Valid(index)) return kQxUiListError;
  current_ = caret_ = index;
  return index;
}

int CQxUiListBox::GetSel(int index) const {
  if (!Valid(index)) return kQxUiListError;
  if (Multiple()) return items_[static_cast<size_t>(index)].selected ? 1 : 0;
  return index == current_ ? 1 : 0;
}

int CQxUiListBox::SetSel(int index, bool select) {
  if (!Multiple()) return kQxUiListError;
  if (index == -1) {
    for (QxUiListItem& item : items_) item.selected = select;
    return 0;
  }
  if (!Valid(index)) return kQxUiListError;
  items_[static_cast<size_t>(index)].selected = select;
  return 0;
}

int CQxUiListBox::GetSelCount() const {
  if (!Multiple()) return kQxUiListError;
  return static_cast<int>(std::count_if(items_.begin(), items_.end(),
                                        [](const QxUiListItem& item) { return item.selected; }));
}

int CQxUiListBox::GetSelItems(int maxItems, int* indexes) const {
  if (!Multiple()) return kQxUiListError;
  int found = 0;
  for (int index = 0; index < GetCount() && found < maxItems; ++index) {
    if (items_[static_cast<size_t>(index)].selected) indexes[found++] = index;
  }
  return found;
}

std::vector<int> CQxUiListBox::GetSelItems() const {
  std::vector<int> indexes;
  if (Multiple()) {
    for (int index = 0; index < GetCount(); ++index) {
      if (items_[static_cast<size_t>(index)].selected) indexes.push_back(index);
    }
  } else if (current_ >= 0) {
    indexes.push_back(current_);
  }
  return indexes;
}

int CQxUiListBox::SelItemRange(bool select, int first, int last) {
  if (!Multiple()) return kQxUiListError;
  if (first > last) std::swap(first, last);
  first = std::max(first, 0);
  last = std::min(last, GetCount() - 1);
  for (int index = first; index <= last; ++index) {
    items_[static_cast<size_t>(index)].selected = select;
  }
  return 0;
}

int CQxUiListBox::SetCaretIndex(int index) {
  if (!Valid(index)) return kQxUiListError;
  caret_ = index;
  return 0;
}

int CQxUiListBox::SetTopIndex(int index) {
  if (!Valid(index)) return kQxUiListError;
  top_ = index;
  return 0;
}

int CQxUiListBox::FindString(int startAfter, const std::wstring& text) const {
  return findItem(items_, startAfter, text, false);
}

int CQxUiListBox::FindStringExact(int startAfter, const std::wstring& text) const {
  return findItem(items_, startAfter, text, true);
}

int CQxUiListBox::SelectString(int startAfter, const std::wstring& text) {
  if (Multiple()) return kQxUiListError;
  const int index = FindString(startAfter, text);
  return index == kQxUiListError ? kQxUiListError : SetCurSel(index);
}

int CQxUiListBox::GetItemRect(int index, QxUiRect& rect) const {
  if (!Valid(index)) return kQxUiListError;
  const int top = (index - top_) * kItemHeight;
  rect = {0, top, GetClientRect().Width(), top + kItemHeight};
  return 0;
}

int CQxUiListBox::ItemFromPoint(QxUiPoint point, bool& outside) const {
  outside = true;
  if (items_.empty()) return 0;
  if (point.y < 0) return top_;
  const int index = top_ + point.y / kItemHeight;
  if (index >= GetCount()) return GetCount() - 1;
  outside = false;
  return index;
}

void CQxUiListBox::OnLeftButtonDoubleClick(QxUiPoint) {
  NotifyParent(QxUiNotification::DoubleClicked);
}

void CQxUiListBox::TakeContents(CQxUiWnd& from) {
  if (auto* list = dynamic_cast<CQxUiListBox*>(&from)) {
    items_ = list->items_;
    current_ = list->current_;
    caret_ = list->caret_;
    top_ = list->top_;
  }
}

// Check list boxes.

int CQxUiCheckListBox::GetCheck(int index) const {
  return Valid(index) ? items_[static_cast<size_t>(index)].check : kQxUiListError;
}

int CQxUiCheckListBox::SetCheck(int index, int state) {
  if (!Valid(index)) return kQxUiListError;
  items_[static_cast<size_t>(index)].check = state;
  return 0;
}
