// Windows, edits and buttons.
#include <algorithm>

#include "qx_ui_dialog.h"
#include "ui/dialog_access.h"

using korva::ui::DialogAccess;

std::intptr_t qxuiPackPoint(QxUiPoint point) {
  const auto low = static_cast<std::uint16_t>(point.x);
  const auto high = static_cast<std::uint16_t>(point.y);
  return static_cast<std::intptr_t>(low | (static_cast<std::uint32_t>(high) << 16));
}

QxUiPoint qxuiUnpackPoint(std::intptr_t packed) {
  const auto bits = static_cast<std::uint32_t>(packed);
  return {static_cast<std::int16_t>(bits & 0xFFFF), static_cast<std::int16_t>(bits >> 16)};
}

CQxUiWnd::~CQxUiWnd() = default;

void CQxUiWnd::SetWindowText(const std::wstring& text) {
  text_ = text;
}

std::wstring CQxUiWnd::GetWindowText() const {
  return text_;
}

void CQxUiWnd::SetFocus() {
  if (created_ && parent_ != nullptr) DialogAccess::moveFocus(*parent_, this);
}

void CQxUiWnd::MoveWindow(int x, int y, int width, int height) {
  rect_ = {x, y, x + width, y + height};
}

QxUiRect CQxUiWnd::GetWindowRect() const {
  QxUiRect rect = rect_;
  if (parent_ != nullptr) {
    const QxUiRect origin = parent_->GetWindowRect();
    rect.left += origin.left;
    rect.right += origin.left;
    rect.top += origin.top;
    rect.bottom += origin.top;
  }
  return rect;
}

QxUiRect CQxUiWnd::GetClientRect() const {
  return {0, 0, rect_.Width(), rect_.Height()};
}

void CQxUiWnd::ClientToScreen(QxUiPoint& point) const {
  const QxUiRect rect = GetWindowRect();
  point.x += rect.left;
  point.y += rect.top;
}

void CQxUiWnd::ScreenToClient(QxUiPoint& point) const {
  const QxUiRect rect = GetWindowRect();
  point.x -= rect.left;
  point.y -= rect.top;
}

void CQxUiWnd::OnRightButtonDown(QxUiPoint point) {
  if (!created_ || parent_ == nullptr) return;
  ClientToScreen(point);
  parent_->SendMessage(kQxUiMessageContextMenu, id_, qxuiPackPoint(point));
}

void CQxUiWnd::OnLeftButtonDoubleClick(QxUiPoint) {}

void CQxUiWnd::OnReflectedNotification(QxUiNotification) {}

void CQxUiWnd::TakeContents(CQxUiWnd&) {}

void CQxUiWnd::NotifyParent(QxUiNotification code) {
  if (!created_ || parent_ == nullptr) return;
  // List boxes notify only with their notify style, as on a screen; other controls
  // always do.
  const bool list = kind_ == QxUiControlKind::ListBox || kind_ == QxUiControlKind::CheckListBox;
  if (list && !style_.notify) return;
  parent_->SendCommand(id_, code);
}

// Edits.

void CQxUiEdit::SetWindowText(const std::wstring& text) {
  CQxUiWnd::SetWindowText(text);
  selectionStart_ = selectionEnd_ = 0;
  NotifyParent(QxUiNotification::Changed);
}

void CQxUiEdit::LimitText(int maxCharacters) {
  limit_ = maxCharacters <= 0 ? kLargestLimit : maxCharacters;
}

void CQxUiEdit::SetSel(int start, int end) {
  const int length = GetWindowTextLength();
  if (start < 0) {
    selectionStart_ = selectionEnd_;  // no selection; the caret stays
    return;
  }
  if (end < 0 || end > length) end = length;
  start = std::min(start, length);
  selectionStart_ = std::min(start, end);
  selectionEnd_ = std::max(start, end);
}

void CQxUiEdit::GetSel(int& start, int& end) const {
  start = selectionStart_;
  end = selectionEnd_;
}

void CQxUiEdit::ReplaceSel(const std::wstring& text) {
  std::wstring whole = GetWindowText();
  const auto start = static_cast<size_t>(std::min<int>(selectionStart_, whole.size()));
  const auto end = static_cast<size_t>(std::min<int>(selectionEnd_, whole.size()));
  whole.replace(start, end - start, text);
  DialogAccess::setTextQuietly(*this, whole);
  selectionStart_ = selectionEnd_ = static_cast<int>(start + text.size());
  NotifyParent(QxUiNotification::Changed);
}

void CQxUiEdit::OnCreated() {
  readOnly_ = GetControlStyle().readOnly;
  limit_ = kLargestLimit;
  selectionStart_ = selectionEnd_ = 0;
}

void CQxUiEdit::TakeContents(CQxUiWnd& from) {
  if (auto* edit = dynamic_cast<CQxUiEdit*>(&from)) {
    limit_ = edit->limit_;
    selectionStart_ = edit->selectionStart_;
    selectionEnd_ = edit->selectionEnd_;
    readOnly_ = edit->readOnly_;
  }
}

// Buttons.

void CQxUiButton::TakeContents(CQxUiWnd& from) {
  if (auto* button = dynamic_cast<CQxUiButton*>(&from)) check_ = button->check_;
}
