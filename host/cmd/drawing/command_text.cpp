#include "cmd/drawing/command_text.h"

#include <cwctype>

#include "qx_types.h"
#include "qx_units.h"

namespace korva::cmd::drawing {

std::wstring distanceText(double value) {
  wchar_t buffer[QX_UNSIZED_NUMBER_CHARS];
  if (value == 0) value = 0;  // no "-0.0000"
  if (qxdbRToS(value, -1, -1, buffer, QX_UNSIZED_NUMBER_CHARS) != RTNORM) return L"?";
  return buffer;
}

std::wstring angleText(double radians) {
  wchar_t buffer[QX_UNSIZED_NUMBER_CHARS];
  if (qxdbAngToS(radians, -1, -1, buffer, QX_UNSIZED_NUMBER_CHARS) != RTNORM) return L"?";
  return buffer;
}

std::wstring pointText(geom::Vec3 point) {
  return distanceText(point.x) + L"," + distanceText(point.y) + L"," + distanceText(point.z);
}

std::wstring padded(const std::wstring& text, size_t width) {
  return text.size() >= width ? text : std::wstring(width - text.size(), L' ') + text;
}

bool sameText(const std::wstring& a, const std::wstring& b) {
  return upperText(a) == upperText(b);
}

std::wstring upperText(std::wstring text) {
  for (wchar_t& c : text) c = static_cast<wchar_t>(std::towupper(c));
  return text;
}

}  // namespace korva::cmd::drawing
