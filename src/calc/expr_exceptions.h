#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// A fault found while compiling an expression. Codes are listed in ParseErrorCode.
struct SExprParsingExcepData {
  std::uint32_t errorCode = 0;
  std::int32_t position = 0;
  std::wstring item;
  std::int32_t argumentCount = 0;  // only for an overload that does not exist
  std::int32_t extraNumber = 0;
  std::wstring extraText;
};

// A definition that the registrar refuses. Codes are listed in DefinitionErrorCode.
struct SExprDefExcepData {
  std::uint32_t errorCode = 0;
  std::wstring firstItem;
  std::wstring secondItem;
};

template <class Data>
struct ExceptionRecord {
  std::uint32_t line = 0;
  std::uint32_t kind = 0;
  std::wstring sourceFile;
  Data data;
};

// Thrown by value, caught by reference. Whoever passes one on adds a record, so the records,
// newest first, read as a trace of where the fault travelled.
template <class Data>
class ExprExceptions {
 public:
  // The line defaults to the caller's own.
  ExprExceptions(Data data, std::wstring sourceFile, std::uint32_t line = __builtin_LINE()) {
    records_.push_back({line, 0, std::move(sourceFile), std::move(data)});
  }

  void addRecord(std::wstring sourceFile, std::uint32_t line = __builtin_LINE()) {
    Data copy = records_.front().data;
    records_.insert(records_.begin(), {line, 0, std::move(sourceFile), std::move(copy)});
  }

  const Data& data() const { return records_.front().data; }
  std::uint32_t errorCode() const { return data().errorCode; }
  const std::vector<ExceptionRecord<Data>>& records() const { return records_; }

 private:
  std::vector<ExceptionRecord<Data>> records_;
};

using ParseError = ExprExceptions<SExprParsingExcepData>;
using DefinitionError = ExprExceptions<SExprDefExcepData>;
