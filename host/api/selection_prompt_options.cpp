#include "selection_prompt_options.h"

#include <iterator>
#include <sstream>

#include "input/keywords.h"

namespace korva::api {

namespace {

constexpr const wchar_t* kOptionWords[] = {L"Window", L"Last",     L"Crossing", L"ALL",
                                           L"Fence",  L"WPolygon", L"CPolygon", L"Add",
                                           L"Remove", L"Previous", L"Undo"};

}  // namespace

std::optional<SelectionOption> findSelectionOption(std::wstring_view typed) {
  static const input::KeywordList words(
      L"Window Last Crossing ALL Fence WPolygon CPolygon Add Remove Previous Undo");
  std::wstring global;
  if (words.match(typed, global) != input::KeywordList::Match::Found) return std::nullopt;
  for (size_t i = 0; i < std::size(kOptionWords); ++i) {
    if (global == kOptionWords[i]) return static_cast<SelectionOption>(i);
  }
  return std::nullopt;
}

std::wstring expectedOptions(const std::wstring& callerKeywords) {
  std::wstring list;
  for (const wchar_t* word : kOptionWords) list += (list.empty() ? L"" : L"/") + std::wstring(word);
  // Local words only, without a ",SHORT" form.
  std::wistringstream words(callerKeywords);
  for (std::wstring word; words >> word && word != L"_";) {
    list += L"/" + word.substr(0, word.find(L','));
  }
  return list;
}

}  // namespace korva::api
