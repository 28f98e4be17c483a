// Numbers: + - * / and comparisons. Integers stay integers (32 bits, wrapping) until a
// real takes part.
#include <cstdint>

#include "lisp/interpreter.h"
#include "lisp/printer.h"

namespace korva::lisp {
namespace {

enum class Operation { Add, Subtract, Multiply, Divide };

std::int32_t wrapped(std::int64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

Value combine(const Value& left, const Value& right, Operation operation) {
  if (left.kind == Value::Kind::Integer && right.kind == Value::Kind::Integer) {
    const std::int64_t a = left.integer;
    const std::int64_t b = right.integer;
    switch (operation) {
      case Operation::Add:
        return Value::ofInteger(wrapped(a + b));
      case Operation::Subtract:
        return Value::ofInteger(wrapped(a - b));
      case Operation::Multiply:
        return Value::ofInteger(wrapped(a * b));
      case Operation::Divide:
        if (b == 0) fail(L"divide by zero");
        return Value::ofInteger(wrapped(a / b));
    }
  }
  const double a = left.number();
  const double b = right.number();
  switch (operation) {
    case Operation::Add:
      return Value::ofReal(a + b);
    case Operation::Subtract:
      return Value::ofReal(a - b);
    case Operation::Multiply:
      return Value::ofReal(a * b);
    case Operation::Divide:
      if (b == 0) fail(L"divide by zero");
      return Value::ofReal(a / b);
  }
  return Value::nil();
}

// (+) is 0, (- x) is -x, (/ x) is x; otherwise left to right.
Value fold(std::vector<Value>& arguments, Operation operation) {
  for (const Value& each : arguments) numberArgument(each);
  if (arguments.empty()) return Value::ofInteger(0);
  if (arguments.size() == 1 && operation == Operation::Subtract) {
    return combine(Value::ofInteger(0), arguments[0], operation);
  }
  Value result = arguments[0];
  for (size_t index = 1; index < arguments.size(); ++index) {
    result = combine(result, arguments[index], operation);
  }
  return result;
}

Value add(Interpreter&, std::vector<Value>& arguments) {
  return fold(arguments, Operation::Add);
}
Value subtract(Interpreter&, std::vector<Value>& arguments) {
  return fold(arguments, Operation::Subtract);
}
Value multiply(Interpreter&, std::vector<Value>& arguments) {
  return fold(arguments, Operation::Multiply);
}
Value divide(Interpreter&, std::vector<Value>& arguments) {
  return fold(arguments, Operation::Divide);
}

// Numbers compare by value, strings by their characters; names are equal or not.
int compare(const Value& left, const Value& right) {
  if (left.isNumber() && right.isNumber()) {
    return left.number() < right.number() ? -1 : (left.number() > right.number() ? 1 : 0);
  }
  if (left.kind == Value::Kind::String && right.kind == Value::Kind::String) {
    return left.text.compare(right.text) < 0 ? -1 : (left.text == right.text ? 0 : 1);
  }
  const bool names = left.kind == Value::Kind::Entity || left.kind == Value::Kind::SelectionSet;
  if (names && right.kind == left.kind) {
    return left.name[0] == right.name[0] && left.name[1] == right.name[1] ? 0 : 1;
  }
  const Value& odd = left.isNumber() || left.kind == Value::Kind::String ? right : left;
  fail(L"bad argument type: numberp: " + printed(odd));
}

template <bool (*holds)(int)>
Value chain(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, SIZE_MAX);
  for (size_t index = 1; index < arguments.size(); ++index) {
    if (!holds(compare(arguments[index - 1], arguments[index]))) return Value::nil();
  }
  return Value::trueValue();
}

bool equal(int order) {
  return order == 0;
}
bool less(int order) {
  return order < 0;
}
bool greater(int order) {
  return order > 0;
}
bool lessOrEqual(int order) {
  return order <= 0;
}
bool greaterOrEqual(int order) {
  return order >= 0;
}
bool unequal(int order) {
  return order != 0;
}

}  // namespace

void defineArithmetic(Interpreter& interpreter) {
  interpreter.defineFunction(L"+", add);
  interpreter.defineFunction(L"-", subtract);
  interpreter.defineFunction(L"*", multiply);
  interpreter.defineFunction(L"/", divide);
  interpreter.defineFunction(L"=", chain<equal>);
  interpreter.defineFunction(L"/=", chain<unequal>);
  interpreter.defineFunction(L"<", chain<less>);
  interpreter.defineFunction(L">", chain<greater>);
  interpreter.defineFunction(L"<=", chain<lessOrEqual>);
  interpreter.defineFunction(L">=", chain<greaterOrEqual>);
}

}  // namespace korva::lisp
