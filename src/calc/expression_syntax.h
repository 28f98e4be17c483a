#pragma once

#include <string>
#include <string_view>

// The characters an expression's text is cut by. Parentheses are fixed and not part of it.
struct ExpressionSyntax {
  wchar_t decimalPoint = L'.';
  wchar_t argumentSeparator = L',';
  wchar_t openingBracket = L'[';
  wchar_t closingBracket = L']';
};

inline constexpr wchar_t kOpeningParenthesis = L'(';
inline constexpr wchar_t kClosingParenthesis = L')';

// Digits with at most one decimal point. The empty word and a lone point count as numbers;
// exponent notation does not exist.
bool isNumberWord(std::wstring_view word, wchar_t decimalPoint);

// The first syntax character or parenthesis found in the text, or 0 if none.
wchar_t findSyntaxCharacter(std::wstring_view text, const ExpressionSyntax& syntax);

// Converts a number word, whose decimal point may differ from ".".
double numberWordValue(std::wstring_view word, wchar_t decimalPoint);
