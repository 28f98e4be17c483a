// The host's environment store: named strings kept in environment.txt under the
// profile folder, with no section header.
#include <cwchar>

#include "qx_settings.h"
#include "qx_types.h"
#include "ui/settings_stores.h"

int qxedGetEnv(const wchar_t* name, wchar_t* buffer, std::size_t bufferChars) {
  if (!name || !*name || !buffer) return RTERROR;
  korva::ui::SettingSection* values = korva::ui::environmentStore().find(L"");
  korva::ui::SettingValue* value = values ? values->find(name) : nullptr;
  if (!value) return RTERROR;
  // A value edited by hand into a number is still a name's text.
  const std::wstring text = value->type == korva::ui::SettingValue::Type::String
                                ? value->text
                                : std::to_wstring(value->number);
  if (text.size() + 1 > bufferChars) return RTERROR;
  std::wmemcpy(buffer, text.c_str(), text.size() + 1);
  return RTNORM;
}

int qxedSetEnv(const wchar_t* name, const wchar_t* value) {
  if (!name || !*name || !value) return RTERROR;
  korva::ui::SettingsFile& store = korva::ui::environmentStore();
  korva::ui::SettingValue setting;
  setting.name = name;
  setting.type = korva::ui::SettingValue::Type::String;
  setting.text = value;
  store.findOrAdd(L"").put(std::move(setting));
  return store.save() ? RTNORM : RTERROR;
}
