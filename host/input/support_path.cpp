// The support path and qxedFindFile.
#include "input/support_path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "api/document.h"
#include "api/utf8.h"
#include "qx_input.h"

namespace korva::input {
namespace {

namespace fs = std::filesystem;

std::vector<std::string>& addedFolders() {
  static std::vector<std::string> folders;
  return folders;
}

bool isFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool isRegularFile(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

std::string absoluteText(const fs::path& path) {
  std::error_code error;
  fs::path absolute = fs::absolute(path, error);
  return (error ? path : absolute).lexically_normal().string();
}

}  // namespace

void addSupportFolder(const std::string& folder) {
  if (!folder.empty()) addedFolders().push_back(folder);
}

void clearSupportFolders() {
  addedFolders().clear();
}

std::string installedSupportFolder() {
  std::error_code error;
  fs::path program = fs::read_symlink("/proc/self/exe", error);
  if (error) return {};
  return (program.parent_path() / "Support").string();
}

std::vector<std::string> supportSearchFolders() {
  std::vector<std::string> candidates;
  if (api::Document* document = api::DocumentList::instance().current()) {
    if (!document->path().empty()) {
      candidates.push_back(fs::path(absoluteText(document->path())).parent_path().string());
    }
  }
  for (const std::string& folder : addedFolders()) candidates.push_back(absoluteText(folder));
  candidates.push_back(installedSupportFolder());
  std::error_code error;
  candidates.push_back(fs::current_path(error).string());

  std::vector<std::string> folders;
  for (const std::string& folder : candidates) {
    if (folder.empty() || !isFolder(folder)) continue;
    // A folder named twice (the drawing lies in the current folder) is searched once.
    if (std::find(folders.begin(), folders.end(), folder) == folders.end()) {
      folders.push_back(folder);
    }
  }
  return folders;
}

std::optional<std::string> findSupportFile(const std::string& name) {
  if (name.empty()) return std::nullopt;
  fs::path given(name);
  if (given.is_absolute()) {
    if (isRegularFile(given)) return given.lexically_normal().string();
    return std::nullopt;
  }
  for (const std::string& folder : supportSearchFolders()) {
    fs::path candidate = fs::path(folder) / given;
    if (isRegularFile(candidate)) return candidate.lexically_normal().string();
  }
  return std::nullopt;
}

}  // namespace korva::input

int qxedFindFile(const wchar_t* name, wchar_t* result, std::size_t bufferChars) {
  if (!name || !result || bufferChars == 0) return RTERROR;
  std::optional<std::string> found = korva::input::findSupportFile(korva::api::toUtf8(name));
  if (!found) return RTERROR;
  std::wstring path = korva::api::fromUtf8(*found);
  // A path cut to fit would name another file.
  if (path.size() >= bufferChars) return RTERROR;
  std::copy(path.begin(), path.end(), result);
  result[path.size()] = L'\0';
  return RTNORM;
}
