// The three equalities of the comparison: exact, near (absolute difference below
// 1e-10) and tolerant (the geometry's own isEqualTo with the global tolerance).
#pragma once

#include <cmath>
#include <cwchar>

#include "frame/host_interface.h"

namespace CompareEquality {

inline bool IsNearZero(double value) {
  return std::fabs(value) < 1e-10;
}
inline bool IsNearEqual(double a, double b) {
  return IsNearZero(a - b);
}

// Case-sensitive; two nulls are equal, one null equals nothing.
inline bool IsSameString(const wchar_t* a, const wchar_t* b) {
  if (!a || !b) return a == b;
  return std::wcscmp(a, b) == 0;
}

// The same for strings the host hands over to be freed by the caller: both are freed.
inline bool IsSameOwnedString(wchar_t* a, wchar_t* b) {
  const bool same = IsSameString(a, b);
  qxad_free(a);
  qxad_free(b);
  return same;
}

// Directions compare after both are made unit length.
inline bool IsSameDirection(const QxGeVector3d& a, const QxGeVector3d& b) {
  return a.normal().isEqualTo(b.normal());
}

bool IsSameRealArray(const QxGeDoubleArray& a, const QxGeDoubleArray& b);
bool IsSamePoint2dArray(const QxGePoint2dArray& a, const QxGePoint2dArray& b);
bool IsSamePoint3dArray(const QxGePoint3dArray& a, const QxGePoint3dArray& b);

// Case ignored, as names of layers and linetypes are in the drawing's tables.
bool IsSameNameIgnoringCase(const wchar_t* a, const wchar_t* b);

}  // namespace CompareEquality
