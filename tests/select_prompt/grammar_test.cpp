// What the selection prompt understands: the ways of selecting, removing, undoing,
// duplicates, answers of scripted commands, invalid input, cancel and empty results.
#include <algorithm>
#include <array>

#include "api/selection_sets.h"
#include "api/utf8.h"
#include "db/handle.h"
#include "prompt_fixture.h"
#include "qx_selection.h"

namespace korva::testing {
namespace {

using GrammarTest = PromptTest;

std::wstring handleOf(const db::Record* record) {
  return L"#" + api::fromUtf8(db::formatHandle(record->handle()));
}

TEST_F(GrammarTest, WindowsCrossingsAndImpliedWindows) {
  EXPECT_EQ(prompt(nullptr, {typed(L"W"), typed(L"-1,-1"), typed(L"10,10"), typed(L"")}),
            handles({a, b}));
  EXPECT_TRUE(mentions(transcript(), L"Select objects: W\n"));
  EXPECT_TRUE(mentions(transcript(), L"2 found, 2 total"));
  EXPECT_EQ(prompt(nullptr, {typed(L"_C"), typed(L"1,1"), typed(L"3,3"), typed(L"")}),
            handles({a}));
  // A pick in empty space is a first corner: right to left crosses, left to right
  // encloses (and takes nothing here).
  EXPECT_EQ(prompt(nullptr, {point(3, 3), typed(L"1,1"), typed(L"")}), handles({a}));
  int status = 0;
  prompt(nullptr, {point(1.5, -1.5), typed(L"3,3"), typed(L"")}, &status);
  EXPECT_EQ(status, RTERROR);
  EXPECT_TRUE(mentions(transcript(), L"Specify opposite corner: 3,3\n0 found, 0 total"));
}

TEST_F(GrammarTest, PolygonsAndFences) {
  EXPECT_EQ(prompt(nullptr, {typed(L"WP"), typed(L"-1,-1"), typed(L"3,-1"), typed(L"3,3"),
                             typed(L"-1,3"), typed(L""), typed(L"")}),
            handles({a}));
  EXPECT_EQ(prompt(nullptr, {typed(L"CP"), typed(L"6,1"), typed(L"30,1"), typed(L"30,30"),
                             typed(L"6,30"), typed(L""), typed(L"")}),
            handles({b, c}));
  // Undo takes back the stray point: the fence runs from (6,-1) to (6,3), through b.
  EXPECT_EQ(prompt(nullptr, {typed(L"F"), typed(L"6,-1"), typed(L"100,100"), typed(L"U"),
                             typed(L"6,3"), typed(L""), typed(L"")}),
            handles({b}));
  // Too few points select nothing; the prompt goes on.
  EXPECT_EQ(prompt(nullptr, {typed(L"WP"), typed(L"0,0"), typed(L"1,1"), typed(L""), typed(L"L"),
                             typed(L"")}),
            handles({c}));
  EXPECT_TRUE(mentions(transcript(), L"A polygon needs at least three points."));
}

TEST_F(GrammarTest, AllLastPreviousAndHandles) {
  EXPECT_EQ(prompt(nullptr, {typed(L"ALL"), typed(L"")}), handles({a, b, c}));
  EXPECT_EQ(prompt(nullptr, {typed(L"L"), typed(L"")}), handles({c}));
  EXPECT_EQ(prompt(nullptr, {typed(handleOf(b).c_str()), typed(L"P"), typed(L"")}),
            handles({b, c}));
  // Erased entities leave the previous set and can't be named.
  database().setErased(*b, true);
  EXPECT_EQ(prompt(nullptr, {typed(L"P"), typed(handleOf(b).c_str()), typed(L"")}), handles({c}));
}

TEST_F(GrammarTest, RemovingAddingUndoingAndDuplicates) {
  EXPECT_EQ(prompt(nullptr, {typed(L"ALL"), typed(L"R"), point(1, 1), typed(L"A"),
                             typed(handleOf(b).c_str()), typed(L"U"), typed(L"U"), typed(L"U"),
                             typed(L"L"), typed(L"")}),
            handles({c}));
  const std::wstring log = transcript();
  EXPECT_TRUE(mentions(log, L"Remove objects: 1,1,0\n1 found, 1 removed, 2 total"));
  EXPECT_TRUE(mentions(log, L"1 found (1 duplicate), 2 total"));
  // The duplicate changed nothing: U takes back the removal, then ALL, then nothing.
  EXPECT_TRUE(mentions(log, L"Last step undone, 3 total"));
  EXPECT_TRUE(mentions(log, L"Last step undone, 0 total"));
  EXPECT_TRUE(mentions(log, L"Nothing to undo."));
}

TEST_F(GrammarTest, SetsAndEntitiesOfScriptedCommands) {
  SelectionSet given;
  std::array<double, 3> low{-1, -1, 0}, high{10, 10, 0};
  ASSERT_EQ(qxedSSGet(L"W", low.data(), high.data(), nullptr, given), RTNORM);
  EXPECT_EQ(
      prompt(nullptr, {set(given), entity(document(), *c), entity(document(), *a), typed(L"")}),
      handles({a, b, c}));
  EXPECT_TRUE(mentions(transcript(), L"1 found (1 duplicate), 3 total"));
  qxedSSFree(given);
}

TEST_F(GrammarTest, InvalidInputIsExplainedAndAskedAgain) {
  // "AL" is neither ALL (typed whole only) nor Add.
  EXPECT_EQ(prompt(nullptr, {typed(L"XYZ"), typed(L"AL"), typed(L"L"), typed(L"")}), handles({c}));
  const std::wstring log = transcript();
  EXPECT_TRUE(mentions(log,
                       L"*Invalid selection*\nExpects a point or\nWindow/Last/Crossing/"
                       L"ALL/Fence/WPolygon/CPolygon/Add/Remove/Previous/Undo"));
  EXPECT_EQ(std::count(log.begin(), log.end(), L'*'), 4);
}

TEST_F(GrammarTest, CancelAndEmptySelectionsLeaveNothingBehind) {
  EXPECT_EQ(prompt(nullptr, {typed(L"L"), typed(L"")}), handles({c}));
  int status = 0;
  // The answers run out while a prompt waits: a cancel, whatever was selected.
  prompt(nullptr, {typed(L"ALL")}, &status);
  EXPECT_EQ(status, RTCAN);
  prompt(nullptr, {typed(L"W"), typed(L"0,0")}, &status);
  EXPECT_EQ(status, RTCAN);
  prompt(nullptr, {typed(L"ALL"), typed(L"R"), typed(L"ALL"), typed(L"")}, &status);
  EXPECT_EQ(status, RTERROR);
  EXPECT_EQ(api::openSelectionSetCount(document()), 0);
  EXPECT_TRUE(document().highlighted().empty());
  EXPECT_EQ(select(L"P"), handles({c}));  // failed selections leave it alone
}

TEST_F(GrammarTest, PicksTakeOnlyVisibleEntities) {
  layer("HIDDEN", 0, -7);
  layer("ICE", 1);
  db::Record* off = line(30, 0, 32, 2, "HIDDEN");
  line(40, 0, 42, 2, "ICE");
  // A pick on a line of a layer that is off starts a window instead.
  EXPECT_EQ(prompt(nullptr, {point(31, 1), typed(L"31.5,1.5"), typed(L"L"), typed(L"")}),
            handles({c}));
  EXPECT_EQ(prompt(nullptr, {typed(L"W"), typed(L"25,-5"), typed(L"50,5"), typed(L"")}),
            std::set<db::Handle>{});
  // ALL leaves out frozen layers only, as the "A" mode does.
  EXPECT_EQ(prompt(nullptr, {typed(L"ALL"), typed(L"")}), handles({a, b, c, off}));
}

}  // namespace
}  // namespace korva::testing
