#include "cmd/drawing/curve_area.h"

#include <vector>

#include "cmd/drawing/entity_geometry.h"
#include "qx_db_curves.h"
#include "qx_db_spline.h"

namespace korva::cmd::drawing {

namespace {

using geom::Vec3;

// Five-point Gauss-Legendre on [-1, 1]: exact for the polynomial integrands of
// non-rational splines up to degree five.
constexpr double kNodes[] = {0.0, -0.5384693101056831, 0.5384693101056831, -0.9061798459386640,
                             0.9061798459386640};
constexpr double kWeights[] = {0.5688888888888889, 0.4786286704993665, 0.4786286704993665,
                               0.2369268850561891, 0.2369268850561891};

// Pieces each knot span is cut into: rational splines aren't polynomials.
constexpr int kRationalPieces = 16;

}  // namespace

std::optional<double> splineArea(const QxDbSpline& spline) {
  double first = 0, last = 0;
  if (spline.getStartParam(first) != Qxad::eOk || spline.getEndParam(last) != Qxad::eOk) {
    return std::nullopt;
  }
  std::vector<double> breaks;
  for (int i = 0; i < spline.numKnots(); ++i) {
    double knot = spline.knotAt(i);
    if (knot > first && knot < last && (breaks.empty() || knot > breaks.back())) {
      breaks.push_back(knot);
    }
  }
  breaks.insert(breaks.begin(), first);
  breaks.push_back(last);
  QxGePoint3d start;
  if (spline.getStartPoint(start) != Qxad::eOk) return std::nullopt;
  Vec3 origin = fromGe(start);
  int pieces = spline.isRational() ? kRationalPieces : 1;
  // Half the integral of r x r' around the curve and back along the chord (which adds
  // nothing measured from the start point): its length is the area of a plane curve.
  Vec3 twiceArea;
  for (size_t span = 0; span + 1 < breaks.size(); ++span) {
    double step = (breaks[span + 1] - breaks[span]) / pieces;
    for (int piece = 0; piece < pieces; ++piece) {
      double low = breaks[span] + piece * step, half = step / 2;
      for (int node = 0; node < 5; ++node) {
        double t = low + half * (1 + kNodes[node]);
        QxGePoint3d point;
        QxGeVector3d derivative;
        if (spline.getPointAtParam(t, point) != Qxad::eOk ||
            spline.getFirstDeriv(t, derivative) != Qxad::eOk) {
          return std::nullopt;
        }
        twiceArea = twiceArea + geom::cross(fromGe(point) - origin, fromGe(derivative)) *
                                    (kWeights[node] * half);
      }
    }
  }
  return geom::length(twiceArea) / 2;
}

std::optional<Measured> measureEntity(const EntityName name) {
  QxDbObjectId id;
  QxDbEntity* entity = nullptr;
  if (qxdbGetObjectId(id, name) != Qxad::eOk ||
      qxdbOpenQxDbEntity(entity, id, QxDb::kForRead) != Qxad::eOk) {
    return std::nullopt;
  }
  std::optional<Measured> result;
  if (const QxDbCurve* curve = QxDbCurve::cast(entity)) {
    Measured measured;
    double end = 0;
    bool hasArea = curve->getArea(measured.area) == Qxad::eOk;
    if (!hasArea) {
      if (const QxDbSpline* spline = QxDbSpline::cast(entity)) {
        std::optional<double> area = splineArea(*spline);
        hasArea = area.has_value();
        measured.area = area.value_or(0);
      }
    }
    if (hasArea && curve->getEndParam(end) == Qxad::eOk &&
        curve->getDistAtParam(end, measured.length) == Qxad::eOk) {
      measured.outline = QxDbCircle::cast(entity) ? Measured::Outline::Circle
                         : curve->isClosed()      ? Measured::Outline::Closed
                                                  : Measured::Outline::Open;
      result = measured;
    }
  }
  entity->close();
  return result;
}

}  // namespace korva::cmd::drawing
