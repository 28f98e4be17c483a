// Each kind of change to a drawing, taken back exactly.
#include <string>

#include "api/system_variables.h"
#include "undo_fixture.h"

namespace korva::test {
namespace {

using Kind = db::ChangeJournal::GroupKind;

TEST_F(ReadDrawing, AChangedRecordGetsItsFileTextBackSoItIsWrittenByteForByte) {
  const std::string before = written();
  db::Record& record = line(0);
  const std::string_view text = record.sourceText();
  ASSERT_FALSE(text.empty());

  journal().beginGroup(Kind::Command, "MOVE");
  record.setValue(10, "99.5");
  record.setValue(8, "Walls");
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  groups.push_back({62, "1"});
  record.assign(std::move(groups));
  journal().endGroup();
  ASSERT_TRUE(record.isModified());
  ASSERT_NE(sectionOf(written(), "ENTITIES"), sectionOf(before, "ENTITIES"));

  EXPECT_EQ(journal().undoStep(), "MOVE");
  EXPECT_FALSE(record.isModified());
  EXPECT_EQ(record.sourceText().data(), text.data());
  EXPECT_EQ(record.find(8), "0");
  EXPECT_EQ(sectionOf(written(), "ENTITIES"), sectionOf(before, "ENTITIES"));
}

TEST_F(ReadDrawing, ErasingAndBringingBackAreEachTakenBack) {
  db::Record& record = line(0);
  journal().beginGroup(Kind::Command, "ERASE");
  database().setErased(record, true);
  journal().endGroup();
  journal().beginGroup(Kind::Command, "OOPS");
  database().setErased(record, false);
  journal().endGroup();

  EXPECT_EQ(journal().undoStep(), "OOPS");
  EXPECT_TRUE(record.isErased());
  EXPECT_FALSE(holdsHandle(written(), record.handle()));
  EXPECT_EQ(journal().undoStep(), "ERASE");
  EXPECT_FALSE(record.isErased());
  EXPECT_TRUE(holdsHandle(written(), record.handle()));
}

TEST_F(ReadDrawing, EraseThenChangeInOneStepComesBackAsItWas) {
  db::Record& record = line(0);
  journal().beginGroup(Kind::Command, "EDIT");
  database().setErased(record, true);
  record.setValue(8, "Gone");
  database().setErased(record, false);
  record.setValue(8, "Back");
  journal().endGroup();

  journal().undoStep();
  EXPECT_FALSE(record.isErased());
  EXPECT_FALSE(record.isModified());
  EXPECT_EQ(record.find(8), "0");
}

TEST_F(ReadDrawing, TableEntriesAndBlocksAddedAreTakenBack) {
  db::Table* layers = database().table("LAYER");
  ASSERT_NE(layers, nullptr);
  journal().beginGroup(Kind::Command, "-LAYER");
  db::Record* layer = database().addTableEntry(*layers, "LAYER",
                                               {{100, "AcDbSymbolTableRecord"},
                                                {100, "AcDbLayerTableRecord"},
                                                {2, "Walls"},
                                                {70, "0"},
                                                {62, "7"},
                                                {6, "Continuous"}});
  journal().endGroup();
  journal().beginGroup(Kind::Command, "BLOCK");
  db::BlockDefinition* block = database().addBlock("Door");
  ASSERT_NE(block, nullptr);
  db::Record* blockBegin = block->begin;
  journal().endGroup();
  ASSERT_NE(database().tableEntry("LAYER", "Walls"), nullptr);
  ASSERT_NE(database().block("Door"), nullptr);

  EXPECT_EQ(journal().undoStep(), "BLOCK");
  EXPECT_EQ(database().block("Door"), nullptr);
  EXPECT_EQ(database().tableEntry("BLOCK_RECORD", "Door"), nullptr);
  EXPECT_FALSE(holdsHandle(written(), blockBegin->handle()));
  EXPECT_EQ(journal().undoStep(), "-LAYER");
  EXPECT_EQ(database().tableEntry("LAYER", "Walls"), nullptr);
  EXPECT_FALSE(holdsHandle(written(), layer->handle()));
}

TEST_F(ReadDrawing, DrawingVariablesGoBackButSessionVariablesAreNotJournalled) {
  std::optional<api::VariableValue> scale = api::getVariable(&database(), "LTSCALE");
  ASSERT_TRUE(scale);
  const double original = scale->number[0];
  api::VariableValue echo;
  echo.number[0] = 0;

  journal().beginGroup(Kind::Command, "SETVAR");
  scale->number[0] = original * 4;
  ASSERT_EQ(api::setVariable(&database(), "LTSCALE", *scale), api::SetResult::Done);
  ASSERT_EQ(api::setVariable(&database(), "CMDECHO", echo), api::SetResult::Done);
  journal().endGroup();

  EXPECT_EQ(journal().undoStep(), "SETVAR");
  EXPECT_EQ(api::getVariable(&database(), "LTSCALE")->number[0], original);
  EXPECT_EQ(api::getVariable(&database(), "CMDECHO")->number[0], 0);
  EXPECT_FALSE(database().header()->isModified());
  echo.number[0] = 1;
  api::setVariable(&database(), "CMDECHO", echo);
}

TEST_F(ReadDrawing, RecordsOutsideTheJournalledDrawingAreNotRecorded) {
  journal().beginGroup(Kind::Command, "WBLOCK");
  db::Database side;
  db::Record* other = side.allocate();
  *other = db::Record("LINE", std::vector<db::OwnedGroup>{{8, "0"}});
  other->setValue(8, "1");
  db::Record loose("LINE", {{8, "0"}});
  loose.setValue(8, "2");
  journal().endGroup();
  // Nothing was recorded, so the group left no step.
  EXPECT_TRUE(journal().empty());
}

}  // namespace
}  // namespace korva::test
