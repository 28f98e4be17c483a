#include <cmath>

#include "api/document.h"
#include "db/handle.h"
#include "input/console.h"
#include "input/entity_pick.h"
#include "input/input_source.h"
#include "input_fixture.h"
#include "qx_entities.h"
#include "qx_input.h"
#include "qx_memory.h"

namespace korva::testing {
namespace {

class EntityPromptTest : public InputTest {
 protected:
  // The record an entity name stands for.
  static const db::Record* recordOf(const EntityName name) { return api::recordOf(name); }

  int entSel(const char* answer, EntityName name, double point[3]) {
    script(answer);
    return qxedEntSel(L"\nSelect object: ", name, point);
  }

  // Block "B": a line from 0,0 to 10,0 and an attribute definition.
  db::BlockDefinition* blockWithLine() {
    db::BlockDefinition* block = database().addBlock("B");
    line(0, 0, 10, 0, block);
    add("ATTDEF", "8 0|10 0|20 5|30 0|40 1|1 |3 Tag?|2 TAG|70 0", block);
    return block;
  }

  db::Record* reference(std::string name, double x, double y, double scale, double rotation,
                        db::BlockDefinition* in = nullptr) {
    return add("INSERT",
               "8 0|2 " + name + "|10 " + number(x) + "|20 " + number(y) + "|30 0|41 " +
                   number(scale) + "|42 " + number(scale) + "|43 1|50 " + number(rotation),
               in);
  }
};

TEST_F(EntityPromptTest, PickByPointTakesTheNewestEntityInThePickBox) {
  const db::Record* first = line(0, 0, 10, 0);
  circle(20, 0, 2);
  EntityName name;
  double point[3];
  ASSERT_EQ(entSel("5,0.5\n", name, point), RTNORM);
  EXPECT_EQ(recordOf(name), first);
  EXPECT_DOUBLE_EQ(point[0], 5);
  EXPECT_DOUBLE_EQ(point[1], 0.5);
  const db::Record* second = line(5, -5, 5, 5);
  ASSERT_EQ(entSel("5,0.5\n", name, point), RTNORM);
  EXPECT_EQ(recordOf(name), second);
  // The pick box follows the view: a smaller view makes it smaller.
  setPoint("SCREENSIZE", 1600, 9000);
  EXPECT_EQ(entSel("4,0.5\n", name, point), RTERROR);
  EXPECT_EQ(errorNumber(), 7);
  setPoint("SCREENSIZE", 1600, 900);  // a session variable: the next tests see it
}

TEST_F(EntityPromptTest, MissesAndEnterAreErrorsWithTheirNumbers) {
  line(0, 0, 10, 0);
  EntityName name;
  double point[3];
  EXPECT_EQ(entSel("5,3\n", name, point), RTERROR);
  EXPECT_EQ(errorNumber(), 7);
  EXPECT_EQ(entSel("\n", name, point), RTERROR);
  EXPECT_EQ(errorNumber(), 52);
  EXPECT_EQ(entSel("nonsense\n", name, point), RTCAN);
  EXPECT_NE(transcript().find("nonsense\nInvalid selection."), std::string::npos);
  qxedInitGet(0, L"Undo");
  EXPECT_EQ(entSel("u\n", name, point), RTKWORD);
}

TEST_F(EntityPromptTest, HandlesLastAndScriptedEntities) {
  const db::Record* circleRecord = circle(20, 0, 2);
  const db::Record* lineRecord = line(0, 0, 10, 0);
  EntityName name;
  double point[3];
  const std::string handle = "#" + db::formatHandle(circleRecord->handle()) + "\n";
  ASSERT_EQ(entSel(handle.c_str(), name, point), RTNORM);
  EXPECT_EQ(recordOf(name), circleRecord);
  EXPECT_DOUBLE_EQ(std::hypot(point[0] - 20, point[1]), 2);  // a point on the circle
  ASSERT_EQ(entSel("L\n", name, point), RTNORM);
  EXPECT_EQ(recordOf(name), lineRecord);
  EXPECT_EQ(entSel("#FFFFF\n", name, point), RTERROR);
  EXPECT_EQ(errorNumber(), 7);
  api::nameOf(database(), *lineRecord, name);
  ASSERT_EQ(qxdbEntDel(name), RTNORM);
  const std::string erased = "#" + db::formatHandle(lineRecord->handle()) + "\n";
  EXPECT_EQ(entSel(erased.c_str(), name, point), RTERROR);

  input::Answer pick;
  pick.kind = input::Answer::Kind::EntityPick;
  api::nameOf(database(), *circleRecord, pick.name);
  pick.point[0] = 22;
  input::Console::instance().pushSource(input::makeTokenSource({pick}));
  ASSERT_EQ(qxedEntSel(nullptr, name, point), RTNORM);
  EXPECT_EQ(recordOf(name), circleRecord);
  EXPECT_DOUBLE_EQ(point[0], 22);
}

TEST_F(EntityPromptTest, NestedPickInARotatedScaledReferenceWithAnAttribute) {
  blockWithLine();
  // Rotated a quarter turn and doubled: the block's line runs from 100,100 to 100,120.
  const db::Record* top = reference("B", 100, 100, 2, 90);
  const db::Record* attribute = add("ATTRIB", "8 0|10 120|20 100|30 0|40 2.5|1 A-1|2 TAG|70 0");
  add("SEQEND", {{8, "0"}});
  const db::Record* blockLine = database().block("B")->entities.front();

  EntityName name;
  double point[3] = {100.5, 110, 0};
  double matrix[4][4];
  ResultBuffer* containers = nullptr;
  ASSERT_EQ(qxedNEntSelP(nullptr, name, point, 1, matrix, &containers), RTNORM);
  EXPECT_EQ(recordOf(name), blockLine);
  const double expected[4][4] = {{0, -2, 0, 100}, {2, 0, 0, 100}, {0, 0, 1, 0}, {0, 0, 0, 1}};
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_NEAR(matrix[row][column], expected[row][column], 1e-12) << row << "," << column;
    }
  }
  ASSERT_NE(containers, nullptr);
  EXPECT_EQ(containers->type, RTENAME);
  EXPECT_EQ(recordOf(containers->value.rlname), top);
  EXPECT_EQ(containers->next, nullptr);
  qxutRelRb(containers);

  // The attribute's text is hit before the block's contents; it is not nested.
  script("121,101\n");
  ASSERT_EQ(qxedNEntSelP(L"\nPick: ", name, point, 0, matrix, &containers), RTNORM);
  EXPECT_EQ(recordOf(name), attribute);
  EXPECT_EQ(containers, nullptr);
  EXPECT_DOUBLE_EQ(matrix[0][0], 1);
  EXPECT_DOUBLE_EQ(matrix[0][3], 0);

  // Plain entity selection takes the reference itself.
  double entPoint[3];
  ASSERT_EQ(entSel("100.5,110\n", name, entPoint), RTNORM);
  EXPECT_EQ(recordOf(name), top);
}

TEST_F(EntityPromptTest, TextsArePickedInsideTheirBoxes) {
  db::BlockDefinition* block = database().addBlock("T");
  const db::Record* text = add("TEXT", "8 0|10 0|20 0|30 0|40 10|1 WIDE TEXT", block);
  const db::Record* top = reference("T", 0, 50, 1, 0);
  EntityName name;
  double point[3];
  // Well inside the box, away from its edges.
  ASSERT_EQ(entSel("20,55\n", name, point), RTNORM);
  EXPECT_EQ(recordOf(name), top);
  double matrix[4][4];
  ResultBuffer* containers = nullptr;
  ASSERT_EQ(qxedNEntSelP(nullptr, name, point, 1, matrix, &containers), RTNORM);
  EXPECT_EQ(recordOf(name), text);
  qxutRelRb(containers);
  EXPECT_EQ(entSel("20,75\n", name, point), RTERROR);
}

TEST_F(EntityPromptTest, NestedContainersComeInnermostFirst) {
  blockWithLine();
  db::BlockDefinition* outer = database().addBlock("OUTER");
  const db::Record* inner = reference("B", 50, 0, 1, 0, outer);
  const db::Record* top = reference("OUTER", 0, -50, 1, 0);
  EntityName name;
  double point[3] = {55, -50, 0};
  double matrix[4][4];
  ResultBuffer* containers = nullptr;
  ASSERT_EQ(qxedNEntSelP(nullptr, name, point, 1, matrix, &containers), RTNORM);
  EXPECT_EQ(recordOf(name), database().block("B")->entities.front());
  EXPECT_DOUBLE_EQ(matrix[0][3], 50);
  EXPECT_DOUBLE_EQ(matrix[1][3], -50);
  ASSERT_NE(containers, nullptr);
  ASSERT_NE(containers->next, nullptr);
  EXPECT_EQ(recordOf(containers->value.rlname), inner);
  EXPECT_EQ(recordOf(containers->next->value.rlname), top);
  qxutRelRb(containers);

  point[1] = -40;
  EXPECT_EQ(qxedNEntSelP(nullptr, name, point, 1, matrix, &containers), RTERROR);
  EXPECT_EQ(errorNumber(), 7);
}

}  // namespace
}  // namespace korva::testing
