#include <gtest/gtest.h>

#include <cwchar>

#include "api/document.h"
#include "dxf/new_drawing.h"
#include "qx_db_entity.h"
#include "qx_memory.h"

namespace {

using korva::db::Record;

class ObjectCore : public ::testing::Test {
 protected:
  void SetUp() override {
    document_ = &korva::api::DocumentList::instance().add(korva::dxf::createNewDrawing(), "t.dxf");
    korva::db::Database& database = document_->database();
    korva::db::Table* layers = database.table("LAYER");
    database.addTableEntry(*layers, "LAYER",
                           {{100, "AcDbSymbolTableRecord"}, {100, "AcDbLayerTableRecord"},
                            {2, "LOCKED"}, {70, "4"}, {62, "1"}, {6, "Continuous"}});
    database.addTableEntry(*layers, "LAYER",
                           {{100, "AcDbSymbolTableRecord"}, {100, "AcDbLayerTableRecord"},
                            {2, "WALLS"}, {70, "0"}, {62, "3"}, {6, "Continuous"}});
    line_ = database.addEntity({{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbLine"}, {10, "0.0"},
                                {20, "0.0"}, {30, "0.0"}, {11, "1.0"}, {21, "0.0"}, {31, "0.0"}},
                               "LINE");
    locked_ = database.addEntity({{100, "AcDbEntity"}, {8, "LOCKED"}, {100, "AcDbCircle"},
                                  {10, "0.0"}, {20, "0.0"}, {30, "0.0"}, {40, "2.0"}},
                                 "CIRCLE");
  }
  void TearDown() override {
    EXPECT_EQ(qxdbOpenObjectCount(), 0u);
    korva::api::DocumentList::instance().close(document_);
  }

  QxDbObjectId idOf(const Record* record) {
    EntityName name;
    korva::api::nameOf(*document_, *record, name);
    QxDbObjectId id;
    EXPECT_EQ(qxdbGetObjectId(id, name), Qxad::eOk);
    return id;
  }

  korva::api::Document* document_ = nullptr;
  Record* line_ = nullptr;
  Record* locked_ = nullptr;
};

TEST_F(ObjectCore, IdsAndNamesMapBothWays) {
  QxDbObjectId id = idOf(line_);
  EXPECT_TRUE(id.isValid());
  EXPECT_EQ(id.handle().value(), line_->handle());
  EntityName back;
  ASSERT_EQ(qxdbGetHysName(back, id), Qxad::eOk);
  EXPECT_EQ(korva::api::recordOf(back), line_);
  EXPECT_FALSE(QxDbObjectId::kNull.isValid());
  EntityName stale = {0x7FFF, static_cast<int64_t>(document_->database().serial())};
  QxDbObjectId none;
  EXPECT_NE(qxdbGetObjectId(none, stale), Qxad::eOk);
  wchar_t text[17];
  ASSERT_TRUE(id.handle().getIntoAsciiBuffer(text));
  std::string narrow(text, text + std::wcslen(text));
  EXPECT_EQ(korva::db::parseHandle(narrow), line_->handle());
  wchar_t tooSmall[1];
  EXPECT_FALSE(id.handle().getIntoAsciiBuffer(tooSmall, 1));
}

TEST_F(ObjectCore, OneWriterOrManyReaders) {
  QxDbObjectId id = idOf(line_);
  QxDbObject* first = nullptr;
  QxDbObject* second = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(first, id, QxDb::kForRead), Qxad::eOk);
  ASSERT_EQ(qxdbOpenQxDbObject(second, id, QxDb::kForRead), Qxad::eOk);
  EXPECT_EQ(qxdbOpenObjectCount(), 2u);
  QxDbObject* writer = nullptr;
  EXPECT_EQ(qxdbOpenQxDbObject(writer, id, QxDb::kForWrite), Qxad::eWasOpenForRead);
  EXPECT_EQ(writer, nullptr);
  EXPECT_EQ(first->upgradeOpen(), Qxad::eWasOpenForRead);  // another reader holds it
  second->close();
  ASSERT_EQ(first->upgradeOpen(), Qxad::eOk);
  EXPECT_TRUE(first->isWriteEnabled());
  EXPECT_EQ(qxdbOpenQxDbObject(second, id, QxDb::kForRead), Qxad::eWasOpenForWrite);
  ASSERT_EQ(first->downgradeOpen(), Qxad::eOk);
  EXPECT_EQ(first->assertWriteEnabled(), Qxad::eNotOpenForWrite);
  first->close();
  EXPECT_EQ(qxdbOpenObjectCount(), 0u);
}

TEST_F(ObjectCore, LockedLayersRefuseWriting) {
  QxDbEntity* entity = nullptr;
  EXPECT_EQ(qxdbOpenQxDbEntity(entity, idOf(locked_), QxDb::kForWrite), Qxad::eOnLockedLayer);
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, idOf(locked_), QxDb::kForRead), Qxad::eOk);
  EXPECT_EQ(entity->upgradeOpen(), Qxad::eOnLockedLayer);
  entity->close();
  // Not an entity: a layer record opens as an object but not as an entity.
  Record* layer = document_->database().tableEntry("LAYER", "WALLS");
  EXPECT_EQ(qxdbOpenQxDbEntity(entity, idOf(layer), QxDb::kForRead), Qxad::eWrongObjectType);
}

TEST_F(ObjectCore, ChangesAreSeenThroughTheRecord) {
  QxDbEntity* entity = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, idOf(line_), QxDb::kForWrite), Qxad::eOk);
  EXPECT_TRUE(entity->isKindOf(QxDbEntity::desc()));
  EXPECT_TRUE(entity->isKindOf(QxDbObject::desc()));
  EXPECT_EQ(entity->setLayer(L"WALLS"), Qxad::eOk);
  EXPECT_EQ(entity->setLayer(L"NO SUCH LAYER"), Qxad::eKeyNotFound);
  EXPECT_EQ(entity->setColorIndex(5), Qxad::eOk);
  EXPECT_EQ(entity->setVisibility(1), Qxad::eOk);
  entity->close();
  EXPECT_EQ(line_->find(8), "WALLS");
  EXPECT_EQ(line_->find(62), "5");
  EXPECT_EQ(line_->find(60), "1");
  // The colour went in among the AcDbEntity groups, before the line's own subclass.
  std::vector<korva::db::Group> groups = line_->groupList();
  size_t colour = 0, lineMarker = 0;
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code == 62) colour = i;
    if (groups[i].code == 100 && groups[i].value == "AcDbLine") lineMarker = i;
  }
  EXPECT_LT(colour, lineMarker);

  // And changes to the record are seen by the next opening.
  std::vector<korva::db::OwnedGroup> edited = line_->ownedGroups();
  for (auto& group : edited) {
    if (group.code == 62) group.value = "256";
  }
  line_->assign(edited);
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, idOf(line_), QxDb::kForRead), Qxad::eOk);
  EXPECT_EQ(entity->colorIndex(), 256);
  wchar_t* layer = entity->layer();
  EXPECT_STREQ(layer, L"WALLS");
  qxad_free(layer);
  EXPECT_EQ(entity->setColorIndex(1), Qxad::eNotOpenForWrite);
  entity->close();
}

TEST_F(ObjectCore, ErasedObjectsOpenOnlyWhenAsked) {
  QxDbObjectId id = idOf(line_);
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
  ASSERT_EQ(object->erase(), Qxad::eOk);
  object->close();
  EXPECT_TRUE(line_->isErased());
  EXPECT_TRUE(id.isErased());
  EXPECT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForRead), Qxad::eWasErased);
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite, true), Qxad::eOk);
  ASSERT_EQ(object->erase(false), Qxad::eOk);
  object->close();
  EXPECT_FALSE(line_->isErased());
}

TEST_F(ObjectCore, PropertiesCopyFromAnotherEntity) {
  QxDbEntity* source = nullptr;
  QxDbEntity* target = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(source, idOf(locked_), QxDb::kForRead), Qxad::eOk);
  ASSERT_EQ(qxdbOpenQxDbEntity(target, idOf(line_), QxDb::kForWrite), Qxad::eOk);
  EXPECT_EQ(target->setPropertiesFrom(source), Qxad::eOk);
  EXPECT_EQ(target->layerId(), source->layerId());
  source->close();
  target->close();
  EXPECT_EQ(line_->find(8), "LOCKED");
}

}  // namespace
