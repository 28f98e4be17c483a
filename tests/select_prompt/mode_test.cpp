// The prompting modes: filters, locked layers, single selection, own prompts, keyword
// and other-input callbacks, and the highlight while the prompt runs.
#include <string>
#include <vector>

#include "api/selection_sets.h"
#include "input/console.h"
#include "prompt_fixture.h"
#include "qx_coordinates.h"
#include "qx_memory.h"
#include "qx_selection.h"

namespace korva::testing {
namespace {

// What the callbacks (plain functions) see of the test.
api::Document* drawing = nullptr;
const db::Record* handedOver = nullptr;
const db::Record* watched = nullptr;
std::vector<std::wstring> heard;

ResultBuffer* nameNode(int type, const db::Record& record) {
  ResultBuffer* node = qxutNewRb(type);
  EntityName name;
  api::nameOf(*drawing, record, name);
  if (type == RTPICKS)
    qxedSSAdd(name, nullptr, node->value.rssname);
  else
    api::nameOf(*drawing, record, node->value.rlname);
  return node;
}

// Hears the keyword, tells whether `watched` shows highlighted, hands over a new set
// holding `handedOver`.
ResultBuffer* keywordCallback(const wchar_t* keyword) {
  heard.push_back(keyword);
  if (watched) {
    EntityName name;
    api::nameOf(*drawing, *watched, name);
    heard.push_back(qxedIsHighlighted(name) ? L"lit" : L"dark");
  }
  return handedOver ? nameNode(RTPICKS, *handedOver) : nullptr;
}

// Takes "CIRCLES" as the circle c, nothing else.
ResultBuffer* otherCallback(const wchar_t* input) {
  heard.push_back(input);
  return std::wstring(input) == L"CIRCLES" ? nameNode(RTENAME, *handedOver) : nullptr;
}

class ModeTest : public PromptTest {
 protected:
  void SetUp() override {
    PromptTest::SetUp();
    drawing = &document();
    handedOver = nullptr;
    watched = nullptr;
    heard.clear();
  }
  void TearDown() override {
    qxedSSSetKwordCallbackPtr(nullptr);
    qxedSSSetOtherCallbackPtr(nullptr);
    PromptTest::TearDown();
  }
};

TEST_F(ModeTest, TheFilterAppliesToEveryWayOfSelecting) {
  ResultBuffer* lines = qxutBuildList(RTDXF0, L"LINE", RTNONE);
  SelectionSet circleOnly;
  EntityName circleName;
  api::nameOf(document(), *c, circleName);
  ASSERT_EQ(qxedSSAdd(circleName, nullptr, circleOnly), RTNORM);
  EXPECT_EQ(prompt(L":$",
                   {typed(L"ALL"), typed(L"U"), point(21, 20), set(circleOnly),
                    entity(document(), *c), point(1, 1), typed(L"")},
                   nullptr, nullptr, nullptr, lines),
            handles({a}));
  const std::wstring log = transcript();
  EXPECT_TRUE(mentions(log, L"3 found, 2 total\n1 was filtered out."));
  EXPECT_TRUE(mentions(log, L"1 found, 0 total\n1 was filtered out."));
  EXPECT_TRUE(mentions(log, L"1 found, 1 total"));
  qxedSSFree(circleOnly);
  qxutRelRb(lines);
}

TEST_F(ModeTest, LockedLayersAreRejectedOnlyWhenAsked) {
  layer("FIXED", 4);
  db::Record* locked = line(10, 0, 12, 2, "FIXED");
  db::Record* alsoLocked = line(10, 3, 12, 5, "fixed");
  EXPECT_EQ(prompt(L":L", {typed(L"ALL"), typed(L"")}), handles({a, b, c}));
  EXPECT_TRUE(mentions(transcript(), L"5 found, 3 total\n2 were on a locked layer."));
  int status = 0;
  prompt(L":L", {point(11, 1), typed(L"")}, &status);
  EXPECT_EQ(status, RTERROR);
  EXPECT_EQ(prompt(nullptr, {typed(L"ALL"), typed(L"")}), handles({a, b, c, locked, alsoLocked}));
}

TEST_F(ModeTest, SingleSelectionEndsAtTheFirstStepThatTakesSomething) {
  // The empty window doesn't end it; the pick does, and the rest stays unread.
  EXPECT_EQ(
      prompt(L":S", {typed(L"W"), typed(L"30,30"), typed(L"40,40"), point(6, 1), typed(L"L")}),
      handles({b}));
  EXPECT_TRUE(input::Console::instance().hasInput());
}

TEST_F(ModeTest, OwnPromptsForAddingAndRemoving) {
  const wchar_t* prompts[2] = {L"\nPick lines: ", L"\nDrop lines: "};
  EXPECT_EQ(prompt(L":$", {typed(L"ALL"), typed(L"R"), typed(L"L"), typed(L"")}, nullptr, prompts),
            handles({a, b}));
  EXPECT_TRUE(mentions(transcript(), L"\nPick lines: ALL\n"));
  EXPECT_TRUE(mentions(transcript(), L"\nDrop lines: L\n"));
  EXPECT_FALSE(mentions(transcript(), L"Select objects"));
}

TEST_F(ModeTest, KeywordsRunTheCallbackAndMinusMReturnsToTheCaller) {
  ASSERT_EQ(qxedSSSetKwordCallbackPtr(keywordCallback), RTNORM);
  QxSelectionCallback installed = nullptr;
  ASSERT_EQ(qxedSSGetKwordCallbackPtr(&installed), RTNORM);
  EXPECT_EQ(installed, &keywordCallback);
  // The set handed over joins the selection, and "-M" ends the prompt.
  handedOver = b;
  watched = a;
  EXPECT_EQ(prompt(L"-M:$:K", {point(1, 1), typed(L"s"), typed(L"L")}, nullptr, nullptr,
                   L"Setting Mask _ Setting Mask"),
            handles({a, b}));
  EXPECT_EQ(heard, (std::vector<std::wstring>{L"Setting", L"lit"}));  // a, while asking
  EXPECT_TRUE(document().highlighted().empty());
  EXPECT_EQ(api::openSelectionSetCount(document()), 0);
  input::Console::instance().popSource();
  // Without "-M" the prompt goes on; the callback hears the global form.
  heard.clear();
  handedOver = watched = nullptr;
  EXPECT_EQ(prompt(L":K", {typed(L"_Mask"), typed(L"?"), typed(L"L"), typed(L"")}, nullptr, nullptr,
                   L"Masque,M _ Mask"),
            handles({c}));
  EXPECT_EQ(heard, std::vector<std::wstring>{L"Mask"});
  EXPECT_TRUE(mentions(transcript(), L"Previous/Undo/Masque\n"));
  // A keyword with nothing selected returns nothing.
  int status = 0;
  prompt(L"-M:K", {typed(L"Mask")}, &status, nullptr, L"Mask");
  EXPECT_EQ(status, RTERROR);
}

TEST_F(ModeTest, OtherInputGoesToItsCallbackOnlyWithQuestionMark) {
  ASSERT_EQ(qxedSSSetOtherCallbackPtr(otherCallback), RTNORM);
  handedOver = c;
  EXPECT_EQ(
      prompt(L":?", {typed(L"CIRCLES"), typed(L"BOGUS"), point(1, 1), typed(L"L"), typed(L"")}),
      handles({a, c}));
  EXPECT_EQ(heard, (std::vector<std::wstring>{L"CIRCLES", L"BOGUS"}));
  EXPECT_TRUE(mentions(transcript(), L"Select objects: BOGUS\n*Invalid selection*"));
  heard.clear();
  int status = 0;
  prompt(nullptr, {typed(L"CIRCLES"), typed(L"")}, &status);
  EXPECT_EQ(status, RTERROR);
  EXPECT_TRUE(heard.empty());
}

TEST_F(ModeTest, UnknownFlagsFailWithoutAsking) {
  give({typed(L"ALL"), typed(L"")});
  SelectionSet selection;
  EXPECT_EQ(qxedSSGet(L":Q", nullptr, nullptr, nullptr, selection), RTERROR);
  EXPECT_EQ(qxedSSGet(L"-X:S", nullptr, nullptr, nullptr, selection), RTERROR);
  EXPECT_TRUE(transcript().empty());
}

}  // namespace
}  // namespace korva::testing
