#include <cstring>

#include "api/document.h"
#include "qx_db_database.h"
#include "qx_db_entity.h"
#include "qx_db_viewport.h"
#include "qx_memory.h"
#include "tables_fixture.h"

namespace {

using korva::db::Record;

using Dictionaries = TablesTest;

TEST_F(Dictionaries, MissingKeyIs22AndSetAtOwnsTheObject) {
  QxDbDictionary* named = nullptr;
  ASSERT_EQ(working()->getNamedObjectsDictionary(named, QxDb::kForWrite), Qxad::eOk);
  QxDbObject* object = nullptr;
  EXPECT_EQ(static_cast<int>(named->getAt(L"AEC_ISOLATED_OBJECTS", object, QxDb::kForWrite)), 22);
  EXPECT_EQ(object, nullptr);
  auto* isolated = new QxDbDictionary;
  QxDbObjectId id;
  ASSERT_EQ(named->setAt(L"AEC_ISOLATED_OBJECTS", isolated, id), Qxad::eOk);
  auto* list = new QxDbXrecord;
  QxDbObjectId listId;
  ASSERT_EQ(isolated->setAt(L"AEC_ISOLATED_OBJECTS_XRECORD", list, listId), Qxad::eOk);
  EXPECT_EQ(isolated->numEntries(), 1u);
  list->close();
  isolated->close();
  named->close();

  Record* dictionary = database().lookup(id.handle().value());
  EXPECT_EQ(dictionary->owner(), working()->namedObjectsDictionaryId().handle().value());
  std::string text = dxfText();
  std::string pair = "AEC_ISOLATED_OBJECTS\n350\n" + korva::db::formatHandle(id.handle().value());
  EXPECT_NE(text.find(pair), std::string::npos);
  EXPECT_EQ(database().lookup(listId.handle().value())->owner(), id.handle().value());
}

TEST_F(Dictionaries, AnonymousGroupsGetUniqueNames) {
  Record* line = addLine("0");
  QxDbDictionary* groups = nullptr;
  ASSERT_EQ(working()->getGroupDictionary(groups, QxDb::kForWrite), Qxad::eOk);
  QxDbObjectId first;
  QxDbObjectId second;
  auto* one = new QxDbGroup(L"mask");
  ASSERT_EQ(groups->setAt(L"*A", one, first), Qxad::eOk);
  one->setAnonymous();
  ASSERT_EQ(one->append(idOf(line)), Qxad::eOk);
  ASSERT_EQ(one->append(idOf(line)), Qxad::eOk);  // already a member: once
  EXPECT_EQ(one->numEntities(), 1u);
  one->close();
  auto* two = new QxDbGroup;
  ASSERT_EQ(groups->setAt(L"*A", two, second), Qxad::eOk);
  two->close();
  wchar_t* key = nullptr;
  ASSERT_EQ(groups->nameAt(first, key), Qxad::eOk);
  EXPECT_EQ(taken(key), "*A1");
  ASSERT_EQ(groups->nameAt(second, key), Qxad::eOk);
  EXPECT_EQ(taken(key), "*A2");
  EXPECT_EQ(groups->numEntries(), 2u);
  groups->close();

  Record* group = database().lookup(first.handle().value());
  EXPECT_EQ(group->find(70), "1");
  EXPECT_EQ(group->find(300), "mask");
  EXPECT_EQ(group->find(340), korva::db::formatHandle(line->handle()));
  QxDbGroup* reopened = nullptr;
  ASSERT_EQ(korva::api::openAs(reopened, first, QxDb::kForRead), Qxad::eOk);
  QxDbEntity* entity = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, idOf(line), QxDb::kForRead), Qxad::eOk);
  EXPECT_TRUE(reopened->has(entity));
  entity->close();
  database().setErased(*line, true);
  EXPECT_EQ(reopened->numEntities(), 0u);  // erased members don't count
  reopened->close();
}

TEST_F(Dictionaries, XrecordChainKeepsReferencesAsNames) {
  Record* line = addLine("0");
  auto* record = new QxDbXrecord;
  QxDbDictionary* named = nullptr;
  ASSERT_EQ(working()->getNamedObjectsDictionary(named, QxDb::kForWrite), Qxad::eOk);
  ASSERT_EQ(named->setAt(L"KORVA_LIST", record), Qxad::eOk);
  named->close();
  EntityName name;
  ASSERT_EQ(qxdbGetHysName(name, idOf(line)), Qxad::eOk);
  const double point[3] = {1, 2, 3};
  ResultBuffer* chain = qxutBuildList(340, name, 10, point, 1, L"Straße", 70, 7, 0);
  ASSERT_EQ(record->setFromRbChain(chain), Qxad::eOk);
  qxutRelRb(chain);
  ResultBuffer* back = nullptr;
  ASSERT_EQ(record->rbChain(back), Qxad::eOk);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->type, 340);
  EXPECT_EQ(korva::api::recordOf(back->value.rlname), line);
  ASSERT_NE(back->next, nullptr);
  EXPECT_EQ(back->next->value.rpoint[2], 3.0);
  EXPECT_EQ(std::wcscmp(back->next->next->value.rstring, L"Straße"), 0);
  EXPECT_EQ(back->next->next->next->value.rint, 7);
  qxutRelRb(back);
  // A name of another drawing is refused.
  EntityName foreign = {static_cast<int64_t>(line->handle()), 0x7FFF};
  ResultBuffer* wrong = qxutBuildList(340, foreign, 0);
  EXPECT_EQ(record->setFromRbChain(wrong), Qxad::eInvalidInput);
  qxutRelRb(wrong);
  record->close();
  std::string text = dxfText();
  EXPECT_NE(text.find("340\n" + korva::db::formatHandle(line->handle()) + "\n 10\n1"),
            std::string::npos);
}

TEST_F(Dictionaries, ScaleListThroughIteratorAndRemove) {
  QxDbDictionary* named = nullptr;
  ASSERT_EQ(working()->getNamedObjectsDictionary(named, QxDb::kForRead), Qxad::eOk);
  QxDbDictionary* scales = nullptr;
  QxDbObjectId scalesId;
  ASSERT_EQ(named->getAt(L"ACAD_SCALELIST", scalesId), Qxad::eOk);
  named->close();
  ASSERT_EQ(korva::api::openAs(scales, scalesId, QxDb::kForWrite), Qxad::eOk);
  std::size_t before = scales->numEntries();
  ASSERT_GT(before, 0u);
  QxDbDictionaryIterator* iterator = scales->newIterator();
  QxDbObject* object = nullptr;
  ASSERT_EQ(iterator->getObject(object), Qxad::eOk);
  QxDbScale* first = QxDbScale::cast(object);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(taken(first->scaleName()), "1:1");
  EXPECT_TRUE(first->isUnitScale());
  QxDbObjectId firstId = first->objectId();
  first->close();
  EXPECT_EQ(taken(iterator->name()), "A0");
  delete iterator;

  ASSERT_EQ(scales->remove(L"A0"), Qxad::eOk);
  EXPECT_TRUE(firstId.isErased());
  EXPECT_EQ(scales->numEntries(), before - 1);
  auto* custom = new QxDbScale;
  custom->setScaleName(L"1:3");
  custom->setDrawingUnits(3);
  EXPECT_EQ(custom->setPaperUnits(0), Qxad::eOutOfRange);
  ASSERT_EQ(scales->setAt(L"A0", custom), Qxad::eOk);
  custom->close();
  scales->close();
  std::string text = dxfText();
  EXPECT_NE(text.find("300\n1:3\n140\n1.0\n141\n3.0"), std::string::npos);
}

TEST_F(Dictionaries, ExtendedDataThroughTheObject) {
  Record* line = addLine("0");
  QxDbEntity* entity = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, idOf(line), QxDb::kForRead), Qxad::eOk);
  EXPECT_EQ(entity->xData(L"ACAD"), nullptr);
  ResultBuffer* data = qxutBuildList(1001, L"ACAD", 1070, 100, 1070, 1, 0);
  EXPECT_EQ(entity->setXData(data), Qxad::eNotOpenForWrite);
  ASSERT_EQ(entity->upgradeOpen(), Qxad::eOk);
  ASSERT_EQ(entity->setXData(data), Qxad::eOk);
  qxutRelRb(data);
  EXPECT_NE(dxfText().find("1001\nACAD\n1070\n100\n1070\n1"), std::string::npos);
  ResultBuffer* back = entity->xData(L"acad");
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->type, 1001);
  EXPECT_EQ(back->next->next->value.rint, 1);
  qxutRelRb(back);
  // The application alone removes its data; an unknown application is refused.
  ResultBuffer* unknown = qxutBuildList(1001, L"NOT_REGISTERED", 1070, 1, 0);
  EXPECT_EQ(entity->setXData(unknown), Qxad::eInvalidInput);
  qxutRelRb(unknown);
  ResultBuffer* clear = qxutBuildList(1001, L"ACAD", 0);
  ASSERT_EQ(entity->setXData(clear), Qxad::eOk);
  qxutRelRb(clear);
  EXPECT_EQ(line->find(1001), std::nullopt);
  entity->close();
}

TEST_F(Dictionaries, ViewportFreezesLayersByHandle) {
  Record* layer = addLayer("Hidden");
  Record* record =
      database().addEntity(groups("100 AcDbEntity|67 1|8 0|100 AcDbViewport|10 5.0|20 5.0|30 0.0|"
                                  "40 10.0|41 8.0|68 2|69 2|12 0.0|22 0.0|45 80.0|90 65536|340 0"),
                           "VIEWPORT");
  QxDbViewport* viewport = nullptr;
  ASSERT_EQ(korva::api::openAs(viewport, idOf(record), QxDb::kForWrite), Qxad::eOk);
  EXPECT_EQ(viewport->number(), 2);
  EXPECT_TRUE(viewport->isOn());
  EXPECT_TRUE(viewport->isNonRectClipOn());
  EXPECT_TRUE(viewport->nonRectClipEntityId().isNull());
  EXPECT_DOUBLE_EQ(viewport->customScale(), 0.1);
  ASSERT_EQ(viewport->setCustomScale(0.5), Qxad::eOk);
  EXPECT_EQ(record->find(45), "16.0");
  QxDbObjectIdArray layers;
  layers.append(idOf(layer));
  ASSERT_EQ(viewport->freezeLayersInViewport(layers), Qxad::eOk);
  ASSERT_EQ(viewport->freezeLayersInViewport(layers), Qxad::eOk);  // once only
  EXPECT_EQ(record->find(331), korva::db::formatHandle(layer->handle()));
  EXPECT_TRUE(viewport->isLayerFrozenInViewport(idOf(layer)));
  ASSERT_EQ(viewport->thawLayersInViewport(layers), Qxad::eOk);
  EXPECT_EQ(record->find(331), std::nullopt);
  viewport->close();
}

}  // namespace
