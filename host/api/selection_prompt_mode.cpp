#include "selection_prompt_mode.h"

#include <cwctype>
#include <string>

namespace korva::api {

std::optional<PromptMode> parsePromptMode(const wchar_t* text) {
  PromptMode mode;
  if (!text) return mode;
  std::wstring spelled(text);
  for (wchar_t& c : spelled) c = static_cast<wchar_t>(std::towupper(c));
  // A leading underscore asks for the language-independent form; it is the same here.
  if (!spelled.empty() && spelled.front() == L'_') spelled.erase(0, 1);
  if (spelled.empty()) return mode;
  if (spelled.front() != L':' && spelled.front() != L'-') return std::nullopt;
  size_t start = 0;
  while (start <= spelled.size()) {
    size_t end = spelled.find(L':', start);
    if (end == std::wstring::npos) end = spelled.size();
    std::wstring flag = spelled.substr(start, end - start);
    start = end + 1;
    if (flag.empty()) continue;
    if (flag == L"$")
      mode.ownPrompts = true;
    else if (flag == L"S")
      mode.single = true;
    else if (flag == L"L")
      mode.rejectLocked = true;
    else if (flag == L"?")
      mode.otherInput = true;
    else if (flag == L"K")
      mode.keywords = true;
    else if (flag == L"-M")
      mode.returnOnKeyword = true;
    else
      return std::nullopt;
  }
  return mode;
}

}  // namespace korva::api
