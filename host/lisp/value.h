// The values of korva's LISP.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace korva::lisp {

struct Value;

// A function made with defun: its parameters, the locals after "/", the body.
struct UserFunction {
  std::wstring name;
  std::vector<std::wstring> parameters;
  std::vector<std::wstring> locals;
  std::vector<Value> body;
};

struct Value {
  enum class Kind {
    Nil,      // nil, also the empty list
    Void,     // no value at all: (princ), a module function that returned void
    Integer,  // 32 bits; sums and products wrap around
    Real,
    String,
    Symbol,  // name in upper case; T is the symbol T
    List,    // never empty
    Entity,  // an entity name of the flat layer
    SelectionSet,
    Function,  // a defun
  };
  Kind kind = Kind::Nil;
  std::int32_t integer = 0;
  double real = 0;
  std::wstring text;              // String and Symbol
  std::vector<Value> items;       // List
  std::int64_t name[2] = {0, 0};  // Entity and SelectionSet
  std::shared_ptr<const UserFunction> function;

  static Value nil() { return {}; }
  static Value nothing();
  static Value trueValue();
  static Value ofInteger(std::int32_t value);
  static Value ofReal(double value);
  static Value ofString(std::wstring value);
  static Value ofSymbol(std::wstring name);       // upper-cased; NIL gives nil
  static Value ofList(std::vector<Value> items);  // empty gives nil
  static Value ofEntity(const std::int64_t value[2]);
  static Value ofSelectionSet(const std::int64_t value[2]);
  static Value ofPoint(const double point[3], int dimensions = 3);
  static Value ofFunction(std::shared_ptr<const UserFunction> function);

  bool isNil() const { return kind == Kind::Nil || kind == Kind::Void; }
  bool isNumber() const { return kind == Kind::Integer || kind == Kind::Real; }
  bool isSymbol(std::wstring_view symbol) const { return kind == Kind::Symbol && text == symbol; }
  double number() const { return kind == Kind::Integer ? integer : real; }
  // A list of two or three numbers.
  bool isPoint() const;
};

// Upper case, as symbols are kept.
std::wstring upperCase(std::wstring_view text);

}  // namespace korva::lisp
