// Settings a tool remembers for the user, under the host's current profile:
//   PRODUCT ROOT\Profiles\CPROFILE\UserInterfaceSettings\TOOL
// in the current user's settings. When CPROFILE can't be read nothing is read or
// written. A value that can't be read leaves the target as it was.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ProfileSettings {

// The key of a tool ("LayWalk", "FileCompare" ...); nullopt without CPROFILE.
std::optional<std::wstring> keyPath(const wchar_t* toolKey);

bool readNumber(const wchar_t* toolKey, const wchar_t* valueName, std::uint32_t& value);
bool readNumber(const wchar_t* toolKey, const wchar_t* valueName, int& value);
bool readString(const wchar_t* toolKey, const wchar_t* valueName, std::wstring& value);
// The key is made when it is missing.
bool writeNumber(const wchar_t* toolKey, const wchar_t* valueName, std::uint32_t value);
bool writeString(const wchar_t* toolKey, const wchar_t* valueName, const wchar_t* text);

// Where the profile's name comes from: true with the name, false when there is none.
// Null gives CPROFILE back; tests put in a profile that can't be read.
using ProfileNameSource = bool (*)(std::wstring& name);
void setProfileNameSource(ProfileNameSource source);

}  // namespace ProfileSettings
