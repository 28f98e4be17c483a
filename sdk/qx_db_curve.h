// Curves: entities with a parameter running from a start to an end. Parameters are
// those of the curve's own kind (distance for lines, angle for arcs, eccentric angle
// for ellipses, vertex index and fraction for polylines, knot values for splines);
// points and vectors are world coordinates.
#pragma once

#include "qx_array.h"
#include "qx_db_entity.h"
#include "qx_db_extents.h"
#include "qx_ge.h"

class QxDbCurve : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbCurve)

  // The curve operations, in their fixed order.
  virtual Qxad::ErrorStatus getStartParam(double& param) const;
  virtual Qxad::ErrorStatus getEndParam(double& param) const;
  virtual Qxad::ErrorStatus getStartPoint(QxGePoint3d& point) const;
  virtual Qxad::ErrorStatus getEndPoint(QxGePoint3d& point) const;
  virtual Qxad::ErrorStatus getPointAtParam(double param, QxGePoint3d& point) const;
  // The point must lie on the curve within equalPoint (eInvalidInput otherwise).
  virtual Qxad::ErrorStatus getParamAtPoint(const QxGePoint3d& point, double& param) const;
  // Length along the curve from its start.
  virtual Qxad::ErrorStatus getDistAtParam(double param, double& dist) const;
  virtual Qxad::ErrorStatus getParamAtDist(double dist, double& param) const;
  virtual Qxad::ErrorStatus getDistAtPoint(const QxGePoint3d& point, double& dist) const;
  virtual Qxad::ErrorStatus getPointAtDist(double dist, QxGePoint3d& point) const;

  virtual bool isClosed() const;
  virtual bool isPeriodic() const;
  // The derivative of the point by the parameter.
  virtual Qxad::ErrorStatus getFirstDeriv(double param, QxGeVector3d& derivative) const;
  // The point of the curve nearest to `given`; extend takes in lines beyond their ends.
  virtual Qxad::ErrorStatus getClosestPointTo(const QxGePoint3d& given, QxGePoint3d& closest,
                                              bool extend = false) const;
  // The area closed by the curve, or by it and the chord between its ends.
  virtual Qxad::ErrorStatus getArea(double& area) const;

  // The box of the curve in world coordinates, thickness included.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
  // Transforms the curve, writing its groups. Circles, arcs and bulged or wide
  // polylines, whose groups can't hold an ellipse, refuse non-uniform scaling
  // (eCannotScaleNonUniformly).
  Qxad::ErrorStatus transformBy(const QxGeMatrix3d& matrix) override;
  // Polylines into lines and arcs: new objects that the caller owns (and deletes or
  // adds to a database). Other curves give eNotApplicable.
  Qxad::ErrorStatus explode(QxDbVoidPtrArray& pieces) const override;

 protected:
  explicit QxDbCurve(const char* dxfType);
};
