// What LISP asks of the host: system variables, commands, printing.
#include <string>

#include "cmd/processor.h"
#include "lisp/answers.h"
#include "lisp/interpreter.h"
#include "lisp/printer.h"
#include "qx_memory.h"
#include "qx_settings.h"
#include "qx_variables.h"

namespace korva::lisp {
namespace {

Value getvarValue(const std::wstring& name) {
  ResultBuffer node{};
  if (qxedGetVar(name.c_str(), &node) != RTNORM) return Value::nil();
  switch (node.type) {
    case RTSHORT:
      return Value::ofInteger(node.value.rint);
    case RTLONG:
      return Value::ofInteger(node.value.rlong);
    case RTREAL:
    case RTANG:
      return Value::ofReal(node.value.rreal);
    case RTPOINT:
      return Value::ofPoint(node.value.rpoint, 2);
    case RT3DPOINT:
      return Value::ofPoint(node.value.rpoint, 3);
    case RTSTR: {
      Value text = Value::ofString(node.value.rstring ? node.value.rstring : L"");
      qxad_free(node.value.rstring);
      return text;
    }
    default:
      return Value::nil();
  }
}

Value getvar(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  return getvarValue(stringArgument(arguments[0]));
}

// (setvar name value): the value the variable holds afterwards.
Value setvar(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 2, 2);
  const std::wstring& name = stringArgument(arguments[0]);
  const Value& value = arguments[1];
  ResultBuffer node{};
  std::wstring text;
  if (value.kind == Value::Kind::Integer) {
    if (value.integer >= INT16_MIN && value.integer <= INT16_MAX) {
      node.type = RTSHORT;
      node.value.rint = static_cast<std::int16_t>(value.integer);
    } else {
      node.type = RTLONG;
      node.value.rlong = value.integer;
    }
  } else if (value.kind == Value::Kind::Real) {
    node.type = RTREAL;
    node.value.rreal = value.real;
  } else if (value.kind == Value::Kind::String) {
    text = value.text;
    node.type = RTSTR;
    node.value.rstring = text.data();
  } else if (value.isPoint()) {
    node.type = value.items.size() == 2 ? RTPOINT : RT3DPOINT;
    for (size_t index = 0; index < value.items.size(); ++index) {
      node.value.rpoint[index] = value.items[index].number();
    }
  } else {
    fail(L"bad argument type: " + printed(value));
  }
  if (qxedSetVar(name.c_str(), &node) != RTNORM) {
    fail(L"variable setting rejected: \"" + name + L"\" " + printed(value));
  }
  return getvarValue(name);
}

// (getenv name): the text the environment store keeps under name, or nil.
Value getenvText(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  std::wstring text(4096, L'\0');
  if (qxedGetEnv(stringArgument(arguments[0]).c_str(), text.data(), text.size()) != RTNORM) {
    return Value::nil();
  }
  return Value::ofString(text.c_str());
}

// (setenv name text): keeps text in the environment store, for this run and the next.
Value setenvText(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 2, 2);
  const std::wstring& name = stringArgument(arguments[0]);
  const std::wstring& text = stringArgument(arguments[1]);
  if (qxedSetEnv(name.c_str(), text.c_str()) != RTNORM) {
    fail(L"the environment store rejected \"" + name + L"\"");
  }
  return arguments[1];
}

// (command token...): runs the tokens as if typed; nil. (command) alone cancels.
Value command(Interpreter&, std::vector<Value>& arguments) {
  std::vector<input::Answer> tokens;
  for (const Value& each : arguments) {
    if (each.isNil()) continue;
    std::optional<input::Answer> token = answerOf(each);
    if (!token) fail(L"bad argument type: " + printed(each));
    tokens.push_back(std::move(*token));
  }
  if (arguments.empty()) tokens.push_back(input::Answer::cancel());
  cmd::Processor::instance().runTokens(std::move(tokens));
  return Value::nil();
}

// (princ), with nothing to print, gives no value: a quiet end.
Value princ(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 0, 1);
  if (arguments.empty()) return Value::nothing();
  Interpreter::print(displayed(arguments[0]));
  return arguments[0];
}

Value prin1(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 0, 1);
  if (arguments.empty()) return Value::nothing();
  Interpreter::print(printed(arguments[0]));
  return arguments[0];
}

// A line end, the value, and a blank after it.
Value print(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 0, 1);
  if (arguments.empty()) return Value::nothing();
  Interpreter::print(L"\n" + printed(arguments[0]) + L" ");
  return arguments[0];
}

Value terpri(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 0, 0);
  Interpreter::print(L"\n");
  return Value::nil();
}

}  // namespace

void defineHostFunctions(Interpreter& interpreter) {
  interpreter.defineFunction(L"GETVAR", getvar);
  interpreter.defineFunction(L"SETVAR", setvar);
  interpreter.defineFunction(L"GETENV", getenvText);
  interpreter.defineFunction(L"SETENV", setenvText);
  interpreter.defineFunction(L"COMMAND", command);
  interpreter.defineFunction(L"PRINC", princ);
  interpreter.defineFunction(L"PRIN1", prin1);
  interpreter.defineFunction(L"PRINT", print);
  interpreter.defineFunction(L"TERPRI", terpri);
}

}  // namespace korva::lisp
