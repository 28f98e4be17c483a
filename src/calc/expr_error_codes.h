#pragma once

#include <cstdint>

// Fault codes of the compiler. Code 8 is unused.
namespace ParseErrorCode {
inline constexpr std::uint32_t kNoOperatorOfThatArity = 0;
inline constexpr std::uint32_t kBracketInsideBrackets = 1;
inline constexpr std::uint32_t kClosingBracketWithoutOpening = 2;
inline constexpr std::uint32_t kOperatorWithoutOperand = 3;
inline constexpr std::uint32_t kClosingParenthesisWithoutOpening = 4;
inline constexpr std::uint32_t kSeparatorOutsideParentheses = 5;
inline constexpr std::uint32_t kParenthesisNeverClosed = 6;
inline constexpr std::uint32_t kNoOverloadForArgumentCount = 7;
inline constexpr std::uint32_t kValueAfterValue = 9;
inline constexpr std::uint32_t kNotAFunction = 10;
inline constexpr std::uint32_t kUndefinedVariable = 11;
inline constexpr std::uint32_t kEmptyArgument = 12;
inline constexpr std::uint32_t kMissingOperand = 13;
}  // namespace ParseErrorCode

// Refusal codes of the registrar.
namespace DefinitionErrorCode {
inline constexpr std::uint32_t kSeparatorIsDecimalPoint = 0;
inline constexpr std::uint32_t kSeparatorIsBracket = 1;
inline constexpr std::uint32_t kDecimalPointIsBracket = 2;
inline constexpr std::uint32_t kOperatorAlreadyDefined = 3;
inline constexpr std::uint32_t kOperatorSymbolEmpty = 4;
inline constexpr std::uint32_t kOperatorHoldsSyntaxCharacter = 5;
inline constexpr std::uint32_t kOperatorPrecedenceTooHigh = 6;
inline constexpr std::uint32_t kFunctionAlreadyDefined = 7;
inline constexpr std::uint32_t kFunctionSymbolEmpty = 8;
inline constexpr std::uint32_t kFunctionHoldsSyntaxCharacter = 9;
inline constexpr std::uint32_t kFunctionOverlapsOperator = 10;
inline constexpr std::uint32_t kVariableAlreadyDefined = 11;
inline constexpr std::uint32_t kVariableNameEmpty = 12;
inline constexpr std::uint32_t kVariableNameIsNumber = 13;
inline constexpr std::uint32_t kVariableNameIsConstant = 14;
inline constexpr std::uint32_t kVariableNameHoldsBracket = 15;
inline constexpr std::uint32_t kVariableNotDefined = 16;
inline constexpr std::uint32_t kConstantAlreadyDefined = 17;
inline constexpr std::uint32_t kConstantNameEmpty = 18;
inline constexpr std::uint32_t kConstantNameIsNumber = 19;
inline constexpr std::uint32_t kConstantHoldsSyntaxCharacter = 20;
inline constexpr std::uint32_t kConstantHoldsOperator = 21;
inline constexpr std::uint32_t kConstantNameIsVariable = 22;
}  // namespace DefinitionErrorCode
