// Splines by their control points; measured through the integration of curve_measure.
#include "curve_model.h"
#include "geom/curve_measure.h"
#include "object_state.h"
#include "spline_groups.h"

namespace korva::api {

namespace {

class SplineModel final : public CurveModel {
 public:
  SplineModel(geom::NurbsCurve curve, double first, double last, bool closed, bool periodic)
      : curve_(std::move(curve)),
        first_(first),
        last_(last),
        closed_(closed),
        periodic_(periodic) {}

  double startParam() const override { return first_; }
  double endParam() const override { return last_; }
  bool closed() const override { return closed_; }
  bool periodic() const override { return periodic_; }
  Vec3 point(double t) const override {
    Vec3 p;
    geom::splinePoint(curve_, t, p);
    return p;
  }
  Vec3 derivative(double t) const override {
    Vec3 p, d;
    geom::splinePoint(curve_, t, p, &d);
    return d;
  }
  bool distAtParam(double t, double& dist) const override {
    return geom::splineLength(curve_, first_, t, dist);
  }
  bool paramAtDist(double dist, double& t) const override {
    return geom::splineParamAtLength(curve_, first_, dist, t);
  }
  double closestParam(Vec3 p) const override {
    double t = first_;
    geom::splineClosestParam(curve_, p, t);
    return t;
  }
  bool box(geom::SpaceBox& box) const override { return geom::splineBox(curve_, box); }

 private:
  geom::NurbsCurve curve_;
  double first_, last_;
  bool closed_, periodic_;
};

}  // namespace

std::unique_ptr<CurveModel> splineModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status) {
  SplineData data = readSpline(recordOf(curve));
  double first = 0, last = 0;
  // A spline known only by its fit points has no curve here until it is refitted.
  if (!geom::splineRange(data.curve, first, last)) {
    status = data.curve.control.empty() ? Qxad::eNotImplemented : Qxad::eDegenerateGeometry;
    return nullptr;
  }
  status = Qxad::eOk;
  return std::make_unique<SplineModel>(std::move(data.curve), first, last, (data.flags & 1) != 0,
                                       (data.flags & 2) != 0);
}

}  // namespace korva::api
