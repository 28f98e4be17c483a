// The verdicts of the comparison on pairs of entities made for the purpose: how the
// compare flag steers it, the three equalities, and the polyline kinds.
#include "compare/file_compare_utils.h"
#include "compare_drawing.h"

namespace korva::test {
namespace {

class ComparatorsTest : public CompareDrawingTest {
 protected:
  int compare(QxDbObjectId oldId, QxDbObjectId newId, int flag = kCompareAll) {
    VnFileCompareOptions options;
    options.SetCompareFlag(flag);
    utils_.SetOptions(options);
    const int verdict = utils_.CompareEntities(oldId, newId);
    EXPECT_EQ(qxdbOpenObjectCount(), 0u);
    return verdict;
  }

  static ResultBuffer* vertex2d(double x, double y, double bulge = 0) {
    const double point[3] = {x, y, 0};
    return qxutBuildList(RTDXF0, L"VERTEX", 10, point, 42, bulge, RTNONE);
  }
  static ResultBuffer* vertex3d(double x, double y, double z) {
    const double point[3] = {x, y, z};
    return qxutBuildList(RTDXF0, L"VERTEX", 10, point, 70, 32, RTNONE);
  }
  static ResultBuffer* polylineHead(int flags) {
    const double origin[3] = {0, 0, 0};
    return qxutBuildList(RTDXF0, L"POLYLINE", 66, 1, 10, origin, 70, flags, RTNONE);
  }
  static QxDbObjectId lightPolyline(double secondX, double bulge, double width) {
    const double first[2] = {0, 0};
    const double second[2] = {secondX, 0};
    return make(qxutBuildList(RTDXF0, L"LWPOLYLINE", 100, L"AcDbEntity", 100, L"AcDbPolyline", 90,
                              2, 70, 0, 43, width, 10, first, 42, bulge, 10, second, RTNONE));
  }

  const double origin_[3] = {0, 0, 0};
  const double east_[3] = {10, 0, 0};
  const double north_[3] = {0, 10, 0};
  VnFileCompareUtils utils_;
};

TEST_F(ComparatorsTest, IdenticalEntitiesAreTheSameAndAnotherClassIsDifferent) {
  const QxDbObjectId line = this->line(origin_, east_);
  const QxDbObjectId copy = this->line(origin_, east_);
  const QxDbObjectId circle = this->circle(origin_, 5);
  EXPECT_EQ(compare(line, copy), kVerdictSame);
  EXPECT_EQ(compare(line, circle), kVerdictDifferent);
  EXPECT_EQ(compare(line, QxDbObjectId::kNull), kVerdictDifferent);
  // With nothing compared, a pair of one class is the same and a pair of two classes
  // still different.
  const QxDbObjectId moved = this->line(north_, east_, L"Walls");
  EXPECT_EQ(compare(line, moved), kVerdictModified);
  EXPECT_EQ(compare(line, moved, 0), kVerdictSame);
  EXPECT_EQ(compare(line, circle, 0), kVerdictDifferent);
}

TEST_F(ComparatorsTest, CommonPropertiesCountOnlyWhenTheirBitIsSet) {
  const QxDbObjectId line = this->line(origin_, east_);
  const QxDbObjectId onWalls = this->line(origin_, east_, L"Walls");
  const QxDbObjectId red =
      make(qxutBuildList(RTDXF0, L"LINE", 10, origin_, 11, east_, 62, 1, RTNONE));
  EXPECT_EQ(compare(line, onWalls), kVerdictModified);
  EXPECT_EQ(compare(line, red), kVerdictModified);
  EXPECT_EQ(compare(line, onWalls, kCompareGeometry), kVerdictSame);
  EXPECT_EQ(compare(line, red, kCompareAll & ~kCompareColor), kVerdictSame);
  // A changed property decides even when the geometry changed too.
  const QxDbObjectId movedOnWalls = this->line(north_, east_, L"Walls");
  EXPECT_EQ(compare(line, movedOnWalls, kCompareLayer), kVerdictModified);

  // Layer names ignore letter case.
  const QxDbObjectId onUpperWalls = this->line(origin_, east_, L"WALLS");
  EXPECT_EQ(compare(onWalls, onUpperWalls), kVerdictSame);
}

TEST_F(ComparatorsTest, ThicknessIsExactAndOtherRealsAreNear) {
  const QxDbObjectId thin = circle(origin_, 5, 1.0);
  const QxDbObjectId thicker = circle(origin_, 5, 1.0 + 1e-11);
  EXPECT_EQ(compare(thin, thicker, kCompareThickness), kVerdictModified);
  EXPECT_EQ(compare(thin, thicker, kCompareGeometry), kVerdictSame);

  const QxDbObjectId wider = circle(origin_, 5 + 1e-11, 1.0);
  EXPECT_EQ(compare(thin, wider, kCompareGeometry), kVerdictSame);
  const QxDbObjectId muchWider = circle(origin_, 5 + 1e-9, 1.0);
  EXPECT_EQ(compare(thin, muchWider, kCompareGeometry), kVerdictModified);
  // Thickness only counts for the kinds that have it in their check list, and only
  // with its own bit.
  EXPECT_EQ(compare(thin, thicker, kCompareAll & ~kCompareThickness), kVerdictSame);
}

TEST_F(ComparatorsTest, ALineDrawnTheOtherWayRoundIsModified) {
  const QxDbObjectId line = this->line(origin_, east_);
  const QxDbObjectId reversed = this->line(east_, origin_);
  EXPECT_EQ(compare(line, reversed), kVerdictModified);
  EXPECT_EQ(compare(line, reversed, kCompareAll & ~kCompareGeometry), kVerdictSame);
}

TEST_F(ComparatorsTest, ArcsCompareTheirAngles) {
  const QxDbObjectId arc =
      make(qxutBuildList(RTDXF0, L"ARC", 10, origin_, 40, 5.0, 50, 0.0, 51, 90.0, RTNONE));
  const QxDbObjectId longer =
      make(qxutBuildList(RTDXF0, L"ARC", 10, origin_, 40, 5.0, 50, 0.0, 51, 120.0, RTNONE));
  const QxDbObjectId same =
      make(qxutBuildList(RTDXF0, L"ARC", 10, origin_, 40, 5.0, 50, 0.0, 51, 90.0, RTNONE));
  EXPECT_EQ(compare(arc, same), kVerdictSame);
  EXPECT_EQ(compare(arc, longer), kVerdictModified);
}

TEST_F(ComparatorsTest, LightPolylinesCompareVerticesBulgesAndWidths) {
  const QxDbObjectId polyline = lightPolyline(10, 0, 0);
  EXPECT_EQ(compare(polyline, lightPolyline(10, 0, 0)), kVerdictSame);
  EXPECT_EQ(compare(polyline, lightPolyline(12, 0, 0)), kVerdictModified);
  EXPECT_EQ(compare(polyline, lightPolyline(10, 0.5, 0)), kVerdictModified);
  EXPECT_EQ(compare(polyline, lightPolyline(10, 0, 2)), kVerdictModified);
}

TEST_F(ComparatorsTest, ThreeDimensionalPolylinesCountOnlyTheirVertices) {
  const QxDbObjectId polyline =
      makeSequence(polylineHead(8), {vertex3d(0, 0, 0), vertex3d(10, 0, 5)});
  const QxDbObjectId moved = makeSequence(polylineHead(8), {vertex3d(0, 0, 0), vertex3d(20, 7, 1)});
  const QxDbObjectId longer =
      makeSequence(polylineHead(8), {vertex3d(0, 0, 0), vertex3d(10, 0, 5), vertex3d(20, 0, 0)});
  const QxDbObjectId closed =
      makeSequence(polylineHead(9), {vertex3d(0, 0, 0), vertex3d(10, 0, 5)});
  EXPECT_EQ(compare(polyline, moved), kVerdictSame);
  EXPECT_EQ(compare(polyline, longer), kVerdictModified);
  EXPECT_EQ(compare(longer, polyline), kVerdictModified);
  EXPECT_EQ(compare(polyline, closed), kVerdictModified);
}

TEST_F(ComparatorsTest, TwoDimensionalPolylinesIgnoreVertexPositionsOnly) {
  const QxDbObjectId polyline = makeSequence(polylineHead(0), {vertex2d(0, 0), vertex2d(10, 0)});
  const QxDbObjectId moved = makeSequence(polylineHead(0), {vertex2d(0, 0), vertex2d(15, 3)});
  const QxDbObjectId bulged = makeSequence(polylineHead(0), {vertex2d(0, 0, 1), vertex2d(10, 0)});
  const QxDbObjectId shorter = makeSequence(polylineHead(0), {vertex2d(0, 0)});
  EXPECT_EQ(compare(polyline, moved), kVerdictSame);
  EXPECT_EQ(compare(polyline, bulged), kVerdictModified);
  EXPECT_EQ(compare(polyline, shorter), kVerdictModified);
}

}  // namespace
}  // namespace korva::test
