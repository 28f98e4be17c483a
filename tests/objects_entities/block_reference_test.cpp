#include <cmath>
#include <memory>

#include "entities_fixture.h"
#include "qx_db_block_reference.h"
#include "qx_db_object_iterator.h"
#include "qx_db_text.h"
#include "qx_ge.h"

namespace korva::test {
namespace {

std::vector<db::OwnedGroup> line(double x1, double y1, double x2, double y2) {
  return {{100, "AcDbEntity"},
          {8, "0"},
          {100, "AcDbLine"},
          {10, std::to_string(x1)},
          {20, std::to_string(y1)},
          {30, "0"},
          {11, std::to_string(x2)},
          {21, std::to_string(y2)},
          {31, "0"}};
}

std::vector<db::OwnedGroup> insert(const char* block, double x, double y, double sx, double sy,
                                   double degrees) {
  return {{100, "AcDbEntity"},
          {8, "0"},
          {100, "AcDbBlockReference"},
          {2, block},
          {10, std::to_string(x)},
          {20, std::to_string(y)},
          {30, "0"},
          {41, std::to_string(sx)},
          {42, std::to_string(sy)},
          {43, "1"},
          {50, std::to_string(degrees)}};
}

class BlockReferenceTest : public EntitiesTest {};

TEST_F(BlockReferenceTest, NestedRotatedNonUniformReferenceExplodesToHandComputedPoints) {
  addBlock("INNER");
  add("LINE", line(0, 0, 1, 0), "INNER");
  addBlock("OUTER");
  add("LINE", line(0, 0, 1, 0), "OUTER");
  add("INSERT", insert("INNER", 2, 0, 1, 1, 45), "OUTER");
  QxDbObjectId id = add("INSERT", insert("OUTER", 10, 10, 2, 1, 90));

  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForRead), Qxad::eOk);
  QxDbBlockReference* reference = QxDbBlockReference::cast(object);
  ASSERT_NE(reference, nullptr);
  EXPECT_EQ(QxDbMInsertBlock::cast(object), nullptr);
  std::vector<QxDbEntity*> pieces;
  ASSERT_EQ(explodeInto(reference, pieces), Qxad::eOk);
  reference->close();

  // Outer line: scaled by 2 in X, then turned 90 degrees about (10, 10).
  // Inner line: the 45-degree reference is skewed by the non-uniform scale, so it is
  // broken up: (0,0)->(2,0) and (1,0)->(2+c, s) in OUTER, then (x,y)->(10-y, 10+2x).
  const double c = std::sqrt(0.5);
  const double expected[2][4] = {{10, 10, 10, 12}, {10, 14, 10 - c, 14 + 2 * c}};
  ASSERT_EQ(pieces.size(), 2u);
  for (size_t i = 0; i < pieces.size(); ++i) {
    std::unique_ptr<QxDbEntity> piece(pieces[i]);
    EXPECT_TRUE(piece->isNewObject());
    db::Record& record = api::recordOf(*piece);
    ASSERT_EQ(record.type(), "LINE");
    double start[3], end[3];
    api::groupPoint(record, 10, start);
    api::groupPoint(record, 11, end);
    EXPECT_NEAR(start[0], expected[i][0], 1e-9);
    EXPECT_NEAR(start[1], expected[i][1], 1e-9);
    EXPECT_NEAR(end[0], expected[i][2], 1e-9);
    EXPECT_NEAR(end[1], expected[i][3], 1e-9);
  }
}

TEST_F(BlockReferenceTest, ReferenceThatStaysPerpendicularStaysAReference) {
  addBlock("INNER");
  add("LINE", line(0, 0, 1, 0), "INNER");
  addBlock("OUTER");
  add("INSERT", insert("INNER", 1, 0, 1, 1, 90), "OUTER");
  QxDbObjectId id = add("INSERT", insert("OUTER", 0, 0, 2, 3, 0));
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForRead), Qxad::eOk);
  std::vector<QxDbEntity*> pieces;
  ASSERT_EQ(explodeInto(QxDbBlockReference::cast(object), pieces), Qxad::eOk);
  object->close();
  ASSERT_EQ(pieces.size(), 1u);
  std::unique_ptr<QxDbEntity> piece(pieces[0]);
  QxDbBlockReference* nested = QxDbBlockReference::cast(piece.get());
  ASSERT_NE(nested, nullptr);
  // The inner X axis (0,1) becomes (0,3); its Y axis (-1,0) becomes (-2,0).
  QxGeScale3d scale = nested->scaleFactors();
  EXPECT_NEAR(scale.sx, 3, 1e-9);
  EXPECT_NEAR(scale.sy, 2, 1e-9);
  EXPECT_NEAR(nested->rotation(), kPi / 2, 1e-9);
  EXPECT_NEAR(nested->position().x, 2, 1e-9);
}

TEST_F(BlockReferenceTest, CircleUnderNonUniformScaleBecomesEllipse) {
  addBlock("ROUND");
  add("CIRCLE",
      {{100, "AcDbEntity"},
       {8, "0"},
       {100, "AcDbCircle"},
       {10, "1"},
       {20, "0"},
       {30, "0"},
       {40, "1"}},
      "ROUND");
  QxDbObjectId id = add("INSERT", insert("ROUND", 0, 0, 3, 1, 0));
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForRead), Qxad::eOk);
  std::vector<QxDbEntity*> pieces;
  ASSERT_EQ(explodeInto(QxDbBlockReference::cast(object), pieces), Qxad::eOk);
  object->close();
  ASSERT_EQ(pieces.size(), 1u);
  std::unique_ptr<QxDbEntity> piece(pieces[0]);
  db::Record& record = api::recordOf(*piece);
  EXPECT_EQ(record.type(), "ELLIPSE");
  double center[3], major[3];
  api::groupPoint(record, 10, center);
  api::groupPoint(record, 11, major);
  EXPECT_NEAR(center[0], 3, 1e-9);
  EXPECT_NEAR(std::hypot(major[0], major[1]), 3, 1e-9);
  EXPECT_NEAR(api::groupReal(record, 40, 0), 1.0 / 3, 1e-9);
}

TEST_F(BlockReferenceTest, AttributesAreTheRecordsUpToSeqend) {
  addBlock("TAGGED");
  QxDbObjectId id = add("INSERT", insert("TAGGED", 0, 0, 1, 1, 0));
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
  QxDbBlockReference* reference = QxDbBlockReference::cast(object);
  for (const wchar_t* tag : {L"FIRST", L"SECOND"}) {
    auto* attribute = new QxDbAttribute(QxGePoint3d(0, 0, 0), L"v", tag);
    QxDbObjectId attributeId;
    ASSERT_EQ(reference->appendAttribute(attributeId, attribute), Qxad::eOk);
    EXPECT_FALSE(attributeId.isNull());
    attribute->close();
  }
  std::unique_ptr<QxDbObjectIterator> iterator(reference->attributeIterator());
  reference->close();
  std::vector<std::wstring> tags;
  for (iterator->start(); !iterator->done(); iterator->step()) {
    QxDbObject* each = nullptr;
    ASSERT_EQ(qxdbOpenQxDbObject(each, iterator->objectId(), QxDb::kForRead), Qxad::eOk);
    tags.push_back(QxDbAttribute::cast(each)->tagConst());
    each->close();
  }
  EXPECT_EQ(tags, (std::vector<std::wstring>{L"FIRST", L"SECOND"}));
}

TEST_F(BlockReferenceTest, GridInsertOpensAsMultipleInsertAndExplodesEveryCopy) {
  addBlock("CELL");
  add("LINE", line(0, 0, 1, 0), "CELL");
  std::vector<db::OwnedGroup> groups = insert("CELL", 0, 0, 1, 1, 0);
  groups.push_back({70, "2"});
  groups.push_back({71, "3"});
  groups.push_back({44, "5"});
  groups.push_back({45, "7"});
  QxDbObjectId id = add("INSERT", groups);
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForRead), Qxad::eOk);
  QxDbMInsertBlock* grid = QxDbMInsertBlock::cast(object);
  ASSERT_NE(grid, nullptr);
  EXPECT_TRUE(grid->isKindOf(QxDbBlockReference::desc()));
  EXPECT_EQ(grid->columns(), 2);
  EXPECT_EQ(grid->rows(), 3);
  EXPECT_DOUBLE_EQ(grid->rowSpacing(), 7);
  std::vector<QxDbEntity*> pieces;
  ASSERT_EQ(explodeInto(grid, pieces), Qxad::eOk);
  object->close();
  ASSERT_EQ(pieces.size(), 6u);
  double last[3];
  api::groupPoint(api::recordOf(*pieces.back()), 10, last);
  EXPECT_NEAR(last[0], 5, 1e-12);
  EXPECT_NEAR(last[1], 14, 1e-12);
  for (QxDbEntity* piece : pieces) delete piece;
}

}  // namespace
}  // namespace korva::test
