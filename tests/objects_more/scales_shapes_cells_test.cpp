// The annotation scale of viewports, shape numbers from shape sources on the support
// path, and the cells of tables, over hand-written records.
#include <filesystem>
#include <fstream>

#include "api/objects/object_state.h"
#include "api/objects/shape_files.h"
#include "db/handle.h"
#include "input/support_path.h"
#include "more_fixture.h"
#include "qx_db_annotation_scale.h"
#include "qx_db_dictionary.h"
#include "qx_db_shape.h"
#include "qx_db_table.h"
#include "qx_db_viewport.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

using DetailsTest = MoreEntitiesTest;

std::wstring nameOf(const QxDbAnnotationScale& scale) {
  wchar_t* name = nullptr;
  EXPECT_EQ(scale.getName(name), Qxad::eOk);
  std::wstring result = name ? name : L"";
  qxad_free(name);
  return result;
}

TEST_F(DetailsTest, ViewportAnnotationScaleLivesInItsExtensionDictionary) {
  QxDbObjectId id = add("VIEWPORT", groups("100 AcDbViewport|10 5|20 4|30 0|40 6|41 2|68 2|69 2"));
  QxDbViewport* viewport = open<QxDbViewport>(id, QxDb::kForWrite);
  ASSERT_TRUE(viewport);
  EXPECT_EQ(viewport->annotationScale(), nullptr);

  // By name: the new drawing's scale list has "1:2".
  QxDbAnnotationScale wanted;
  QxDbImpAnnotationScale* imp = QxDbSystemInternals::getImpAnnotationScale(&wanted);
  ASSERT_EQ(imp->setName(L"1:2"), Qxad::eOk);
  ASSERT_EQ(viewport->setAnnotationScale(&wanted), Qxad::eOk);
  std::unique_ptr<QxDbAnnotationScale> shown(viewport->annotationScale());
  ASSERT_TRUE(shown);
  EXPECT_EQ(nameOf(*shown), L"1:2");
  double paper = 0, drawing = 0, ratio = 0;
  shown->getPaperUnits(paper);
  shown->getDrawingUnits(drawing);
  shown->getScale(ratio);
  EXPECT_DOUBLE_EQ(paper, 1);
  EXPECT_DOUBLE_EQ(drawing, 2);
  EXPECT_DOUBLE_EQ(ratio, 0.5);
  QxDbObjectId half = shown->scaleId();
  EXPECT_FALSE(half.isNull());

  // By id, whatever the name says; the same xrecord is pointed elsewhere.
  QxDbDictionary* named = nullptr;
  QxDbObjectId list;
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, api::idOf(database(), *database().objects()->front()),
                               QxDb::kForRead),
            Qxad::eOk);
  named = QxDbDictionary::cast(object);
  ASSERT_TRUE(named);
  ASSERT_EQ(named->getAt(L"ACAD_SCALELIST", list), Qxad::eOk);
  named->close();
  QxDbDictionary* scales = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, list, QxDb::kForRead), Qxad::eOk);
  scales = QxDbDictionary::cast(object);
  ASSERT_TRUE(scales);
  QxDbObjectId fifth;
  ASSERT_EQ(scales->getAt(L"A3", fifth), Qxad::eOk);  // "1:5"
  scales->close();
  ASSERT_EQ(imp->setScaleId(fifth), Qxad::eOk);
  EXPECT_EQ(nameOf(wanted), L"1:5");
  ASSERT_EQ(imp->setName(L"not looked at"), Qxad::eOk);
  ASSERT_EQ(viewport->setAnnotationScale(&wanted), Qxad::eOk);
  shown.reset(viewport->annotationScale());
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->scaleId(), fifth);

  QxDbAnnotationScale unknown;
  QxDbSystemInternals::getImpAnnotationScale(&unknown)->setName(L"3:7");
  EXPECT_EQ(viewport->setAnnotationScale(&unknown), Qxad::eKeyNotFound);
  viewport->close();

  // One extension dictionary with one entry, seen by the flat layer too.
  std::optional<std::wstring> opening = listText(id, 102);
  ASSERT_TRUE(opening);
  EXPECT_EQ(*opening, L"{ACAD_XDICTIONARY");
  int xrecords = 0;
  for (db::Record* record : *database().objects()) xrecords += record->type() == "XRECORD";
  EXPECT_EQ(xrecords, 1);
}

class ShapeNumbersTest : public MoreEntitiesTest {
 protected:
  void SetUp() override {
    MoreEntitiesTest::SetUp();
    folder_ = std::filesystem::temp_directory_path() /
              ("korva_shapes_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
    std::filesystem::create_directories(folder_);
    input::addSupportFolder(folder_.string());
  }
  void TearDown() override {
    input::clearSupportFolders();
    std::filesystem::remove_all(folder_);
    MoreEntitiesTest::TearDown();
  }
  std::filesystem::path folder_;
};

TEST_F(ShapeNumbersTest, NumbersComeFromTheSourceBesideTheCompiledName) {
  std::ofstream(folder_ / "marks.shp") << "*UNIFONT,6,marks\n"
                                          "*130,4,BOX\n"
                                          "014,010,01C,0\n"
                                          "*083,2,Dot ; a hexadecimal number\n"
                                          "1,0\n";
  db::Table* styles = database().table("STYLE");
  ASSERT_TRUE(styles);
  database().addTableEntry(*styles, "STYLE",
                           groups("100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 "
                                  "|70 1|40 0|41 1|50 0|71 0|42 1|3 C:\\Fonts\\MARKS.shx|4 "));
  auto numberOf = [&](const char* name) {
    QxDbObjectId id =
        add("SHAPE", groups(std::string("100 AcDbShape|10 0|20 0|30 0|40 1|2 ") + name));
    QxDbShape* shape = open<QxDbShape>(id);
    EXPECT_TRUE(shape);
    int number = shape ? shape->shapeNumber() : -1;
    if (shape) shape->close();
    return number;
  };
  EXPECT_EQ(numberOf("box"), 130);
  EXPECT_EQ(numberOf("DOT"), 0x83);
  EXPECT_EQ(numberOf("MISSING"), 0);
  std::filesystem::remove(folder_ / "marks.shp");
  EXPECT_EQ(numberOf("BOX"), 0);
}

TEST(ShapeSources, HeadersAndMalformedLinesNameNoShape) {
  EXPECT_EQ(api::shapeNumberInSource("*UNIFONT,6,FONT\n*12A,3,BAD\n*7,\n*0,1,ZERO\n", "FONT"), 0);
  EXPECT_EQ(api::shapeNumberInSource("*12A,3,BAD\n", "BAD"), 0);
  EXPECT_EQ(api::shapeNumberInSource("*7,\n", ""), 0);
  EXPECT_EQ(api::shapeNumberInSource("  *0A,3,TEN\r\n", "ten"), 10);
}

TEST_F(DetailsTest, TableCellsReadInRowOrder) {
  db::BlockDefinition* symbol = database().addBlock("ARROW");
  ASSERT_TRUE(symbol);
  std::string blockHandle = db::formatHandle(symbol->begin->owner());
  // Two rows of two: text in chunks, text of a newer file's value, a block, a plain text.
  QxDbObjectId id = add(
      "ACAD_TABLE",
      groups("100 AcDbBlockReference|2 *T1|10 0|20 0|30 0|100 AcDbTable|280 0|11 1|21 0|31 0"
             "|90 22|91 2|92 2|141 1|141 1|142 3|142 3"
             "|171 1|172 0|173 0|174 0|175 1|176 1|91 0|178 0|145 0|2 Long |2 text |1 ends"
             "|171 1|172 0|91 0|92 0|301 CELL_VALUE|93 6|90 4|303 new |302 style|304 ACVALUE_END"
             "|171 2|172 0|91 0|340 " +
             blockHandle +
             "|144 1|179 0"
             "|171 1|172 0|91 0|1 x|7 Standard|140 0.2"));
  QxDbTable* table = open<QxDbTable>(id);
  ASSERT_TRUE(table);
  auto text = [&](int row, int column) {
    wchar_t* value = table->textString(row, column);
    std::wstring result = value ? value : L"<null>";
    qxad_free(value);
    return result;
  };
  EXPECT_EQ(text(0, 0), L"Long text ends");
  EXPECT_EQ(text(0, 1), L"new style");
  EXPECT_EQ(text(1, 0), L"<null>");
  EXPECT_EQ(text(1, 1), L"x");
  EXPECT_EQ(text(2, 0), L"<null>");
  EXPECT_EQ(table->cellType(1, 0), QxDbTable::kBlockCell);
  EXPECT_EQ(table->cellType(0, 1), QxDbTable::kTextCell);
  EXPECT_EQ(table->cellType(0, 2), QxDbTable::kUnknownCell);
  EXPECT_EQ(table->blockTableRecordId(1, 0),
            api::idOf(database(), *database().tableEntry("BLOCK_RECORD", "ARROW")));
  EXPECT_TRUE(table->blockTableRecordId(0, 0).isNull());
  table->close();
}

}  // namespace
}  // namespace korva::test
