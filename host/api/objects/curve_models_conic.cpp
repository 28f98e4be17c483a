// Circles, arcs and ellipses. Arcs and circles run by angle from the X axis of their
// object system; ellipses by eccentric angle. Circular lengths are analytic; ellipse
// lengths are integrated.
#include <cmath>
#include <numbers>

#include "curve_model.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "geom/curve_measure.h"
#include "geom/elliptic_arc.h"

namespace korva::api {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

class ConicModel final : public CurveModel {
 public:
  ConicModel(const geom::EllipticArc& arc, bool circular, bool full)
      : arc_(arc), circular_(circular), full_(full) {}

  double startParam() const override { return arc_.start; }
  double endParam() const override { return arc_.end; }
  bool closed() const override { return full_; }
  bool periodic() const override { return full_; }
  Vec3 point(double t) const override { return arc_.pointAt(t); }
  Vec3 derivative(double t) const override { return arc_.derivativeAt(t); }
  bool distAtParam(double t, double& dist) const override {
    if (circular_) {
      dist = geom::length(arc_.u) * (t - arc_.start);
      return true;
    }
    return geom::ellipticArcLength(arc_, arc_.start, t, dist);
  }
  bool paramAtDist(double dist, double& t) const override {
    if (circular_) {
      t = arc_.start + dist / geom::length(arc_.u);
      return true;
    }
    return geom::ellipticArcParamAtLength(arc_, arc_.start, dist, t);
  }
  double closestParam(Vec3 p) const override { return arc_.closestParam(p); }
  bool box(geom::SpaceBox& box) const override {
    box.add(arc_.box());
    return true;
  }
  bool area(double& area) const override {
    // The sector less the triangle to the chord: an affine image of the circular
    // segment, so a b / 2 (sweep - sin sweep) for ellipses too.
    double sweep = arc_.end - arc_.start;
    area = geom::length(arc_.u) * geom::length(arc_.v) / 2 * (sweep - std::sin(sweep));
    return true;
  }

 private:
  geom::EllipticArc arc_;
  bool circular_;
  bool full_;
};

}  // namespace

std::unique_ptr<CurveModel> conicModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status) {
  const QxDbObject* object = &curve;
  std::string_view type = recordOf(curve).type();
  status = Qxad::eOk;
  geom::EllipticArc arc;
  if (type == "ELLIPSE") {
    constexpr std::string_view kPart = "AcDbEllipse";
    Vec3 normal = members::normal(object, kPart);
    arc.center = members::point(object, 10, kPart);
    arc.u = members::point(object, 11, kPart, {1, 0, 0});
    double ratio = members::real(object, 40, 1, kPart);
    if (geom::length(arc.u) == 0 || ratio <= 0) {
      status = Qxad::eDegenerateGeometry;
      return nullptr;
    }
    arc.v = cross(normal, arc.u) * ratio;
    arc.start = members::real(object, 41, 0, kPart);
    double end = members::real(object, 42, kTwoPi, kPart);
    bool full = std::fabs(std::fabs(end - arc.start) - kTwoPi) < 1e-12 ||
                std::fabs(end - arc.start) < 1e-12;
    arc.end = full ? arc.start + kTwoPi : geom::angleFrom(end, arc.start);
    auto model = std::make_unique<ConicModel>(arc, ratio == 1, full);
    return model;
  }
  bool circle = type == "CIRCLE";
  std::string_view part = "AcDbCircle";
  Vec3 normal = members::normal(object, part);
  geom::Affine3 toWorld = geom::objectToWorld(normal);
  double radius = members::real(object, 40, 0, part);
  if (radius <= 0) {
    status = Qxad::eDegenerateGeometry;
    return nullptr;
  }
  arc.center = toWorld.point(members::point(object, 10, part));
  arc.u = toWorld.vector({radius, 0, 0});
  arc.v = toWorld.vector({0, radius, 0});
  if (circle) {
    arc.start = 0;
    arc.end = kTwoPi;
  } else {
    // Degrees in the groups; the end is brought above the start.
    arc.start = members::real(object, 50, 0, "AcDbArc") * std::numbers::pi / 180;
    double end = members::real(object, 51, 360, "AcDbArc") * std::numbers::pi / 180;
    arc.start = geom::angleFrom(arc.start, 0);
    arc.end = geom::angleFrom(end, arc.start);
    if (arc.end == arc.start) arc.end += kTwoPi;
  }
  auto model = std::make_unique<ConicModel>(arc, true, circle);
  model->sweep = normal * members::real(object, 39, 0, part);
  return model;
}

}  // namespace korva::api
