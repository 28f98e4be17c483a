#include "lisp/printer.h"

#include <charconv>
#include <cmath>
#include <cwchar>

#include "api/quoted_text.h"

namespace korva::lisp {
namespace {

std::wstring quoted(const std::wstring& text) {
  return api::quotedText(text);
}

std::wstring hexadecimal(std::uint64_t value, int width) {
  wchar_t buffer[32];
  std::swprintf(buffer, 32, L"%0*llx", width, static_cast<unsigned long long>(value));
  return buffer;
}

std::wstring text(const Value& value, bool readable) {
  switch (value.kind) {
    case Value::Kind::Nil:
      return L"nil";
    case Value::Kind::Void:
      return {};
    case Value::Kind::Integer:
      return std::to_wstring(value.integer);
    case Value::Kind::Real:
      return realText(value.real);
    case Value::Kind::String:
      return readable ? quoted(value.text) : value.text;
    case Value::Kind::Symbol:
      return value.text;
    case Value::Kind::List: {
      std::wstring result = L"(";
      for (size_t index = 0; index < value.items.size(); ++index) {
        if (index > 0) result += L' ';
        result += text(value.items[index], readable);
      }
      return result + L")";
    }
    case Value::Kind::Entity:
      return L"<Entity name: 7ff" + hexadecimal(static_cast<std::uint64_t>(value.name[1]), 1) +
             hexadecimal(static_cast<std::uint64_t>(value.name[0]), 8) + L">";
    case Value::Kind::SelectionSet:
      return L"<Selection set: " + hexadecimal(static_cast<std::uint64_t>(value.name[0]), 1) + L">";
    case Value::Kind::Function:
      return L"#<function " + value.function->name + L">";
  }
  return {};
}

}  // namespace

std::wstring printed(const Value& value) {
  return text(value, true);
}

std::wstring displayed(const Value& value) {
  return text(value, false);
}

std::wstring realText(double value) {
  if (std::isnan(value)) return L"nan";
  if (std::isinf(value)) return value < 0 ? L"-inf" : L"inf";
  wchar_t buffer[64];
  std::swprintf(buffer, 64, L"%.6g", value);
  std::wstring result = buffer;
  const size_t exponent = result.find(L'e');
  if (result.find(L'.') != std::wstring::npos) return result;
  if (exponent == std::wstring::npos) return result + L".0";
  return result.insert(exponent, L".0");
}

std::wstring exactNumberText(const Value& number) {
  if (number.kind == Value::Kind::Integer) return std::to_wstring(number.integer);
  char buffer[64];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number.real);
  if (error != std::errc()) return realText(number.real);
  return std::wstring(buffer, end);
}

}  // namespace korva::lisp
