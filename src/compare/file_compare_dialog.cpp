#include "compare/file_compare_dialog.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

#include "frame/string_helpers.h"

namespace {

constexpr unsigned kDialogId = 3179;
constexpr unsigned kDialogIcon = 2387;
constexpr unsigned kOldPathEdit = 3180;
constexpr unsigned kNewPathEdit = 3181;
constexpr unsigned kBrowseOld = 3182;
constexpr unsigned kBrowseNew = 3183;
constexpr unsigned kExpandButton = 3184;
constexpr unsigned kCollapsedMarker = 3185;
constexpr unsigned kFirstColorButton = 3186;  // to 3191, in the working values' order
constexpr unsigned kApplyButton = 3192;
constexpr unsigned kResetButton = 3193;
constexpr unsigned kPropertyList = 3194;
constexpr unsigned kFirstVisibleCheck = 3196;  // to 3201
constexpr unsigned kLogPathEdit = 3227;
constexpr unsigned kBrowseLog = 3228;
constexpr unsigned kLogCheck = 3229;
constexpr unsigned kMissingFile = 3202;
constexpr unsigned kSameFile = 3204;
constexpr unsigned kFirstPropertyCaption = 3206;  // to 3212, by bit
constexpr unsigned kPathTooLong = 3213;
constexpr unsigned kColorCaption = 3214;
constexpr unsigned kLogNotWritable = 3240;
constexpr int kPropertyCount = 7;
constexpr std::size_t kLongestPath = 260;

// Whether the options are shown; kept from one FCMP to the next while korva runs.
bool expanded = false;

bool PathExists(const std::wstring& path) {
  std::error_code error;
  return !path.empty() && std::filesystem::exists(path, error);
}

// A log path can be written when a file can be made there; the test file goes again.
bool CanWriteLog(const std::wstring& path) {
  const std::string narrow = std::filesystem::path(path).string();
  std::FILE* file = std::fopen(narrow.c_str(), "w");
  if (!file) return false;
  std::fclose(file);
  std::remove(narrow.c_str());
  return true;
}

}  // namespace

CFileCompareDlg::CFileCompareDlg() : CQxUiDialog(kDialogId) {
  SetIcon(kDialogIcon);
  HandleCommand(kBrowseOld, QxUiNotification::Clicked, [this] { Browse(kOldPathEdit, L"dxf", 0); });
  HandleCommand(kBrowseNew, QxUiNotification::Clicked, [this] { Browse(kNewPathEdit, L"dxf", 0); });
  HandleCommand(kBrowseLog, QxUiNotification::Clicked,
                [this] { Browse(kLogPathEdit, L"csv", QXED_FILE_SAVE); });
  HandleCommandRange(kFirstColorButton, kFirstColorButton + 5, QxUiNotification::Clicked,
                     [this](unsigned id) { ChooseColor(id); });
  HandleCommandRange(kFirstVisibleCheck, kFirstVisibleCheck + 5, QxUiNotification::Clicked,
                     [this](unsigned) { EnableApply(true); });
  auto propertyTouched = [this] {
    auto* list = static_cast<CQxUiCheckListBox*>(GetDlgItem(kPropertyList));
    const int line = list->GetCurSel();
    if (line < 0 || line >= kPropertyCount) return;
    const bool stored = (compareFlag_ & (1 << line)) != 0;
    if ((list->GetCheck(line) == 1) != stored) EnableApply(true);
  };
  HandleCommand(kPropertyList, QxUiNotification::SelectionChanged, propertyTouched);
  HandleCommand(kPropertyList, QxUiNotification::CheckChanged, propertyTouched);
  HandleCommand(kLogCheck, QxUiNotification::Clicked, [this] { UpdateLogControls(); });
  HandleCommand(kExpandButton, QxUiNotification::Clicked, [this] {
    expanded = !expanded;
    FitHeight();
  });
  HandleCommand(kApplyButton, QxUiNotification::Clicked, [this] { ApplyOptions(); });
  HandleCommand(kResetButton, QxUiNotification::Clicked, [this] { ResetOptions(); });
  HandleMessage(kQxUiMessageSystemKeyDown, [this](std::uintptr_t key, std::intptr_t flags) {
    return (flags & kQxUiAltHeld) ? OnAltKey(key) : 0;
  });
}

bool CFileCompareDlg::OnInitDialog() {
  CQxUiDialog::OnInitDialog();
  EnableApply(false);
  fullHeight_ = GetWindowRect().Height();
  // The marker's bottom edge is where the collapsed dialog ends.
  const int frame = GetWindowRect().Height() - GetClientRect().Height();
  collapsedHeight_ = GetDlgItem(kCollapsedMarker)->GetPlacement().bottom + frame;
  FitHeight();
  auto* list = static_cast<CQxUiCheckListBox*>(GetDlgItem(kPropertyList));
  for (int bit = 0; bit < kPropertyCount; ++bit) {
    list->AddString(LoadResourceString(kFirstPropertyCaption + bit));
  }
  options_.Load();
  TakeWorkingValues();
  ShowWorkingValues();
  UpdateLogControls();
  SetDefID(kBrowseOld);
  return true;
}

void CFileCompareDlg::TakeWorkingValues() {
  colors_ = {options_.GetOldDifferentColor(), options_.GetOldModifiedColor(),
             options_.GetOldSameColor(),      options_.GetNewDifferentColor(),
             options_.GetNewModifiedColor(),  options_.GetNewSameColor()};
  visible_ = {options_.GetOldDifferentVisible(), options_.GetOldModifiedVisible(),
              options_.GetOldSameVisible(),      options_.GetNewDifferentVisible(),
              options_.GetNewModifiedVisible(),  options_.GetNewSameVisible()};
  compareFlag_ = options_.GetCompareFlag();
}

void CFileCompareDlg::ShowWorkingValues() {
  for (unsigned i = 0; i < 6; ++i) ShowColor(kFirstColorButton + i);
  for (unsigned i = 0; i < 6; ++i) CheckDlgButton(kFirstVisibleCheck + i, visible_[i] ? 1 : 0);
  auto* list = static_cast<CQxUiCheckListBox*>(GetDlgItem(kPropertyList));
  for (int bit = 0; bit < kPropertyCount; ++bit) {
    list->SetCheck(bit, (compareFlag_ & (1 << bit)) ? 1 : 0);
  }
}

void CFileCompareDlg::Browse(unsigned editId, const wchar_t* extension, int flags) {
  ResultBuffer* result = nullptr;
  const std::wstring title = GetWindowText();
  if (qxedGetFileNavDialog(title.c_str(), GetDlgItemText(editId).c_str(), extension, nullptr, flags,
                           &result) == RTNORM &&
      result && result->type == RTSTR && result->value.rstring) {
    const std::wstring path = result->value.rstring;
    if (path.size() >= kLongestPath) {
      Tell(kPathTooLong);
    } else {
      SetDlgItemText(editId, path);
    }
  }
  qxutRelRb(result);
}

void CFileCompareDlg::ChooseColor(unsigned buttonId) {
  std::int32_t& color = colors_[buttonId - kFirstColorButton];
  int chosen = color;
  if (qxedSetColorDialog(&chosen, 0, 7) != 1 || chosen == color) return;
  color = chosen;
  EnableApply(true);
  ShowColor(buttonId);
}

void CFileCompareDlg::ShowColor(unsigned buttonId) {
  // Without a screen the swatch is told in the button's text: the caption and the index.
  SetDlgItemText(buttonId, LoadResourceString(kColorCaption) + L" " +
                               std::to_wstring(colors_[buttonId - kFirstColorButton]));
}

void CFileCompareDlg::ApplyOptions() {
  for (unsigned i = 0; i < 6; ++i) visible_[i] = IsDlgButtonChecked(kFirstVisibleCheck + i);
  auto* list = static_cast<CQxUiCheckListBox*>(GetDlgItem(kPropertyList));
  compareFlag_ = 0;
  for (int bit = 0; bit < kPropertyCount; ++bit) {
    if (list->GetCheck(bit) == 1) compareFlag_ |= 1 << bit;
  }
  options_.SetOldDifferentColor(colors_[0]);
  options_.SetOldModifiedColor(colors_[1]);
  options_.SetOldSameColor(colors_[2]);
  options_.SetNewDifferentColor(colors_[3]);
  options_.SetNewModifiedColor(colors_[4]);
  options_.SetNewSameColor(colors_[5]);
  options_.SetOldDifferentVisible(visible_[0]);
  options_.SetOldModifiedVisible(visible_[1]);
  options_.SetOldSameVisible(visible_[2]);
  options_.SetNewDifferentVisible(visible_[3]);
  options_.SetNewModifiedVisible(visible_[4]);
  options_.SetNewSameVisible(visible_[5]);
  options_.SetCompareFlag(compareFlag_);
  options_.Save();
  EnableApply(false);
}

void CFileCompareDlg::ResetOptions() {
  // Stored at once: the defaults hold even if the dialog is then cancelled.
  options_.SetDefaults();
  options_.Save();
  TakeWorkingValues();
  ShowWorkingValues();
  EnableApply(false);
}

void CFileCompareDlg::UpdateLogControls() {
  const bool logging = IsDlgButtonChecked(kLogCheck) == 1;
  GetDlgItem(kLogPathEdit)->EnableWindow(logging);
  GetDlgItem(kBrowseLog)->EnableWindow(logging);
}

void CFileCompareDlg::FitHeight() {
  const QxUiRect rect = GetWindowRect();
  MoveWindow(rect.left, rect.top, rect.Width(), expanded ? fullHeight_ : collapsedHeight_);
}

void CFileCompareDlg::SelectAndFocus(unsigned editId) {
  CQxUiWnd* edit = GetDlgItem(editId);
  static_cast<CQxUiEdit*>(edit)->SetSel(0, -1);
  GotoDlgCtrl(edit);
}

void CFileCompareDlg::EnableApply(bool enable) {
  GetDlgItem(kApplyButton)->EnableWindow(enable);
}

std::intptr_t CFileCompareDlg::OnAltKey(std::uintptr_t key) {
  switch (key) {
    case L'O':
      SelectAndFocus(kOldPathEdit);
      return 1;
    case L'N':
      SelectAndFocus(kNewPathEdit);
      return 1;
    case L'E':
    case L'e':
      CheckDlgButton(kLogCheck, IsDlgButtonChecked(kLogCheck) == 1 ? 0 : 1);
      UpdateLogControls();
      if (IsDlgButtonChecked(kLogCheck) == 1) SelectAndFocus(kLogPathEdit);
      return 1;
    default:
      return 0;
  }
}

void CFileCompareDlg::Tell(unsigned messageId) {
  qxuiMessageBox(LoadResourceString(messageId).c_str(), GetWindowText().c_str());
}

void CFileCompareDlg::OnOK() {
  oldPath_ = GetDlgItemText(kOldPathEdit);
  newPath_ = GetDlgItemText(kNewPathEdit);
  logPath_ = GetDlgItemText(kLogPathEdit);
  logFlag_ = IsDlgButtonChecked(kLogCheck) == 1 ? 1 : 0;
  if (!PathExists(oldPath_)) {
    Tell(kMissingFile);
    SelectAndFocus(kOldPathEdit);
    return;
  }
  if (!PathExists(newPath_)) {
    Tell(kMissingFile);
    SelectAndFocus(kNewPathEdit);
    return;
  }
  // Case-sensitive: names that differ in case alone pass, as the file system decides.
  if (oldPath_ == newPath_) {
    Tell(kSameFile);
    return;
  }
  if (logFlag_ && !CanWriteLog(logPath_)) {
    Tell(kLogNotWritable);
    return;
  }
  EndDialog(kQxUiIdOk);
}
