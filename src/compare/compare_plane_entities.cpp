// Comparators of the four-cornered kinds (traces, solids, faces), shapes, and the kinds
// whose data the comparison doesn't look into (regions, bodies, meshes).
#include "compare/compare_equality.h"
#include "compare/file_compare_utils.h"

using CompareEquality::IsNearEqual;
using CompareEquality::IsSameString;

namespace {

template <typename Quadrilateral>
bool HaveSameCorners(const Quadrilateral* oldEntity, const Quadrilateral* newEntity) {
  for (std::uint16_t i = 0; i < 4; ++i) {
    QxGePoint3d oldPoint;
    QxGePoint3d newPoint;
    oldEntity->getPointAt(i, oldPoint);
    newEntity->getPointAt(i, newPoint);
    if (!oldPoint.isEqualTo(newPoint)) return false;
  }
  return true;
}

}  // namespace

bool VnFileCompareUtils::CompareTrace(const QxDbTrace* oldTrace, const QxDbTrace* newTrace) {
  if (HasDifferentThickness(oldTrace->thickness(), newTrace->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  return HaveSameCorners(oldTrace, newTrace);
}

bool VnFileCompareUtils::CompareSolid(const QxDbSolid* oldSolid, const QxDbSolid* newSolid) {
  if (HasDifferentThickness(oldSolid->thickness(), newSolid->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  return HaveSameCorners(oldSolid, newSolid);
}

bool VnFileCompareUtils::CompareFace(const QxDbFace* oldFace, const QxDbFace* newFace) {
  if (!IsGeometryCompared()) return true;
  for (std::uint16_t i = 0; i < 4; ++i) {
    QxGePoint3d oldPoint;
    QxGePoint3d newPoint;
    oldFace->getVertexAt(i, oldPoint);
    newFace->getVertexAt(i, newPoint);
    if (!oldPoint.isEqualTo(newPoint)) return false;
    bool oldVisible = false;
    bool newVisible = false;
    oldFace->isEdgeVisibleAt(i, oldVisible);
    newFace->isEdgeVisibleAt(i, newVisible);
    if (oldVisible != newVisible) return false;
  }
  return true;
}

bool VnFileCompareUtils::CompareShape(const QxDbShape* oldShape, const QxDbShape* newShape) {
  if (HasDifferentThickness(oldShape->thickness(), newShape->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  if (!oldShape->position().isEqualTo(newShape->position()) ||
      !IsNearEqual(oldShape->size(), newShape->size()) ||
      !IsNearEqual(oldShape->rotation(), newShape->rotation()) ||
      !IsNearEqual(oldShape->widthFactor(), newShape->widthFactor()) ||
      !IsNearEqual(oldShape->oblique(), newShape->oblique()) ||
      oldShape->shapeNumber() != newShape->shapeNumber()) {
    return false;
  }
  wchar_t* oldName = oldShape->name();
  wchar_t* newName = newShape->name();
  const bool same = IsSameString(oldName, newName);
  qxad_free(oldName);
  qxad_free(newName);
  return same;
}

// The solid modeler's and the meshes' data aren't compared: equal common properties
// make them the same.
bool VnFileCompareUtils::CompareRegion(const QxDbRegion*, const QxDbRegion*) {
  return true;
}
bool VnFileCompareUtils::CompareBody(const QxDbBody*, const QxDbBody*) {
  return true;
}
bool VnFileCompareUtils::ComparePolygonMesh(const QxDbPolygonMesh*, const QxDbPolygonMesh*) {
  return true;
}
bool VnFileCompareUtils::ComparePolyFaceMesh(const QxDbPolyFaceMesh*, const QxDbPolyFaceMesh*) {
  return true;
}
