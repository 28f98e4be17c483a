// Programs of the platform layer: which program edits spreadsheets and texts, starting
// a program from its command line.
//
// The program for a kind is, first, the one configured in the machine-wide settings
// (key "<product root>\Applications", values "Spreadsheet" and "WordProcessor"), then
// the desktop's default for the OpenDocument type: `xdg-mime query default TYPE` names
// a .desktop file, whose Exec line (without its %f-style field codes) is the answer.
// KORVA_APPLICATION_QUERY replaces xdg-mime (it gets the same arguments).
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "api/utf8.h"
#include "qx_db_database.h"
#include "qx_settings.h"
#include "qx_ui_services.h"
#include "ui/platform_process.h"

namespace {

namespace fs = std::filesystem;

std::string environmentOr(const char* name, const std::string& fallback) {
  const char* value = std::getenv(name);
  return value && *value ? std::string(value) : fallback;
}

std::wstring configuredProgram(QxApplicationKind kind) {
  const std::wstring path =
      std::wstring(s_pServices->getRegistryProductRootKey()) + L"\\Applications";
  QxSettings::Key key = QxSettings::Key::open(QxSettings::Hive::LocalMachine, path.c_str(), false);
  wchar_t program[4096];
  const wchar_t* name = kind == QxApplicationKind::Spreadsheet ? L"Spreadsheet" : L"WordProcessor";
  if (!key.readString(name, program, std::size(program))) return {};
  return program;
}

std::string trimmed(const std::string& text) {
  const size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string::npos) return {};
  const size_t end = text.find_last_not_of(" \t\r\n");
  return text.substr(start, end - start + 1);
}

// The folders desktop files are kept in, most personal first.
std::vector<fs::path> applicationFolders() {
  const std::string home = environmentOr("HOME", "");
  std::vector<fs::path> folders{
      fs::path(environmentOr("XDG_DATA_HOME", home.empty() ? "" : home + "/.local/share")) /
      "applications"};
  std::string list = environmentOr("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
  for (size_t start = 0; start <= list.size();) {
    size_t end = list.find(':', start);
    if (end == std::string::npos) end = list.size();
    if (end > start) folders.push_back(fs::path(list.substr(start, end - start)) / "applications");
    start = end + 1;
  }
  return folders;
}

// The Exec line of the desktop entry, without field codes ("%f", "%U" ...).
std::string execLine(const fs::path& desktopFile) {
  std::ifstream in(desktopFile);
  std::string line;
  bool inEntry = false;
  while (std::getline(in, line)) {
    line = trimmed(line);
    if (line.starts_with("[")) inEntry = line == "[Desktop Entry]";
    if (!inEntry || !line.starts_with("Exec=")) continue;
    std::string command;
    const std::string value = line.substr(5);
    for (size_t at = 0; at < value.size(); ++at) {
      if (value[at] == '%' && at + 1 < value.size()) {
        if (value[at + 1] == '%') command += '%';
        ++at;
        continue;
      }
      command += value[at];
    }
    return trimmed(command);
  }
  return {};
}

std::string desktopDefault(QxApplicationKind kind) {
  const std::string type = kind == QxApplicationKind::Spreadsheet
                               ? "application/vnd.oasis.opendocument.spreadsheet"
                               : "application/vnd.oasis.opendocument.text";
  const std::string query = environmentOr("KORVA_APPLICATION_QUERY", "xdg-mime");
  auto answer = korva::ui::runForOutput({query, "query", "default", type});
  if (!answer) return {};
  const std::string desktopName = trimmed(*answer);
  if (desktopName.empty() || desktopName.find('/') != std::string::npos) return {};
  for (const fs::path& folder : applicationFolders()) {
    std::error_code error;
    if (fs::is_regular_file(folder / desktopName, error)) return execLine(folder / desktopName);
  }
  return {};
}

}  // namespace

bool qxplFindApplication(QxApplicationKind kind, wchar_t* path, std::size_t bufferChars) {
  if (!path || bufferChars == 0) return false;
  std::wstring program = configuredProgram(kind);
  if (program.empty()) program = korva::api::fromUtf8(desktopDefault(kind));
  if (program.empty() || program.size() + 1 > bufferChars) return false;
  std::copy(program.begin(), program.end(), path);
  path[program.size()] = L'\0';
  return true;
}

bool qxplStartProgram(const wchar_t* commandLine) {
  if (!commandLine) return false;
  return korva::ui::startDetached(korva::ui::splitCommandLine(korva::api::toUtf8(commandLine)));
}
