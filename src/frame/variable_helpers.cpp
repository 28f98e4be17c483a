#include "frame/variable_helpers.h"

#include <cwchar>

namespace {

constexpr std::size_t kNameBufferChars = 256;
constexpr int kWorld = 0;
constexpr int kUser = 1;

int getStringVariable(const wchar_t* name, wchar_t* buffer) {
  if (!buffer) return RTERROR;
  ResultBuffer value{};
  if (qxedGetVar(name, &value) == RTNORM && value.type == RTSTR) {
    if (value.value.rstring) {
      std::wcsncpy(buffer, value.value.rstring, kNameBufferChars - 1);
      buffer[kNameBufferChars - 1] = L'\0';
    }
    qxad_free(value.value.rstring);
  }
  return RTNORM;
}

bool transform(const double point[3], double result[3], int from, int to, bool displacement) {
  ResultBuffer fromSystem{};
  fromSystem.type = RTSHORT;
  fromSystem.value.rint = static_cast<std::int16_t>(from);
  ResultBuffer toSystem{};
  toSystem.type = RTSHORT;
  toSystem.value.rint = static_cast<std::int16_t>(to);
  return qxedTrans(point, &fromSystem, &toSystem, displacement ? 1 : 0, result) == RTNORM;
}

}  // namespace

int SetIntVar(const wchar_t* name, int value) {
  ResultBuffer node{};
  if (qxedGetVar(name, &node) == RTNORM && node.type == RTSTR) qxad_free(node.value.rstring);
  node.type = RTSHORT;
  node.value.rint = static_cast<std::int16_t>(value);
  qxedSetVar(name, &node);
  return 1;
}

int GetCurrentLayerName(wchar_t* buffer) {
  return getStringVariable(L"CLAYER", buffer);
}

int GetCurrentTextStyleName(wchar_t* buffer) {
  return getStringVariable(L"TEXTSTYLE", buffer);
}

int IsStringInArray(const wchar_t* text, const std::vector<std::wstring>& array) {
  if (!text) return 0;
  for (const std::wstring& each : array) {
    if (each == text) return 1;
  }
  return 0;
}

bool UcsToWcs(const double point[3], double result[3], bool displacement) {
  return transform(point, result, kUser, kWorld, displacement);
}

bool WcsToUcs(const double point[3], double result[3], bool displacement) {
  return transform(point, result, kWorld, kUser, displacement);
}

void CrossProduct(const double first[3], const double second[3], double result[3]) {
  const double x = first[1] * second[2] - first[2] * second[1];
  const double y = first[2] * second[0] - first[0] * second[2];
  const double z = first[0] * second[1] - first[1] * second[0];
  result[0] = x;
  result[1] = y;
  result[2] = z;
}
