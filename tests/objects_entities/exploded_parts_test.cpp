// Entities with records of their own, exploded out of a block: an old-style polyline's
// moved copy takes copies of its vertices and SEQEND into the drawing, a reference's
// copies of its attributes, a dimension's a moved copy of its picture block.
#include <cmath>
#include <memory>
#include <string>

#include "entities_fixture.h"
#include "qx_db_block_reference.h"
#include "qx_db_blocks.h"
#include "qx_db_database.h"
#include "qx_db_object_iterator.h"
#include "qx_db_polylines.h"
#include "qx_db_text.h"

namespace korva::test {
namespace {

std::vector<db::OwnedGroup> polyline(int flags, double elevation) {
  return {{100, "AcDbEntity"},
          {8, "0"},
          {100, flags & 8 ? "AcDb3dPolyline" : "AcDb2dPolyline"},
          {66, "1"},
          {10, "0"},
          {20, "0"},
          {30, std::to_string(elevation)},
          {70, std::to_string(flags)}};
}

std::vector<db::OwnedGroup> vertex(double x, double y, double z, double bulge, int flags = 0) {
  return {{100, "AcDbEntity"},        {8, "0"},
          {100, "AcDbVertex"},        {100, flags & 32 ? "AcDb3dPolylineVertex" : "AcDb2dVertex"},
          {10, std::to_string(x)},    {20, std::to_string(y)},
          {30, std::to_string(z)},    {42, std::to_string(bulge)},
          {70, std::to_string(flags)}};
}

std::vector<db::OwnedGroup> reference(const char* block, double sx, double sy, double sz) {
  return {{100, "AcDbEntity"},
          {8, "0"},
          {100, "AcDbBlockReference"},
          {2, block},
          {10, "10"},
          {20, "0"},
          {30, "0"},
          {41, std::to_string(sx)},
          {42, std::to_string(sy)},
          {43, std::to_string(sz)},
          {50, "90"}};
}

class ExplodedPartsTest : public EntitiesTest {
 protected:
  // A closed 2D polyline at elevation 0.5 whose first segment is a half circle, and a
  // 3D polyline, in block FRAME.
  void addFrame() {
    addBlock("FRAME");
    add("POLYLINE", polyline(1, 0.5), "FRAME");
    add("VERTEX", vertex(0, 0, 0, 1), "FRAME");
    add("VERTEX", vertex(2, 0, 0, 0), "FRAME");
    add("VERTEX", vertex(2, 2, 0, 0), "FRAME");
    add("SEQEND", {{100, "AcDbEntity"}, {8, "0"}}, "FRAME");
    add("POLYLINE", polyline(8, 0), "FRAME");
    add("VERTEX", vertex(1, 0, 1, 0, 32), "FRAME");
    add("VERTEX", vertex(1, 1, 2, 0, 32), "FRAME");
    add("SEQEND", {{100, "AcDbEntity"}, {8, "0"}}, "FRAME");
  }

  Qxad::ErrorStatus explodeReference(QxDbObjectId id, std::vector<QxDbEntity*>& pieces) {
    QxDbObject* object = nullptr;
    EXPECT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForRead), Qxad::eOk);
    if (!object) return Qxad::eInvalidInput;
    Qxad::ErrorStatus status = explodeInto(QxDbBlockReference::cast(object), pieces);
    object->close();
    return status;
  }

  QxDbObjectId appendToModelSpace(QxDbEntity* entity) {
    QxDbBlockTable* blocks = nullptr;
    EXPECT_EQ(s_pServices->workingDatabase()->getSymbolTable(blocks), Qxad::eOk);
    QxDbBlockTableRecord* model = nullptr;
    EXPECT_EQ(blocks->getAt(QXDB_MODEL_SPACE, model, QxDb::kForWrite), Qxad::eOk);
    blocks->close();
    QxDbObjectId id;
    EXPECT_EQ(model->appendQxDbEntity(id, entity), Qxad::eOk);
    model->close();
    return id;
  }
};

TEST_F(ExplodedPartsTest, CopiesComeWithTheirVerticesAndEndAndJoinTheDrawing) {
  addFrame();
  std::vector<QxDbEntity*> pieces;
  ASSERT_EQ(explodeReference(add("INSERT", reference("FRAME", 2, 2, 2)), pieces), Qxad::eOk);
  ASSERT_EQ(pieces.size(), 2u);
  std::unique_ptr<QxDbEntity> flat(pieces[0]), spatial(pieces[1]);
  ASSERT_NE(QxDb2dPolyline::cast(flat.get()), nullptr);
  ASSERT_NE(QxDb3dPolyline::cast(spatial.get()), nullptr);

  // Joined to the drawing, the 2D copy is followed by three vertices and a SEQEND that
  // it owns: (x, y) -> (10 - 2y, 2x), the elevation doubled, the bulge kept.
  QxDbObjectId id = appendToModelSpace(flat.get());
  QxDb2dPolyline* copy = QxDb2dPolyline::cast(flat.release());
  EXPECT_NEAR(copy->elevation(), 1, 1e-12);
  double end = 0, length = 0;
  ASSERT_EQ(copy->getEndParam(end), Qxad::eOk);
  ASSERT_EQ(copy->getDistAtParam(end, length), Qxad::eOk);
  EXPECT_NEAR(length, 2 * kPi + 4 + std::sqrt(32.0), 1e-9);
  std::unique_ptr<QxDbObjectIterator> vertices(copy->vertexIterator());
  copy->close();
  ASSERT_TRUE(vertices);
  const double expected[3][2] = {{10, 0}, {10, 4}, {6, 4}};
  int count = 0;
  for (vertices->start(); !vertices->done(); vertices->step(), ++count) {
    db::Record* record = api::recordOf(vertices->objectId());
    ASSERT_NE(record, nullptr);
    ASSERT_LT(count, 3);
    EXPECT_EQ(record->owner(), id.handle().value());
    double point[3];
    api::groupPoint(*record, 10, point);
    EXPECT_NEAR(point[0], expected[count][0], 1e-9);
    EXPECT_NEAR(point[1], expected[count][1], 1e-9);
    EXPECT_NEAR(api::groupReal(*record, 42, 0), count == 0 ? 1 : 0, 1e-12);
  }
  EXPECT_EQ(count, 3);
  const std::vector<db::Record*>& list = *database().entities();
  ASSERT_GE(list.size(), 5u);
  EXPECT_EQ(list[list.size() - 5]->handle(), id.handle().value());
  EXPECT_EQ(list.back()->type(), "SEQEND");
  EXPECT_EQ(list.back()->owner(), id.handle().value());
}

TEST_F(ExplodedPartsTest, SpatialVerticesFollowAnyScaleAndArcsRefuseOne) {
  addFrame();
  std::vector<QxDbEntity*> pieces;
  // A non-uniform scale can't keep the half circle an arc: nothing comes out.
  EXPECT_NE(explodeReference(add("INSERT", reference("FRAME", 3, 1, 1)), pieces), Qxad::eOk);
  EXPECT_TRUE(pieces.empty());

  addBlock("PATH");
  add("POLYLINE", polyline(8, 0), "PATH");
  add("VERTEX", vertex(1, 0, 1, 0, 32), "PATH");
  add("VERTEX", vertex(1, 1, 2, 0, 32), "PATH");
  add("SEQEND", {{100, "AcDbEntity"}, {8, "0"}}, "PATH");
  ASSERT_EQ(explodeReference(add("INSERT", reference("PATH", 3, 1, 2)), pieces), Qxad::eOk);
  ASSERT_EQ(pieces.size(), 1u);
  std::unique_ptr<QxDbEntity> piece(pieces[0]);
  QxDbObjectId id = appendToModelSpace(piece.get());
  QxDb3dPolyline* copy = QxDb3dPolyline::cast(piece.release());
  std::unique_ptr<QxDbObjectIterator> vertices(copy->vertexIterator());
  copy->close();
  // (x, y, z) -> (10 - y, 3x, 2z).
  const double expected[2][3] = {{10, 3, 2}, {9, 3, 4}};
  int count = 0;
  for (vertices->start(); !vertices->done(); vertices->step(), ++count) {
    ASSERT_LT(count, 2);
    QxDbObject* object = nullptr;
    ASSERT_EQ(vertices->getObject(object), Qxad::eOk);
    QxDb3dPolylineVertex* vertex = QxDb3dPolylineVertex::cast(object);
    EXPECT_NE(vertex, nullptr);
    if (vertex) {
      EXPECT_NEAR(vertex->position().x, expected[count][0], 1e-9);
      EXPECT_NEAR(vertex->position().y, expected[count][1], 1e-9);
      EXPECT_NEAR(vertex->position().z, expected[count][2], 1e-9);
      EXPECT_EQ(vertex->ownerId(), id);
    }
    object->close();
  }
  EXPECT_EQ(count, 2);
}

TEST_F(ExplodedPartsTest, DimensionGetsAMovedCopyOfItsPicture) {
  auto line = [](const char* x1, const char* y1, const char* x2, const char* y2) {
    return std::vector<db::OwnedGroup>{
        {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbLine"}, {10, x1}, {20, y1},
        {30, "0"},           {11, x2}, {21, y2},          {31, "0"}};
  };
  addBlock("*D1");
  add("LINE", line("7", "8", "9", "10"), "*D1");
  addBlock("PLAN");
  add("DIMENSION",
      {{100, "AcDbEntity"},
       {8, "0"},
       {100, "AcDbDimension"},
       {2, "*D1"},
       {10, "9"},
       {20, "12"},
       {30, "0"},
       {11, "8"},
       {21, "12"},
       {31, "0"},
       {70, "32"},
       {1, ""},
       {100, "AcDbAlignedDimension"},
       {13, "7"},
       {23, "8"},
       {33, "0"},
       {14, "9"},
       {24, "10"},
       {34, "0"}},
      "PLAN");
  std::vector<QxDbEntity*> pieces;
  ASSERT_EQ(explodeReference(add("INSERT", reference("PLAN", 2, 2, 2)), pieces), Qxad::eOk);
  ASSERT_EQ(pieces.size(), 1u);
  std::unique_ptr<QxDbEntity> piece(pieces[0]);
  QxDbObjectId id = appendToModelSpace(piece.get());
  piece.release()->close();

  // (x, y) -> (10 - 2y, 2x), for the dimension's points and its picture alike.
  db::Record* dimension = api::recordOf(id);
  ASSERT_NE(dimension, nullptr);
  double point[3];
  api::groupPoint(*dimension, 13, point);
  EXPECT_NEAR(point[0], -6, 1e-9);
  EXPECT_NEAR(point[1], 14, 1e-9);
  std::string name(dimension->find(2).value_or(""));
  EXPECT_TRUE(name.starts_with("*D") && name != "*D1") << name;
  db::BlockDefinition* copy = database().block(name);
  ASSERT_NE(copy, nullptr);
  ASSERT_EQ(copy->entities.size(), 1u);
  db::Record* moved = copy->entities[0];
  EXPECT_EQ(moved->owner(), copy->begin->owner());
  double start[3], end[3];
  api::groupPoint(*moved, 10, start);
  api::groupPoint(*moved, 11, end);
  EXPECT_NEAR(start[0], -6, 1e-9);
  EXPECT_NEAR(start[1], 14, 1e-9);
  EXPECT_NEAR(end[0], -10, 1e-9);
  EXPECT_NEAR(end[1], 18, 1e-9);
  // The original picture stays for the dimension in the block.
  db::Record* original = database().block("*D1")->entities[0];
  api::groupPoint(*original, 10, start);
  EXPECT_EQ(start[0], 7);
  EXPECT_EQ(start[1], 8);
}

TEST_F(ExplodedPartsTest, NestedReferenceTakesItsAttributesAlong) {
  addBlock("TAG");
  addBlock("CARD");
  std::vector<db::OwnedGroup> nested = reference("TAG", 1, 1, 1);
  nested.push_back({66, "1"});
  add("INSERT", nested, "CARD");
  add("ATTRIB",
      {{100, "AcDbEntity"},
       {8, "0"},
       {100, "AcDbText"},
       {10, "11"},
       {20, "1"},
       {30, "0"},
       {40, "1"},
       {1, "7"},
       {100, "AcDbAttribute"},
       {2, "NO"},
       {70, "0"}},
      "CARD");
  add("SEQEND", {{100, "AcDbEntity"}, {8, "0"}}, "CARD");
  std::vector<QxDbEntity*> pieces;
  ASSERT_EQ(explodeReference(add("INSERT", reference("CARD", 2, 2, 2)), pieces), Qxad::eOk);
  ASSERT_EQ(pieces.size(), 1u);
  std::unique_ptr<QxDbEntity> piece(pieces[0]);
  QxDbObjectId id = appendToModelSpace(piece.get());
  QxDbBlockReference* copy = QxDbBlockReference::cast(piece.release());
  ASSERT_NE(copy, nullptr);
  std::unique_ptr<QxDbObjectIterator> attributes(copy->attributeIterator());
  copy->close();
  // (x, y) -> (10 - 2y, 2x), the text height doubled.
  int count = 0;
  for (attributes->start(); !attributes->done(); attributes->step(), ++count) {
    QxDbObject* object = nullptr;
    ASSERT_EQ(attributes->getObject(object), Qxad::eOk);
    QxDbAttribute* attribute = QxDbAttribute::cast(object);
    EXPECT_NE(attribute, nullptr);
    if (attribute) {
      EXPECT_EQ(std::wstring(attribute->tagConst()), L"NO");
      EXPECT_NEAR(attribute->position().x, 8, 1e-9);
      EXPECT_NEAR(attribute->position().y, 22, 1e-9);
      EXPECT_NEAR(attribute->height(), 2, 1e-12);
      EXPECT_EQ(attribute->ownerId(), id);
    }
    object->close();
  }
  EXPECT_EQ(count, 1);
  EXPECT_EQ((*database().entities()).back()->type(), "SEQEND");
}

}  // namespace
}  // namespace korva::test
