// The world box of geometry drawn in an object system at an elevation: boundary loops,
// vertex paths and corners of planar entities. Exact for lines, arcs and splines.
#pragma once

#include <vector>

#include "geom/affine.h"
#include "geom/space_box.h"
#include "geom/vec.h"
#include "qx_db_core.h"
#include "qx_db_extents.h"

namespace korva::api {

class PlanarBox {
 public:
  PlanarBox(const geom::Affine3& toWorld, double elevation)
      : toWorld_(toWorld), elevation_(elevation) {}

  void point(geom::Vec2 p);
  // A polyline segment; the bulge is the tangent of a quarter of its included angle.
  void bulgeSegment(geom::Vec2 start, geom::Vec2 end, double bulge);
  // center + cos(t) u + sin(t) v for t from `from` to `to` (to > from).
  void ellipticArc(geom::Vec2 center, geom::Vec2 u, geom::Vec2 v, double from, double to);
  // False when the spline can't be built (its control points are taken in instead).
  bool spline(int degree, const std::vector<double>& knots, const std::vector<geom::Vec2>& control,
              const std::vector<double>& weights);

  const geom::SpaceBox& box() const { return box_; }

 private:
  geom::Vec3 world(geom::Vec2 p) const { return toWorld_.point({p.x, p.y, elevation_}); }
  geom::Vec3 direction(geom::Vec2 v) const { return toWorld_.vector({v.x, v.y, 0}); }

  geom::Affine3 toWorld_;
  double elevation_;
  geom::SpaceBox box_;
};

// The box as extents; eDegenerateGeometry when it is empty.
Qxad::ErrorStatus extentsOfBox(const geom::SpaceBox& box, QxDbExtents& extents);

}  // namespace korva::api
