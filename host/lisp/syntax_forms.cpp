// Forms that decide themselves which of their parts are evaluated.
#include <cstdint>

#include "lisp/interpreter.h"
#include "lisp/lisp_commands.h"
#include "lisp/printer.h"

namespace korva::lisp {
namespace {

// The parts after the form's name.
size_t partCount(const Value& form) {
  return form.items.size() - 1;
}

void requireParts(const Value& form, size_t least, size_t most) {
  if (partCount(form) < least) fail(L"too few arguments");
  if (partCount(form) > most) fail(L"too many arguments");
}

Value evaluateBody(Interpreter& interpreter, const Value& form, size_t first) {
  Value result;
  for (size_t index = first; index < form.items.size(); ++index) {
    result = interpreter.evaluate(form.items[index]);
  }
  return result;
}

Value quote(Interpreter&, const Value& form) {
  requireParts(form, 1, 1);
  return form.items[1];
}

// (setq name value [name value]...): the last value.
Value setq(Interpreter& interpreter, const Value& form) {
  if (partCount(form) == 0 || partCount(form) % 2 != 0) fail(L"too few arguments");
  Value value;
  for (size_t index = 1; index < form.items.size(); index += 2) {
    const Value& name = form.items[index];
    if (name.kind != Value::Kind::Symbol || name.text == L"T") {
      fail(L"bad argument type: symbolp " + printed(name));
    }
    value = interpreter.evaluate(form.items[index + 1]);
    interpreter.setVariable(name.text, value);
  }
  return value;
}

Value ifForm(Interpreter& interpreter, const Value& form) {
  requireParts(form, 2, 3);
  if (!interpreter.evaluate(form.items[1]).isNil()) return interpreter.evaluate(form.items[2]);
  return partCount(form) == 3 ? interpreter.evaluate(form.items[3]) : Value::nil();
}

Value progn(Interpreter& interpreter, const Value& form) {
  return evaluateBody(interpreter, form, 1);
}

// (while test body...): the last value of the body, nil when it never ran.
Value whileForm(Interpreter& interpreter, const Value& form) {
  requireParts(form, 1, SIZE_MAX);
  Value result;
  while (!interpreter.evaluate(form.items[1]).isNil()) result = evaluateBody(interpreter, form, 2);
  return result;
}

Value andForm(Interpreter& interpreter, const Value& form) {
  for (size_t index = 1; index < form.items.size(); ++index) {
    if (interpreter.evaluate(form.items[index]).isNil()) return Value::nil();
  }
  return Value::trueValue();
}

Value orForm(Interpreter& interpreter, const Value& form) {
  for (size_t index = 1; index < form.items.size(); ++index) {
    if (!interpreter.evaluate(form.items[index]).isNil()) return Value::trueValue();
  }
  return Value::nil();
}

std::wstring symbolName(const Value& value) {
  if (value.kind != Value::Kind::Symbol) fail(L"bad argument type: symbolp " + printed(value));
  return value.text;
}

// (defun name (parameters / locals) body...): the name. "C:NAME" is also a command.
Value defun(Interpreter& interpreter, const Value& form) {
  requireParts(form, 2, SIZE_MAX);
  auto function = std::make_shared<UserFunction>();
  function->name = symbolName(form.items[1]);
  bool afterSlash = false;
  for (const Value& each : listArgument(form.items[2])) {
    const std::wstring name = symbolName(each);
    if (name == L"/") {
      afterSlash = true;
    } else {
      (afterSlash ? function->locals : function->parameters).push_back(name);
    }
  }
  function->body.assign(form.items.begin() + 3, form.items.end());
  interpreter.setVariable(function->name, Value::ofFunction(function));
  defineLispCommand(function->name);
  return Value::ofSymbol(function->name);
}

}  // namespace

void defineSyntaxForms(Interpreter& interpreter) {
  interpreter.defineSyntaxForm(L"QUOTE", quote);
  interpreter.defineSyntaxForm(L"SETQ", setq);
  interpreter.defineSyntaxForm(L"IF", ifForm);
  interpreter.defineSyntaxForm(L"PROGN", progn);
  interpreter.defineSyntaxForm(L"WHILE", whileForm);
  interpreter.defineSyntaxForm(L"AND", andForm);
  interpreter.defineSyntaxForm(L"OR", orForm);
  interpreter.defineSyntaxForm(L"DEFUN", defun);
}

}  // namespace korva::lisp
