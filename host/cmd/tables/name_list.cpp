// Name lists of table prompts.
#include "cmd/tables/name_list.h"

#include <cwctype>

#include "api/wildcard.h"

namespace korva::cmd {

std::vector<std::wstring> splitNameList(std::wstring_view text) {
  std::vector<std::wstring> items;
  size_t start = 0;
  while (start <= text.size()) {
    size_t comma = text.find(L',', start);
    std::wstring_view item = text.substr(
        start, comma == std::wstring_view::npos ? std::wstring_view::npos : comma - start);
    size_t first = item.find_first_not_of(L" \t");
    if (first != std::wstring_view::npos) {
      size_t last = item.find_last_not_of(L" \t");
      items.emplace_back(item.substr(first, last - first + 1));
    }
    if (comma == std::wstring_view::npos) break;
    start = comma + 1;
  }
  return items;
}

std::wstring upperName(std::wstring_view name) {
  std::wstring upper(name);
  for (wchar_t& c : upper) c = static_cast<wchar_t>(std::towupper(c));
  return upper;
}

bool matchesNameList(std::wstring_view name, const std::vector<std::wstring>& items) {
  std::wstring upper = upperName(name);
  for (const std::wstring& item : items) {
    std::wstring pattern = upperName(item);
    if (pattern == upper || api::wildcardMatch(upper, pattern)) return true;
  }
  return false;
}

bool isValidTableName(std::wstring_view name) {
  if (name.empty()) return false;
  return name.find_first_of(L"<>/\\\":;?*|,=`") == std::wstring_view::npos;
}

}  // namespace korva::cmd
