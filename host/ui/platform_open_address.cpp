// Opening an address or a file with the desktop's opener (xdg-open, or the program
// KORVA_OPENER names). The results keep the classic meaning modules test for: above 32
// for success, 2 for a missing file, 3 for a missing folder, 31 for no opener.
#include <cstdlib>
#include <filesystem>
#include <string>

#include "api/utf8.h"
#include "qx_ui_services.h"
#include "ui/platform_process.h"

namespace {

namespace fs = std::filesystem;

constexpr int kOpened = 42;
constexpr int kFileNotFound = 2;
constexpr int kFolderNotFound = 3;
constexpr int kNoOpener = 31;

// The file a "file:" address or a plain path names; empty for other addresses (http:,
// mailto: ...), which only the opener can judge.
std::string fileOf(const std::string& address) {
  if (address.starts_with("file://")) return address.substr(7);
  if (address.starts_with("file:")) return address.substr(5);
  const size_t colon = address.find(':');
  const size_t slash = address.find('/');
  const bool hasScheme =
      colon != std::string::npos && colon > 1 && (slash == std::string::npos || colon < slash);
  return hasScheme ? std::string() : address;
}

bool pathExists(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

}  // namespace

int qxplOpenAddress(const wchar_t* address) {
  if (!address || !*address) return kFileNotFound;
  const std::string text = korva::api::toUtf8(address);
  if (const std::string file = fileOf(text); !file.empty() && !pathExists(file)) {
    const fs::path folder = fs::path(file).parent_path();
    return folder.empty() || pathExists(folder) ? kFileNotFound : kFolderNotFound;
  }
  const char* configured = std::getenv("KORVA_OPENER");
  const std::string opener = configured && *configured ? configured : "xdg-open";
  if (korva::ui::findProgram(opener).empty()) return kNoOpener;
  return korva::ui::startDetached({opener, text}) ? kOpened : kNoOpener;
}
