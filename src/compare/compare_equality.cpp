#include "compare/compare_equality.h"

#include <cwctype>

namespace CompareEquality {

bool IsSameRealArray(const QxGeDoubleArray& a, const QxGeDoubleArray& b) {
  if (a.length() != b.length()) return false;
  for (int i = 0; i < a.length(); ++i) {
    if (!IsNearEqual(a[i], b[i])) return false;
  }
  return true;
}

bool IsSamePoint2dArray(const QxGePoint2dArray& a, const QxGePoint2dArray& b) {
  if (a.length() != b.length()) return false;
  for (int i = 0; i < a.length(); ++i) {
    if (!a[i].isEqualTo(b[i])) return false;
  }
  return true;
}

bool IsSamePoint3dArray(const QxGePoint3dArray& a, const QxGePoint3dArray& b) {
  if (a.length() != b.length()) return false;
  for (int i = 0; i < a.length(); ++i) {
    if (!a[i].isEqualTo(b[i])) return false;
  }
  return true;
}

bool IsSameNameIgnoringCase(const wchar_t* a, const wchar_t* b) {
  if (!a || !b) return a == b;
  for (; *a && *b; ++a, ++b) {
    if (std::towlower(*a) != std::towlower(*b)) return false;
  }
  return *a == *b;
}

}  // namespace CompareEquality
