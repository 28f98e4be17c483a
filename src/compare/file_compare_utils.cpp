#include "compare/file_compare_utils.h"

#include "compare/compare_equality.h"

using CompareEquality::IsNearEqual;
using CompareEquality::IsSameNameIgnoringCase;

namespace {

// Layer and linetype names come from the host as strings of the caller's.
bool HaveSameName(wchar_t* oldName, wchar_t* newName) {
  const bool same = IsSameNameIgnoringCase(oldName, newName);
  qxad_free(oldName);
  qxad_free(newName);
  return same;
}

template <typename Kind>
bool IsExactly(const QxDbEntity* entity) {
  return entity->isA() == Kind::desc();
}

// Calls the comparator when both entities are of exactly that class.
template <typename Kind, typename Utils>
bool Dispatch(const QxDbEntity* oldEntity, const QxDbEntity* newEntity, Utils* utils,
              bool (Utils::*comparator)(const Kind*, const Kind*), bool& verdict) {
  if (!IsExactly<Kind>(oldEntity)) return false;
  verdict = (utils->*comparator)(static_cast<const Kind*>(oldEntity),
                                 static_cast<const Kind*>(newEntity));
  return true;
}

}  // namespace

int VnFileCompareUtils::CompareEntities(QxDbObjectId oldId, QxDbObjectId newId) {
  QxDbEntity* oldEntity = nullptr;
  if (qxdbOpenQxDbEntity(oldEntity, oldId, QxDb::kForRead) != Qxad::eOk) {
    return kVerdictDifferent;
  }
  QxDbEntity* newEntity = nullptr;
  if (qxdbOpenQxDbEntity(newEntity, newId, QxDb::kForRead) != Qxad::eOk) {
    oldEntity->close();
    return kVerdictDifferent;
  }
  int verdict = kVerdictDifferent;
  if (oldEntity->isA() == newEntity->isA()) {
    // A changed common property settles it without looking at the geometry.
    const bool same =
        HaveSameCommonProperties(oldEntity, newEntity) && CompareByClass(oldEntity, newEntity);
    verdict = same ? kVerdictSame : kVerdictModified;
  }
  newEntity->close();
  oldEntity->close();
  return verdict;
}

bool VnFileCompareUtils::HaveSameCommonProperties(const QxDbEntity* oldEntity,
                                                  const QxDbEntity* newEntity) const {
  if (IsCompared(kCompareLayer) && !HaveSameName(oldEntity->layer(), newEntity->layer())) {
    return false;
  }
  if (IsCompared(kCompareLinetype) && !HaveSameName(oldEntity->linetype(), newEntity->linetype())) {
    return false;
  }
  if (IsCompared(kCompareLinetypeScale) &&
      !IsNearEqual(oldEntity->linetypeScale(), newEntity->linetypeScale())) {
    return false;
  }
  if (IsCompared(kCompareColor) && oldEntity->color() != newEntity->color()) return false;
  if (IsCompared(kCompareLineWeight) && oldEntity->lineWeight() != newEntity->lineWeight()) {
    return false;
  }
  return true;
}

bool VnFileCompareUtils::CompareByClass(const QxDbEntity* oldEntity, const QxDbEntity* newEntity) {
  using Utils = VnFileCompareUtils;
  bool verdict = true;
  // Identity tests of the class, in a fixed order.
  if (Dispatch(oldEntity, newEntity, this, &Utils::CompareLine, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::ComparePoint, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareCircle, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareArc, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareTrace, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareFace, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::ComparePolyline, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareEllipse, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareSpline, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::Compare2dPolyline, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::Compare3dPolyline, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::ComparePolygonMesh, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::ComparePolyFaceMesh, verdict)) {
    return verdict;
  }
  if (Dispatch(oldEntity, newEntity, this, &Utils::CompareBlockReference, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareMInsertBlock, verdict)) {
    return verdict;
  }
  if (Dispatch(oldEntity, newEntity, this, &Utils::CompareTable, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareRay, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareXline, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareShape, verdict)) {
    return verdict;
  }
  if (Dispatch(oldEntity, newEntity, this, &Utils::CompareAttributeDefinition, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareText, verdict)) {
    return verdict;
  }
  // Attributes alone are tested as a kind, not as an exact class.
  if (oldEntity->isKindOf(QxDbAttribute::desc())) {
    return CompareAttribute(static_cast<const QxDbAttribute*>(oldEntity),
                            static_cast<const QxDbAttribute*>(newEntity));
  }
  if (Dispatch(oldEntity, newEntity, this, &Utils::CompareRotatedDimension, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareAlignedDimension, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::Compare2LineAngularDimension, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareDiametricDimension, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareRadialDimension, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::Compare3PointAngularDimension, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareOrdinateDimension, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareArcDimension, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareRadialDimensionLarge, verdict)) {
    return verdict;
  }
  if (Dispatch(oldEntity, newEntity, this, &Utils::CompareMText, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareLeader, verdict)) {
    return verdict;
  }
  if (Dispatch(oldEntity, newEntity, this, &Utils::CompareRegion, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareBody, verdict)) {
    return verdict;
  }
  if (Dispatch(oldEntity, newEntity, this, &Utils::CompareMline, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareHatch, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareRasterImage, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareOle2Frame, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareFcf, verdict) ||
      Dispatch(oldEntity, newEntity, this, &Utils::CompareSolid, verdict)) {
    return verdict;
  }
  // A class without a comparator keeps the verdict of the common properties.
  return true;
}

bool VnFileCompareUtils::HasDifferentThickness(double oldThickness, double newThickness) const {
  // Exact on purpose: the thickness is the one real that isn't compared as near.
  return IsCompared(kCompareThickness) && oldThickness != newThickness;
}
