// A settings file: read once, rewritten whole and atomically at each change.
#include "ui/settings_file.h"

#include <unistd.h>

#include <algorithm>
#include <cwctype>
#include <fstream>
#include <iostream>
#include <sstream>

namespace korva::ui {

namespace fs = std::filesystem;

bool sameSettingName(std::wstring_view left, std::wstring_view right) {
  return std::ranges::equal(
      left, right, [](wchar_t a, wchar_t b) { return std::towupper(a) == std::towupper(b); });
}

SettingValue* SettingSection::find(std::wstring_view valueName) {
  for (SettingValue& value : values) {
    if (sameSettingName(value.name, valueName)) return &value;
  }
  return nullptr;
}

void SettingSection::put(SettingValue value) {
  if (SettingValue* existing = find(value.name)) {
    // The first spelling of the name stays.
    value.name = std::move(existing->name);
    *existing = std::move(value);
  } else {
    values.push_back(std::move(value));
  }
}

bool SettingSection::remove(std::wstring_view valueName) {
  return std::erase_if(values, [valueName](const SettingValue& value) {
           return sameSettingName(value.name, valueName);
         }) > 0;
}

void SettingsFile::reset(fs::path path) {
  path_ = std::move(path);
  sections_.clear();
  loaded_ = false;
}

std::vector<SettingSection>& SettingsFile::sections() {
  if (!loaded_) load();
  return sections_;
}

SettingSection* SettingsFile::find(std::wstring_view sectionName) {
  for (SettingSection& section : sections()) {
    if (sameSettingName(section.name, sectionName)) return &section;
  }
  return nullptr;
}

SettingSection& SettingsFile::findOrAdd(std::wstring_view sectionName) {
  if (SettingSection* existing = find(sectionName)) return *existing;
  return sections_.emplace_back(SettingSection{std::wstring(sectionName), {}});
}

void SettingsFile::load() {
  loaded_ = true;
  sections_.clear();
  if (path_.empty()) return;
  std::ifstream in(path_, std::ios::binary);
  if (!in) return;  // nothing was saved yet
  std::ostringstream text;
  text << in.rdbuf();
  int faultLine = 0;
  std::string fault;
  const int broken = parseSettingsFile(text.str(), sections_, faultLine, fault);
  if (broken > 0) {
    std::cerr << "korva: warning: " << path_.string() << " line " << faultLine << ": " << fault
              << "; " << broken << (broken == 1 ? " line" : " lines")
              << " left out, the rest is used\n";
  }
}

bool SettingsFile::save() {
  if (path_.empty()) return true;
  const std::string text = formatSettingsFile(description_, sections());
  std::error_code error;
  fs::create_directories(path_.parent_path(), error);
  // Beside the file, so that the rename stays on one file system.
  fs::path temporary = path_;
  temporary += ".tmp" + std::to_string(::getpid());
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out << text;
    out.flush();
    if (!out) {
      std::cerr << "korva: warning: can't write " << temporary.string() << "\n";
      out.close();
      fs::remove(temporary, error);
      return false;
    }
  }
  fs::rename(temporary, path_, error);
  if (error) {
    std::cerr << "korva: warning: can't replace " << path_.string() << ": " << error.message()
              << "\n";
    fs::remove(temporary, error);
    return false;
  }
  return true;
}

}  // namespace korva::ui
