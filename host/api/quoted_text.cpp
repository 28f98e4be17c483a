#include "quoted_text.h"

namespace korva::api {

std::wstring quotedText(const std::wstring& text) {
  std::wstring result = L"\"";
  for (wchar_t each : text) {
    switch (each) {
      case L'"':
        result += L"\\\"";
        break;
      case L'\\':
        result += L"\\\\";
        break;
      case L'\n':
        result += L"\\n";
        break;
      case L'\r':
        result += L"\\r";
        break;
      case L'\t':
        result += L"\\t";
        break;
      case L'\x1b':
        result += L"\\e";
        break;
      default:
        result += each;
    }
  }
  return result + L"\"";
}

}  // namespace korva::api
