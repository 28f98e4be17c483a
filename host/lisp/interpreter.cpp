#include "lisp/interpreter.h"

#include "api/print_sink.h"
#include "input/console.h"
#include "lisp/module_functions.h"
#include "lisp/printer.h"
#include "lisp/reader.h"

namespace korva::lisp {
namespace {

// Deep enough for any script; shallow enough for the C++ stack under it.
constexpr int kMostNesting = 1000;

class NestingGuard {
 public:
  explicit NestingGuard(int& depth) : depth_(depth) {
    if (++depth_ > kMostNesting) {
      --depth_;
      fail(L"too deeply nested");
    }
  }
  ~NestingGuard() { --depth_; }
  NestingGuard(const NestingGuard&) = delete;
  NestingGuard& operator=(const NestingGuard&) = delete;

 private:
  int& depth_;
};

// A defun's parameters and locals are bound for the call and the earlier values come
// back afterwards, also when the call fails.
class DynamicBindings {
 public:
  explicit DynamicBindings(Interpreter& interpreter) : interpreter_(interpreter) {}
  ~DynamicBindings() {
    for (auto each = saved_.rbegin(); each != saved_.rend(); ++each) {
      if (each->second) {
        interpreter_.setVariable(each->first, *each->second);
      } else {
        interpreter_.unbind(each->first);
      }
    }
  }
  DynamicBindings(const DynamicBindings&) = delete;
  DynamicBindings& operator=(const DynamicBindings&) = delete;

  void bind(const std::wstring& name, Value value) {
    saved_.emplace_back(name, interpreter_.isBound(name)
                                  ? std::optional<Value>(interpreter_.variable(name))
                                  : std::nullopt);
    interpreter_.setVariable(name, std::move(value));
  }

 private:
  Interpreter& interpreter_;
  std::vector<std::pair<std::wstring, std::optional<Value>>> saved_;
};

}  // namespace

void fail(std::wstring message) {
  throw EvaluationError{std::move(message)};
}

Interpreter& Interpreter::instance() {
  static Interpreter interpreter;
  return interpreter;
}

Interpreter::Interpreter() {
  defineSyntaxForms(*this);
  defineArithmetic(*this);
  defineListFunctions(*this);
  defineTextFunctions(*this);
  defineHostFunctions(*this);
}

Outcome Interpreter::run(std::wstring_view text) {
  Outcome outcome;
  ReadResult read = lisp::read(text);
  if (!read.ok()) {
    outcome.error = read.error;
    return outcome;
  }
  try {
    Value last;
    for (const Value& expression : read.expressions) last = evaluate(expression);
    outcome.value = std::move(last);
  } catch (const EvaluationError& error) {
    outcome.error = error.message;
  }
  return outcome;
}

std::optional<Value> Interpreter::evaluateText(std::wstring_view text) {
  Outcome outcome = run(text);
  if (!outcome.value) printError(outcome.error);
  return outcome.value;
}

Value Interpreter::evaluate(const Value& expression) {
  switch (expression.kind) {
    case Value::Kind::Symbol:
      return expression.text == L"T" ? expression : variable(expression.text);
    case Value::Kind::List:
      return evaluateCall(expression);
    default:
      return expression;
  }
}

Value Interpreter::evaluateCall(const Value& form) {
  NestingGuard guard(depth_);
  const Value& head = form.items.front();
  if (head.kind != Value::Kind::Symbol) fail(L"bad function: " + printed(head));
  if (auto syntax = syntaxForms_.find(head.text); syntax != syntaxForms_.end()) {
    return syntax->second(*this, form);
  }
  std::vector<Value> arguments;
  arguments.reserve(form.items.size() - 1);
  for (size_t index = 1; index < form.items.size(); ++index) {
    arguments.push_back(evaluate(form.items[index]));
  }
  return apply(head.text, std::move(arguments));
}

Value Interpreter::apply(const std::wstring& name, std::vector<Value> arguments) {
  if (auto bound = globals_.find(name);
      bound != globals_.end() && bound->second.kind == Value::Kind::Function) {
    std::shared_ptr<const UserFunction> function = bound->second.function;
    return callDefun(*function, arguments);
  }
  if (std::optional<Value> result = callModuleFunction(name, arguments)) return *result;
  if (auto builtIn = functions_.find(name); builtIn != functions_.end()) {
    return builtIn->second(*this, arguments);
  }
  fail(L"no function definition: " + name);
}

Value Interpreter::callDefun(const UserFunction& function, std::vector<Value>& arguments) {
  if (arguments.size() < function.parameters.size()) fail(L"too few arguments");
  if (arguments.size() > function.parameters.size()) fail(L"too many arguments");
  DynamicBindings bindings(*this);
  for (size_t index = 0; index < arguments.size(); ++index) {
    bindings.bind(function.parameters[index], std::move(arguments[index]));
  }
  for (const std::wstring& local : function.locals) bindings.bind(local, Value::nil());
  Value result;
  for (const Value& expression : function.body) result = evaluate(expression);
  return result;
}

Value Interpreter::variable(const std::wstring& name) const {
  auto found = globals_.find(name);
  return found == globals_.end() ? Value::nil() : found->second;
}

void Interpreter::setVariable(const std::wstring& name, Value value) {
  globals_[name] = std::move(value);
}

void Interpreter::defineFunction(const std::wstring& name, Function function) {
  functions_[name] = function;
}

void Interpreter::defineSyntaxForm(const std::wstring& name, SyntaxForm form) {
  syntaxForms_[name] = form;
}

void Interpreter::print(std::wstring_view text) {
  api::printText(text);
}

void Interpreter::printError(std::wstring_view message) {
  const bool freshLine = input::Console::instance().atLineStart();
  print((freshLine ? L"; error: " : L"\n; error: ") + std::wstring(message) + L"\n");
}

void requireCount(const std::vector<Value>& arguments, size_t least, size_t most) {
  if (arguments.size() < least) fail(L"too few arguments");
  if (arguments.size() > most) fail(L"too many arguments");
}

double numberArgument(const Value& value) {
  if (!value.isNumber()) fail(L"bad argument type: numberp: " + printed(value));
  return value.number();
}

std::int32_t integerArgument(const Value& value) {
  if (value.kind != Value::Kind::Integer) fail(L"bad argument type: fixnump: " + printed(value));
  return value.integer;
}

const std::wstring& stringArgument(const Value& value) {
  if (value.kind != Value::Kind::String) fail(L"bad argument type: stringp " + printed(value));
  return value.text;
}

const std::vector<Value>& listArgument(const Value& value) {
  static const std::vector<Value> empty;
  if (value.kind == Value::Kind::Nil) return empty;
  if (value.kind != Value::Kind::List) fail(L"bad argument type: listp " + printed(value));
  return value.items;
}

}  // namespace korva::lisp
