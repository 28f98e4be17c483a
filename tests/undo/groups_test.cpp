// Steps, groups, marks and control of the journal.
#include <string>
#include <vector>

#include "undo_fixture.h"

namespace korva::test {
namespace {

using Kind = db::ChangeJournal::GroupKind;
using Control = db::ChangeJournal::Control;
using Labels = std::vector<std::string>;

class Groups : public ReadDrawing {
 protected:
  // One closed group that sets the layer of line 0.
  void command(const std::string& name, const std::string& layer) {
    journal().beginGroup(Kind::Command, name);
    line(0).setValue(8, layer);
    journal().endGroup();
  }
  std::string layer() { return std::string(line(0).find(8).value_or("")); }
};

TEST_F(Groups, EachGroupIsOneStepAndChangesOutsideGroupsAreOneStepTogether) {
  command("A", "1");
  line(0).setValue(8, "2");
  line(1).setValue(8, "2");
  database().setErased(line(1), true);
  command("B", "3");

  EXPECT_EQ(journal().undoStep(), "B");
  EXPECT_EQ(layer(), "2");
  EXPECT_EQ(journal().undoStep(), "GROUP");
  EXPECT_EQ(layer(), "1");
  EXPECT_FALSE(line(1).isErased());
  EXPECT_EQ(line(1).find(8), "0");
  EXPECT_EQ(journal().undoStep(), "A");
  EXPECT_EQ(layer(), "0");
}

TEST_F(Groups, UndoInsideAnOpenGroupStopsAtItsBeginning) {
  command("BEFORE", "1");
  journal().beginGroup(Kind::Command, "TOOL");
  journal().beginGroup(Kind::User, "GROUP");
  line(0).setValue(8, "2");
  journal().endGroup();
  journal().beginGroup(Kind::User, "GROUP");
  line(0).setValue(8, "3");
  journal().endGroup();
  line(1).setValue(8, "4");

  EXPECT_EQ(journal().undoStep(), "TOOL");  // the loose run
  EXPECT_EQ(line(1).find(8), "0");
  EXPECT_EQ(layer(), "3");
  EXPECT_EQ(journal().undoStep(), "GROUP");
  EXPECT_EQ(layer(), "2");
  EXPECT_EQ(journal().undoStep(), "GROUP");
  EXPECT_EQ(layer(), "1");
  EXPECT_EQ(journal().undoStep(), std::nullopt);
  EXPECT_EQ(layer(), "1");

  line(0).setValue(8, "5");
  journal().endGroup();
  EXPECT_EQ(journal().undoStep(), "TOOL");
  EXPECT_EQ(layer(), "1");
  EXPECT_EQ(journal().undoStep(), "BEFORE");
}

TEST_F(Groups, BackGoesToTheLastMarkAndRemovesIt) {
  command("A", "1");
  journal().addMark();
  command("B", "2");
  journal().addMark();
  // A mark inside a closed group goes with the group.
  journal().beginGroup(Kind::Command, "C");
  line(0).setValue(8, "3");
  journal().addMark();
  journal().endGroup();
  command("D", "4");
  ASSERT_TRUE(journal().hasMarkInOpenGroup());

  EXPECT_EQ(journal().undoToMark(), (Labels{"D", "C"}));
  EXPECT_EQ(layer(), "2");
  EXPECT_EQ(journal().undoToMark(), (Labels{"B"}));
  EXPECT_EQ(layer(), "1");
  EXPECT_FALSE(journal().hasMarkInOpenGroup());
  journal().addMark();
  EXPECT_EQ(journal().undoStep(), "A");  // one step passes over a mark
  EXPECT_TRUE(journal().empty());
}

TEST_F(Groups, ControlOneKeepsTheLastStepOnly) {
  command("A", "1");
  command("B", "2");
  journal().setControl(Control::One);
  command("C", "3");
  EXPECT_EQ(journal().undoStep(), "C");
  EXPECT_EQ(layer(), "2");
  EXPECT_EQ(journal().undoStep(), std::nullopt);
  EXPECT_EQ(layer(), "2");
}

TEST_F(Groups, ControlNoneForgetsEverythingAndRecordsNothingUntilAll) {
  command("A", "1");
  journal().beginGroup(Kind::Command, "OPEN");
  journal().setControl(Control::None);
  line(0).setValue(8, "2");
  journal().endGroup();
  command("B", "3");
  EXPECT_TRUE(journal().empty());
  EXPECT_EQ(journal().undoStep(), std::nullopt);

  journal().setControl(Control::All);
  command("C", "4");
  EXPECT_EQ(journal().undoStep(), "C");
  EXPECT_EQ(layer(), "3");
}

}  // namespace
}  // namespace korva::test
