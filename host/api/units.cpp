// The flat layer's number and angle conversions: drawing variables filled in for -1,
// then the pure formatters.
#include <cwchar>
#include <optional>
#include <string>

#include "angle_format.h"
#include "linear_format.h"
#include "qx_types.h"
#include "qx_units.h"
#include "variable_source.h"

using korva::api::variableSource;

namespace {

int copyOut(const std::optional<std::wstring>& text, wchar_t* buffer, std::size_t bufferChars) {
  if (buffer == nullptr) return RTERROR;
  if (!text || text->size() >= bufferChars) {
    if (bufferChars > 0) buffer[0] = L'\0';
    return RTERROR;
  }
  std::wmemcpy(buffer, text->c_str(), text->size() + 1);
  return RTNORM;
}

}  // namespace

int qxdbRToS(double value, int units, int precision, wchar_t* buffer, std::size_t bufferChars) {
  const korva::api::VariableSource& variables = variableSource();
  if (units == -1) units = variables.getInt("LUNITS");
  if (precision == -1) precision = variables.getInt("LUPREC");
  const korva::api::LinearStyle style{variables.getInt("DIMZIN"), variables.getInt("UNITMODE")};
  return copyOut(korva::api::formatLinear(value, units, precision, style), buffer, bufferChars);
}

int qxdbRToS(double value, int units, int precision, wchar_t* buffer) {
  return qxdbRToS(value, units, precision, buffer, QX_UNSIZED_NUMBER_CHARS);
}

int qxdbAngToS(double angle, int units, int precision, wchar_t* buffer, std::size_t bufferChars) {
  const korva::api::VariableSource& variables = variableSource();
  if (units == -1) units = variables.getInt("AUNITS");
  if (precision == -1) precision = variables.getInt("AUPREC");
  return copyOut(korva::api::formatAngle(angle, units, precision, variables.getInt("UNITMODE")),
                 buffer, bufferChars);
}

int qxdbAngToS(double angle, int units, int precision, wchar_t* buffer) {
  return qxdbAngToS(angle, units, precision, buffer, QX_UNSIZED_NUMBER_CHARS);
}

int qxdbAngToF(const wchar_t* text, int units, double* result) {
  if (text == nullptr || result == nullptr) return RTERROR;
  if (units == -1) units = variableSource().getInt("AUNITS");
  const std::optional<double> radians = korva::api::parseAngle(text, units);
  if (!radians) return RTERROR;
  *result = *radians;
  return RTNORM;
}
