#include "lisp/value.h"

#include <cwctype>

namespace korva::lisp {

Value Value::nothing() {
  Value value;
  value.kind = Kind::Void;
  return value;
}

Value Value::trueValue() {
  return ofSymbol(L"T");
}

Value Value::ofInteger(std::int32_t number) {
  Value value;
  value.kind = Kind::Integer;
  value.integer = number;
  return value;
}

Value Value::ofReal(double number) {
  Value value;
  value.kind = Kind::Real;
  value.real = number;
  return value;
}

Value Value::ofString(std::wstring text) {
  Value value;
  value.kind = Kind::String;
  value.text = std::move(text);
  return value;
}

Value Value::ofSymbol(std::wstring name) {
  std::wstring upper = upperCase(name);
  if (upper == L"NIL") return nil();
  Value value;
  value.kind = Kind::Symbol;
  value.text = std::move(upper);
  return value;
}

Value Value::ofList(std::vector<Value> items) {
  if (items.empty()) return nil();
  Value value;
  value.kind = Kind::List;
  value.items = std::move(items);
  return value;
}

Value Value::ofEntity(const std::int64_t name[2]) {
  Value value;
  value.kind = Kind::Entity;
  value.name[0] = name[0];
  value.name[1] = name[1];
  return value;
}

Value Value::ofSelectionSet(const std::int64_t name[2]) {
  Value value = ofEntity(name);
  value.kind = Kind::SelectionSet;
  return value;
}

Value Value::ofPoint(const double point[3], int dimensions) {
  std::vector<Value> items;
  for (int index = 0; index < dimensions; ++index) items.push_back(ofReal(point[index]));
  return ofList(std::move(items));
}

Value Value::ofFunction(std::shared_ptr<const UserFunction> function) {
  Value value;
  value.kind = Kind::Function;
  value.function = std::move(function);
  return value;
}

bool Value::isPoint() const {
  if (kind != Kind::List || items.size() < 2 || items.size() > 3) return false;
  for (const Value& each : items) {
    if (!each.isNumber()) return false;
  }
  return true;
}

std::wstring upperCase(std::wstring_view text) {
  std::wstring upper(text);
  for (wchar_t& each : upper) each = static_cast<wchar_t>(std::towupper(each));
  return upper;
}

}  // namespace korva::lisp
