// Evaluates LISP: global variables bound dynamically by defun calls, syntax forms, the
// built-in functions, defuns, and the functions modules define.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lisp/value.h"

namespace korva::lisp {

// Ends an evaluation with "; error: message". Thrown and caught inside the evaluator only.
struct EvaluationError {
  std::wstring message;
};
[[noreturn]] void fail(std::wstring message);

// The value of an evaluation, or the reason it failed.
struct Outcome {
  std::optional<Value> value;
  std::wstring error;
};

class Interpreter {
 public:
  static Interpreter& instance();

  // Arguments come evaluated.
  using Function = Value (*)(Interpreter& interpreter, std::vector<Value>& arguments);
  // Gets the whole form, unevaluated.
  using SyntaxForm = Value (*)(Interpreter& interpreter, const Value& form);

  // Evaluates the expressions of text in turn and gives the last value. A failure is
  // printed on the command line as "; error: MESSAGE" and gives nullopt.
  std::optional<Value> evaluateText(std::wstring_view text);
  // The same without printing the failure.
  Outcome run(std::wstring_view text);

  Value evaluate(const Value& expression);
  // Calls the function named (a defun, a module's function or a built-in function).
  Value apply(const std::wstring& name, std::vector<Value> arguments);
  // Calls a defun with arguments, binding its parameters and locals for the call.
  Value callDefun(const UserFunction& function, std::vector<Value>& arguments);

  Value variable(const std::wstring& name) const;
  void setVariable(const std::wstring& name, Value value);
  bool isBound(const std::wstring& name) const { return globals_.contains(name); }
  void unbind(const std::wstring& name) { globals_.erase(name); }

  void defineFunction(const std::wstring& name, Function function);
  void defineSyntaxForm(const std::wstring& name, SyntaxForm form);

  // Prints on the command line.
  static void print(std::wstring_view text);
  // Prints "; error: message" on a line of its own.
  static void printError(std::wstring_view message);

 private:
  Interpreter();
  Value evaluateCall(const Value& form);

  std::map<std::wstring, Value> globals_;
  std::map<std::wstring, Function> functions_;
  std::map<std::wstring, SyntaxForm> syntaxForms_;
  int depth_ = 0;
};

// Checks of arguments; a wrong one fails with "bad argument type: TEST VALUE".
void requireCount(const std::vector<Value>& arguments, size_t least, size_t most);
double numberArgument(const Value& value);
std::int32_t integerArgument(const Value& value);
const std::wstring& stringArgument(const Value& value);
const std::vector<Value>& listArgument(const Value& value);  // nil gives an empty list

// The families of built-in functions.
void defineSyntaxForms(Interpreter& interpreter);
void defineArithmetic(Interpreter& interpreter);
void defineListFunctions(Interpreter& interpreter);
void defineTextFunctions(Interpreter& interpreter);
void defineHostFunctions(Interpreter& interpreter);

}  // namespace korva::lisp
