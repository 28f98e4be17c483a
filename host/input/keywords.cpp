#include "input/keywords.h"

#include <cwctype>

namespace korva::input {
namespace {

std::vector<std::wstring> words(std::wstring_view text) {
  std::vector<std::wstring> result;
  size_t i = 0;
  while (i < text.size()) {
    while (i < text.size() && std::iswspace(text[i])) ++i;
    const size_t start = i;
    while (i < text.size() && !std::iswspace(text[i])) ++i;
    if (i > start) result.emplace_back(text.substr(start, i - start));
  }
  return result;
}

bool sameText(std::wstring_view a, std::wstring_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (std::towupper(a[i]) != std::towupper(b[i])) return false;
  }
  return true;
}

bool startsWith(std::wstring_view text, std::wstring_view prefix) {
  return text.size() >= prefix.size() && sameText(text.substr(0, prefix.size()), prefix);
}

// "LTYPE,LT" -> "LTYPE"; other keywords are their own full form.
std::wstring_view fullForm(std::wstring_view keyword) {
  return keyword.substr(0, keyword.find(L','));
}

bool matchesKeyword(std::wstring_view keyword, std::wstring_view text) {
  if (text.empty()) return false;
  const std::wstring_view full = fullForm(keyword);
  if (sameText(full, text)) return true;
  if (full.size() < keyword.size()) {
    const std::wstring_view shortForm = keyword.substr(full.size() + 1);
    return startsWith(text, shortForm) && startsWith(full, text);
  }
  size_t leading = 0;  // the leading run before the first lower-case letter
  while (leading < full.size() && !std::iswlower(full[leading])) ++leading;
  bool leadingHasCapital = false;
  for (size_t i = 0; i < leading; ++i) leadingHasCapital |= std::iswupper(full[i]) != 0;
  if (leading < full.size() && leadingHasCapital) {
    return text.size() >= leading && startsWith(full, text);
  }
  std::wstring capitals;
  for (wchar_t c : full) {
    if (std::iswupper(c)) capitals += c;
  }
  // Capitals that don't lead ("eXit"): they alone, or the whole word.
  return !capitals.empty() && capitals.size() < full.size() && sameText(capitals, text);
}

}  // namespace

KeywordList::KeywordList(std::wstring_view list) {
  const std::vector<std::wstring> all = words(list);
  size_t separator = all.size();
  for (size_t i = 0; i < all.size(); ++i) {
    if (all[i] == L"_") {
      separator = i;
      break;
    }
  }
  for (size_t i = 0; i < separator; ++i) {
    const size_t globalIndex = separator + 1 + i;
    const std::wstring& global = globalIndex < all.size() ? all[globalIndex] : all[i];
    keywords_.push_back({all[i], global});
  }
}

KeywordList::Match KeywordList::match(std::wstring_view text, std::wstring& global) const {
  const bool globalInput = !text.empty() && text.front() == L'_';
  if (globalInput) text.remove_prefix(1);
  auto formOf = [&](const Keyword& keyword) -> std::wstring_view {
    return globalInput ? keyword.global : keyword.local;
  };
  // A keyword typed whole wins over others it abbreviates.
  for (const Keyword& keyword : keywords_) {
    if (!text.empty() && sameText(fullForm(formOf(keyword)), text)) {
      global = fullForm(keyword.global);
      return Match::Found;
    }
  }
  const Keyword* found = nullptr;
  for (const Keyword& keyword : keywords_) {
    if (!matchesKeyword(formOf(keyword), text)) continue;
    if (found && !sameText(fullForm(found->global), fullForm(keyword.global))) {
      return Match::Ambiguous;
    }
    found = &keyword;
  }
  if (!found) return Match::None;
  global = fullForm(found->global);
  return Match::Found;
}

}  // namespace korva::input
