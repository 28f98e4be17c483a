#include "entities_fixture.h"
#include "qx_db_dimension.h"
#include "qx_ge.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

class DimensionTest : public EntitiesTest {
 protected:
  QxDbObjectId addDimension(int typeBits, const char* subclass) {
    return add("DIMENSION", {{100, "AcDbEntity"},
                             {8, "0"},
                             {100, "AcDbDimension"},
                             {2, "*D1"},
                             {10, "1"},
                             {20, "2"},
                             {30, "0"},
                             {11, "5"},
                             {21, "6"},
                             {31, "0"},
                             {70, std::to_string(typeBits)},
                             {1, "<> mm"},
                             {3, "Standard"},
                             {100, subclass},
                             {13, "7"},
                             {23, "8"},
                             {33, "0"},
                             {14, "9"},
                             {24, "10"},
                             {34, "0"},
                             {15, "11"},
                             {25, "12"},
                             {35, "0"}});
  }
};

TEST_F(DimensionTest, TypeBitsChooseTheClass) {
  struct Case {
    int bits;
    const char* subclass;
    const QxRxClass* expected;
  };
  const Case cases[] = {{32, "AcDbAlignedDimension", QxDbRotatedDimension::desc()},
                        {33, "AcDbAlignedDimension", QxDbAlignedDimension::desc()},
                        {2, "AcDb2LineAngularDimension", QxDb2LineAngularDimension::desc()},
                        {3, "AcDbDiametricDimension", QxDbDiametricDimension::desc()},
                        {4, "AcDbRadialDimension", QxDbRadialDimension::desc()},
                        {5, "AcDb3PointAngularDimension", QxDb3PointAngularDimension::desc()},
                        {6 | 64, "AcDbOrdinateDimension", QxDbOrdinateDimension::desc()}};
  for (const Case& each : cases) {
    QxDbObject* object = nullptr;
    ASSERT_EQ(qxdbOpenQxDbObject(object, addDimension(each.bits, each.subclass), QxDb::kForRead),
              Qxad::eOk);
    EXPECT_EQ(object->isA(), each.expected) << each.bits;
    EXPECT_TRUE(object->isKindOf(QxDbDimension::desc()));
    object->close();
  }
}

TEST_F(DimensionTest, PictureWithAnOldPolylineMovesWithTheDimension) {
  addBlock("*D1");
  add("POLYLINE",
      {{100, "AcDbEntity"},
       {8, "0"},
       {100, "AcDb2dPolyline"},
       {66, "1"},
       {10, "0"},
       {20, "0"},
       {30, "0"},
       {70, "0"}},
      "*D1");
  std::vector<QxDbObjectId> vertices;
  for (const char* x : {"7", "9"}) {
    vertices.push_back(add("VERTEX",
                           {{100, "AcDbEntity"},
                            {8, "0"},
                            {100, "AcDbVertex"},
                            {100, "AcDb2dVertex"},
                            {10, x},
                            {20, "8"},
                            {30, "0"},
                            {70, "0"}},
                           "*D1"));
  }
  add("SEQEND", {{100, "AcDbEntity"}, {8, "0"}}, "*D1");
  QxDbObjectId id = addDimension(32, "AcDbAlignedDimension");
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
  QxDbEntity* dimension = QxDbEntity::cast(object);
  EXPECT_EQ(dimension->transformBy(QxGeMatrix3d::translation(QxGeVector3d(5, 0, 0))), Qxad::eOk);
  object->close();
  double point[3];
  api::groupPoint(*api::recordOf(vertices[0]), 10, point);
  EXPECT_NEAR(point[0], 12, 1e-12);
  api::groupPoint(*api::recordOf(vertices[1]), 10, point);
  EXPECT_NEAR(point[0], 14, 1e-12);
  EXPECT_NEAR(point[1], 8, 1e-12);
}

TEST_F(DimensionTest, MembersReadTheirDefinitionPoints) {
  QxDbObject* object = nullptr;
  ASSERT_EQ(
      qxdbOpenQxDbObject(object, addDimension(5, "AcDb3PointAngularDimension"), QxDb::kForWrite),
      Qxad::eOk);
  auto* angular = QxDb3PointAngularDimension::cast(object);
  ASSERT_NE(angular, nullptr);
  EXPECT_DOUBLE_EQ(angular->centerPoint().x, 11);
  EXPECT_DOUBLE_EQ(angular->xLine1Point().y, 8);
  EXPECT_DOUBLE_EQ(angular->arcPoint().x, 1);
  EXPECT_DOUBLE_EQ(angular->textPosition().y, 6);
  wchar_t* text = angular->dimensionText();
  EXPECT_STREQ(text, L"<> mm");
  qxad_free(text);
  EXPECT_TRUE(angular->dimBlockId().isNull());  // no such block in this drawing
  EXPECT_FALSE(angular->dimensionStyle().isNull());
  ASSERT_EQ(angular->setTextPosition(QxGePoint3d(-1, -2, 0)), Qxad::eOk);
  EXPECT_DOUBLE_EQ(angular->textPosition().x, -1);
  angular->close();
}

TEST_F(DimensionTest, NewRotatedDimensionWritesItsParts) {
  QxDbRotatedDimension dimension;
  ASSERT_EQ(dimension.setRotation(kPi / 2), Qxad::eOk);
  ASSERT_EQ(dimension.setXLine2Point(QxGePoint3d(4, 0, 0)), Qxad::eOk);
  EXPECT_NEAR(dimension.rotation(), kPi / 2, 1e-12);
  EXPECT_DOUBLE_EQ(dimension.xLine2Point().x, 4);
  EXPECT_EQ(api::groupInteger(api::recordOf(dimension), 70, -1), 0);
}

}  // namespace
}  // namespace korva::test
