// Renaming table records through qxdbEntMod: the names that refer to them follow, and
// ezdxf finds every name of the saved drawing.
#include "list_fixture.h"
#include "qx_db_tables.h"

namespace korva::test {
namespace {

class TableRenameTest : public DrawingTest {
 protected:
  int rename(const wchar_t* table, const wchar_t* from, const wchar_t* to) {
    EntityName name;
    if (qxdbTblObjName(table, from, name) != RTNORM) return RTERROR;
    List list(qxdbEntGet(name));
    setString(list, 2, to);
    return qxdbEntMod(list);
  }
  std::string header(const char* variable, int code) {
    return std::string(database().headerValue(variable, code).value_or("<none>"));
  }
  double a[3] = {0, 0, 0}, b[3] = {5, 0, 0};
};

TEST_F(TableRenameTest, LayerNameFollowsIntoEntitiesBlocksAndTheCurrentLayer) {
  make(qxutBuildList(RTDXF0, L"LINE", 8, L"Walls", 10, a, 11, b, RTNONE));
  db::Record& line = last();
  make(qxutBuildList(RTDXF0, L"BLOCK", 2, L"Door", 70, 0, 10, a, RTNONE));
  make(qxutBuildList(RTDXF0, L"LINE", 8, L"walls", 10, a, 11, b, RTNONE));
  EntityName block;
  List end(qxutBuildList(RTDXF0, L"ENDBLK", RTNONE));
  ASSERT_EQ(qxdbEntMakeX(end, block), RTNORM);
  List header(qxdbTblSearch(L"BLOCK", L"Door", 0));
  db::Record& inBlock = *api::recordOf(header.find(-2)->value.rlname);
  database().setHeaderVariable("$CLAYER", {{8, "WALLS"}});

  ASSERT_EQ(rename(L"LAYER", L"Walls", L"Structure"), RTNORM);
  EXPECT_EQ(line.find(8).value_or(""), "Structure");
  EXPECT_EQ(inBlock.find(8).value_or(""), "Structure");
  EXPECT_EQ(this->header("$CLAYER", 8), "Structure");
  EXPECT_EQ(List(qxdbTblSearch(L"LAYER", L"Walls", 0)).head, nullptr);
  EXPECT_EQ(saveAndCheckNames(database(), "rename_layer.dxf"), "");

  // A change of case alone is a rename too.
  ASSERT_EQ(rename(L"LAYER", L"Structure", L"STRUCTURE"), RTNORM);
  EXPECT_EQ(line.find(8).value_or(""), "STRUCTURE");
}

TEST_F(TableRenameTest, LinetypeNameFollowsIntoEntitiesLayersAndTheCurrentLinetype) {
  make(qxutBuildList(RTDXF0, L"LTYPE", 2, L"DASHED2", 3, L"__ __", 72, 65, 73, 2, 40, 0.75, 49, 0.5,
                     74, 0, 49, -0.25, 74, 0, RTNONE));
  make(qxutBuildList(RTDXF0, L"LAYER", 2, L"Hidden", 70, 0, 62, 1, 6, L"DASHED2", RTNONE));
  make(qxutBuildList(RTDXF0, L"LINE", 6, L"DASHED2", 10, a, 11, b, RTNONE));
  db::Record& line = last();
  database().setHeaderVariable("$CELTYPE", {{6, "DASHED2"}});

  ASSERT_EQ(rename(L"LTYPE", L"DASHED2", L"Dash"), RTNORM);
  EXPECT_EQ(line.find(6).value_or(""), "Dash");
  List layer(qxdbTblSearch(L"LAYER", L"Hidden", 0));
  EXPECT_EQ(layer.string(6), L"Dash");
  EXPECT_EQ(header("$CELTYPE", 6), "Dash");
  EXPECT_EQ(saveAndCheckNames(database(), "rename_linetype.dxf"), "");
}

TEST_F(TableRenameTest, TextStyleNameFollowsIntoTextsWhileDimensionStylesKeepTheirHandle) {
  List standard(qxdbTblSearch(L"STYLE", L"Standard", 0));
  setString(standard, 2, L"Notes");
  ASSERT_EQ(qxdbEntMake(standard), RTNORM);
  EntityName style;
  ASSERT_EQ(qxdbTblObjName(L"STYLE", L"Notes", style), RTNORM);
  make(qxutBuildList(RTDXF0, L"TEXT", 7, L"Notes", 10, a, 40, 1.0, 1, L"t", RTNONE));
  db::Record& text = last();
  make(qxutBuildList(RTDXF0, L"MTEXT", 7, L"NOTES", 10, a, 40, 1.0, 1, L"m", RTNONE));
  db::Record& paragraph = last();
  make(qxutBuildList(RTDXF0, L"DIMSTYLE", 2, L"Mine", 70, 0, 340, style, RTNONE));
  database().setHeaderVariable("$TEXTSTYLE", {{7, "Notes"}});

  ASSERT_EQ(rename(L"STYLE", L"Notes", L"Labels"), RTNORM);
  EXPECT_EQ(text.find(7).value_or(""), "Labels");
  EXPECT_EQ(paragraph.find(7).value_or(""), "Labels");
  EXPECT_EQ(header("$TEXTSTYLE", 7), "Labels");
  List dimensionStyle(qxdbTblSearch(L"DIMSTYLE", L"Mine", 0));
  ResultBuffer* textStyle = dimensionStyle.find(340);
  ASSERT_NE(textStyle, nullptr);
  EXPECT_EQ(api::recordOf(textStyle->value.rlname)->find(2).value_or(""), "Labels");
  EXPECT_EQ(saveAndCheckNames(database(), "rename_style.dxf"), "");
}

TEST_F(TableRenameTest, DimensionStyleNameFollowsIntoDimensionsAndTheCurrentStyle) {
  make(qxutBuildList(RTDXF0, L"DIMSTYLE", 2, L"Mine", 70, 0, 40, 2.0, RTNONE));
  db::BlockDefinition* picture = database().addBlock("*D1");
  picture->begin->setValue(70, "1");
  db::Record* dimension =
      database().addEntity(groups("100 AcDbEntity|8 0|100 AcDbDimension|2 *D1|10 0.0|20 0.0|30 0.0|"
                                  "11 5.0|21 1.0|31 0.0|70 33|71 5|42 10.0|3 Mine|"
                                  "100 AcDbAlignedDimension|13 0.0|23 0.0|33 0.0|14 10.0|24 0.0|"
                                  "34 0.0"),
                           "DIMENSION");
  database().setHeaderVariable("$DIMSTYLE", {{2, "Mine"}});

  ASSERT_EQ(rename(L"DIMSTYLE", L"Mine", L"Yours"), RTNORM);
  EXPECT_EQ(dimension->find(3).value_or(""), "Yours");
  EXPECT_EQ(header("$DIMSTYLE", 2), "Yours");
  EXPECT_EQ(saveAndCheckNames(database(), "rename_dimstyle.dxf"), "");
}

TEST_F(TableRenameTest, BlockNameFollowsIntoReferencesAndItsBlockRecord) {
  make(qxutBuildList(RTDXF0, L"BLOCK", 2, L"Door", 70, 0, 10, a, RTNONE));
  make(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE));
  make(qxutBuildList(RTDXF0, L"ENDBLK", RTNONE));
  // One reference nested in another block, one in model space.
  make(qxutBuildList(RTDXF0, L"BLOCK", 2, L"Frame", 70, 0, 10, a, RTNONE));
  make(qxutBuildList(RTDXF0, L"INSERT", 2, L"DOOR", 10, b, RTNONE));
  make(qxutBuildList(RTDXF0, L"ENDBLK", RTNONE));
  make(qxutBuildList(RTDXF0, L"INSERT", 2, L"Door", 10, a, RTNONE));
  db::Record& reference = last();
  db::Record* nested = database().block("Frame")->entities.front();

  ASSERT_EQ(rename(L"BLOCK", L"Door", L"Entry"), RTNORM);
  EXPECT_EQ(reference.find(2).value_or(""), "Entry");
  EXPECT_EQ(nested->find(2).value_or(""), "Entry");
  db::BlockDefinition* block = database().block("Entry");
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(block->begin->find(3).value_or(""), "Entry");
  EXPECT_NE(database().tableEntry("BLOCK_RECORD", "Entry"), nullptr);
  EXPECT_EQ(database().tableEntry("BLOCK_RECORD", "Door"), nullptr);
  EXPECT_EQ(saveAndCheckNames(database(), "rename_block.dxf"), "");
}

TEST_F(TableRenameTest, ApplicationNameFollowsIntoExtendedData) {
  ASSERT_EQ(qxdbRegApp(L"OLDAPP"), RTNORM);
  make(qxutBuildList(RTDXF0, L"POINT", 10, a, -3, 1001, L"OLDAPP", 1000, L"kept", RTNONE));
  EntityName point;
  ASSERT_EQ(qxdbEntLast(point), RTNORM);

  ASSERT_EQ(rename(L"APPID", L"OLDAPP", L"NEWAPP"), RTNORM);
  List wanted(qxutBuildList(RTSTR, L"NEWAPP", RTNONE));
  List list(qxdbEntGetX(point, wanted));
  EXPECT_EQ(list.string(1001), L"NEWAPP");
  EXPECT_EQ(list.string(1000), L"kept");
  EXPECT_EQ(saveAndAudit(database(), "rename_appid.dxf"), "");
}

TEST_F(TableRenameTest, RenameThroughTheObjectLayerFollowsToo) {
  make(qxutBuildList(RTDXF0, L"LINE", 8, L"Walls", 10, a, 11, b, RTNONE));
  db::Record& line = last();
  EntityName layer;
  ASSERT_EQ(qxdbTblObjName(L"LAYER", L"Walls", layer), RTNORM);
  QxDbObjectId id;
  ASSERT_EQ(qxdbGetObjectId(id, layer), Qxad::eOk);
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, 1, false), Qxad::eOk);
  QxDbSymbolTableRecord* record = QxDbSymbolTableRecord::cast(object);
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->setName(L"Partitions"), Qxad::eOk);
  object->close();
  EXPECT_EQ(line.find(8).value_or(""), "Partitions");
}

TEST_F(TableRenameTest, FixedTakenAndMalformedNamesAreRefused) {
  make(qxutBuildList(RTDXF0, L"LAYER", 2, L"Walls", 70, 0, RTNONE));
  EXPECT_EQ(rename(L"LAYER", L"0", L"Zero"), RTERROR);
  EXPECT_EQ(rename(L"LTYPE", L"Continuous", L"Solid"), RTERROR);
  EXPECT_EQ(rename(L"LTYPE", L"ByLayer", L"Mine"), RTERROR);
  EXPECT_EQ(rename(L"LAYER", L"Walls", L"0"), RTERROR);
  EXPECT_EQ(rename(L"LAYER", L"Walls", L"a/b"), RTERROR);
  EXPECT_EQ(rename(L"LAYER", L"Walls", L""), RTERROR);
  EXPECT_NE(database().tableEntry("LAYER", "Walls"), nullptr);
  // The active viewport keeps its name and still takes other changes.
  EntityName active;
  ASSERT_EQ(qxdbTblObjName(L"VPORT", L"*Active", active), RTNORM);
  List viewport(qxdbEntGet(active));
  viewport.find(40)->value.rreal = 50;
  EXPECT_EQ(qxdbEntMod(viewport), RTNORM);
}

}  // namespace
}  // namespace korva::test
