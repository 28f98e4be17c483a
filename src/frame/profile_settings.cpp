#include "frame/profile_settings.h"

#include "frame/host_interface.h"

namespace ProfileSettings {
namespace {

constexpr std::size_t kLongestStringValue = 4096;

bool currentProfileName(std::wstring& name) {
  ResultBuffer value{};
  if (qxedGetVar(L"CPROFILE", &value) != RTNORM) return false;
  if (value.type != RTSTR) return false;
  name = value.value.rstring ? value.value.rstring : L"";
  qxad_free(value.value.rstring);
  return true;
}

ProfileNameSource& profileNameSource() {
  static ProfileNameSource source = currentProfileName;
  return source;
}

QxSettings::Key openForReading(const wchar_t* toolKey) {
  const std::optional<std::wstring> path = keyPath(toolKey);
  if (!path) return {};
  return QxSettings::Key::open(QxSettings::Hive::CurrentUser, path->c_str(), false);
}

// Made once when missing, then opened for writing.
QxSettings::Key openForWriting(const wchar_t* toolKey) {
  const std::optional<std::wstring> path = keyPath(toolKey);
  if (!path) return {};
  QxSettings::Key::create(QxSettings::Hive::CurrentUser, path->c_str());
  return QxSettings::Key::open(QxSettings::Hive::CurrentUser, path->c_str(), true);
}

}  // namespace

std::optional<std::wstring> keyPath(const wchar_t* toolKey) {
  std::wstring profile;
  if (!toolKey || !profileNameSource()(profile)) return std::nullopt;
  const wchar_t* root = s_pServices ? s_pServices->getRegistryProductRootKey() : nullptr;
  std::wstring path = root ? root : L"";
  path += L"\\Profiles\\";
  path += profile;
  path += L"\\UserInterfaceSettings\\";
  path += toolKey;
  return path;
}

bool readNumber(const wchar_t* toolKey, const wchar_t* valueName, std::uint32_t& value) {
  return openForReading(toolKey).readNumber(valueName, value);
}

bool readNumber(const wchar_t* toolKey, const wchar_t* valueName, int& value) {
  std::uint32_t number = 0;
  if (!readNumber(toolKey, valueName, number)) return false;
  value = static_cast<int>(number);
  return true;
}

bool readString(const wchar_t* toolKey, const wchar_t* valueName, std::wstring& value) {
  std::wstring buffer(kLongestStringValue, L'\0');
  if (!openForReading(toolKey).readString(valueName, buffer.data(), buffer.size())) return false;
  value = buffer.c_str();
  return true;
}

bool writeNumber(const wchar_t* toolKey, const wchar_t* valueName, std::uint32_t value) {
  return openForWriting(toolKey).writeNumber(valueName, value);
}

bool writeString(const wchar_t* toolKey, const wchar_t* valueName, const wchar_t* text) {
  return openForWriting(toolKey).writeString(valueName, text);
}

void setProfileNameSource(ProfileNameSource source) {
  profileNameSource() = source ? source : currentProfileName;
}

}  // namespace ProfileSettings
