// Arrays of geometry values, on the host's growable array.
#pragma once

#include "qx_array.h"
#include "qx_ge.h"

using QxGePoint2dArray = QxArray<QxGePoint2d>;
using QxGePoint3dArray = QxArray<QxGePoint3d>;
using QxGeVector2dArray = QxArray<QxGeVector2d>;
using QxGeDoubleArray = QxArray<double>;
using QxGeIntArray = QxArray<int>;
// Pointers handed out to a caller who deletes what they point at.
using QxGeVoidPointerArray = QxArray<void*>;
