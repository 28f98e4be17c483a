#include "lisp/console_hook.h"

#include "input/console.h"
#include "lisp/answers.h"
#include "lisp/interpreter.h"
#include "lisp/printer.h"

namespace korva::lisp {
namespace {

// The console prints the text of what is returned at the command prompt. A failure was
// reported already; nothing at all, as from (princ), shows nothing.
std::optional<input::Answer> evaluateAtPrompt(std::wstring_view expression, bool commandPrompt) {
  std::optional<Value> value = Interpreter::instance().evaluateText(expression);
  if (!value) return std::nullopt;
  if (commandPrompt) {
    if (value->kind == Value::Kind::Void) return std::nullopt;
    return input::Answer::ofText(printed(*value));
  }
  return answerOf(*value);
}

}  // namespace

void installConsoleHook() {
  input::Console::instance().setLispHook(evaluateAtPrompt);
}

}  // namespace korva::lisp
