// Tokens of the resource source language.
#include "ui/resource_script_lexer.h"

#include <cctype>
#include <cstdlib>

#include "api/utf8.h"

namespace korva::ui {
namespace {

bool isWordStart(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) || c == '_';
}

bool isWordChar(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

bool isDigit(char c) {
  return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

bool sameWord(std::string_view word, std::string_view keyword) {
  if (word.size() != keyword.size()) return false;
  for (size_t i = 0; i < word.size(); ++i) {
    if (std::toupper(static_cast<unsigned char>(word[i])) != keyword[i]) return false;
  }
  return true;
}

// The length of the UTF-8 sequence at text[at], or 0 when it is malformed.
size_t utf8SequenceLength(std::string_view text, size_t at) {
  const unsigned char lead = static_cast<unsigned char>(text[at]);
  size_t length = lead < 0x80           ? 1
                  : (lead >> 5) == 0x6  ? 2
                  : (lead >> 4) == 0xE  ? 3
                  : (lead >> 3) == 0x1E ? 4
                                        : 0;
  if (length == 0 || at + length > text.size()) return 0;
  for (size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[at + i]) & 0xC0) != 0x80) return 0;
  }
  return length;
}

class Lexer {
 public:
  Lexer(std::string_view source, std::vector<ResourceToken>& tokens, std::string& error)
      : text_(source), tokens_(tokens), error_(error) {}

  bool run() {
    if (!checkEncoding()) return false;
    // A byte order mark some editors write is not part of the text.
    if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;
    while (skipBlanksAndComments()) {
      const char c = text_[at_];
      bool ok = true;
      if (c == '#' && atLineStart()) {
        ok = directive();
      } else if (c == '"' || ((c == 'L' || c == 'l') && peek(1) == '"')) {
        ok = string();
      } else if (isDigit(c) || (c == '-' && isDigit(peek(1)))) {
        ok = number();
      } else if (isWordStart(c)) {
        word();
      } else if (c == ',' || c == '|' || c == '{' || c == '}') {
        push(c == ',' ? Kind::Comma : c == '|' ? Kind::Pipe : c == '{' ? Kind::Begin : Kind::End);
        ++at_;
      } else {
        ok = fail("unexpected character '" + std::string(1, c) + "'");
      }
      if (!ok) return false;
    }
    return error_.empty();
  }

 private:
  using Kind = ResourceToken::Kind;

  char peek(size_t ahead) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }

  bool fail(const std::string& message) {
    error_ = "line " + std::to_string(line_) + ": " + message;
    return false;
  }

  ResourceToken& push(Kind kind) {
    ResourceToken& token = tokens_.emplace_back();
    token.kind = kind;
    token.line = line_;
    return token;
  }

  bool checkEncoding() {
    int line = 1;
    for (size_t at = 0; at < text_.size();) {
      const size_t length = utf8SequenceLength(text_, at);
      if (length == 0) {
        error_ = "line " + std::to_string(line) + ": the text is not UTF-8";
        return false;
      }
      if (text_[at] == '\n') ++line;
      at += length;
    }
    return true;
  }

  bool atLineStart() const {
    for (size_t back = at_; back > 0; --back) {
      const char before = text_[back - 1];
      if (before == '\n') return true;
      if (before != ' ' && before != '\t') return false;
    }
    return true;
  }

  // False at the end of the text (or after a fault).
  bool skipBlanksAndComments() {
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (c == '\n') {
        ++line_;
        ++at_;
      } else if (c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v') {
        ++at_;
      } else if (c == '/' && peek(1) == '/') {
        while (at_ < text_.size() && text_[at_] != '\n') ++at_;
      } else if (c == '/' && peek(1) == '*') {
        const int startLine = line_;
        const size_t end = text_.find("*/", at_ + 2);
        if (end == std::string_view::npos) {
          line_ = startLine;
          fail("a comment that is never closed with */");
          return false;
        }
        for (size_t i = at_; i < end; ++i) line_ += text_[i] == '\n' ? 1 : 0;
        at_ = end + 2;
      } else {
        return true;
      }
    }
    return false;
  }

  bool directive() {
    size_t end = text_.find('\n', at_);
    if (end == std::string_view::npos) end = text_.size();
    std::string_view rest = text_.substr(at_ + 1, end - at_ - 1);
    if (size_t comment = rest.find("//"); comment != std::string_view::npos) {
      rest = rest.substr(0, comment);
    }
    push(Kind::Directive).text = api::fromUtf8(rest);
    at_ = end;
    return true;
  }

  void word() {
    const size_t start = at_;
    while (at_ < text_.size() && isWordChar(text_[at_])) ++at_;
    const std::string_view word = text_.substr(start, at_ - start);
    if (sameWord(word, "BEGIN")) {
      push(Kind::Begin);
    } else if (sameWord(word, "END")) {
      push(Kind::End);
    } else {
      push(Kind::Word).text = api::fromUtf8(word);
    }
  }

  bool number() {
    const size_t start = at_;
    if (text_[at_] == '-') ++at_;
    const bool hex = peek(0) == '0' && (peek(1) == 'x' || peek(1) == 'X');
    if (hex) at_ += 2;
    const size_t digits = at_;
    while (at_ < text_.size() &&
           (hex ? std::isxdigit(static_cast<unsigned char>(text_[at_])) : isDigit(text_[at_]))) {
      ++at_;
    }
    const std::string spelled(text_.substr(start, at_ - start));
    if (at_ == digits || (at_ < text_.size() && isWordStart(text_[at_]) &&
                          std::toupper(static_cast<unsigned char>(text_[at_])) != 'L' &&
                          std::toupper(static_cast<unsigned char>(text_[at_])) != 'U')) {
      size_t end = at_;
      while (end < text_.size() && isWordChar(text_[end])) ++end;
      return fail("a malformed number '" + std::string(text_.substr(start, end - start)) + "'");
    }
    // The C suffixes of long and unsigned numbers change nothing here.
    while (at_ < text_.size() && (std::toupper(static_cast<unsigned char>(text_[at_])) == 'L' ||
                                  std::toupper(static_cast<unsigned char>(text_[at_])) == 'U')) {
      ++at_;
    }
    push(Kind::Number).value = std::strtoll(spelled.c_str(), nullptr, 0);
    return true;
  }

  bool string() {
    if (text_[at_] != '"') ++at_;  // the L of a wide string
    ++at_;
    std::string bytes;
    const int startLine = line_;
    for (;;) {
      if (at_ >= text_.size() || text_[at_] == '\n') {
        line_ = startLine;
        return fail("a string that is not closed on its line");
      }
      const char c = text_[at_++];
      if (c == '"') {
        if (peek(0) != '"') break;
        bytes += '"';  // "" stands for one quote
        ++at_;
      } else if (c == '\\') {
        const char escaped = peek(0);
        ++at_;
        switch (escaped) {
          case 'n':
            bytes += '\n';
            break;
          case 't':
            bytes += '\t';
            break;
          case 'r':
            bytes += '\r';
            break;
          case '\\':
            bytes += '\\';
            break;
          case '"':
            bytes += '"';
            break;
          default:
            return fail("an unknown escape '\\" + std::string(1, escaped) +
                        "' (known: \\n \\t \\r \\\\ \\\")");
        }
      } else {
        bytes += c;
      }
    }
    ResourceToken& token = push(Kind::String);
    token.line = startLine;
    token.text = api::fromUtf8(bytes);
    return true;
  }

  std::string_view text_;
  std::vector<ResourceToken>& tokens_;
  std::string& error_;
  size_t at_ = 0;
  int line_ = 1;
};

}  // namespace

bool tokenizeResourceScript(std::string_view source, std::vector<ResourceToken>& tokens,
                            std::string& error) {
  tokens.clear();
  error.clear();
  return Lexer(source, tokens, error).run();
}

std::string describeToken(const ResourceToken& token) {
  switch (token.kind) {
    case ResourceToken::Kind::Word:
      return "'" + api::toUtf8(token.text) + "'";
    case ResourceToken::Kind::Number:
      return std::to_string(token.value);
    case ResourceToken::Kind::String:
      return "the string \"" + api::toUtf8(token.text) + "\"";
    case ResourceToken::Kind::Comma:
      return "','";
    case ResourceToken::Kind::Pipe:
      return "'|'";
    case ResourceToken::Kind::Begin:
      return "BEGIN";
    case ResourceToken::Kind::End:
      return "END";
    case ResourceToken::Kind::Directive:
      return "'#" + api::toUtf8(token.text) + "'";
  }
  return "?";
}

}  // namespace korva::ui
