// The file dialogs of a host without a screen: the file's name is asked for at the
// prompt, so that scripts answer it like any other prompt.
//
//   Title <default.dxf>: plan           -> "plan.dxf" (the first extension added)
//   Title <default.dxf>:                -> the default; without one RTNONE
//   Title: missing.dxf                  -> "File not found: missing.dxf", asked again
//   Title: old.dxf                      -> "old.dxf already exists. Replace it? [Yes/No] <No>:"
//                                          (save mode); No asks for another name
//   Title: ~                            -> "File dialogs are not available ...", asked again
#include <filesystem>
#include <string>
#include <vector>

#include "api/utf8.h"
#include "qx_input.h"
#include "qx_memory.h"
#include "qx_ui_services.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPathChars = 4096;

enum class Check { Taken, AskAgain, Cancelled };

std::vector<std::wstring> extensionList(const wchar_t* extensions) {
  std::vector<std::wstring> list;
  std::wstring current;
  const std::wstring text = extensions ? extensions : L"";
  for (size_t at = 0; at <= text.size(); ++at) {
    if (at == text.size() || text[at] == L';' || text[at] == L',') {
      // "*.dxf" and ".dxf" name the extension "dxf"; "*" any.
      while (!current.empty() && (current.front() == L'*' || current.front() == L'.')) {
        current.erase(0, 1);
      }
      if (!current.empty()) list.push_back(current);
      current.clear();
    } else if (text[at] != L' ') {
      current += text[at];
    }
  }
  return list;
}

std::wstring withExtension(std::wstring name, const std::vector<std::wstring>& extensions,
                           int flags) {
  if ((flags & QXED_FILE_NO_EXTENSION_ADD) || extensions.empty()) return name;
  if (!name.empty() && name.back() == L'.') name.pop_back();
  if (fs::path(name).extension().empty()) name += L"." + extensions.front();
  return name;
}

// Blanks around the answer and a pair of quotes around a name with blanks are not part
// of the name.
std::wstring cleaned(std::wstring text) {
  while (!text.empty() && (text.back() == L' ' || text.back() == L'\t')) text.pop_back();
  size_t start = text.find_first_not_of(L" \t");
  text = start == std::wstring::npos ? L"" : text.substr(start);
  if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"') {
    text = text.substr(1, text.size() - 2);
  }
  return text;
}

bool isFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool pathExists(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

void tell(const std::wstring& message) {
  qxedPrompt((L"\n" + message).c_str());
}

Check confirmReplace(const std::wstring& name) {
  wchar_t answer[16];
  qxedInitGet(0, L"Yes No");
  const std::wstring prompt = L"\n" + name + L" already exists. Replace it? [Yes/No] <No>: ";
  const int status = qxedGetKword(prompt.c_str(), answer, std::size(answer));
  if (status == RTCAN) return Check::Cancelled;
  return status == RTNORM && std::wstring(answer) == L"Yes" ? Check::Taken : Check::AskAgain;
}

// Whether the name can be used: an existing file to read, or a place to write.
Check check(std::wstring& name, int flags) {
  const fs::path path(korva::api::toUtf8(name));
  if (isFolder(path)) {
    tell(name + L" is a folder.");
    return Check::AskAgain;
  }
  if (flags & QXED_FILE_SAVE) {
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    if (!isFolder(folder)) {
      tell(L"Folder not found: " + korva::api::fromUtf8(folder.string()));
      return Check::AskAgain;
    }
    if (!pathExists(path) || (flags & QXED_FILE_NO_CONFIRM)) return Check::Taken;
    return confirmReplace(name);
  }
  if ((flags & QXED_FILE_SEARCH_SUPPORT) && path.is_relative()) {
    wchar_t found[kPathChars];
    if (qxedFindFile(name.c_str(), found, kPathChars) == RTNORM) {
      name = found;
      return Check::Taken;
    }
  }
  if (pathExists(path)) return Check::Taken;
  tell(L"File not found: " + name);
  return Check::AskAgain;
}

// RTNORM with the name, RTNONE, or RTCAN.
int askForFile(const wchar_t* title, const wchar_t* defaultPath, const wchar_t* extensions,
               int flags, std::wstring& chosen) {
  const std::vector<std::wstring> list = extensionList(extensions);
  const std::wstring fallback = defaultPath ? defaultPath : L"";
  std::wstring prompt = L"\n";
  prompt += title && *title ? title : L"Enter file name";
  if (!fallback.empty()) prompt += L" <" + fallback + L">";
  prompt += L": ";
  for (;;) {
    wchar_t buffer[kPathChars];
    const int status = qxedGetString(1, prompt.c_str(), buffer, kPathChars);
    if (status == RTCAN) return RTCAN;
    if (status != RTNORM && status != RTNONE) return status;
    std::wstring name = status == RTNORM ? cleaned(buffer) : L"";
    if (name.empty()) {
      if (fallback.empty()) return RTNONE;
      name = fallback;
    }
    if (name == L"~") {
      tell(L"File dialogs are not available; type the file's name.");
      continue;
    }
    name = withExtension(name, list, flags);
    const Check result = check(name, flags);
    if (result == Check::Cancelled) return RTCAN;
    if (result == Check::Taken) {
      chosen = name;
      return RTNORM;
    }
  }
}

}  // namespace

int qxedGetFileD(const wchar_t* title, const wchar_t* defaultPath, const wchar_t* extensions,
                 int flags, ResultBuffer* result) {
  if (!result) return RTERROR;
  std::wstring chosen;
  const int status = askForFile(title, defaultPath, extensions, flags, chosen);
  if (status != RTNORM) return status;
  wchar_t* text = qxutNewString(chosen.c_str());
  if (!text) return RTERROR;
  result->type = RTSTR;
  result->value.rstring = text;
  return RTNORM;
}

int qxedGetFileNavDialog(const wchar_t* title, const wchar_t* defaultPath,
                         const wchar_t* extensions, const wchar_t* /*dialogName*/, int flags,
                         ResultBuffer** result) {
  if (!result) return RTERROR;
  *result = nullptr;
  std::wstring chosen;
  const int status = askForFile(title, defaultPath, extensions, flags, chosen);
  if (status != RTNORM) return status;
  ResultBuffer* node = qxutNewRb(RTSTR);
  if (!node) return RTERROR;
  node->value.rstring = qxutNewString(chosen.c_str());
  if (!node->value.rstring) {
    qxutRelRb(node);
    return RTERROR;
  }
  *result = node;
  return RTNORM;
}
