#include "api/record_places.h"
#include "db/value_text.h"
#include "qx_db_database.h"
#include "qx_db_entity.h"
#include "tables_fixture.h"

namespace {

using korva::db::Record;

class Blocks : public TablesTest {
 protected:
  // A block "Door" made through the block table, with one entity, left closed.
  QxDbObjectId makeDoor(QxDbObjectId* entityId = nullptr) {
    QxDbBlockTable* blocks = nullptr;
    EXPECT_EQ(working()->getSymbolTable(blocks, QxDb::kForWrite), Qxad::eOk);
    auto* door = new QxDbBlockTableRecord;
    door->setName(L"Door");
    door->setOrigin(QxGePoint3d(1, 2, 0));
    door->setExplodable(false);
    QxDbObjectId id;
    EXPECT_EQ(blocks->add(id, door), Qxad::eOk);
    blocks->close();
    QxDbObjectId made;
    EXPECT_EQ(door->appendQxDbEntity(made, newEntity()), Qxad::eOk);
    pending_->close();
    pending_ = nullptr;
    if (entityId) *entityId = made;
    door->close();
    return id;
  }
  // A new entity whose maker closes it after appending.
  QxDbEntity* newEntity() {
    QxDbObject* made = korva::api::newObjectLike(
        "LINE", groups("100 AcDbEntity|8 0|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 1.0|"
                       "21 0.0|31 0.0"));
    pending_ = QxDbEntity::cast(made);
    return pending_;
  }
  void TearDown() override {
    if (pending_) pending_->close();
    TablesTest::TearDown();
  }
  QxDbEntity* pending_ = nullptr;
};

TEST_F(Blocks, NewRecordComesWithItsDefinition) {
  QxDbObjectId entityId;
  QxDbObjectId id = makeDoor(&entityId);
  korva::db::BlockDefinition* definition = database().block("Door");
  ASSERT_NE(definition, nullptr);
  EXPECT_EQ(definition->begin->owner(), id.handle().value());
  EXPECT_EQ(definition->end->owner(), id.handle().value());
  double base[3];
  korva::api::groupPoint(*definition->begin, 10, base);
  EXPECT_EQ(base[0], 1.0);
  EXPECT_EQ(base[1], 2.0);
  Record* blockRecord = database().tableEntry("BLOCK_RECORD", "Door");
  EXPECT_EQ(blockRecord->find(280), "0");  // not explodable
  ASSERT_EQ(definition->entities.size(), 1u);
  EXPECT_EQ(definition->entities[0]->handle(), entityId.handle().value());
  EXPECT_EQ(definition->entities[0]->owner(), id.handle().value());
}

TEST_F(Blocks, AppendedEntityStaysOpenForWrite) {
  QxDbBlockTable* blocks = nullptr;
  ASSERT_EQ(working()->getSymbolTable(blocks), Qxad::eOk);
  QxDbBlockTableRecord* paper = nullptr;
  ASSERT_EQ(blocks->getAt(QXDB_PAPER_SPACE, paper, QxDb::kForWrite), Qxad::eOk);
  blocks->close();
  QxDbEntity* line = newEntity();
  QxDbObjectId id;
  ASSERT_EQ(paper->appendQxDbEntity(id, line), Qxad::eOk);
  EXPECT_EQ(paper->appendQxDbEntity(line), Qxad::eAlreadyInDb);
  paper->close();
  EXPECT_TRUE(line->isWriteEnabled());
  EXPECT_EQ(line->setColorIndex(3), Qxad::eOk);
  Record* record = database().lookup(id.handle().value());
  EXPECT_EQ(record->find(62), "3");
  EXPECT_EQ(record->find(67), "1");  // paper space, in the entities section
  EXPECT_TRUE(korva::api::layoutOf(database(), *record).paperSpace);
  EXPECT_EQ(record->owner(), database().tableEntry("BLOCK_RECORD", "*Paper_Space")->handle());
}

TEST_F(Blocks, IteratorAndReferences) {
  QxDbObjectId entityId;
  QxDbObjectId door = makeDoor(&entityId);
  Record* insert =
      database().addEntity(groups("100 AcDbEntity|8 0|100 AcDbBlockReference|2 Door|10 5.0|20 5.0|"
                                  "30 0.0"),
                           "INSERT");
  Record* erasedInsert =
      database().addEntity(groups("100 AcDbEntity|8 0|100 AcDbBlockReference|2 Door|10 9.0|20 5.0|"
                                  "30 0.0"),
                           "INSERT");
  database().setErased(*erasedInsert, true);
  QxDbBlockTableRecord* block = nullptr;
  ASSERT_EQ(korva::api::openAs(block, door, QxDb::kForRead), Qxad::eOk);
  EXPECT_FALSE(block->explodable());
  EXPECT_FALSE(block->isLayout());
  EXPECT_FALSE(block->hasAttributeDefinitions());
  QxDbObjectIdArray references;
  ASSERT_EQ(block->getBlockReferenceIds(references), Qxad::eOk);
  ASSERT_EQ(references.length(), 1);
  EXPECT_EQ(references[0], idOf(insert));

  // Erasing the block's only entity empties the walk.
  QxDbBlockTableRecordIterator* iterator = nullptr;
  ASSERT_EQ(block->newIterator(iterator), Qxad::eOk);
  ASSERT_FALSE(iterator->done());
  QxDbObjectId first;
  ASSERT_EQ(iterator->getEntityId(first), Qxad::eOk);
  EXPECT_EQ(first, entityId);
  database().setErased(*database().lookup(entityId.handle().value()), true);
  iterator->start();
  EXPECT_TRUE(iterator->done());
  delete iterator;
  block->close();
}

TEST_F(Blocks, ModelSpaceWalkSeesOnlyItsOwnEntities) {
  Record* a = addLine("0");
  addLine("0");
  QxDbBlockTable* blocks = nullptr;
  ASSERT_EQ(working()->getSymbolTable(blocks), Qxad::eOk);
  QxDbBlockTableRecord* paper = nullptr;
  ASSERT_EQ(blocks->getAt(QXDB_PAPER_SPACE, paper, QxDb::kForWrite), Qxad::eOk);
  ASSERT_EQ(paper->appendQxDbEntity(newEntity()), Qxad::eOk);
  paper->close();
  QxDbBlockTableRecord* model = nullptr;
  ASSERT_EQ(blocks->getAt(QXDB_MODEL_SPACE, model, QxDb::kForRead), Qxad::eOk);
  blocks->close();
  EXPECT_TRUE(model->isLayout());
  QxDbBlockTableRecordIterator* iterator = nullptr;
  ASSERT_EQ(model->newIterator(iterator), Qxad::eOk);
  int count = 0;
  for (; !iterator->done(); iterator->step()) {
    QxDbEntity* entity = nullptr;
    ASSERT_EQ(iterator->getEntity(entity), Qxad::eOk);
    if (count == 0) {
      EXPECT_EQ(entity->objectId(), idOf(a));
    }
    entity->close();
    ++count;
  }
  delete iterator;
  model->close();
  EXPECT_EQ(count, 2);
}

}  // namespace
