#include "tables_fixture.h"

#include "api/utf8.h"
#include "dxf/new_drawing.h"
#include "dxf/writer.h"
#include "qx_memory.h"

void TablesTest::SetUp() {
  document_ =
      &korva::api::DocumentList::instance().add(korva::dxf::createNewDrawing(), "tables.dxf");
}

void TablesTest::TearDown() {
  EXPECT_EQ(qxdbOpenObjectCount(), 0u);
  korva::api::DocumentList::instance().close(document_);
}

QxDbObjectId TablesTest::idOf(const korva::db::Record* record) const {
  return QxDbObjectId::fromParts(document_->database().serial(), record->handle());
}

korva::db::Record* TablesTest::addLine(const std::string& layer) {
  return database().addEntity(groups("100 AcDbEntity|8 " + layer +
                                     "|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 1.0|21 1.0|31 0.0"),
                              "LINE");
}

korva::db::Record* TablesTest::addLayer(const std::string& name, int flags, int color) {
  return database().addTableEntry(
      *database().table("LAYER"), "LAYER",
      groups("100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 " + name + "|70 " +
             std::to_string(flags) + "|62 " + std::to_string(color) + "|6 Continuous"));
}

std::string TablesTest::dxfText() const {
  return korva::dxf::writeToString(document_->database());
}

std::string taken(wchar_t* text) {
  std::string result = text ? korva::api::toUtf8(text) : std::string();
  qxad_free(text);
  return result;
}
