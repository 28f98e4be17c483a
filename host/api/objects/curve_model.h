// The geometry behind a curve object, built from its record on each call (the record
// is the one truth): parameter range, points, lengths, nearest points, box. The
// curve operations of QxDbCurve all go through it.
#pragma once

#include <memory>

#include "geom/space_box.h"
#include "geom/vec.h"
#include "qx_db_core.h"

namespace korva::api {

using geom::Vec3;

class CurveModel {
 public:
  virtual ~CurveModel() = default;

  virtual double startParam() const = 0;
  virtual double endParam() const = 0;
  virtual bool bounded() const { return true; }  // rays and construction lines are not
  virtual bool closed() const { return false; }
  virtual bool periodic() const { return false; }
  // Parameters outside the range are refused by the callers, not here.
  virtual Vec3 point(double param) const = 0;
  virtual Vec3 derivative(double param) const = 0;
  // Length from the start parameter; negative before it (construction lines).
  virtual bool distAtParam(double param, double& dist) const = 0;
  virtual bool paramAtDist(double dist, double& param) const = 0;
  virtual double closestParam(Vec3 point) const = 0;
  virtual bool box(geom::SpaceBox& box) const = 0;
  // Closed by the chord between the ends when the curve is open; false when the
  // curve encloses nothing meaningful (lines).
  virtual bool area(double&) const { return false; }
  // Extrusion of planar curves: normal * thickness, zero for the others.
  Vec3 sweep;
};

// The model of a curve object's record; null (with the reason) when the record's type
// has none or its data make no curve.
std::unique_ptr<CurveModel> curveModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status);

// Models of the different kinds, for curveModelOf.
std::unique_ptr<CurveModel> straightModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status);
std::unique_ptr<CurveModel> conicModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status);
std::unique_ptr<CurveModel> pathModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status);
std::unique_ptr<CurveModel> splineModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status);

}  // namespace korva::api
