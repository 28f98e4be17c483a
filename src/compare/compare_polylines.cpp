// Comparators of the three polyline kinds.
#include <memory>

#include "compare/compare_equality.h"
#include "compare/file_compare_utils.h"

using CompareEquality::IsNearEqual;
using CompareEquality::IsNearZero;

bool VnFileCompareUtils::ComparePolyline(const QxDbPolyline* oldPolyline,
                                         const QxDbPolyline* newPolyline) {
  if (HasDifferentThickness(oldPolyline->thickness(), newPolyline->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  const unsigned int count = oldPolyline->numVerts();
  if (count != newPolyline->numVerts()) return false;
  if (oldPolyline->isClosed() != newPolyline->isClosed()) return false;
  for (unsigned int i = 0; i < count; ++i) {
    QxGePoint3d oldPoint;
    QxGePoint3d newPoint;
    oldPolyline->getPointAt(i, oldPoint);
    newPolyline->getPointAt(i, newPoint);
    if (!oldPoint.isEqualTo(newPoint)) return false;
    double oldBulge = 0;
    double newBulge = 0;
    oldPolyline->getBulgeAt(i, oldBulge);
    newPolyline->getBulgeAt(i, newBulge);
    if (!IsNearEqual(oldBulge, newBulge)) return false;
  }
  if (!IsNearEqual(oldPolyline->elevation(), newPolyline->elevation())) return false;
  if (oldPolyline->hasPlinegen() != newPolyline->hasPlinegen()) return false;
  double oldWidth = 0;
  double newWidth = 0;
  oldPolyline->getConstantWidth(oldWidth);
  newPolyline->getConstantWidth(newWidth);
  if (!IsNearEqual(oldWidth, newWidth)) return false;
  // A constant width stands for every segment's widths.
  if (!IsNearZero(oldWidth)) return true;
  unsigned int segments = count;
  if (!oldPolyline->isClosed() && segments > 0) --segments;
  for (unsigned int i = 0; i < segments; ++i) {
    double oldStart = 0, oldEnd = 0, newStart = 0, newEnd = 0;
    oldPolyline->getWidthsAt(i, oldStart, oldEnd);
    newPolyline->getWidthsAt(i, newStart, newEnd);
    if (!IsNearEqual(oldStart, newStart) || !IsNearEqual(oldEnd, newEnd)) return false;
  }
  return true;
}

namespace {

using IteratorPointer = std::unique_ptr<QxDbObjectIterator>;

// Opens the vertices at both iterators; on failure nothing stays open.
template <typename Vertex>
bool OpenVertexPair(const IteratorPointer& oldVertices, const IteratorPointer& newVertices,
                    Vertex*& oldVertex, Vertex*& newVertex) {
  QxDbObject* oldObject = nullptr;
  if (qxdbOpenQxDbObject(oldObject, oldVertices->objectId(), QxDb::kForRead) != Qxad::eOk) {
    return false;
  }
  QxDbObject* newObject = nullptr;
  if (qxdbOpenQxDbObject(newObject, newVertices->objectId(), QxDb::kForRead) != Qxad::eOk) {
    oldObject->close();
    return false;
  }
  oldVertex = Vertex::cast(oldObject);
  newVertex = Vertex::cast(newObject);
  if (!oldVertex || !newVertex) {
    newObject->close();
    oldObject->close();
    return false;
  }
  return true;
}

// Walks both vertex lists in step; check decides each pair. Both lists must end
// together.
template <typename Vertex, typename Check>
bool WalkVerticesInStep(QxDbObjectIterator* oldIterator, QxDbObjectIterator* newIterator,
                        Check check) {
  const IteratorPointer oldVertices(oldIterator);
  const IteratorPointer newVertices(newIterator);
  if (!oldVertices || !newVertices) return false;
  oldVertices->start();
  newVertices->start();
  for (; !oldVertices->done() && !newVertices->done(); oldVertices->step(), newVertices->step()) {
    Vertex* oldVertex = nullptr;
    Vertex* newVertex = nullptr;
    if (!OpenVertexPair(oldVertices, newVertices, oldVertex, newVertex)) return false;
    const bool same = check(oldVertex, newVertex);
    newVertex->close();
    oldVertex->close();
    if (!same) return false;
  }
  return oldVertices->done() && newVertices->done();
}

}  // namespace

bool VnFileCompareUtils::Compare2dPolyline(const QxDb2dPolyline* oldPolyline,
                                           const QxDb2dPolyline* newPolyline) {
  if (HasDifferentThickness(oldPolyline->thickness(), newPolyline->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  if (!IsNearEqual(oldPolyline->elevation(), newPolyline->elevation()) ||
      oldPolyline->polyType() != newPolyline->polyType() ||
      oldPolyline->isClosed() != newPolyline->isClosed()) {
    return false;
  }
  return WalkVerticesInStep<QxDb2dVertex>(
      oldPolyline->vertexIterator(), newPolyline->vertexIterator(),
      [](const QxDb2dVertex* oldVertex, const QxDb2dVertex* newVertex) {
        // The old vertex's position is set against itself, so vertex positions never
        // decide: results of earlier comparisons stay as they were.
        if (!oldVertex->position().isEqualTo(oldVertex->position())) return false;
        return IsNearEqual(oldVertex->bulge(), newVertex->bulge()) &&
               IsNearEqual(oldVertex->startWidth(), newVertex->startWidth()) &&
               IsNearEqual(oldVertex->endWidth(), newVertex->endWidth());
      });
}

bool VnFileCompareUtils::Compare3dPolyline(const QxDb3dPolyline* oldPolyline,
                                           const QxDb3dPolyline* newPolyline) {
  if (!IsGeometryCompared()) return true;
  if (oldPolyline->polyType() != newPolyline->polyType() ||
      oldPolyline->isClosed() != newPolyline->isClosed()) {
    return false;
  }
  // Only the type, the closed flag and the number of vertices decide; the position
  // test sets the old vertex against itself, as for the two-dimensional kind.
  return WalkVerticesInStep<QxDb3dPolylineVertex>(
      oldPolyline->vertexIterator(), newPolyline->vertexIterator(),
      [](const QxDb3dPolylineVertex* oldVertex, const QxDb3dPolylineVertex*) {
        return oldVertex->position().isEqualTo(oldVertex->position());
      });
}
