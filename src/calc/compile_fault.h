#pragma once

#include <cstdint>
#include <string>

#include "expr_exceptions.h"

inline constexpr const wchar_t* kCompilerSource = L"ExprCompiler";

[[noreturn]] inline void throwCompileFault(std::uint32_t code, std::int64_t position,
                                           std::wstring item = {}, std::int32_t argumentCount = 0,
                                           std::uint32_t line = __builtin_LINE()) {
  SExprParsingExcepData data;
  data.errorCode = code;
  data.position = static_cast<std::int32_t>(position);
  data.item = std::move(item);
  data.argumentCount = argumentCount;
  throw ParseError(std::move(data), kCompilerSource, line);
}
