// Modes without geometry, set editing, the pick-first set and the limit of open sets.
#include "api/selection_sets.h"
#include "qx_memory.h"
#include "qx_selection.h"
#include "selection_fixture.h"

namespace korva::testing {
namespace {

TEST_F(SelectionTest, AllOfTheDatabaseSkipsErasedSubEntitiesAndBlocks) {
  db::Record* live = line(0, 0, 1, 1);
  db::Record* erased = line(0, 0, 2, 2);
  database().setErased(*erased, true);
  db::Record* withAttributes = add("INSERT", "8 0|66 1|2 B|10 0|20 0");
  add("ATTRIB", "8 0|10 0|20 0|40 1|1 v|2 TAG");
  add("SEQEND", {{8, "0"}});
  db::BlockDefinition* definition = database().addBlock("B");
  add("CIRCLE", "8 0|10 0|20 0|40 1", definition);
  db::BlockDefinition* layout = database().addBlock("*Paper_Space0");
  db::Record* onLayout = add("LINE", "8 0|67 1|10 0|20 0", layout);
  EXPECT_EQ(select(L"X"), handles({live, withAttributes, onLayout}));
}

TEST_F(SelectionTest, CurrentSpaceLastPreviousAndPickFirst) {
  db::Record* first = line(0, 0, 1, 1);
  db::Record* paper = add("LINE", "8 0|67 1|10 0|20 0");
  db::Record* last = circle(0, 0, 1);
  EXPECT_EQ(select(L"A"), handles({first, last}));
  EXPECT_EQ(select(L"_A"), handles({first, last}));
  EXPECT_EQ(select(L"L"), handles({last}));
  EXPECT_EQ(select(L"_L"), handles({last}));
  (void)paper;

  ResultBuffer* lines = qxutBuildList(RTDXF0, L"LINE", RTNONE);
  EXPECT_EQ(select(L"X", nullptr, nullptr, lines), handles({first, paper}));
  EXPECT_EQ(select(L"P"), handles({first, paper}));
  // The previous set is narrowed by the filter and forgets erased members.
  database().setErased(*paper, true);
  EXPECT_EQ(select(L"P", nullptr, nullptr, lines), handles({first}));
  qxutRelRb(lines);

  int status = 0;
  select(L"I", nullptr, nullptr, nullptr, &status);
  EXPECT_EQ(status, RTERROR);
  SelectionSet set;
  ASSERT_EQ(qxedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
  ASSERT_EQ(qxedSSSetFirst(set, nullptr), RTNORM);
  qxedSSFree(set);
  EXPECT_EQ(select(L"_I"), handles({first, last}));
  ASSERT_EQ(qxedSSSetFirst(nullptr, nullptr), RTNORM);
  select(L"I", nullptr, nullptr, nullptr, &status);
  EXPECT_EQ(status, RTERROR);
}

TEST_F(SelectionTest, PromptingModesAndBadArgumentsFail) {
  line(0, 0, 1, 1);
  SelectionSet set;
  // With no input to read, a prompting mode is cancelled at once.
  for (const wchar_t* mode : {static_cast<const wchar_t*>(nullptr), L":$", L":S", L"-M:$:K"}) {
    EXPECT_EQ(qxedSSGet(mode, nullptr, nullptr, nullptr, set), RTCAN);
  }
  EXPECT_EQ(qxedSSGet(L"Q", nullptr, nullptr, nullptr, set), RTERROR);
  EXPECT_EQ(qxedSSGet(L"W", nullptr, nullptr, nullptr, set), RTERROR);  // no corners
  ResultBuffer* filter = qxutBuildList(RTDXF0, L"ARC", RTNONE);
  EXPECT_EQ(qxedSSGet(L"X", nullptr, nullptr, filter, set), RTERROR);  // nothing found
  qxutRelRb(filter);
  EXPECT_EQ(api::openSelectionSetCount(document()), 0);
}

TEST_F(SelectionTest, AddDeleteMemberAndName) {
  db::Record* a = line(0, 0, 1, 1);
  db::Record* b = line(0, 0, 2, 2);
  EntityName nameA, nameB;
  api::nameOf(document(), *a, nameA);
  api::nameOf(document(), *b, nameB);

  SelectionSet set;
  ASSERT_EQ(qxedSSAdd(nullptr, nullptr, set), RTNORM);
  std::int32_t count = -1;
  ASSERT_EQ(qxedSSLength(set, &count), RTNORM);
  EXPECT_EQ(count, 0);
  SelectionSet same;
  EXPECT_EQ(qxedSSAdd(nameA, set, same), RTNORM);
  EXPECT_EQ(same[0], set[0]);
  EXPECT_EQ(qxedSSAdd(nameA, set, same), RTNORM);  // no repeat
  EXPECT_EQ(qxedSSAdd(nameB, set, same), RTNORM);
  qxedSSLength(set, &count);
  EXPECT_EQ(count, 2);
  EntityName second;
  ASSERT_EQ(qxedSSName(set, 1, second), RTNORM);
  EXPECT_EQ(second[0], nameB[0]);
  EXPECT_EQ(second[1], nameB[1]);
  EXPECT_EQ(qxedSSName(set, 2, second), RTERROR);
  EXPECT_EQ(qxedSSMemb(nameA, set), RTNORM);
  EXPECT_EQ(qxedSSDel(nameA, set), RTNORM);
  EXPECT_EQ(qxedSSMemb(nameA, set), RTERROR);
  EXPECT_EQ(qxedSSDel(nameA, set), RTERROR);
  qxedSSLength(set, &count);
  EXPECT_EQ(count, 1);

  SelectionSet single;
  ASSERT_EQ(qxedSSAdd(nameA, nullptr, single), RTNORM);
  EXPECT_EQ(qxedSSMemb(nameA, single), RTNORM);
  EXPECT_EQ(qxedSSMemb(nameB, single), RTERROR);
  EXPECT_EQ(api::openSelectionSetCount(document()), 2);
  EXPECT_EQ(qxedSSFree(single), RTNORM);
  EXPECT_EQ(qxedSSFree(set), RTNORM);
  EXPECT_EQ(qxedSSFree(set), RTERROR);  // freed sets are gone
  EXPECT_EQ(qxedSSLength(set, &count), RTERROR);
  EXPECT_EQ(api::openSelectionSetCount(document()), 0);
}

TEST_F(SelectionTest, MembershipOfLargeSets) {
  std::vector<db::Record*> lines;
  for (int i = 0; i < 200; ++i) lines.push_back(line(i, 0, i, 1));
  SelectionSet set;
  ASSERT_EQ(qxedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
  EntityName name;
  api::nameOf(document(), *lines[150], name);
  EXPECT_EQ(qxedSSMemb(name, set), RTNORM);
  EXPECT_EQ(qxedSSDel(name, set), RTNORM);
  EXPECT_EQ(qxedSSMemb(name, set), RTERROR);
  SelectionSet same;
  EXPECT_EQ(qxedSSAdd(name, set, same), RTNORM);
  EXPECT_EQ(qxedSSMemb(name, set), RTNORM);
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  EXPECT_EQ(count, 200);
  qxedSSFree(set);
}

TEST_F(SelectionTest, NoMoreThan128OpenSets) {
  line(0, 0, 1, 1);
  std::vector<std::array<std::int64_t, 2>> sets(api::kMaxOpenSelectionSets);
  for (auto& set : sets) ASSERT_EQ(qxedSSAdd(nullptr, nullptr, set.data()), RTNORM);
  EXPECT_EQ(api::openSelectionSetCount(document()), 128);
  SelectionSet extra;
  EXPECT_EQ(qxedSSAdd(nullptr, nullptr, extra), RTERROR);
  EXPECT_EQ(qxedSSGet(L"X", nullptr, nullptr, nullptr, extra), RTERROR);
  qxedSSFree(sets.back().data());
  EXPECT_EQ(qxedSSGet(L"X", nullptr, nullptr, nullptr, extra), RTNORM);
  qxedSSFree(extra);
  sets.pop_back();
  for (auto& set : sets) qxedSSFree(set.data());
  EXPECT_EQ(api::openSelectionSetCount(document()), 0);
}

}  // namespace
}  // namespace korva::testing
