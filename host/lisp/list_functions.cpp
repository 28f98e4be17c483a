// Lists: list, car, cdr, cadr, nth; and the tests not and null.
#include "lisp/interpreter.h"
#include "lisp/printer.h"

namespace korva::lisp {
namespace {

const std::vector<Value>& consArgument(const Value& value) {
  if (value.kind != Value::Kind::Nil && value.kind != Value::Kind::List) {
    fail(L"bad argument type: consp " + printed(value));
  }
  return listArgument(value);
}

Value list(Interpreter&, std::vector<Value>& arguments) {
  return Value::ofList(std::move(arguments));
}

Value car(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  const std::vector<Value>& items = consArgument(arguments[0]);
  return items.empty() ? Value::nil() : items.front();
}

Value rest(const std::vector<Value>& items) {
  if (items.size() <= 1) return Value::nil();
  return Value::ofList(std::vector<Value>(items.begin() + 1, items.end()));
}

Value cdr(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  return rest(consArgument(arguments[0]));
}

Value cadr(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  const std::vector<Value>& items = consArgument(arguments[0]);
  return items.size() < 2 ? Value::nil() : items[1];
}

// (nth index list): nil beyond the end.
Value nth(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 2, 2);
  const std::int32_t index = integerArgument(arguments[0]);
  const std::vector<Value>& items = consArgument(arguments[1]);
  if (index < 0 || static_cast<size_t>(index) >= items.size()) return Value::nil();
  return items[static_cast<size_t>(index)];
}

Value notNil(Interpreter&, std::vector<Value>& arguments) {
  requireCount(arguments, 1, 1);
  return arguments[0].isNil() ? Value::trueValue() : Value::nil();
}

}  // namespace

void defineListFunctions(Interpreter& interpreter) {
  interpreter.defineFunction(L"LIST", list);
  interpreter.defineFunction(L"CAR", car);
  interpreter.defineFunction(L"CDR", cdr);
  interpreter.defineFunction(L"CADR", cadr);
  interpreter.defineFunction(L"NTH", nth);
  interpreter.defineFunction(L"NOT", notNil);
  interpreter.defineFunction(L"NULL", notNil);
}

}  // namespace korva::lisp
