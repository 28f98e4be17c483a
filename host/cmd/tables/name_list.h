// Name lists typed at table prompts: names and wildcard patterns separated by commas.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korva::cmd {

// The items of "A,B*, C": trimmed, empty ones left out.
std::vector<std::wstring> splitNameList(std::wstring_view text);

// Whether a table name is one of the items: the same name without regard to case, or
// a match of the item as a wildcard pattern, without regard to case either.
bool matchesNameList(std::wstring_view name, const std::vector<std::wstring>& items);

// Whether the text may name a table record: not empty and without the characters
// that wildcards, name lists and file names give a meaning.
bool isValidTableName(std::wstring_view name);

// Upper case for table names (ASCII and Latin letters).
std::wstring upperName(std::wstring_view name);

}  // namespace korva::cmd
