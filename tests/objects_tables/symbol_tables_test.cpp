#include "api/record_places.h"
#include "db/value_text.h"
#include "qx_db_database.h"
#include "qx_db_entity.h"
#include "tables_fixture.h"

namespace {

using korva::db::Record;

using SymbolTables = TablesTest;

TEST_F(SymbolTables, TablesOpenAsTheirOwnClasses) {
  QxDbLayerTable* layers = nullptr;
  ASSERT_EQ(working()->getSymbolTable(layers, QxDb::kForRead), Qxad::eOk);
  EXPECT_TRUE(layers->isKindOf(QxDbSymbolTable::desc()));
  EXPECT_EQ(layers->isA(), QxDbLayerTable::desc());
  layers->close();
  QxDbViewportTable* viewports = nullptr;
  ASSERT_EQ(working()->getSymbolTable(viewports), Qxad::eOk);
  EXPECT_TRUE(viewports->isKindOf(QxDbAbstractViewTable::desc()));
  QxDbViewportTableRecord* active = nullptr;
  ASSERT_EQ(viewports->getAt(L"*Active", active, QxDb::kForRead), Qxad::eOk);
  EXPECT_TRUE(active->isKindOf(QxDbAbstractViewTableRecord::desc()));
  active->close();
  viewports->close();
}

TEST_F(SymbolTables, LayerAddedThroughObjectIsARecordOfTheTable) {
  QxDbLayerTable* layers = nullptr;
  ASSERT_EQ(working()->getSymbolTable(layers, QxDb::kForWrite), Qxad::eOk);
  auto* layer = new QxDbLayerTableRecord;
  ASSERT_EQ(layer->setName(L"Walls"), Qxad::eOk);
  QxCmColor red;
  red.setColorIndex(1);
  ASSERT_EQ(layer->setColor(red), Qxad::eOk);
  QxDbObjectId id;
  ASSERT_EQ(layers->add(id, layer), Qxad::eOk);
  EXPECT_EQ(layer->setIsLocked(true), Qxad::eOk);
  layer->close();
  // A second record of the same name, in another case, is refused.
  auto* twin = new QxDbLayerTableRecord;
  twin->setName(L"WALLS");
  EXPECT_EQ(layers->add(twin), Qxad::eDuplicateKey);
  delete twin;
  EXPECT_TRUE(layers->has(L"walls"));
  EXPECT_TRUE(layers->has(id));
  layers->close();

  Record* record = database().tableEntry("LAYER", "Walls");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(id.handle().value(), record->handle());
  EXPECT_EQ(record->find(62), "1");
  EXPECT_EQ(record->find(70), "4");
  EXPECT_EQ(korva::db::parseHandle(record->find(330).value_or("")),
            database().table("LAYER")->head->handle());
  EXPECT_NE(dxfText().find("Walls"), std::string::npos);
}

TEST_F(SymbolTables, LayerStateSharedWithTheRecord) {
  Record* record = addLayer("Doors", 0, 5);
  QxDbLayerTableRecord* layer = nullptr;
  QxDbLayerTable* layers = nullptr;
  ASSERT_EQ(working()->getSymbolTable(layers), Qxad::eOk);
  ASSERT_EQ(layers->getAt(L"Doors", layer, QxDb::kForWrite), Qxad::eOk);
  layers->close();
  EXPECT_FALSE(layer->isOff());
  ASSERT_EQ(layer->setIsOff(true), Qxad::eOk);
  EXPECT_EQ(record->find(62), "-5");  // off: a negative colour
  EXPECT_EQ(layer->color().colorIndex(), 5);
  ASSERT_EQ(layer->setIsFrozen(true), Qxad::eOk);
  ASSERT_EQ(layer->setVPDFLT(true), Qxad::eOk);
  EXPECT_EQ(record->find(70), "3");
  // A change of the record shows in the open object.
  record->setValue(70, "4");
  record->setValue(62, "3");
  EXPECT_TRUE(layer->isLocked());
  EXPECT_FALSE(layer->isFrozen());
  EXPECT_FALSE(layer->isOff());
  EXPECT_FALSE(layer->isInUse());
  addLine("DOORS");
  EXPECT_TRUE(layer->isInUse());
  QxCmColor byLayer;
  EXPECT_EQ(layer->setColor(byLayer), Qxad::eInvalidInput);  // a layer's colour is its own
  layer->close();
}

TEST_F(SymbolTables, MissingNamesAndReadOnlyTables) {
  QxDbLayerTable* layers = nullptr;
  ASSERT_EQ(working()->getSymbolTable(layers), Qxad::eOk);
  QxDbObjectId id;
  EXPECT_EQ(layers->getAt(L"Nowhere", id), Qxad::eKeyNotFound);
  EXPECT_EQ(static_cast<int>(layers->getAt(L"Nowhere", id)), 22);
  auto* layer = new QxDbLayerTableRecord;
  layer->setName(L"Late");
  EXPECT_EQ(layers->add(layer), Qxad::eNotOpenForWrite);
  delete layer;
  // A text style record is not a layer.
  QxDbTextStyleTableRecord* style = nullptr;
  QxDbTextStyleTable* styles = nullptr;
  ASSERT_EQ(working()->getSymbolTable(styles), Qxad::eOk);
  ASSERT_EQ(styles->getAt(L"Standard", style, QxDb::kForRead), Qxad::eOk);
  style->close();
  QxDbLayerTableRecord* wrong = nullptr;
  QxDbObjectId styleId;
  ASSERT_EQ(styles->getAt(L"Standard", styleId), Qxad::eOk);
  EXPECT_EQ(korva::api::openAs(wrong, styleId, QxDb::kForRead), Qxad::eWrongObjectType);
  styles->close();
  layers->close();
}

TEST_F(SymbolTables, WritingAnEntityOnALockedLayerIsRefused) {
  addLayer("Frame", 4);
  Record* line = addLine("Frame");
  QxDbEntity* entity = nullptr;
  EXPECT_EQ(static_cast<int>(qxdbOpenQxDbEntity(entity, idOf(line), QxDb::kForWrite)), 87);
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, idOf(line), QxDb::kForRead), Qxad::eOk);
  EXPECT_EQ(entity->upgradeOpen(), Qxad::eOnLockedLayer);
  // Unlocking through the layer object lets the write through.
  QxDbLayerTableRecord* layer = nullptr;
  ASSERT_EQ(korva::api::openAs(layer, entity->layerId(), QxDb::kForWrite), Qxad::eOk);
  layer->setIsLocked(false);
  layer->close();
  EXPECT_EQ(entity->upgradeOpen(), Qxad::eOk);
  entity->close();
}

TEST_F(SymbolTables, IteratorWalksLiveRecordsInTableOrder) {
  addLayer("A");
  Record* gone = addLayer("B");
  addLayer("C");
  database().setErased(*gone, true);
  QxDbLayerTable* layers = nullptr;
  ASSERT_EQ(working()->getSymbolTable(layers), Qxad::eOk);
  QxDbLayerTableIterator* iterator = nullptr;
  ASSERT_EQ(layers->newIterator(iterator), Qxad::eOk);
  layers->close();
  std::string names;
  for (; !iterator->done(); iterator->step()) {
    QxDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(iterator->getRecord(layer), Qxad::eOk);
    wchar_t* name = nullptr;
    layer->getName(name);
    names += taken(name) + ",";
    layer->close();
  }
  delete iterator;
  EXPECT_EQ(names, "0,A,C,");
}

TEST_F(SymbolTables, ViewsAndApplications) {
  QxDbViewTable* views = nullptr;
  ASSERT_EQ(working()->getSymbolTable(views, QxDb::kForWrite), Qxad::eOk);
  auto* view = new QxDbViewTableRecord;
  view->setName(L"Sheet");
  view->setCenterPoint(QxGePoint2d(5, 6));
  view->setHeight(20);
  view->setWidth(30);
  view->setIsPaperspaceView(true);
  view->setFrontClipEnabled(true);
  view->setFrontClipAtEye(false);
  ASSERT_EQ(views->add(view), Qxad::eOk);
  view->close();
  views->close();
  Record* record = database().tableEntry("VIEW", "Sheet");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->find(70), "1");
  EXPECT_EQ(record->find(71), "18");  // front clipping, not at the eye
  EXPECT_EQ(korva::db::parseReal(record->find(41).value_or("")), 30.0);

  QxDbRegAppTable* applications = nullptr;
  ASSERT_EQ(working()->getSymbolTable(applications, QxDb::kForWrite), Qxad::eOk);
  EXPECT_FALSE(applications->has(L"KORVA_TEST"));
  auto* application = new QxDbRegAppTableRecord;
  application->setName(L"KORVA_TEST");
  ASSERT_EQ(applications->add(application), Qxad::eOk);
  application->close();
  EXPECT_TRUE(applications->has(L"korva_test"));
  applications->close();
}

TEST_F(SymbolTables, DimensionStyleVariablesFromTheRecordOrTheirDefaults) {
  Record* written = database().addTableEntry(
      *database().table("DIMSTYLE"), "DIMSTYLE",
      groups("100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 SITE|"
             "70 0|40 50.0|41 2.5|140 3|147 1.25"));
  QxDbDimStyleTableRecord* style = nullptr;
  ASSERT_EQ(korva::api::openAs(style, idOf(written), QxDb::kForWrite), Qxad::eOk);
  EXPECT_EQ(style->dimscale(), 50.0);
  EXPECT_EQ(style->dimasz(), 2.5);
  EXPECT_EQ(style->dimtxt(), 3.0);
  EXPECT_EQ(style->dimgap(), 1.25);
  // Not in the record: the defaults.
  EXPECT_EQ(style->dimexo(), 0.0625);
  EXPECT_EQ(style->dimexe(), 0.18);
  EXPECT_EQ(style->setDimscale(-1), Qxad::eOutOfRange);
  ASSERT_EQ(style->setDimscale(0), Qxad::eOk);
  style->close();
  EXPECT_EQ(korva::db::parseReal(written->find(40).value_or("")), 0.0);

  auto* made = new QxDbDimStyleTableRecord;
  EXPECT_EQ(made->dimscale(), 1.0);
  EXPECT_EQ(made->dimasz(), 0.18);
  delete made;
}

}  // namespace
