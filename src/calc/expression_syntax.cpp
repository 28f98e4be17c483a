#include "expression_syntax.h"

#include <charconv>
#include <cwchar>
#include <cwctype>

bool isNumberWord(std::wstring_view word, wchar_t decimalPoint) {
  bool pointSeen = false;
  for (wchar_t character : word) {
    if (character == decimalPoint) {
      if (pointSeen) return false;
      pointSeen = true;
      continue;
    }
    // Only the low byte is tested, as the host's wide digit test did.
    if (!std::iswdigit(static_cast<wint_t>(character & 0xFF))) return false;
  }
  return true;
}

wchar_t findSyntaxCharacter(std::wstring_view text, const ExpressionSyntax& syntax) {
  for (wchar_t character : text) {
    if (character == syntax.decimalPoint || character == syntax.argumentSeparator ||
        character == syntax.openingBracket || character == syntax.closingBracket ||
        character == kOpeningParenthesis || character == kClosingParenthesis) {
      return character;
    }
  }
  return 0;
}

// The same correctly rounded result as the C library's wide conversion, without its
// allocation; the library is asked only when the value leaves the range of a double.
double numberWordValue(std::wstring_view word, wchar_t decimalPoint) {
  std::string narrow;
  narrow.reserve(word.size());
  bool pointSeen = false;
  for (wchar_t character : word) {
    if (character >= L'0' && character <= L'9') {
      narrow.push_back(static_cast<char>(character));
    } else if (character == decimalPoint && !pointSeen) {
      narrow.push_back('.');
      pointSeen = true;
    } else {
      break;  // where the wide conversion would stop too
    }
  }
  double value = 0.0;
  auto [end, error] = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
  if (error == std::errc::result_out_of_range) {
    std::wstring wide(narrow.begin(), narrow.end());
    return std::wcstod(wide.c_str(), nullptr);
  }
  if (error != std::errc()) return 0.0;
  return value;
}
