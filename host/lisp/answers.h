// LISP values given as input: command tokens and answers at prompts.
#pragma once

#include <optional>

#include "input/answer.h"
#include "lisp/value.h"

namespace korva::lisp {

// Strings and numbers as text (numbers with every digit needed), lists of two or three
// numbers as points, entity names, (entity point) as a pick, selection sets. nullopt for
// anything else.
std::optional<input::Answer> answerOf(const Value& value);

}  // namespace korva::lisp
