// Comparators of hatches, raster images and embedded frames.
#include "compare/compare_equality.h"
#include "compare/file_compare_utils.h"

using CompareEquality::IsNearEqual;
using CompareEquality::IsSameOwnedString;
using CompareEquality::IsSamePoint2dArray;
using CompareEquality::IsSamePoint3dArray;
using CompareEquality::IsSameRealArray;
using CompareEquality::IsSameString;

bool VnFileCompareUtils::CompareHatch(const QxDbHatch* oldHatch, const QxDbHatch* newHatch) {
  if (!IsGeometryCompared()) return true;
  if (oldHatch->hatchStyle() != newHatch->hatchStyle() ||
      !IsSameOwnedString(oldHatch->patternName(), newHatch->patternName()) ||
      !IsNearEqual(oldHatch->patternAngle(), newHatch->patternAngle()) ||
      oldHatch->associative() != newHatch->associative() ||
      !IsNearEqual(oldHatch->elevation(), newHatch->elevation()) ||
      !IsNearEqual(oldHatch->patternScale(), newHatch->patternScale())) {
    return false;
  }
  const int loops = oldHatch->numLoops();
  if (loops != newHatch->numLoops()) return false;
  for (int i = 0; i < loops; ++i) {
    // Loops of edges are passed over unread; only polyline loops are compared.
    if ((oldHatch->loopTypeAt(i) & QxDbHatch::kPolyline) == 0) continue;
    int oldType = 0;
    int newType = 0;
    QxGePoint2dArray oldVertices;
    QxGePoint2dArray newVertices;
    QxGeDoubleArray oldBulges;
    QxGeDoubleArray newBulges;
    oldHatch->getLoopAt(i, oldType, oldVertices, oldBulges);
    newHatch->getLoopAt(i, newType, newVertices, newBulges);
    if (oldType != newType || !IsSamePoint2dArray(oldVertices, newVertices) ||
        !IsSameRealArray(oldBulges, newBulges)) {
      return false;
    }
  }
  const int definitions = oldHatch->numPatternDefinitions();
  if (definitions != newHatch->numPatternDefinitions()) return false;
  for (int i = 0; i < definitions; ++i) {
    double oldValues[5] = {};
    double newValues[5] = {};
    QxGeDoubleArray oldDashes;
    QxGeDoubleArray newDashes;
    oldHatch->getPatternDefinitionAt(i, oldValues[0], oldValues[1], oldValues[2], oldValues[3],
                                     oldValues[4], oldDashes);
    newHatch->getPatternDefinitionAt(i, newValues[0], newValues[1], newValues[2], newValues[3],
                                     newValues[4], newDashes);
    for (int value = 0; value < 5; ++value) {
      if (!IsNearEqual(oldValues[value], newValues[value])) return false;
    }
    if (!IsSameRealArray(oldDashes, newDashes)) return false;
  }
  if (oldHatch->isGradient() != newHatch->isGradient()) return false;
  if (!oldHatch->isGradient()) return true;
  return IsSameOwnedString(oldHatch->gradientName(), newHatch->gradientName()) &&
         oldHatch->gradientType() == newHatch->gradientType() &&
         IsNearEqual(oldHatch->gradientAngle(), newHatch->gradientAngle()) &&
         IsNearEqual(static_cast<double>(oldHatch->gradientShift()),
                     static_cast<double>(newHatch->gradientShift()));
}

bool VnFileCompareUtils::CompareRasterImage(const QxDbRasterImage* oldImage,
                                            const QxDbRasterImage* newImage) {
  if (!IsGeometryCompared()) return true;
  const QxGeVector2d oldSize = oldImage->imageSize();
  const QxGeVector2d newSize = newImage->imageSize();
  if (!oldSize.isEqualTo(newSize)) return false;
  // The orientation per pixel, each image by its own size; the origin isn't compared.
  QxGePoint3d oldOrigin;
  QxGePoint3d newOrigin;
  QxGeVector3d oldU, oldV, newU, newV;
  oldImage->getOrientation(oldOrigin, oldU, oldV);
  newImage->getOrientation(newOrigin, newU, newV);
  if (!(oldU / oldSize.x).isEqualTo(newU / newSize.x) ||
      !(oldV / oldSize.y).isEqualTo(newV / newSize.y)) {
    return false;
  }
  if (oldImage->brightness() != newImage->brightness() ||
      oldImage->contrast() != newImage->contrast()) {
    return false;
  }
  // Turned round on purpose, as drawings compared before expect: two images pass only
  // when their fades differ.
  if (oldImage->fade() == newImage->fade()) return false;
  for (const auto option : {QxDbRasterImage::kShow, QxDbRasterImage::kShowUnAligned,
                            QxDbRasterImage::kClip, QxDbRasterImage::kTransparent}) {
    if (oldImage->isSetDisplayOpt(option) != newImage->isSetDisplayOpt(option)) return false;
  }
  if (oldImage->isClipped() != newImage->isClipped()) return false;
  if (!IsSamePoint2dArray(oldImage->clipBoundary(), newImage->clipBoundary())) return false;
  QxGePoint3dArray oldVertices;
  QxGePoint3dArray newVertices;
  oldImage->getVertices(oldVertices);
  newImage->getVertices(newVertices);
  return IsSamePoint3dArray(oldVertices, newVertices);
}

bool VnFileCompareUtils::CompareOle2Frame(const QxDbOle2Frame* oldFrame,
                                          const QxDbOle2Frame* newFrame) {
  if (!IsGeometryCompared()) return true;
  QxGePoint3d oldCorners[4];
  QxGePoint3d newCorners[4];
  oldFrame->getLocation(oldCorners);
  newFrame->getLocation(newCorners);
  for (int i = 0; i < 4; ++i) {
    if (!oldCorners[i].isEqualTo(newCorners[i])) return false;
  }
  if (oldFrame->getType() != newFrame->getType()) return false;
  if (oldFrame->getType() != QxDbOle2Frame::kLink) return true;
  // A link that can't say its source counts as naming none.
  constexpr int kLongestLinkText = 1024;
  wchar_t oldText[kLongestLinkText] = {};
  wchar_t newText[kLongestLinkText] = {};
  oldFrame->getLinkName(oldText, kLongestLinkText);
  newFrame->getLinkName(newText, kLongestLinkText);
  if (!IsSameString(oldText, newText)) return false;
  oldText[0] = newText[0] = L'\0';
  oldFrame->getLinkPath(oldText, kLongestLinkText);
  newFrame->getLinkPath(newText, kLongestLinkText);
  return IsSameString(oldText, newText);
}
