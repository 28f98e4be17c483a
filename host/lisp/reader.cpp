#include "lisp/reader.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cwchar>
#include <cwctype>
#include <optional>

namespace korva::lisp {
namespace {

struct ReadFailure {
  std::wstring message;
};

class Reader {
 public:
  explicit Reader(std::wstring_view text) : text_(text) {}

  bool atEnd() {
    skipBlanks();
    return position_ >= text_.size();
  }

  Value expression() {
    skipBlanks();
    if (position_ >= text_.size()) throw ReadFailure{L"malformed list on input"};
    const wchar_t first = text_[position_];
    if (first == L'(') {
      ++position_;
      return list();
    }
    if (first == L')') throw ReadFailure{L"extra right paren on input"};
    if (first == L'\'') {
      ++position_;
      return Value::ofList({Value::ofSymbol(L"QUOTE"), expression()});
    }
    if (first == L'"') {
      ++position_;
      return string();
    }
    return atom();
  }

 private:
  void skipBlanks() {
    while (position_ < text_.size()) {
      const wchar_t each = text_[position_];
      if (std::iswspace(each)) {
        ++position_;
      } else if (each == L';') {
        skipComment();
      } else {
        return;
      }
    }
  }

  // ";" to the end of the line, or ";|" to "|;".
  void skipComment() {
    if (position_ + 1 < text_.size() && text_[position_ + 1] == L'|') {
      const size_t end = text_.find(L"|;", position_ + 2);
      position_ = end == std::wstring_view::npos ? text_.size() : end + 2;
      return;
    }
    const size_t end = text_.find(L'\n', position_);
    position_ = end == std::wstring_view::npos ? text_.size() : end + 1;
  }

  Value list() {
    std::vector<Value> items;
    for (;;) {
      skipBlanks();
      if (position_ >= text_.size()) throw ReadFailure{L"malformed list on input"};
      if (text_[position_] == L')') {
        ++position_;
        return Value::ofList(std::move(items));
      }
      items.push_back(expression());
      if (items.back().isSymbol(L".")) throw ReadFailure{L"dotted pairs are not read"};
    }
  }

  Value string() {
    std::wstring text;
    while (position_ < text_.size()) {
      wchar_t each = text_[position_++];
      if (each == L'"') return Value::ofString(std::move(text));
      if (each == L'\\' && position_ < text_.size()) each = escaped();
      text += each;
    }
    throw ReadFailure{L"malformed string on input"};
  }

  // After a backslash: \\ \" \n \r \t \e and \nnn in octal; anything else stands for itself.
  wchar_t escaped() {
    const wchar_t each = text_[position_++];
    switch (each) {
      case L'n':
        return L'\n';
      case L'r':
        return L'\r';
      case L't':
        return L'\t';
      case L'e':
        return L'\x1b';
      default:
        break;
    }
    if (each >= L'0' && each <= L'7') {
      int code = each - L'0';
      for (int digits = 1; digits < 3 && position_ < text_.size() && text_[position_] >= L'0' &&
                           text_[position_] <= L'7';
           ++digits) {
        code = code * 8 + (text_[position_++] - L'0');
      }
      return static_cast<wchar_t>(code);
    }
    return each;
  }

  static bool endsAtom(wchar_t each) {
    return std::iswspace(each) || each == L'(' || each == L')' || each == L'"' || each == L';' ||
           each == L'\'';
  }

  Value atom() {
    const size_t start = position_;
    while (position_ < text_.size() && !endsAtom(text_[position_])) ++position_;
    const std::wstring token(text_.substr(start, position_ - start));
    if (std::optional<Value> number = numberOf(token)) return *number;
    return Value::ofSymbol(token);
  }

  // An integer beyond 32 bits is read as a real.
  static std::optional<Value> numberOf(const std::wstring& token) {
    const wchar_t* begin = token.c_str();
    wchar_t* end = nullptr;
    const bool hasDigit = token.find_first_of(L"0123456789") != std::wstring::npos;
    if (!hasDigit) return std::nullopt;
    errno = 0;
    const long long whole = std::wcstoll(begin, &end, 10);
    if (*end == L'\0' && errno == 0 && whole >= INT32_MIN && whole <= INT32_MAX) {
      return Value::ofInteger(static_cast<std::int32_t>(whole));
    }
    const bool plainDecimal = token.find_first_of(L"xXnNiIpP") == std::wstring::npos;
    const double real = std::wcstod(begin, &end);
    if (*end == L'\0' && plainDecimal) return Value::ofReal(real);
    return std::nullopt;
  }

  std::wstring_view text_;
  size_t position_ = 0;
};

}  // namespace

ReadResult read(std::wstring_view text) {
  ReadResult result;
  Reader reader(text);
  try {
    while (!reader.atEnd()) result.expressions.push_back(reader.expression());
  } catch (const ReadFailure& failure) {
    result.expressions.clear();
    result.error = failure.message;
  }
  return result;
}

}  // namespace korva::lisp
