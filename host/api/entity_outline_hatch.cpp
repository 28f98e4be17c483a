// Hatch outlines: the boundary paths, polyline or edge by edge, in the hatch's object
// system at its elevation, read by the same reader as the object layer's hatches.
#include <algorithm>

#include "entity_outline.h"
#include "geom/spline_curve.h"
#include "objects/hatch_boundaries.h"
#include "objects/repeated_groups.h"

namespace korva::api {

using geom::Vec3;

namespace {

bool hasHatchMarker(const db::Record& record) {
  for (const db::Group& group : record.groups()) {
    if (group.code == 100 && group.value == "AcDbHatch") return true;
  }
  return false;
}

}  // namespace

void EntityOutliner::addHatch(const db::Record& record, const EntityValues& values) {
  HatchBoundaries boundaries = readHatchBoundaries(
      partGroups(record, hasHatchMarker(record) ? std::string_view("AcDbHatch") : ""));
  double z = values.point(10).z;
  auto lifted = [z](geom::Vec2 p) { return Vec3{p.x, p.y, z}; };
  builder_.pushTransform(geom::objectToWorld(values.extrusion()));
  for (const HatchLoop& loop : boundaries.loops) {
    size_t count = loop.vertices.size();
    // Hatch boundaries are closed whatever their flag says.
    for (size_t i = 0; count > 1 && i < count; ++i) {
      if (i + 1 == count && count < 3) break;
      builder_.bulgeSegment(lifted(loop.vertices[i]), lifted(loop.vertices[(i + 1) % count]),
                            loop.bulges[i]);
    }
    for (const HatchEdge& edge : loop.edges) {
      double from = 0, to = 0;
      switch (edge.kind) {
        case 1:
          builder_.segment(lifted(edge.start), lifted(edge.end));
          break;
        case 2:
          edgeSpan(edge, from, to);
          builder_.ellipticArc(lifted(edge.center), {edge.radius, 0, 0}, {0, edge.radius, 0}, from,
                               to);
          break;
        case 3: {
          edgeSpan(edge, from, to);
          Vec3 major{edge.majorAxis.x, edge.majorAxis.y, 0};
          Vec3 minor{-edge.majorAxis.y * edge.ratio, edge.majorAxis.x * edge.ratio, 0};
          builder_.ellipticArc(lifted(edge.center), major, minor, from, to);
          break;
        }
        case 4: {
          geom::NurbsCurve curve;
          curve.degree = edge.degree;
          curve.knots = edge.knots;
          curve.weights = edge.weights;
          for (geom::Vec2 p : edge.control) curve.control.push_back(lifted(p));
          std::vector<Vec3> fit;
          for (geom::Vec2 p : edge.fit) fit.push_back(lifted(p));
          geom::Box2 box;
          for (const Vec3& p : curve.control.empty() ? fit : curve.control)
            box.add(geom::Vec2{p.x, p.y});
          double tolerance = std::max(box.diagonal(), 1e-9) * geom::kFlatteningTolerance;
          builder_.polyline(curve.control.empty() ? geom::flattenThroughFitPoints(fit, tolerance)
                                                  : geom::flatten(curve, tolerance),
                            false);
          break;
        }
      }
    }
  }
  builder_.popTransform();
}

}  // namespace korva::api
