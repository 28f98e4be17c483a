// Writing table cells: text, height, alignment and a block cell's block, through the
// object layer, seen by the flat layer, drawn into the table's picture and kept by a
// save; the written file read back by korva and by ezdxf.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "api/objects/object_state.h"
#include "db/change_journal.h"
#include "db/handle.h"
#include "dxf/reader.h"
#include "dxf/writer.h"
#include "more_fixture.h"
#include "qx_db_block_reference.h"
#include "qx_db_table.h"
#include "qx_db_text.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

class TableWritingTest : public MoreEntitiesTest {
 protected:
  // Two rows of 1 by two columns of 3, top left at (10, 20): text cells but for a block
  // cell at (1, 0); the picture's block doesn't exist yet.
  QxDbObjectId addTable() {
    return add("ACAD_TABLE",
               groups("100 AcDbBlockReference|2 *T7|10 10|20 20|30 0|100 AcDbTable|280 0"
                      "|11 1|21 0|31 0|90 22|91 2|92 2|141 1|141 1|142 3|142 3"
                      "|171 1|172 0|91 0|1 old|7 Standard|140 0.2"
                      "|171 1|172 0|91 0|301 CELL_VALUE|93 6|90 4|303 new |302 style"
                      "|304 ACVALUE_END"
                      "|171 2|172 0|91 0|144 1|179 0"
                      "|171 1|172 0|91 0|7 Standard"));
  }

  // The live entities of the block the table names, of one type or all.
  std::vector<db::Record*> pictureOf(QxDbObjectId id, std::string_view type = {}) {
    std::vector<db::Record*> live;
    std::optional<std::string_view> name = recordOf(id)->find(2);
    db::BlockDefinition* block = name ? database().block(*name) : nullptr;
    if (!block) return live;
    for (db::Record* record : block->entities) {
      if (!record->isErased() && (type.empty() || record->type() == type)) live.push_back(record);
    }
    return live;
  }
  std::vector<std::string> pictureTexts(QxDbObjectId id) {
    std::vector<std::string> texts;
    for (db::Record* record : pictureOf(id, "MTEXT"))
      texts.emplace_back(record->find(1).value_or(""));
    return texts;
  }
  db::Record* pictureText(QxDbObjectId id, std::string_view contents) {
    for (db::Record* record : pictureOf(id, "MTEXT")) {
      if (record->find(1) == contents) return record;
    }
    return nullptr;
  }
  // The picture's text of these contents holds these groups.
  void expectPictureText(QxDbObjectId id, std::string_view contents,
                         std::initializer_list<std::pair<int, const char*>> expected) {
    db::Record* text = pictureText(id, contents);
    ASSERT_TRUE(text) << contents;
    for (auto [code, value] : expected)
      EXPECT_EQ(text->find(code), value) << contents << " " << code;
  }
  std::wstring textOf(QxDbTable* table, int row, int column) {
    wchar_t* text = table->textString(row, column);
    std::wstring result = text ? text : L"<null>";
    qxad_free(text);
    return result;
  }
  // Opens the table for writing, makes the change and closes it; the change's status.
  Qxad::ErrorStatus change(QxDbObjectId id,
                           const std::function<Qxad::ErrorStatus(QxDbTable&)>& edit) {
    QxDbTable* table = open<QxDbTable>(id, QxDb::kForWrite);
    if (!table) return Qxad::eNullObjectId;
    Qxad::ErrorStatus status = edit(*table);
    table->close();
    return status;
  }
  QxDbObjectId blockId(const char* name) {
    return api::idOf(database(), *database().tableEntry("BLOCK_RECORD", name));
  }
  QxDbObjectId addArrowBlock() {
    db::BlockDefinition* block = database().addBlock("ARROW");
    add("LINE", groups("100 AcDbLine|10 0|20 0|30 0|11 2|21 1|31 0"), block);
    return blockId("ARROW");
  }
};

TEST_F(TableWritingTest, TextCellsAreWrittenAndDrawn) {
  QxDbObjectId id = addTable();
  QxDbTable* table = open<QxDbTable>(id, QxDb::kForWrite);
  ASSERT_TRUE(table);
  ASSERT_EQ(table->setTextString(0, 0, L"Hello"), Qxad::eOk);
  ASSERT_EQ(table->setTextString(0, 1, L"both forms"), Qxad::eOk);
  ASSERT_EQ(table->setTextString(1, 1, L"added"), Qxad::eOk);
  EXPECT_EQ(textOf(table, 0, 0), L"Hello");
  EXPECT_EQ(textOf(table, 0, 1), L"both forms");
  EXPECT_EQ(textOf(table, 1, 1), L"added");
  ASSERT_EQ(table->setTextString(1, 1, L"short again"), Qxad::eOk);
  table->close();

  // The flat layer sees the same groups: the first cell's 1 group, the second cell's
  // value in its 302 group.
  EXPECT_EQ(listText(id, 1), L"Hello");
  EXPECT_EQ(listText(id, 302), L"both forms");
  EXPECT_FALSE(listText(id, 303));

  // The picture is a new anonymous block named by the table: 12 edges and the texts.
  EXPECT_EQ(listText(id, 2), L"*T7");
  EXPECT_EQ(pictureOf(id, "LINE").size(), 12u);
  EXPECT_EQ(pictureTexts(id), (std::vector<std::string>{"Hello", "both forms", "short again"}));

  // Top center by default, inside the margins, in the cell's own height.
  expectPictureText(id, "Hello", {{10, "1.5"}, {20, "-0.06"}, {40, "0.2"}, {71, "2"}});
  EXPECT_EXTENTS_NEAR(extentsOf(id), 10, 18, 0, 16, 20, 0, 1e-12);

  // A cell changed through the flat layer shows once the picture is drawn again.
  modifyText(id, 1, L"from the list");
  EXPECT_TRUE(pictureText(id, "Hello"));
  EXPECT_EQ(change(id, [](QxDbTable& table) { return table.recomputeTableBlock(); }), Qxad::eOk);
  EXPECT_FALSE(pictureText(id, "Hello"));
  EXPECT_TRUE(pictureText(id, "from the list"));
}

TEST_F(TableWritingTest, RowsGrowToHoldLongTexts) {
  QxDbObjectId id = addTable();
  QxDbTable* table = open<QxDbTable>(id, QxDb::kForWrite);
  ASSERT_TRUE(table);
  // Longer than one group: in chunks, read back whole, wrapped over many lines.
  std::wstring longText;
  for (int word = 0; word < 60; ++word) longText += L"word" + std::to_wstring(word) + L" ";
  longText += L"end";
  ASSERT_EQ(table->setTextString(1, 1, longText.c_str()), Qxad::eOk);
  EXPECT_EQ(textOf(table, 1, 1), longText);
  double grown = table->rowHeight(1);
  EXPECT_DOUBLE_EQ(table->rowHeight(0), 1);
  table->close();
  EXPECT_GT(grown, 2);
  EXPECT_EQ(listReal(id, 141, 1), grown);
  EXPECT_EQ(listText(id, 2, 1), longText.substr(0, 250));

  // The wrapped text fills its row but for the margins; the lines close around it.
  std::vector<db::Record*> texts = pictureOf(id, "MTEXT");
  ASSERT_FALSE(texts.empty());
  QxDbMText* paragraph = open<QxDbMText>(api::idOf(database(), *texts.back()));
  ASSERT_TRUE(paragraph);
  EXPECT_NEAR(paragraph->actualHeight(), grown - 0.12, 1e-12);
  paragraph->close();
  EXPECT_EXTENTS_NEAR(extentsOf(id), 10, 20 - 1 - grown, 0, 16, 20, 0, 1e-12);

  // A short text again leaves the row as it grew.
  table = open<QxDbTable>(id, QxDb::kForWrite);
  ASSERT_TRUE(table);
  ASSERT_EQ(table->setTextString(1, 1, L"short"), Qxad::eOk);
  EXPECT_DOUBLE_EQ(table->rowHeight(1), grown);
  table->close();
}

TEST_F(TableWritingTest, UndoTakesBackTheCellAndItsPicture) {
  QxDbObjectId id = addTable();
  ASSERT_EQ(change(id, [](QxDbTable& table) { return table.setTextString(0, 0, L"first"); }),
            Qxad::eOk);
  db::ChangeJournal& journal = database().journal();
  journal.beginGroup(db::ChangeJournal::GroupKind::Command, "EDIT");
  ASSERT_EQ(change(id, [](QxDbTable& table) { return table.setTextString(0, 0, L"second"); }),
            Qxad::eOk);
  journal.endGroup();
  EXPECT_EQ(pictureTexts(id), (std::vector<std::string>{"second", "new style"}));
  ASSERT_TRUE(journal.undoStep().has_value());
  EXPECT_EQ(listText(id, 1), L"first");
  EXPECT_EQ(pictureTexts(id), (std::vector<std::string>{"first", "new style"}));
}

TEST_F(TableWritingTest, MergedCellsDrawAsOne) {
  // A title across both columns over two plain cells.
  QxDbObjectId id =
      add("ACAD_TABLE", groups("100 AcDbBlockReference|2 *T1|10 0|20 0|30 0|100 AcDbTable"
                               "|11 1|21 0|31 0|91 2|92 2|141 1|141 1|142 3|142 3"
                               "|171 1|172 0|173 1|175 2|176 1|1 title"
                               "|171 1|172 0|173 1|175 1|176 1|1 hidden"
                               "|171 1|1 a|171 1|1 b"));
  ASSERT_EQ(change(id, [](QxDbTable& table) { return table.setTextString(0, 0, L"Title"); }),
            Qxad::eOk);
  EXPECT_EQ(pictureOf(id, "LINE").size(), 11u);
  EXPECT_EQ(pictureTexts(id), (std::vector<std::string>{"Title", "a", "b"}));
  expectPictureText(id, "Title", {{10, "3.0"}, {41, "5.88"}});
}

TEST_F(TableWritingTest, HeightAlignmentAndBlockOfACell) {
  QxDbObjectId id = addTable();
  QxDbObjectId arrow = addArrowBlock();
  QxDbTable* table = open<QxDbTable>(id, QxDb::kForWrite);
  ASSERT_TRUE(table);
  EXPECT_DOUBLE_EQ(table->textHeight(0, 0), 0.2);
  EXPECT_DOUBLE_EQ(table->textHeight(1, 1), 0.18);  // no style: the default
  EXPECT_EQ(table->alignment(0, 0), QxDbTable::kTopCenter);
  ASSERT_EQ(table->setTextHeight(1, 1, 0.25), Qxad::eOk);
  ASSERT_EQ(table->setAlignment(0, 0, QxDbTable::kMiddleLeft), Qxad::eOk);
  ASSERT_EQ(table->setTextString(1, 1, L"tall"), Qxad::eOk);
  EXPECT_DOUBLE_EQ(table->textHeight(1, 1), 0.25);
  EXPECT_EQ(table->alignment(0, 0), QxDbTable::kMiddleLeft);
  ASSERT_EQ(table->setBlockTableRecordId(1, 0, arrow, true), Qxad::eOk);
  EXPECT_EQ(table->blockTableRecordId(1, 0), arrow);
  table->close();

  expectPictureText(id, "old", {{71, "4"}, {10, "0.06"}, {20, "-0.5"}});
  expectPictureText(id, "tall", {{40, "0.25"}});

  // The block fills the cell inside its margins: 2 by 1 scaled to 0.88, top centered.
  std::vector<db::Record*> references = pictureOf(id, "INSERT");
  ASSERT_FALSE(references.empty());
  EXPECT_EQ(references.back()->find(2), "ARROW");
  // In block coordinates, the table's top left at the origin.
  EXPECT_EXTENTS_NEAR(extentsOf(api::idOf(database(), *references.back())), 1.5 - 0.88,
                      -1.06 - 0.88, 0, 1.5 + 0.88, -1.06, 0, 1e-12);
}

TEST_F(TableWritingTest, WritersRefuseWhatTheyCantWrite) {
  QxDbObjectId id = addTable();
  QxDbObjectId arrow = addArrowBlock();
  QxDbTable* table = open<QxDbTable>(id);
  ASSERT_TRUE(table);
  EXPECT_EQ(table->setTextString(0, 0, L"x"), Qxad::eNotOpenForWrite);
  EXPECT_EQ(table->setTextHeight(0, 0, 1), Qxad::eNotOpenForWrite);
  table->close();

  table = open<QxDbTable>(id, QxDb::kForWrite);
  ASSERT_TRUE(table);
  EXPECT_EQ(table->setTextString(2, 0, L"x"), Qxad::eInvalidIndex);
  EXPECT_EQ(table->setTextString(0, -1, L"x"), Qxad::eInvalidIndex);
  EXPECT_EQ(table->setTextString(1, 0, L"x"), Qxad::eNotApplicable);
  EXPECT_EQ(table->setBlockTableRecordId(0, 0, arrow), Qxad::eNotApplicable);
  EXPECT_EQ(table->setTextHeight(0, 0, 0), Qxad::eInvalidInput);
  EXPECT_EQ(table->setBlockTableRecordId(1, 0, blockId("*Model_Space")), Qxad::eInvalidInput);
  table->close();
  EXPECT_EQ(listText(id, 1), L"old");
  EXPECT_TRUE(pictureOf(id).empty());

  // A table on a locked layer can't be opened for writing at all.
  db::Table* layers = database().table("LAYER");
  ASSERT_TRUE(layers);
  database().addTableEntry(*layers, "LAYER",
                           groups("100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 FIXED"
                                  "|70 4|62 7|6 Continuous"));
  recordOf(id)->setValue(8, "FIXED");
  QxDbObject* object = nullptr;
  EXPECT_NE(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
  EXPECT_EQ(object, nullptr);
}

TEST_F(TableWritingTest, SavedCellsAndPictureReadBack) {
  QxDbObjectId id = addTable();
  QxDbObjectId arrow = addArrowBlock();
  QxDbTable* table = open<QxDbTable>(id, QxDb::kForWrite);
  ASSERT_TRUE(table);
  ASSERT_EQ(table->setTextString(0, 0, L"saved"), Qxad::eOk);
  ASSERT_EQ(table->setBlockTableRecordId(1, 0, arrow, true), Qxad::eOk);
  table->close();
  QxDbExtents before = extentsOf(id);
  db::Handle handle = recordOf(id)->handle();

  std::filesystem::path path =
      std::filesystem::temp_directory_path() /
      ("korva_table_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + ".dxf");
  ASSERT_TRUE(dxf::writeFile(database(), path.string()).ok);

  // ezdxf reads the picture as korva drew it.
  std::string reference = path.string() + ".txt";
  std::string command =
      std::string(KORVA_PYTHON) + " " + TABLE_SCRIPT + " " + path.string() + " " + reference;
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
  std::ifstream in(reference);
  std::vector<std::string> texts, inserts;
  double box[4] = {NAN, NAN, NAN, NAN};
  for (std::string line; std::getline(in, line);) {
    std::string rest = line.substr(line.find(' ') + 1);
    if (line.starts_with("text ")) texts.push_back(rest);
    if (line.starts_with("insert ")) inserts.push_back(rest);
    if (line.starts_with("lines "))
      std::istringstream(rest) >> box[0] >> box[1] >> box[2] >> box[3];
  }
  std::filesystem::remove(reference);
  EXPECT_EQ(texts, (std::vector<std::string>{"saved", "new style"}));
  EXPECT_EQ(inserts, (std::vector<std::string>{"ARROW 0.88"}));
  EXPECT_EXTENTS_NEAR(before, box[0], box[1], 0, box[2], box[3], 0, 1e-9);

  dxf::ReadResult read = dxf::readFile(path.string());
  std::filesystem::remove(path);
  ASSERT_TRUE(read.ok()) << read.error;
  use(std::move(read.database));
  QxDbObjectId reloaded = QxDbObjectId::fromParts(database().serial(), handle);
  table = open<QxDbTable>(reloaded);
  ASSERT_TRUE(table);
  EXPECT_EQ(textOf(table, 0, 0), L"saved");
  EXPECT_EQ(table->blockTableRecordId(1, 0), blockId("ARROW"));
  table->close();
  EXPECT_EQ(pictureTexts(reloaded), (std::vector<std::string>{"saved", "new style"}));
  EXPECT_EXTENTS_NEAR(extentsOf(reloaded), before.minPoint().x, before.minPoint().y, 0,
                      before.maxPoint().x, before.maxPoint().y, 0, 1e-12);
}

}  // namespace
}  // namespace korva::test
