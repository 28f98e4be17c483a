// Wildcard matching: a pattern is split at top-level commas into alternatives, and
// each alternative is matched by backtracking over its single '*' positions.
#include "wildcard.h"

#include <algorithm>
#include <cwctype>
#include <vector>

#include "qx_types.h"
#include "qx_util.h"

namespace korva::api {
namespace {

bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

bool isLetter(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c > 127 && std::iswalpha(c));
}

// Index just past the ']' that closes the class opening at pattern[open], or npos.
// leadingMember: a ']' right after "[" or "[~" belongs to the class.
std::size_t scanClass(std::wstring_view pattern, std::size_t open, bool leadingMember) {
  std::size_t i = open + 1;
  if (i < pattern.size() && pattern[i] == L'~') ++i;
  if (leadingMember && i < pattern.size() && pattern[i] == L']') ++i;
  while (i < pattern.size()) {
    if (pattern[i] == L'`' && i + 1 < pattern.size()) {
      i += 2;
    } else if (pattern[i] == L']') {
      return i + 1;
    } else {
      ++i;
    }
  }
  return std::wstring_view::npos;
}

// "[]A]" holds ']' and 'A', while "[~]" and "[]" close at their first ']'.
std::size_t classEnd(std::wstring_view pattern, std::size_t open) {
  const std::size_t end = scanClass(pattern, open, true);
  return end != std::wstring_view::npos ? end : scanClass(pattern, open, false);
}

// Does c belong to the class pattern[open, end)?
bool classContains(std::wstring_view pattern, std::size_t open, std::size_t end, wchar_t c) {
  std::size_t i = open + 1;
  const std::size_t last = end - 1;  // the closing ']'
  bool negated = false;
  if (i < last && pattern[i] == L'~') {
    negated = true;
    ++i;
  }
  // "[~]" is a class of the single character '~'.
  if (negated && i == last) {
    negated = false;
    --i;
  }
  bool found = false;
  while (i < last) {
    wchar_t low = pattern[i];
    if (low == L'`' && i + 1 < last) low = pattern[++i];
    ++i;
    wchar_t high = low;
    if (i + 1 < last && pattern[i] == L'-') {
      high = pattern[i + 1];
      if (high == L'`' && i + 2 < last) {
        high = pattern[i + 2];
        ++i;
      }
      i += 2;
    }
    if (c >= low && c <= high) found = true;
  }
  return found != negated;
}

// Does one character of text match the element at pattern[p]? Sets next to the
// index of the element that follows.
bool elementMatches(std::wstring_view pattern, std::size_t p, wchar_t c, std::size_t& next) {
  const wchar_t element = pattern[p];
  next = p + 1;
  switch (element) {
    case L'#':
      return isDigit(c);
    case L'@':
      return isLetter(c);
    case L'.':
      return !isDigit(c) && !isLetter(c);
    case L'?':
      return true;
    case L'`':
      if (p + 1 < pattern.size()) {
        next = p + 2;
        return c == pattern[p + 1];
      }
      return c == element;
    case L'[': {
      const std::size_t end = classEnd(pattern, p);
      if (end == std::wstring_view::npos) return c == element;
      next = end;
      return classContains(pattern, p, end, c);
    }
    default:
      return c == element;
  }
}

bool matchAlternative(std::wstring_view text, std::wstring_view pattern) {
  std::size_t t = 0;
  std::size_t p = 0;
  // Where to resume after the last '*': its pattern index and the text it has eaten.
  std::size_t starPattern = std::wstring_view::npos;
  std::size_t starText = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == L'*') {
      starPattern = ++p;
      starText = t;
      continue;
    }
    std::size_t next = 0;
    if (p < pattern.size() && elementMatches(pattern, p, text[t], next)) {
      p = next;
      ++t;
      continue;
    }
    if (starPattern == std::wstring_view::npos) return false;
    p = starPattern;
    t = ++starText;
  }
  while (p < pattern.size() && pattern[p] == L'*') ++p;
  return p == pattern.size();
}

std::vector<std::wstring_view> splitAlternatives(std::wstring_view pattern) {
  std::vector<std::wstring_view> alternatives;
  std::size_t start = 0;
  std::size_t i = 0;
  while (i < pattern.size()) {
    if (pattern[i] == L'`') {
      i += 2;
    } else if (pattern[i] == L'[') {
      const std::size_t end = classEnd(pattern, i);
      i = end == std::wstring_view::npos ? i + 1 : end;
    } else if (pattern[i] == L',') {
      alternatives.push_back(pattern.substr(start, i - start));
      start = ++i;
    } else {
      ++i;
    }
  }
  alternatives.push_back(pattern.substr(std::min(start, pattern.size())));
  return alternatives;
}

}  // namespace

bool wildcardMatch(std::wstring_view text, std::wstring_view pattern) {
  for (std::wstring_view alternative : splitAlternatives(pattern)) {
    const bool negated = !alternative.empty() && alternative.front() == L'~';
    if (negated) alternative.remove_prefix(1);
    if (matchAlternative(text, alternative) != negated) return true;
  }
  return false;
}

}  // namespace korva::api

int qxutWcMatch(const wchar_t* text, const wchar_t* pattern) {
  if (text == nullptr || pattern == nullptr) return RTERROR;
  return korva::api::wildcardMatch(text, pattern) ? RTNORM : RTERROR;
}
