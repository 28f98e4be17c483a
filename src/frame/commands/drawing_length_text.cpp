#include "drawing_length_text.h"

#include "frame/host_interface.h"

namespace {

// A variable the drawing lacks leaves -1, which qxdbRToS reads as "the drawing's own".
int ReadShortVariable(const wchar_t* name) {
  ResultBuffer value{};
  if (qxedGetVar(name, &value) != RTNORM || value.type != RTSHORT) return -1;
  return value.value.rint;
}

}  // namespace

std::wstring FormatDrawingLength(double value) {
  const int units = ReadShortVariable(L"LUNITS");
  const int precision = ReadShortVariable(L"LUPREC");
  wchar_t buffer[QX_UNSIZED_NUMBER_CHARS] = {};
  qxdbRToS(value, units, precision, buffer);
  return buffer;
}
