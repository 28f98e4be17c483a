// The application profile: integer entries in named sections, kept in profile.txt
// under the profile folder.
#include <cwchar>

#include "qx_settings.h"
#include "ui/settings_stores.h"

int qxuiGetProfileInt(const wchar_t* section, const wchar_t* entry, int defaultValue) {
  if (!section || !entry) return defaultValue;
  korva::ui::SettingSection* found = korva::ui::applicationProfileStore().find(section);
  korva::ui::SettingValue* value = found ? found->find(entry) : nullptr;
  if (!value) return defaultValue;
  if (value->type == korva::ui::SettingValue::Type::Number) {
    return static_cast<int>(value->number);
  }
  // A number written as text by hand still counts, as profile files have it.
  wchar_t* end = nullptr;
  const long number = std::wcstol(value->text.c_str(), &end, 10);
  return end != value->text.c_str() && *end == L'\0' ? static_cast<int>(number) : defaultValue;
}

bool qxuiWriteProfileInt(const wchar_t* section, const wchar_t* entry, int value) {
  if (!section || !*section || !entry || !*entry) return false;
  korva::ui::SettingsFile& store = korva::ui::applicationProfileStore();
  korva::ui::SettingValue setting;
  setting.name = entry;
  setting.number = value;
  store.findOrAdd(section).put(std::move(setting));
  return store.save();
}
