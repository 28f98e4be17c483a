// Strings and numbers as text: strcat, itoa, atoi, atof, rtos.
#include <cwchar>
#include <cwctype>

#include "lisp/interpreter.h"
#include "qx_types.h"
#include "qx_units.h"

namespace korva::lisp {
namespace {

constexpr size_t kNumberTextChars = 128;

Value strcat(Interpreter&, std::vector<Value>& arguments) {
  std::wstring joined;
  for (const Value& each : arguments) joined += stringArgument(each);
  return Value::ofString(std::move(joined));
}

Value itoa(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  return Value::ofString(std::to_wstring(integerArgument(arguments[0])));
}

// The leading integer of the text, 0 when there is none, as the C library reads it.
Value atoi(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  const long long value = std::wcstoll(stringArgument(arguments[0]).c_str(), nullptr, 10);
  return Value::ofInteger(static_cast<std::int32_t>(value));
}

Value atof(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  return Value::ofReal(std::wcstod(stringArgument(arguments[0]).c_str(), nullptr));
}

// (rtos number [units [precision]]): the drawing's units and precision when left out.
Value rtos(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 3);
  const double value = numberArgument(arguments[0]);
  const int units = arguments.size() > 1 ? integerArgument(arguments[1]) : -1;
  const int precision = arguments.size() > 2 ? integerArgument(arguments[2]) : -1;
  wchar_t text[kNumberTextChars] = {};
  if (qxdbRToS(value, units, precision, text, kNumberTextChars) != RTNORM) {
    return Value::nil();
  }
  return Value::ofString(text);
}

}  // namespace

void defineTextFunctions(Interpreter& interpreter) {
  interpreter.defineFunction(L"STRCAT", strcat);
  interpreter.defineFunction(L"ITOA", itoa);
  interpreter.defineFunction(L"ATOI", atoi);
  interpreter.defineFunction(L"ATOF", atof);
  interpreter.defineFunction(L"RTOS", rtos);
}

}  // namespace korva::lisp
