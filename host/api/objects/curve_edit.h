// Changing curves as a whole: transforming their groups and exploding polylines.
#pragma once

#include "qx_db_curve.h"

namespace korva::api {

// Writes the transformed geometry into the curve's record (and its vertices').
Qxad::ErrorStatus transformCurve(QxDbCurve& curve, const QxGeMatrix3d& matrix);
// New lines and arcs for the segments of a polyline, with its properties.
Qxad::ErrorStatus explodeCurve(const QxDbCurve& curve, QxDbVoidPtrArray& pieces);

}  // namespace korva::api
