#include <cwctype>
#include <filesystem>
#include <string>
#include <system_error>

#include "compare/file_compare_commands.h"
#include "compare/file_compare_manager.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"

namespace {

constexpr unsigned kSameFile = 3204;
constexpr unsigned kPathTooLong = 3213;
constexpr unsigned kNoSuchFile = 3215;
constexpr unsigned kNotADrawing = 3216;
constexpr unsigned kOldDrawingPrompt = 3217;
constexpr unsigned kNewDrawingPrompt = 3218;
constexpr std::size_t kLongestPath = 260;

void PrintMessage(unsigned id) {
  qxedPrompt(LoadResourceString(id).c_str());
  qxedPrompt(L"\n");
}

bool EqualsIgnoringCase(const std::wstring& a, const std::wstring& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::towlower(a[i]) != std::towlower(b[i])) return false;
  }
  return true;
}

// The answer names an existing file of the host's drawing kind; says why not otherwise.
bool IsDrawingFile(const std::wstring& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (error || !std::filesystem::exists(status) || std::filesystem::is_directory(status)) {
    PrintMessage(kNoSuchFile);
    return false;
  }
  const std::size_t dot = path.rfind(L'.');
  const std::wstring extension = dot == std::wstring::npos ? L"" : path.substr(dot);
  if (!EqualsIgnoringCase(extension, QXED_DRAWING_EXTENSION)) {
    PrintMessage(kNotADrawing);
    return false;
  }
  return true;
}

}  // namespace

void cmdFileCompareCommandLine() {
  VnFileCompareManager manager;
  bool compared = false;
  {
    ResourceScope resources;
    std::wstring oldPath;
    std::wstring newPath;
    while (oldPath.empty() || newPath.empty()) {
      const unsigned prompt = oldPath.empty() ? kOldDrawingPrompt : kNewDrawingPrompt;
      wchar_t answer[kLongestPath + 1] = {};
      const int status =
          qxedGetString(1, LoadResourceString(prompt).c_str(), answer, kLongestPath + 1);
      if (status == RTCAN || status == RTERROR) return;
      const std::wstring path = answer;
      if (path.empty()) continue;
      if (path.size() >= kLongestPath) {
        PrintMessage(kPathTooLong);
        continue;
      }
      if (!IsDrawingFile(path)) continue;
      if (oldPath.empty()) {
        oldPath = path;
      } else if (path == oldPath) {
        // The same file twice: start over with the old drawing.
        PrintMessage(kSameFile);
        oldPath.clear();
      } else {
        newPath = path;
      }
    }
    manager.LoadOptions();
    compared = manager.CompareFiles(oldPath, newPath);
  }
  if (compared) manager.OpenResultFiles();
  qxedRetVoid();
}
