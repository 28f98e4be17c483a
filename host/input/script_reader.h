// Splits script text into inputs, as desktop CAD scripts are read.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace korva::input {

// Rules: a blank or a line end ends one input, so two blanks in a row, a blank at the
// end of a line and an empty line each give an Enter; "" is an explicit Enter; a
// double-quoted input may hold blanks; a line starting with ";" is a comment; an input
// starting with "(" runs to its balanced ")", across lines, strings respected.
class ScriptReader {
 public:
  // Gives the next piece of UTF-8 text (a line with its end, or all the text); nullopt
  // when there is no more.
  using MoreText = std::function<std::optional<std::string>()>;
  explicit ScriptReader(MoreText more);

  // The next input; nullopt at the end of the text. With blanksAllowed the rest of the
  // current line is the input.
  std::optional<std::wstring> next(bool blanksAllowed);

 private:
  bool available(size_t count = 1);  // reads more text until count characters wait
  wchar_t peek() const { return text_[position_]; }
  bool atLineEnd() const;
  void skipLineEnd();
  void skipRestOfLine();
  std::wstring restOfLine();
  std::wstring lispExpression();
  void takeTerminator();

  MoreText more_;
  std::wstring text_;
  size_t position_ = 0;
  bool lineStart_ = true;
  bool firstText_ = true;
};

}  // namespace korva::input
