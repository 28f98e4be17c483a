// The token cursor of the resource statement readers.
#include "ui/resource_script_cursor.h"

#include <cstdlib>
#include <cwctype>
#include <sstream>

#include "api/utf8.h"

namespace korva::ui {
namespace {

bool sameWord(const std::wstring& word, const char* keyword) {
  size_t i = 0;
  for (; keyword[i] != '\0'; ++i) {
    if (i >= word.size() ||
        static_cast<wchar_t>(std::towupper(word[i])) != static_cast<wchar_t>(keyword[i])) {
      return false;
    }
  }
  return i == word.size();
}

bool isNameStart(wchar_t c) {
  return std::iswalpha(c) || c == L'_';
}

}  // namespace

ResourceScriptCursor::ResourceScriptCursor(const std::vector<ResourceToken>& tokens,
                                           std::string& error)
    : tokens_(tokens), error_(error) {
  endOfText_.kind = Kind::End;
  endOfText_.line = tokens.empty() ? 1 : tokens.back().line;
  // The ids every dialog script takes for granted.
  names_ = {{L"IDC_STATIC", -1}, {L"IDOK", 1},  {L"IDCANCEL", 2}, {L"IDABORT", 3}, {L"IDRETRY", 4},
            {L"IDIGNORE", 5},    {L"IDYES", 6}, {L"IDNO", 7},     {L"IDCLOSE", 8}, {L"IDHELP", 9}};
}

const ResourceToken& ResourceScriptCursor::current() const {
  return atEnd() ? endOfText_ : tokens_[at_];
}

bool ResourceScriptCursor::isWord(const char* keyword) const {
  return !atEnd() && current().kind == Kind::Word && sameWord(current().text, keyword);
}

bool ResourceScriptCursor::take(Kind kind) {
  if (atEnd() || current().kind != kind) return false;
  advance();
  return true;
}

bool ResourceScriptCursor::takeWord(const char* keyword) {
  if (!isWord(keyword)) return false;
  advance();
  return true;
}

bool ResourceScriptCursor::expect(Kind kind, const char* what) {
  if (take(kind)) return true;
  const std::string found = atEnd() ? "the end of the file" : describeToken(current());
  return fail(std::string("expected ") + what + ", found " + found);
}

bool ResourceScriptCursor::fail(const std::string& message) {
  return failAt(line(), message);
}

bool ResourceScriptCursor::failAt(int line, const std::string& message) {
  if (error_.empty()) error_ = "line " + std::to_string(line) + ": " + message;
  return false;
}

bool ResourceScriptCursor::number(long long& value, const char* what) {
  if (atEnd()) return expect(Kind::Number, what);
  const ResourceToken& token = current();
  if (token.kind == Kind::Number) {
    value = token.value;
    advance();
    return true;
  }
  if (token.kind == Kind::Word) {
    auto found = names_.find(token.text);
    if (found == names_.end()) {
      return fail("unknown name " + describeToken(token) + " (give it a value with #define)");
    }
    value = found->second;
    advance();
    return true;
  }
  return expect(Kind::Number, what);
}

bool ResourceScriptCursor::text(std::wstring& value, const char* what) {
  if (atEnd() || current().kind != Kind::String) return expect(Kind::String, what);
  value.clear();
  while (!atEnd() && current().kind == Kind::String) {
    value += current().text;
    advance();
  }
  return true;
}

void ResourceScriptCursor::skipMemoryOptions() {
  static const char* const kOptions[] = {"DISCARDABLE", "MOVEABLE", "PURE",   "IMPURE",   "PRELOAD",
                                         "LOADONCALL",  "FIXED",    "SHARED", "NONSHARED"};
  for (bool skipped = true; skipped;) {
    skipped = false;
    for (const char* option : kOptions) skipped = skipped || takeWord(option);
  }
}

bool ResourceScriptCursor::define(const ResourceToken& directive) {
  std::wistringstream words(directive.text);
  std::wstring keyword, name, spelled, extra;
  words >> keyword >> name >> spelled >> extra;
  if (keyword != L"define") {
    if (keyword == L"pragma") return true;  // code pages and the like: the file is UTF-8
    return failAt(directive.line, "'#" + api::toUtf8(keyword) +
                                      "' is not supported; give ids their values with #define");
  }
  if (name.empty() || !isNameStart(name[0]) || spelled.empty() || !extra.empty()) {
    return failAt(directive.line, "expected '#define NAME VALUE'");
  }
  // A value in parentheses, as headers of ids often write it.
  if (spelled.size() > 2 && spelled.front() == L'(' && spelled.back() == L')') {
    spelled = spelled.substr(1, spelled.size() - 2);
  }
  long long value = 0;
  if (auto known = names_.find(spelled); known != names_.end()) {
    value = known->second;
  } else {
    const std::string digits = api::toUtf8(spelled);
    char* end = nullptr;
    value = std::strtoll(digits.c_str(), &end, 0);
    while (end && (*end == 'L' || *end == 'l' || *end == 'U' || *end == 'u')) ++end;
    if (digits.empty() || !end || *end != '\0') {
      return failAt(directive.line, "the value of " + api::toUtf8(name) +
                                        " must be a number or a defined name, not '" + digits +
                                        "'");
    }
  }
  auto [place, added] = names_.emplace(name, value);
  if (!added && place->second != value) {
    return failAt(directive.line, api::toUtf8(name) + " is defined again with another value");
  }
  return true;
}

}  // namespace korva::ui
