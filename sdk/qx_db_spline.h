// Splines: NURBS curves by control points, knots and weights, with the fit points
// they were drawn through. The parameter is the knot parameter.
#pragma once

#include "qx_db_curve.h"

class QxDbSpline : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbSpline)
  QxDbSpline();

  int degree() const;
  bool isRational() const;
  bool isPlanar() const;
  int numControlPoints() const;
  Qxad::ErrorStatus getControlPointAt(int index, QxGePoint3d& point) const;
  Qxad::ErrorStatus setControlPointAt(int index, const QxGePoint3d& point);
  int numFitPoints() const;
  Qxad::ErrorStatus getFitPointAt(int index, QxGePoint3d& point) const;
  double fitTolerance() const;
  int numKnots() const;
  double knotAt(int index) const;
  double weightAt(int index) const;  // 1 for non-rational splines
};
