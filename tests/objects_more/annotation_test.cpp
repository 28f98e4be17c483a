// Leaders and tolerance frames: vertices, the annotation link, and dimension variables
// from the entity's override or its style, through both layers.
#include <numbers>

#include "api/objects/object_state.h"
#include "db/handle.h"
#include "more_fixture.h"
#include "qx_db_leader.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

class AnnotationTest : public MoreEntitiesTest {
 protected:
  QxDbObjectId addLeader(std::vector<db::OwnedGroup> extendedData = {}) {
    std::vector<db::OwnedGroup> all = groups(
        "100 AcDbLeader|3 Standard|71 1|72 0|73 3|74 0|75 0|40 0|41 0|76 3|10 0|20 0|30 0|10 3|20 "
        "3|30 0|10 6|20 3|30 1|210 0|220 0|230 1");
    all.insert(all.end(), extendedData.begin(), extendedData.end());
    return add("LEADER", all);
  }
  QxDbObjectId addMText() {
    return add(
        "MTEXT",
        groups("100 AcDbMText|10 7|20 4|30 0|40 2.5|41 0|71 1|1 Note\\Psecond line|7 Standard"));
  }
  QxDbObjectId addTolerance(std::vector<db::OwnedGroup> extendedData = {}) {
    std::vector<db::OwnedGroup> all = groups(
        "100 AcDbFcf|3 Standard|10 2|20 5|30 0|1 {\\Fgdt;j}%%v0.1^J{\\Fgdt;r}%%v0.2|210 0|220 "
        "0|230 1|11 0|21 1|31 0");
    all.insert(all.end(), extendedData.begin(), extendedData.end());
    return add("TOLERANCE", all);
  }
};

const std::vector<db::OwnedGroup> kOverrides = groups(
    "1001 ACAD|1000 DSTYLE|1002 {|1070 41|1040 0.7|1070 147|1040 0.3|1070 178|1070 5|1002 }");

TEST_F(AnnotationTest, LeaderVerticesThroughBothLayers) {
  QxDbObjectId id = addLeader();
  QxDbLeader* leader = open<QxDbLeader>(id, QxDb::kForWrite);
  ASSERT_TRUE(leader);
  ASSERT_EQ(leader->numVertices(), 3);
  EXPECT_POINT_NEAR(leader->vertexAt(2), 6, 3, 1, 0);
  EXPECT_TRUE(leader->hasArrowHead());
  EXPECT_EQ(leader->setVertexAt(1, QxGePoint3d(3, 4, 5)), Qxad::eOk);
  EXPECT_EQ(leader->setVertexAt(3, QxGePoint3d()), Qxad::eInvalidIndex);
  EXPECT_EQ(leader->appendVertex(QxGePoint3d(9, 3, 1)), Qxad::eOk);
  EXPECT_EQ(leader->disableArrowHead(), Qxad::eOk);
  QxDbExtents extents;
  ASSERT_EQ(leader->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.minPoint(), 0, 0, 0, 0);
  EXPECT_POINT_NEAR(extents.maxPoint(), 9, 4, 5, 0);
  leader->close();

  EXPECT_POINT_NEAR(listPoint(id, 10, 1).value_or(QxGePoint3d()), 3, 4, 5, 0);
  EXPECT_POINT_NEAR(listPoint(id, 10, 3).value_or(QxGePoint3d()), 9, 3, 1, 0);
  EXPECT_EQ(listInteger(id, 76), 4);
  EXPECT_EQ(listInteger(id, 71), 0);

  modifyPoint(id, 10, QxGePoint3d(-1, -2, -3), 2);
  leader = open<QxDbLeader>(id);
  ASSERT_TRUE(leader);
  EXPECT_POINT_NEAR(leader->vertexAt(2), -1, -2, -3, 0);
  EXPECT_POINT_NEAR(leader->vertexAt(3), 9, 3, 1, 0);
  EXPECT_FALSE(leader->hasArrowHead());
  leader->close();
}

TEST_F(AnnotationTest, LeaderFollowsSimilaritiesOnlyAndKeepsItsExtendedData) {
  std::vector<db::OwnedGroup> all = groups(
      "100 AcDbLeader|3 Standard|71 1|72 0|73 0|74 0|75 0|40 2.5|41 4|76 2|10 3|20 3|30 0|10 6|20 "
      "3|30 1|210 0|220 0|230 1|211 1|221 0|231 0|212 0.5|222 0|232 0|213 0|223 -1|233 0");
  all.insert(all.end(), kOverrides.begin(), kOverrides.end());
  QxDbObjectId id = add("LEADER", all);
  QxDbLeader* leader = open<QxDbLeader>(id, QxDb::kForWrite);
  ASSERT_TRUE(leader);
  // Skewing would bend the hook line against its annotation: refused, nothing moves.
  EXPECT_EQ(leader->transformBy(QxGeMatrix3d::scaling(QxGeScale3d(2, 1, 1))), Qxad::eNotApplicable);
  EXPECT_POINT_NEAR(leader->vertexAt(0), 3, 3, 0, 0);
  // p -> 2 R(90 degrees) p + (1, 1, 0).
  QxGeMatrix3d map = QxGeMatrix3d::translation(QxGeVector3d(1, 1, 0)) * QxGeMatrix3d::scaling(2) *
                     QxGeMatrix3d::rotation(std::numbers::pi / 2, QxGeVector3d(0, 0, 1));
  ASSERT_EQ(leader->transformBy(map), Qxad::eOk);
  EXPECT_POINT_NEAR(leader->vertexAt(0), -5, 7, 0, 1e-12);
  EXPECT_POINT_NEAR(leader->vertexAt(1), -5, 13, 2, 1e-12);
  EXPECT_NEAR(leader->dimasz(), 0.7, 1e-15) << "the override stays with the leader";
  leader->close();

  EXPECT_POINT_NEAR(listPoint(id, 211).value_or(QxGePoint3d()), 0, 1, 0, 1e-12);
  EXPECT_POINT_NEAR(listPoint(id, 212).value_or(QxGePoint3d()), 0, 1, 0, 1e-12);
  EXPECT_POINT_NEAR(listPoint(id, 213).value_or(QxGePoint3d()), 2, 0, 0, 1e-12);
  EXPECT_POINT_NEAR(listPoint(id, 210).value_or(QxGePoint3d()), 0, 0, 1, 1e-12);
  EXPECT_NEAR(listReal(id, 40).value_or(0), 5, 1e-12);
  EXPECT_NEAR(listReal(id, 41).value_or(0), 8, 1e-12);
}

TEST_F(AnnotationTest, AttachAndDetachAnnotation) {
  QxDbObjectId id = addLeader();
  QxDbObjectId text = addMText();
  QxDbObjectId line = add("LINE", groups("100 AcDbLine|10 0|20 0|11 1|21 0"));
  QxDbLeader* leader = open<QxDbLeader>(id, QxDb::kForWrite);
  ASSERT_TRUE(leader);
  EXPECT_TRUE(leader->annotationObjId().isNull());
  EXPECT_EQ(leader->annoType(), QxDbLeader::kNoAnno);
  EXPECT_EQ(leader->attachAnnotation(line), Qxad::eWrongObjectType);
  ASSERT_EQ(leader->attachAnnotation(text), Qxad::eOk);
  EXPECT_EQ(leader->annotationObjId(), text);
  EXPECT_EQ(leader->annoType(), QxDbLeader::kMText);
  // Two lines of text 2.5 high: the measured size, not the stored 0.
  EXPECT_GT(leader->annoHeight(), 2.5);
  EXPECT_GT(leader->annoWidth(), 0);
  leader->close();

  EXPECT_EQ(listInteger(id, 73), QxDbLeader::kMText);
  EXPECT_EQ(recordOf(id)->find(340), db::formatHandle(text.handle().value()));

  leader = open<QxDbLeader>(id, QxDb::kForWrite);
  ASSERT_TRUE(leader);
  EXPECT_EQ(leader->detachAnnotation(), Qxad::eOk);
  EXPECT_TRUE(leader->annotationObjId().isNull());
  leader->close();
  EXPECT_EQ(listInteger(id, 73), QxDbLeader::kNoAnno);
  EXPECT_FALSE(recordOf(id)->find(340));

  QxDbObjectId frame = addTolerance();
  leader = open<QxDbLeader>(id, QxDb::kForWrite);
  ASSERT_TRUE(leader);
  EXPECT_EQ(leader->attachAnnotation(frame), Qxad::eOk);
  EXPECT_EQ(leader->annoType(), QxDbLeader::kFcf);
  leader->close();
  modifyInteger(id, 73, QxDbLeader::kBlockRef);
  leader = open<QxDbLeader>(id);
  ASSERT_TRUE(leader);
  EXPECT_EQ(leader->annoType(), QxDbLeader::kBlockRef);
  leader->close();
}

TEST_F(AnnotationTest, LeaderVariablesFromOverrideOrStyle) {
  QxDbObjectId plain = addLeader();
  QxDbObjectId overridden = addLeader(kOverrides);
  QxDbLeader* leader = open<QxDbLeader>(plain, QxDb::kForWrite);
  ASSERT_TRUE(leader);
  // The new drawing's Standard style: metric sizes, no DIMSCALE group.
  EXPECT_DOUBLE_EQ(leader->dimasz(), 2.5);
  EXPECT_DOUBLE_EQ(leader->dimgap(), 0.625);
  EXPECT_DOUBLE_EQ(leader->dimscale(), 1.0);
  EXPECT_EQ(leader->dimclrd().colorIndex(), 0);
  EXPECT_EQ(leader->dimensionStyle(),
            api::idOf(database(), *database().tableEntry("DIMSTYLE", "Standard")));
  // Setting makes the override, which the flat layer sees as extended data.
  QxCmColor green;
  green.setColorIndex(3);
  EXPECT_EQ(leader->setDimclrd(green), Qxad::eOk);
  EXPECT_EQ(leader->setDimasz(1.25), Qxad::eOk);
  EXPECT_EQ(leader->dimclrd().colorIndex(), 3);
  leader->close();
  EXPECT_EQ(overrideValue(plain, 176), 3);
  EXPECT_EQ(overrideValue(plain, 41), 1.25);

  leader = open<QxDbLeader>(overridden, QxDb::kForWrite);
  ASSERT_TRUE(leader);
  EXPECT_DOUBLE_EQ(leader->dimasz(), 0.7);
  EXPECT_DOUBLE_EQ(leader->dimgap(), 0.3);
  EXPECT_DOUBLE_EQ(leader->dimscale(), 1.0);
  // An existing override is replaced in place, a new one goes before the closing brace.
  EXPECT_EQ(leader->setDimgap(0.5), Qxad::eOk);
  EXPECT_EQ(leader->setDimscale(4), Qxad::eOk);
  leader->close();
  EXPECT_EQ(overrideValue(overridden, 147), 0.5);
  EXPECT_EQ(overrideValue(overridden, 40), 4);
  EXPECT_EQ(overrideValue(overridden, 178), 5);
  std::vector<db::Group> groups = recordOf(overridden)->groupList();
  EXPECT_EQ(groups.back().code, 1002);
  EXPECT_EQ(groups.back().value, "}");

  modifyOverride(overridden, 41, 0.9);
  leader = open<QxDbLeader>(overridden);
  ASSERT_TRUE(leader);
  EXPECT_DOUBLE_EQ(leader->dimasz(), 0.9);
  EXPECT_EQ(leader->setDimasz(1), Qxad::eNotOpenForWrite);
  leader->close();
}

TEST_F(AnnotationTest, ToleranceTextPlacementAndColors) {
  QxDbObjectId id = addTolerance(kOverrides);
  QxDbFcf* frame = open<QxDbFcf>(id, QxDb::kForWrite);
  ASSERT_TRUE(frame);
  wchar_t* whole = frame->text();
  wchar_t* second = frame->text(1);
  wchar_t* beyond = frame->text(2);
  EXPECT_STREQ(whole, L"{\\Fgdt;j}%%v0.1^J{\\Fgdt;r}%%v0.2");
  EXPECT_STREQ(second, L"{\\Fgdt;r}%%v0.2");
  EXPECT_STREQ(beyond, L"");
  qxad_free(whole);
  qxad_free(second);
  qxad_free(beyond);
  EXPECT_POINT_NEAR(frame->location(), 2, 5, 0, 0);
  EXPECT_TRUE(frame->direction().isEqualTo(QxGeVector3d(0, 1, 0)));
  EXPECT_TRUE(frame->normal().isEqualTo(QxGeVector3d(0, 0, 1)));
  EXPECT_DOUBLE_EQ(frame->dimgap(), 0.3);
  EXPECT_DOUBLE_EQ(frame->dimtxt(), 2.5);
  EXPECT_DOUBLE_EQ(frame->dimscale(), 1.0);
  EXPECT_EQ(frame->dimclrt().colorIndex(), 5);

  QxCmColor red;
  red.setColorIndex(1);
  EXPECT_EQ(frame->setDimclrd(red), Qxad::eOk);
  EXPECT_EQ(frame->setDimclrt(red), Qxad::eOk);
  EXPECT_EQ(frame->setText(L"%%v1"), Qxad::eOk);
  EXPECT_EQ(frame->setLocation(QxGePoint3d(1, 1, 1)), Qxad::eOk);
  frame->close();

  EXPECT_EQ(overrideValue(id, 176), 1);
  EXPECT_EQ(overrideValue(id, 178), 1);
  EXPECT_EQ(listText(id, 1), L"%%v1");
  EXPECT_POINT_NEAR(listPoint(id, 10).value_or(QxGePoint3d()), 1, 1, 1, 0);

  modifyPoint(id, 11, QxGePoint3d(1, 0, 0));
  frame = open<QxDbFcf>(id);
  ASSERT_TRUE(frame);
  EXPECT_TRUE(frame->direction().isEqualTo(QxGeVector3d(1, 0, 0)));
  EXPECT_EQ(frame->dimclrd().colorIndex(), 1);
  frame->close();
}

}  // namespace
}  // namespace korva::test
