#include "planar_box.h"

#include "geom/bulge_path.h"
#include "geom/curve_measure.h"
#include "geom/elliptic_arc.h"
#include "geom/spline_curve.h"

namespace korva::api {

using geom::Vec2;
using geom::Vec3;

void PlanarBox::point(Vec2 p) {
  box_.add(world(p));
}

void PlanarBox::bulgeSegment(Vec2 start, Vec2 end, double bulge) {
  geom::BulgeSegment segment{start, end, bulge};
  if (!segment.isArc()) {
    point(start);
    point(end);
    return;
  }
  double radius = segment.radius();
  double from = segment.startAngle();
  double sweep = segment.sweep();
  if (sweep < 0) from += sweep, sweep = -sweep;
  ellipticArc(segment.center(), {radius, 0}, {0, radius}, from, from + sweep);
}

void PlanarBox::ellipticArc(Vec2 center, Vec2 u, Vec2 v, double from, double to) {
  geom::EllipticArc arc{world(center), direction(u), direction(v), from, to};
  box_.add(arc.box());
}

bool PlanarBox::spline(int degree, const std::vector<double>& knots,
                       const std::vector<Vec2>& control, const std::vector<double>& weights) {
  geom::NurbsCurve curve;
  curve.degree = degree;
  curve.knots = knots;
  curve.weights = weights;
  for (Vec2 p : control) curve.control.push_back(world(p));
  geom::SpaceBox splineBox;
  if (curve.control.size() < 2 || !geom::splineBox(curve, splineBox)) {
    for (const Vec3& p : curve.control) box_.add(p);
    return false;
  }
  box_.add(splineBox);
  return true;
}

Qxad::ErrorStatus extentsOfBox(const geom::SpaceBox& box, QxDbExtents& extents) {
  if (box.empty()) return Qxad::eDegenerateGeometry;
  extents = QxDbExtents(QxGePoint3d(box.min.x, box.min.y, box.min.z),
                        QxGePoint3d(box.max.x, box.max.y, box.max.z));
  return Qxad::eOk;
}

}  // namespace korva::api
