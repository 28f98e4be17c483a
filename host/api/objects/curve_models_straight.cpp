// Lines, rays and construction lines: the parameter is the distance from the start
// (or base) point.
#include <cmath>

#include "curve_model.h"
#include "entity_members.h"
#include "geom/vec.h"

namespace korva::api {

namespace {

class StraightModel final : public CurveModel {
 public:
  // end is the line's length; rays run to +infinity, construction lines both ways.
  StraightModel(Vec3 base, Vec3 direction, double start, double end)
      : base_(base), direction_(direction), start_(start), end_(end) {}

  double startParam() const override { return start_; }
  double endParam() const override { return end_; }
  bool bounded() const override { return std::isfinite(start_) && std::isfinite(end_); }
  Vec3 point(double param) const override { return base_ + direction_ * param; }
  Vec3 derivative(double) const override { return direction_; }
  bool distAtParam(double param, double& dist) const override {
    dist = std::isfinite(start_) ? param - start_ : param;
    return true;
  }
  bool paramAtDist(double dist, double& param) const override {
    param = std::isfinite(start_) ? start_ + dist : dist;
    return true;
  }
  double closestParam(Vec3 p) const override {
    double t = dot(p - base_, direction_);
    return std::fmin(std::fmax(t, start_), end_);
  }
  bool box(geom::SpaceBox& box) const override {
    if (!bounded()) return false;
    box.add(point(start_));
    box.add(point(end_));
    return true;
  }

 private:
  Vec3 base_, direction_;
  double start_, end_;
};

}  // namespace

std::unique_ptr<CurveModel> straightModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status) {
  const QxDbObject* object = &curve;
  std::string_view type = recordOf(curve).type();
  status = Qxad::eOk;
  if (type == "LINE") {
    Vec3 a = members::point(object, 10, "AcDbLine");
    Vec3 b = members::point(object, 11, "AcDbLine");
    double length = geom::length(b - a);
    Vec3 direction = length > 0 ? (b - a) * (1 / length) : Vec3{};
    auto model = std::make_unique<StraightModel>(a, direction, 0.0, length);
    model->sweep = members::normal(object, "AcDbLine") * members::real(object, 39, 0, "AcDbLine");
    return model;
  }
  bool ray = type == "RAY";
  std::string_view part = ray ? "AcDbRay" : "AcDbXline";
  Vec3 base = members::point(object, 10, part);
  Vec3 direction = members::point(object, 11, part, {1, 0, 0});
  if (geom::length(direction) == 0) {
    status = Qxad::eDegenerateGeometry;
    return nullptr;
  }
  constexpr double kInfinity = HUGE_VAL;
  return std::make_unique<StraightModel>(base, geom::normalized(direction), ray ? 0.0 : -kInfinity,
                                         kInfinity);
}

}  // namespace korva::api
