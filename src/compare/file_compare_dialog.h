// The dialog of FCMP: the old and the new drawing, an optional log file, and the options
// (the six result layers' colours and visibility, the compared properties), which are
// stored only by Apply or Reset.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "compare/file_compare_options.h"
#include "frame/host_interface.h"

class CFileCompareDlg : public CQxUiDialog {
 public:
  CFileCompareDlg();

  const std::wstring& OldPath() const { return oldPath_; }
  const std::wstring& NewPath() const { return newPath_; }
  const std::wstring& LogPath() const { return logPath_; }
  bool WantsLog() const { return logFlag_ != 0; }

  bool OnInitDialog() override;
  void OnOK() override;

 private:
  // The working values in the order old different, modified, same, new different,
  // modified, same; and the compared properties by bit.
  void TakeWorkingValues();
  void ShowWorkingValues();
  void Browse(unsigned editId, const wchar_t* extension, int flags);
  void ChooseColor(unsigned buttonId);
  void ShowColor(unsigned buttonId);
  void ApplyOptions();
  void ResetOptions();
  void UpdateLogControls();
  void FitHeight();
  void SelectAndFocus(unsigned editId);
  void EnableApply(bool enable);
  std::intptr_t OnAltKey(std::uintptr_t key);
  void Tell(unsigned messageId);

  std::wstring oldPath_;
  std::wstring newPath_;
  std::wstring logPath_;
  int logFlag_ = 0;
  VnFileCompareOptions options_;
  std::array<std::int32_t, 6> colors_{};
  std::array<std::int32_t, 6> visible_{};
  std::int32_t compareFlag_ = kCompareAll;
  int fullHeight_ = 0;
  int collapsedHeight_ = 0;
};
