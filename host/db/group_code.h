// Value types of DXF group codes.
#pragma once

#include <cstdint>

namespace korva::db {

enum class ValueType : uint8_t {
  String,   // text, names, handles written as text
  Double,   // reals and point coordinates
  Int16,
  Int32,
  Int64,
  Bool,     // 290-299: one byte in binary files
  Binary,   // 310-319 and 1004: hex text, length-prefixed bytes in binary files
};

// The type of a group code's value; unknown codes are text.
constexpr ValueType valueTypeOf(int code) {
  if (code >= 10 && code <= 59) return ValueType::Double;
  if (code >= 60 && code <= 79) return ValueType::Int16;
  if (code >= 90 && code <= 99) return ValueType::Int32;
  if (code >= 110 && code <= 149) return ValueType::Double;
  if (code >= 160 && code <= 169) return ValueType::Int64;
  if (code >= 170 && code <= 179) return ValueType::Int16;
  if (code >= 210 && code <= 239) return ValueType::Double;
  if (code >= 270 && code <= 289) return ValueType::Int16;
  if (code >= 290 && code <= 299) return ValueType::Bool;
  if (code >= 310 && code <= 319) return ValueType::Binary;
  if (code >= 370 && code <= 389) return ValueType::Int16;
  if (code >= 400 && code <= 409) return ValueType::Int16;
  if (code >= 420 && code <= 429) return ValueType::Int32;
  if (code >= 440 && code <= 459) return ValueType::Int32;
  if (code >= 460 && code <= 469) return ValueType::Double;
  if (code == 1004) return ValueType::Binary;
  if (code >= 1010 && code <= 1059) return ValueType::Double;
  if (code >= 1060 && code <= 1070) return ValueType::Int16;
  if (code == 1071) return ValueType::Int32;
  return ValueType::String;
}

// Codes whose value names another record by its handle.
constexpr bool isPointerCode(int code) {
  return (code >= 330 && code <= 369) || (code >= 390 && code <= 399) || code == 480 ||
         code == 481 || code == 1005;
}

// Codes that carry a record's own handle (105 is the dimension style's).
constexpr bool isHandleCode(int code) { return code == 5 || code == 105; }

}  // namespace korva::db
