#include "frame/string_helpers.h"

#include <locale>

#include "frame/host_interface.h"
#include "frame/module_state.h"
#include "frame/vn_exception.h"

namespace {

// Letters beyond ASCII change case too, as the host's own string layer does.
const std::ctype<wchar_t>& characterClasses() {
  static const std::locale locale = [] {
    try {
      return std::locale("C.UTF-8");
    } catch (const std::runtime_error&) {
      return std::locale::classic();
    }
  }();
  return std::use_facet<std::ctype<wchar_t>>(locale);
}

void toUpper(std::wstring& text) {
  characterClasses().toupper(text.data(), text.data() + text.size());
}

void toLower(std::wstring& text) {
  characterClasses().tolower(text.data(), text.data() + text.size());
}

}  // namespace

std::wstring LoadResourceString(unsigned id) {
  const wchar_t* text = qxrxFindResourceString(frame::resourceModule(), id);
  return text ? std::wstring(text) : std::wstring();
}

std::wstring LoadStringChecked(unsigned id) {
  if (!qxrxFindResourceString(frame::resourceModule(), id)) {
    qxuiMessageBox(L"loadstring error! check string id is right!", L"VnExtend");
    return {};
  }
  return LoadResourceString(id);
}

void PrintResourceLine(unsigned id) {
  qxutPrintf(L"\n%s\n", LoadResourceString(id).c_str());
}

void ChangeCaseSafely(std::wstring& text, CaseChange change) {
  const std::wstring original = text;
  try {
    change(text);
    return;
  } catch (...) {
    text = original;
  }
  VnExceptionWithMsg failure(L"\"\"", 0, L"VN_IRELEASE_THROW");
  failure.reportToCrashRecorder();
  throw failure;
}

void SafeUpper(std::wstring& text) {
  ChangeCaseSafely(text, toUpper);
}

void SafeLower(std::wstring& text) {
  ChangeCaseSafely(text, toLower);
}
