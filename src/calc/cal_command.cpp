#include "cal_command.h"

#include <cmath>
#include <cstdint>
#include <cwctype>
#include <string>

#include "expr_exceptions.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"
#include "frame/vn_exception.h"
#include "math_expression.h"

namespace {

constexpr unsigned kExpressionPrompt = 3505;
constexpr unsigned kHelpText = 3506;
constexpr std::size_t kInputChars = 512;

// The constants as users of the calculator have always had them: pi is the truncated
// literal, so sin(pi) is not quite zero.
constexpr double kPi = 3.14159265359;
constexpr double kE = 2.718281828459045;

std::wstring trimBlanks(const std::wstring& text) {
  const std::size_t first = text.find_first_not_of(L' ');
  if (first == std::wstring::npos) return {};
  const std::size_t last = text.find_last_not_of(L' ');
  return text.substr(first, last - first + 1);
}

bool asksForHelp(const std::wstring& input) {
  return input.empty() || input == L"?";
}

void showHelp() {
  qxedTextScr();
  qxedPrompt(LoadResourceString(kHelpText).c_str());
}

// RTNORM with the typed expression in input; "?" stands as the default.
int askExpression(std::wstring& input) {
  wchar_t buffer[kInputChars] = L"?";
  const int status =
      qxedGetString(1, LoadResourceString(kExpressionPrompt).c_str(), buffer, kInputChars);
  if (status == RTNORM) input = buffer;
  return status;
}

// A faulty expression leaves the command as the module's one exception, recorded by the
// host first; the engine is gone by then.
[[noreturn]] void raiseFault() {
  VnExceptionWithMsg failure(L"\"\"", 0, L"VN_IRELEASE_THROW");
  failure.reportToCrashRecorder();
  throw failure;
}

double compute(const std::wstring& input) {
  try {
    MathExpression engine;
    engine.defineConst(L"pi", kPi);
    engine.defineConst(L"e", kE);
    engine.compile(input);
    return engine.evaluate();
  } catch (const ParseError&) {
  }
  raiseFault();
}

// Truncation toward zero as the processor does it: out of range gives the indefinite
// integer, the lowest 32-bit value.
std::int32_t truncateToInt32(double value) {
  if (!(value > -2147483649.0 && value < 2147483648.0)) return INT32_MIN;
  return static_cast<std::int32_t>(value);
}

bool isZero(double value) {
  return value == 0.0 || std::fabs(value) <= 1e-10;
}

int returnResult(double result) {
  const std::int32_t whole = truncateToInt32(result);
  if (isZero(result - static_cast<double>(whole))) {
    ResultBuffer value{};
    value.type = RTLONG;
    value.value.rlong = whole;
    return qxedRetVal(&value);
  }
  return qxedRetReal(result);
}

int computeForLisp(std::wstring input) {
  input = trimBlanks(input);
  if (asksForHelp(input)) {
    showHelp();
    return qxedRetVoid();
  }
  for (wchar_t& character : input) character = static_cast<wchar_t>(std::towlower(character));
  return returnResult(compute(input));
}

}  // namespace

void cmdCal() {
  ResourceScope resources;
  std::wstring input;
  if (askExpression(input) != RTNORM) return;
  input = trimBlanks(input);
  if (asksForHelp(input)) {
    showHelp();
    return;
  }
  const double result = compute(input);
  wchar_t text[128];
  qxdbRToS(result, 2, -1, text, sizeof text / sizeof text[0]);
  qxedPrompt(text);
}

int calLispFunction(ResultBuffer* arguments) {
  ResourceScope resources;
  if (!arguments) {
    std::wstring input;
    if (askExpression(input) != RTNORM) return qxedRetVoid();
    return computeForLisp(input);
  }
  switch (arguments->type) {
    case RTREAL:
      return qxedRetVal(arguments);
    case RTSHORT:
      return qxedRetInt(arguments->value.rint);
    case RTLONG:
      return qxedRetInt(arguments->value.rlong);
    case RTSTR:
      return computeForLisp(arguments->value.rstring ? arguments->value.rstring : L"");
    default:
      return qxedRetNil();
  }
}
