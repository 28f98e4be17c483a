// Comparators of the dimension classes and their common part.
#include "compare/compare_equality.h"
#include "compare/file_compare_utils.h"

using CompareEquality::IsNearEqual;

namespace {

// The overall scale (DIMSCALE) of a dimension style record; false when the record
// can't be opened as one.
bool ReadStyleScale(QxDbObjectId styleId, double& scale) {
  QxDbObject* object = nullptr;
  if (qxdbOpenQxDbObject(object, styleId, QxDb::kForRead) != Qxad::eOk) return false;
  const QxDbDimStyleTableRecord* style = QxDbDimStyleTableRecord::cast(object);
  if (style) scale = style->dimscale();
  object->close();
  return style != nullptr;
}

// The four points that define an angle by its arc, shared by the three-point angular
// and the arc length dimensions.
template <class ArcDefined>
bool SameArcDefinition(const ArcDefined& oldDimension, const ArcDefined& newDimension) {
  return oldDimension.centerPoint().isEqualTo(newDimension.centerPoint()) &&
         oldDimension.xLine1Point().isEqualTo(newDimension.xLine1Point()) &&
         oldDimension.xLine2Point().isEqualTo(newDimension.xLine2Point()) &&
         oldDimension.arcPoint().isEqualTo(newDimension.arcPoint());
}

}  // namespace

bool VnFileCompareUtils::CompareDimension(const QxDbDimension* oldDimension,
                                          const QxDbDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  if (!IsNearEqual(oldDimension->textRotation(), newDimension->textRotation()) ||
      !oldDimension->textPosition().isEqualTo(newDimension->textPosition())) {
    return false;
  }
  // Unlike the other strings, a missing text fails even against a missing text.
  wchar_t* oldText = oldDimension->dimensionText();
  wchar_t* newText = newDimension->dimensionText();
  const bool sameText = oldText && newText && std::wcscmp(oldText, newText) == 0;
  qxad_free(oldText);
  qxad_free(newText);
  if (!sameText) return false;
  double oldScale = 0;
  double newScale = 0;
  if (!ReadStyleScale(oldDimension->dimensionStyle(), oldScale) ||
      !ReadStyleScale(newDimension->dimensionStyle(), newScale)) {
    return false;
  }
  return IsNearEqual(oldScale, newScale);
}

bool VnFileCompareUtils::CompareRotatedDimension(const QxDbRotatedDimension* oldDimension,
                                                 const QxDbRotatedDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  return IsNearEqual(oldDimension->rotation(), newDimension->rotation()) &&
         oldDimension->xLine1Point().isEqualTo(newDimension->xLine1Point()) &&
         oldDimension->xLine2Point().isEqualTo(newDimension->xLine2Point()) &&
         oldDimension->dimLinePoint().isEqualTo(newDimension->dimLinePoint()) &&
         CompareDimension(oldDimension, newDimension);
}

bool VnFileCompareUtils::CompareAlignedDimension(const QxDbAlignedDimension* oldDimension,
                                                 const QxDbAlignedDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  return IsNearEqual(oldDimension->oblique(), newDimension->oblique()) &&
         oldDimension->xLine1Point().isEqualTo(newDimension->xLine1Point()) &&
         oldDimension->xLine2Point().isEqualTo(newDimension->xLine2Point()) &&
         oldDimension->dimLinePoint().isEqualTo(newDimension->dimLinePoint()) &&
         CompareDimension(oldDimension, newDimension);
}

bool VnFileCompareUtils::Compare2LineAngularDimension(
    const QxDb2LineAngularDimension* oldDimension, const QxDb2LineAngularDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  return oldDimension->arcPoint().isEqualTo(newDimension->arcPoint()) &&
         oldDimension->xLine1Start().isEqualTo(newDimension->xLine1Start()) &&
         oldDimension->xLine1End().isEqualTo(newDimension->xLine1End()) &&
         oldDimension->xLine2Start().isEqualTo(newDimension->xLine2Start()) &&
         oldDimension->xLine2End().isEqualTo(newDimension->xLine2End()) &&
         CompareDimension(oldDimension, newDimension);
}

bool VnFileCompareUtils::Compare3PointAngularDimension(
    const QxDb3PointAngularDimension* oldDimension,
    const QxDb3PointAngularDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  return SameArcDefinition(*oldDimension, *newDimension) &&
         CompareDimension(oldDimension, newDimension);
}

bool VnFileCompareUtils::CompareArcDimension(const QxDbArcDimension* oldDimension,
                                             const QxDbArcDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  return SameArcDefinition(*oldDimension, *newDimension) &&
         CompareDimension(oldDimension, newDimension);
}

bool VnFileCompareUtils::CompareRadialDimension(const QxDbRadialDimension* oldDimension,
                                                const QxDbRadialDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  return IsNearEqual(oldDimension->leaderLength(), newDimension->leaderLength()) &&
         oldDimension->center().isEqualTo(newDimension->center()) &&
         oldDimension->chordPoint().isEqualTo(newDimension->chordPoint()) &&
         CompareDimension(oldDimension, newDimension);
}

bool VnFileCompareUtils::CompareDiametricDimension(const QxDbDiametricDimension* oldDimension,
                                                   const QxDbDiametricDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  return IsNearEqual(oldDimension->leaderLength(), newDimension->leaderLength()) &&
         oldDimension->chordPoint().isEqualTo(newDimension->chordPoint()) &&
         oldDimension->farChordPoint().isEqualTo(newDimension->farChordPoint()) &&
         IsNearEqual(oldDimension->extArcStartAngle(), newDimension->extArcStartAngle()) &&
         IsNearEqual(oldDimension->extArcEndAngle(), newDimension->extArcEndAngle()) &&
         CompareDimension(oldDimension, newDimension);
}

bool VnFileCompareUtils::CompareOrdinateDimension(const QxDbOrdinateDimension* oldDimension,
                                                  const QxDbOrdinateDimension* newDimension) {
  if (!IsGeometryCompared()) return true;
  return oldDimension->origin().isEqualTo(newDimension->origin()) &&
         oldDimension->definingPoint().isEqualTo(newDimension->definingPoint()) &&
         oldDimension->leaderEndPoint().isEqualTo(newDimension->leaderEndPoint()) &&
         CompareDimension(oldDimension, newDimension);
}

bool VnFileCompareUtils::CompareRadialDimensionLarge(const QxDbRadialDimensionLarge* oldDimension,
                                                     const QxDbRadialDimensionLarge* newDimension) {
  if (!IsGeometryCompared()) return true;
  return oldDimension->center().isEqualTo(newDimension->center()) &&
         oldDimension->chordPoint().isEqualTo(newDimension->chordPoint()) &&
         oldDimension->overrideCenter().isEqualTo(newDimension->overrideCenter()) &&
         oldDimension->jogPoint().isEqualTo(newDimension->jogPoint()) &&
         IsNearEqual(oldDimension->jogAngle(), newDimension->jogAngle()) &&
         IsNearEqual(oldDimension->extArcStartAngle(), newDimension->extArcStartAngle()) &&
         IsNearEqual(oldDimension->extArcEndAngle(), newDimension->extArcEndAngle()) &&
         CompareDimension(oldDimension, newDimension);
}
