// QxSettings::Key: keys of the settings store, one section of the hive's file each.
// A key that exists has a section, and so does each of its parents.
#include <algorithm>
#include <cwchar>

#include "qx_settings.h"
#include "ui/settings_stores.h"

namespace QxSettings {
namespace {

using korva::ui::SettingSection;
using korva::ui::SettingsFile;
using korva::ui::SettingValue;

// "A\\B\\" and "\\A\\B" name the key A\B.
std::wstring normalPath(const wchar_t* path) {
  std::wstring result;
  if (!path) return result;
  for (const wchar_t* at = path; *at; ++at) {
    if (*at == L'\\' && (result.empty() || result.back() == L'\\')) continue;
    result += *at;
  }
  if (!result.empty() && result.back() == L'\\') result.pop_back();
  return result;
}

wchar_t* copyOf(const std::wstring& text) {
  auto* copy = new wchar_t[text.size() + 1];
  std::wmemcpy(copy, text.c_str(), text.size() + 1);
  return copy;
}

SettingsFile* storeOf(void* store) {
  return static_cast<SettingsFile*>(store);
}

bool isUnder(const std::wstring& path, const std::wstring& parent) {
  return path.size() > parent.size() && path[parent.size()] == L'\\' &&
         korva::ui::sameSettingName(std::wstring_view(path).substr(0, parent.size()), parent);
}

// A key exists when its section does, or a section of a key beneath it (a file edited
// by hand may leave out the parents).
bool keyExists(SettingsFile& store, const std::wstring& path) {
  if (store.find(path)) return true;
  return std::ranges::any_of(store.sections(), [&path](const SettingSection& section) {
    return isUnder(section.name, path);
  });
}

}  // namespace

Key::Key(Key&& other) noexcept
    : store_(other.store_), path_(other.path_), writable_(other.writable_) {
  other.store_ = nullptr;
  other.path_ = nullptr;
}

Key& Key::operator=(Key&& other) noexcept {
  if (this != &other) {
    close();
    std::swap(store_, other.store_);
    std::swap(path_, other.path_);
    std::swap(writable_, other.writable_);
  }
  return *this;
}

Key::~Key() {
  close();
}

void Key::close() {
  delete[] path_;
  path_ = nullptr;
  store_ = nullptr;
  writable_ = false;
}

Key Key::create(Hive hive, const wchar_t* path) {
  Key key;
  const std::wstring full = normalPath(path);
  if (full.empty()) return key;
  SettingsFile& store = korva::ui::keyStore(hive);
  bool added = false;
  for (size_t end = full.find(L'\\');; end = full.find(L'\\', end + 1)) {
    const std::wstring part = full.substr(0, end);
    if (!store.find(part)) {
      store.findOrAdd(part);
      added = true;
    }
    if (end == std::wstring::npos) break;
  }
  if (added && !store.save()) return key;
  key.store_ = &store;
  key.path_ = copyOf(full);
  key.writable_ = true;
  return key;
}

Key Key::open(Hive hive, const wchar_t* path, bool forWriting) {
  Key key;
  const std::wstring full = normalPath(path);
  SettingsFile& store = korva::ui::keyStore(hive);
  if (full.empty() || !keyExists(store, full)) return key;
  store.findOrAdd(full);
  key.store_ = &store;
  key.path_ = copyOf(full);
  key.writable_ = forWriting;
  return key;
}

bool Key::readNumber(const wchar_t* name, std::uint32_t& value) const {
  if (!isOpen() || !name) return false;
  SettingSection* section = storeOf(store_)->find(path_);
  SettingValue* found = section ? section->find(name) : nullptr;
  if (!found || found->type != SettingValue::Type::Number) return false;
  value = static_cast<std::uint32_t>(found->number);
  return true;
}

bool Key::readString(const wchar_t* name, wchar_t* buffer, std::size_t bufferChars) const {
  if (!isOpen() || !name || !buffer) return false;
  SettingSection* section = storeOf(store_)->find(path_);
  SettingValue* found = section ? section->find(name) : nullptr;
  if (!found || found->type != SettingValue::Type::String) return false;
  if (found->text.size() + 1 > bufferChars) return false;
  std::wmemcpy(buffer, found->text.c_str(), found->text.size() + 1);
  return true;
}

bool Key::writeNumber(const wchar_t* name, std::uint32_t value) {
  if (!isOpen() || !writable_ || !name) return false;
  SettingSection* section = storeOf(store_)->find(path_);
  if (!section) return false;  // deleted while open
  SettingValue setting;
  setting.name = name;
  setting.number = value;
  section->put(std::move(setting));
  return storeOf(store_)->save();
}

bool Key::writeString(const wchar_t* name, const wchar_t* text) {
  if (!isOpen() || !writable_ || !name || !text) return false;
  SettingSection* section = storeOf(store_)->find(path_);
  if (!section) return false;
  SettingValue setting;
  setting.name = name;
  setting.type = SettingValue::Type::String;
  setting.text = text;
  section->put(std::move(setting));
  return storeOf(store_)->save();
}

bool Key::deleteValue(const wchar_t* name) {
  if (!isOpen() || !writable_ || !name) return false;
  SettingSection* section = storeOf(store_)->find(path_);
  if (!section || !section->remove(name)) return false;
  return storeOf(store_)->save();
}

bool Key::valueName(std::size_t index, wchar_t* buffer, std::size_t bufferChars) const {
  if (!isOpen() || !buffer) return false;
  SettingSection* section = storeOf(store_)->find(path_);
  if (!section || index >= section->values.size()) return false;
  const std::wstring& name = section->values[index].name;
  if (name.size() + 1 > bufferChars) return false;
  std::wmemcpy(buffer, name.c_str(), name.size() + 1);
  return true;
}

bool deleteKey(Hive hive, const wchar_t* path) {
  const std::wstring full = normalPath(path);
  SettingsFile& store = korva::ui::keyStore(hive);
  if (full.empty() || !keyExists(store, full)) return false;
  std::erase_if(store.sections(), [&full](const SettingSection& section) {
    return korva::ui::sameSettingName(section.name, full) || isUnder(section.name, full);
  });
  return store.save();
}

}  // namespace QxSettings
