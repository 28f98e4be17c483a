#include "input/script_reader.h"

#include "api/utf8.h"

namespace korva::input {
namespace {

bool isBlank(wchar_t c) {
  return c == L' ' || c == L'\t';
}

// Text wholly in double quotes gives what they enclose.
std::wstring unquoted(std::wstring text) {
  if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"' &&
      text.find(L'"', 1) == text.size() - 1) {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

}  // namespace

ScriptReader::ScriptReader(MoreText more) : more_(std::move(more)) {}

bool ScriptReader::available(size_t count) {
  while (text_.size() - position_ < count) {
    std::optional<std::string> piece = more_ ? more_() : std::nullopt;
    if (!piece) return false;
    std::wstring wide = api::fromUtf8(*piece);
    if (firstText_ && !wide.empty() && wide.front() == L'\uFEFF') wide.erase(0, 1);
    firstText_ = false;
    // Inputs already given are dropped so that a long terminal session doesn't grow.
    text_.erase(0, position_);
    position_ = 0;
    text_ += wide;
  }
  return true;
}

bool ScriptReader::atLineEnd() const {
  return text_[position_] == L'\n' || text_[position_] == L'\r';
}

void ScriptReader::skipLineEnd() {
  const bool carriageReturn = peek() == L'\r';
  ++position_;
  if (carriageReturn && available() && peek() == L'\n') ++position_;
  lineStart_ = true;
}

void ScriptReader::skipRestOfLine() {
  while (available() && !atLineEnd()) ++position_;
  if (available()) skipLineEnd();
}

std::wstring ScriptReader::restOfLine() {
  std::wstring line;
  while (available() && !atLineEnd()) line += text_[position_++];
  if (available()) skipLineEnd();
  return line;
}

// After an expression or a token: one blank or line end belongs to it.
void ScriptReader::takeTerminator() {
  if (!available()) return;
  if (atLineEnd()) {
    skipLineEnd();
  } else if (isBlank(peek())) {
    ++position_;
    lineStart_ = false;
  }
}

std::wstring ScriptReader::lispExpression() {
  std::wstring expression;
  int depth = 0;
  bool inString = false;
  bool inComment = false;
  while (available()) {
    const wchar_t c = text_[position_++];
    expression += c;
    if (inComment) {
      inComment = c != L'\n' && c != L'\r';
    } else if (inString) {
      if (c == L'\\' && available()) {
        expression += text_[position_++];
      } else if (c == L'"') {
        inString = false;
      }
    } else if (c == L'"') {
      inString = true;
    } else if (c == L';') {
      inComment = true;
    } else if (c == L'(') {
      ++depth;
    } else if (c == L')' && --depth == 0) {
      break;
    }
  }
  lineStart_ = false;
  takeTerminator();
  return expression;
}

std::optional<std::wstring> ScriptReader::next(bool blanksAllowed) {
  for (;;) {
    if (!available()) return std::nullopt;
    if (lineStart_ && peek() == L';') {
      skipRestOfLine();
      continue;
    }
    if (peek() == L'(') return lispExpression();
    if (blanksAllowed) return unquoted(restOfLine());

    std::wstring token;
    while (available() && !atLineEnd() && !isBlank(peek())) {
      const wchar_t c = text_[position_++];
      if (c != L'"') {
        token += c;
        continue;
      }
      // Quoted: blanks belong to the input; the quotes don't.
      while (available() && !atLineEnd() && peek() != L'"') token += text_[position_++];
      if (available() && peek() == L'"') ++position_;
    }
    lineStart_ = false;
    takeTerminator();
    return token;
  }
}

}  // namespace korva::input
