// Reads LISP text into values: integers, reals, strings, symbols, 'quote and lists.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lisp/value.h"

namespace korva::lisp {

struct ReadResult {
  std::vector<Value> expressions;
  std::wstring error;  // empty when the text was read whole
  bool ok() const { return error.empty(); }
};

// Every expression of text, in order. Dotted pairs are not read.
ReadResult read(std::wstring_view text);

}  // namespace korva::lisp
