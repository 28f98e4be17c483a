// One human-readable settings file under the profile folder: named sections of named
// numbers and strings, kept in the order they were first written (docs/SETTINGS.md).
//
//   # korva settings: per-user keys
//   [Software\Korva\Korva\R1\Profiles\<<Unnamed Profile>>\UserInterfaceSettings\LayWalk]
//   RestoreOnExit = number 1
//   Filter = string "A*"
//
// The file is read at the first use and rewritten whole, atomically, at each change.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korva::ui {

struct SettingValue {
  enum class Type { Number, String };
  std::wstring name;
  Type type = Type::Number;
  long long number = 0;  // -2^31 .. 2^32-1: signed and unsigned 32-bit values
  std::wstring text;
};

struct SettingSection {
  std::wstring name;  // "" for values that stand before any section header
  std::vector<SettingValue> values;

  // Names are compared without regard to case.
  SettingValue* find(std::wstring_view valueName);
  // Replaces a value in its place, or appends it.
  void put(SettingValue value);
  bool remove(std::wstring_view valueName);
};

class SettingsFile {
 public:
  explicit SettingsFile(std::string description) : description_(std::move(description)) {}

  // A new file to use; what was read of the previous one is forgotten. An empty path
  // keeps the settings in memory only.
  void reset(std::filesystem::path path);
  const std::filesystem::path& path() const { return path_; }

  // The sections, read from the file at the first call. A missing file is empty; a
  // broken line is left out, with one warning on stderr that names the file and the
  // line of the first fault.
  std::vector<SettingSection>& sections();
  SettingSection* find(std::wstring_view sectionName);
  SettingSection& findOrAdd(std::wstring_view sectionName);

  // Writes every section to a temporary file beside the file and renames it over the
  // file. False, with a warning on stderr, when that fails.
  bool save();

 private:
  void load();

  std::string description_;
  std::filesystem::path path_;
  bool loaded_ = false;
  std::vector<SettingSection> sections_;
};

// Compares names as the settings stores do: without regard to case.
bool sameSettingName(std::wstring_view left, std::wstring_view right);

// The text of a settings file and back; settings_file_text.cpp.
std::string formatSettingsFile(const std::string& description,
                               const std::vector<SettingSection>& sections);
// Reads text into sections. Returns the number of broken lines left out; the first
// fault's line and reason are set when there was one.
int parseSettingsFile(std::string_view text, std::vector<SettingSection>& sections, int& faultLine,
                      std::string& fault);

}  // namespace korva::ui
