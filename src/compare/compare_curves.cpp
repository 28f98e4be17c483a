// Comparators of the simple curves and points: lines, points, circles, arcs, ellipses,
// rays, construction lines and splines.
#include "compare/compare_equality.h"
#include "compare/file_compare_utils.h"

using CompareEquality::IsNearEqual;
using CompareEquality::IsSameDirection;

bool VnFileCompareUtils::CompareLine(const QxDbLine* oldLine, const QxDbLine* newLine) {
  if (HasDifferentThickness(oldLine->thickness(), newLine->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  // Ends are compared in place: a line drawn the other way round has changed.
  return oldLine->startPoint().isEqualTo(newLine->startPoint()) &&
         oldLine->endPoint().isEqualTo(newLine->endPoint());
}

bool VnFileCompareUtils::ComparePoint(const QxDbPoint* oldPoint, const QxDbPoint* newPoint) {
  if (HasDifferentThickness(oldPoint->thickness(), newPoint->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  return oldPoint->position().isEqualTo(newPoint->position());
}

bool VnFileCompareUtils::CompareCircle(const QxDbCircle* oldCircle, const QxDbCircle* newCircle) {
  if (HasDifferentThickness(oldCircle->thickness(), newCircle->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  return oldCircle->center().isEqualTo(newCircle->center()) &&
         IsNearEqual(oldCircle->radius(), newCircle->radius());
}

bool VnFileCompareUtils::CompareArc(const QxDbArc* oldArc, const QxDbArc* newArc) {
  if (HasDifferentThickness(oldArc->thickness(), newArc->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  return oldArc->center().isEqualTo(newArc->center()) &&
         IsNearEqual(oldArc->radius(), newArc->radius()) &&
         IsNearEqual(oldArc->startAngle(), newArc->startAngle()) &&
         IsNearEqual(oldArc->endAngle(), newArc->endAngle());
}

bool VnFileCompareUtils::CompareEllipse(const QxDbEllipse* oldEllipse,
                                        const QxDbEllipse* newEllipse) {
  if (!IsGeometryCompared()) return true;
  return oldEllipse->center().isEqualTo(newEllipse->center()) &&
         IsNearEqual(oldEllipse->startAngle(), newEllipse->startAngle()) &&
         IsNearEqual(oldEllipse->endAngle(), newEllipse->endAngle()) &&
         IsNearEqual(oldEllipse->radiusRatio(), newEllipse->radiusRatio()) &&
         oldEllipse->majorAxis().isEqualTo(newEllipse->majorAxis()) &&
         oldEllipse->minorAxis().isEqualTo(newEllipse->minorAxis());
}

bool VnFileCompareUtils::CompareRay(const QxDbRay* oldRay, const QxDbRay* newRay) {
  if (!IsGeometryCompared()) return true;
  return oldRay->basePoint().isEqualTo(newRay->basePoint()) &&
         IsSameDirection(oldRay->unitDir(), newRay->unitDir());
}

bool VnFileCompareUtils::CompareXline(const QxDbXline* oldXline, const QxDbXline* newXline) {
  if (!IsGeometryCompared()) return true;
  return oldXline->basePoint().isEqualTo(newXline->basePoint()) &&
         IsSameDirection(oldXline->unitDir(), newXline->unitDir());
}

bool VnFileCompareUtils::CompareSpline(const QxDbSpline* oldSpline, const QxDbSpline* newSpline) {
  if (!IsGeometryCompared()) return true;
  if (oldSpline->numFitPoints() != newSpline->numFitPoints()) return false;
  for (int i = 0; i < oldSpline->numFitPoints(); ++i) {
    QxGePoint3d oldPoint;
    QxGePoint3d newPoint;
    oldSpline->getFitPointAt(i, oldPoint);
    newSpline->getFitPointAt(i, newPoint);
    if (!oldPoint.isEqualTo(newPoint)) return false;
  }
  if (oldSpline->numControlPoints() != newSpline->numControlPoints()) return false;
  for (int i = 0; i < oldSpline->numControlPoints(); ++i) {
    QxGePoint3d oldPoint;
    QxGePoint3d newPoint;
    oldSpline->getControlPointAt(i, oldPoint);
    newSpline->getControlPointAt(i, newPoint);
    if (!oldPoint.isEqualTo(newPoint)) return false;
  }
  return IsNearEqual(oldSpline->fitTolerance(), newSpline->fitTolerance());
}
