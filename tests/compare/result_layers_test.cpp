// The result layers: made once, and set to their class's look even when they existed;
// entities moved onto them take the layer's colour.
#include "compare/file_compare_utils.h"
#include "compare_drawing.h"

namespace korva::test {
namespace {

class ResultLayersTest : public CompareDrawingTest {
 protected:
  static QxDbDatabase* database() { return s_pServices->workingDatabase(); }

  struct LayerLook {
    bool found = false, off = true, locked = true, frozen = false, frozenInNewViewports = false;
    std::int16_t color = -1;
  };
  static LayerLook lookOf(QxDbObjectId layerId) {
    LayerLook look;
    QxDbObject* object = nullptr;
    if (qxdbOpenQxDbObject(object, layerId, QxDb::kForRead) != Qxad::eOk) return look;
    if (auto* record = QxDbLayerTableRecord::cast(object)) {
      look = {true,
              record->isOff(),
              record->isLocked(),
              record->isFrozen(),
              record->VPDFLT(),
              record->color().colorIndex()};
    }
    object->close();
    return look;
  }
  VnFileCompareUtils utils_;
};

TEST_F(ResultLayersTest, ALayerIsMadeOnceAndTakesTheLookEveryTime) {
  const QxDbObjectId made =
      utils_.GetOrCreateResultLayer(database(), L"VN_FILECOMPARE_DIF", false, 1);
  ASSERT_FALSE(made.isNull());
  LayerLook look = lookOf(made);
  EXPECT_TRUE(look.found);
  EXPECT_FALSE(look.off);
  EXPECT_FALSE(look.frozen);
  EXPECT_EQ(look.color, 1);

  runScript("-LAYER\nOFF\nWalls\nLOck\nWalls\n\n");
  EntityName wallsName = {0, 0};
  ASSERT_EQ(qxdbTblObjName(L"LAYER", L"Walls", wallsName), RTNORM);
  QxDbObjectId wallsBefore;
  qxdbGetObjectId(wallsBefore, wallsName);
  ASSERT_TRUE(lookOf(wallsBefore).off);
  ASSERT_TRUE(lookOf(wallsBefore).locked);
  const QxDbObjectId walls = utils_.GetOrCreateResultLayer(database(), L"Walls", true, 5);
  look = lookOf(walls);
  EXPECT_FALSE(look.off);
  EXPECT_FALSE(look.locked);
  EXPECT_TRUE(look.frozen);
  EXPECT_TRUE(look.frozenInNewViewports);
  EXPECT_EQ(look.color, 5);
  EXPECT_EQ(utils_.GetOrCreateResultLayer(database(), L"VN_FILECOMPARE_DIF", false, 1), made);

  EXPECT_TRUE(utils_.GetOrCreateResultLayer(database(), L"", false, 1).isNull());
  EXPECT_TRUE(utils_.GetOrCreateResultLayer(nullptr, L"X", false, 1).isNull());
  EXPECT_EQ(qxdbOpenObjectCount(), 0u);
}

TEST_F(ResultLayersTest, AMovedEntityStandsOnTheLayerByLayer) {
  const double start[3] = {0, 0, 0};
  const double end[3] = {5, 5, 0};
  const QxDbObjectId red =
      make(qxutBuildList(RTDXF0, L"LINE", 8, L"Walls", 10, start, 11, end, 62, 1, RTNONE));
  const QxDbObjectId layer =
      utils_.GetOrCreateResultLayer(database(), L"VN_FILECOMPARE_MOD", false, 6);
  ASSERT_EQ(utils_.MoveToResultLayer(red, layer, 256), Qxad::eOk);
  QxDbEntity* entity = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, red, QxDb::kForRead), Qxad::eOk);
  EXPECT_EQ(entity->layerId(), layer);
  EXPECT_EQ(entity->colorIndex(), 256);
  entity->close();
  EXPECT_NE(utils_.MoveToResultLayer(QxDbObjectId::kNull, layer, 256), Qxad::eOk);
}

TEST_F(ResultLayersTest, InLineColoursOfMTextGiveWayToTheLayer) {
  const double at[3] = {0, 0, 0};
  const QxDbObjectId note =
      make(qxutBuildList(RTDXF0, L"MTEXT", 100, L"AcDbEntity", 100, L"AcDbMText", 10, at, 40, 2.5,
                         1, L"{\\C1;red} and {\\c255;blue} \\C3", RTNONE));
  const QxDbObjectId layer =
      utils_.GetOrCreateResultLayer(database(), L"VN_FILECOMPARE_SAM", false, 8);
  ASSERT_EQ(utils_.MoveToResultLayer(note, layer, 256), Qxad::eOk);
  QxDbEntity* entity = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, note, QxDb::kForRead), Qxad::eOk);
  wchar_t* contents = QxDbMText::cast(entity)->contents();
  // A code without a ";" behind it stays.
  EXPECT_STREQ(contents, L"{red} and {blue} \\C3");
  qxad_free(contents);
  entity->close();
}

TEST_F(ResultLayersTest, AMovedReferenceTakesItsBlocksEntitiesAlong) {
  const double origin[3] = {0, 0, 0};
  const double end[3] = {3, 0, 0};
  for (ResultBuffer* list :
       {qxutBuildList(RTDXF0, L"BLOCK", 2, L"Mark", 70, 0, 10, origin, RTNONE),
        qxutBuildList(RTDXF0, L"LINE", 8, L"Walls", 10, origin, 11, end, 62, 4, RTNONE),
        qxutBuildList(RTDXF0, L"ENDBLK", RTNONE)}) {
    ASSERT_EQ(qxdbEntMake(list), RTNORM);
    qxutRelRb(list);
  }
  const QxDbObjectId reference =
      make(qxutBuildList(RTDXF0, L"INSERT", 2, L"Mark", 10, origin, RTNONE));
  const QxDbObjectId layer =
      utils_.GetOrCreateResultLayer(database(), L"VN_FILECOMPARE_DIF", false, 3);
  ASSERT_EQ(utils_.MoveToResultLayer(reference, layer, 256), Qxad::eOk);

  QxDbEntity* entity = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, reference, QxDb::kForRead), Qxad::eOk);
  const QxDbObjectId blockId = QxDbBlockReference::cast(entity)->blockTableRecord();
  entity->close();
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, blockId, QxDb::kForRead), Qxad::eOk);
  QxDbBlockTableRecordIterator* iterator = nullptr;
  QxDbBlockTableRecord::cast(object)->newIterator(iterator);
  ASSERT_TRUE(iterator && !iterator->done());
  QxDbEntity* line = nullptr;
  ASSERT_EQ(iterator->getEntity(line), Qxad::eOk);
  EXPECT_EQ(line->layerId(), layer);
  EXPECT_EQ(line->colorIndex(), 0);
  line->close();
  delete iterator;
  object->close();
  EXPECT_EQ(qxdbOpenObjectCount(), 0u);
}

}  // namespace
}  // namespace korva::test
