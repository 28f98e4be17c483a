// How the user's actions reach a dialog: order of notifications, focus, keys, menus,
// posted messages, resizing, the end of the input, and wrong actions.
#include <algorithm>

#include "dialog_fixture.h"
#include "test_dialog.h"
#include "ui/dialog_show.h"

namespace korva::testing {
namespace {

using Events = std::vector<std::wstring>;

// The events after those of opening (the name loaded into its edit).
Events eventsAfterOpening(const TestDialog& dialog) {
  Events events = dialog.events;
  const auto opening = std::find(events.begin(), events.end(), L"changed 101: Walls");
  EXPECT_NE(opening, events.end());
  events.erase(events.begin(), opening + 1);
  return events;
}

// The blocks "show" printed, each from its title line to the next prompt.
std::vector<std::string> shownBlocks(const std::string& transcript) {
  std::vector<std::string> blocks;
  size_t start = 0;
  while ((start = transcript.find("\nDialog 9000 ", start)) != std::string::npos) {
    size_t end = transcript.find("\nDialog> ", start);
    if (end == std::string::npos) end = transcript.find_last_not_of('\n') + 1;
    blocks.push_back(transcript.substr(start, end - start));
    start = end;
  }
  return blocks;
}

TEST_F(DialogTest, EndOfInputCancelsTheDialog) {
  script("show\n");
  TestDialog dialog;
  EXPECT_EQ(dialog.DoModal(), kQxUiIdCancel);
  EXPECT_TRUE(eventsAfterOpening(dialog).empty());
  EXPECT_EQ(dialog.name, L"Walls");
}

TEST_F(DialogTest, DialogThatRefusesToCloseIsClosedAtEndOfInput) {
  script("key ESC\nno\n");
  TestDialog refusing;
  refusing.askOnCancel = true;
  EXPECT_EQ(refusing.DoModal(), kQxUiIdCancel);
  const std::string transcript = takeTranscript();
  // Asked at Escape (answered No) and again at the end of the input (no answer: No).
  size_t asked = 0;
  for (size_t at = 0; (at = transcript.find("Discard the changes?", at)) != std::string::npos;
       ++at) {
    ++asked;
  }
  EXPECT_EQ(asked, 2u);

  script("key ESC\nyes\nshow\n");
  TestDialog agreeing;
  agreeing.askOnCancel = true;
  EXPECT_EQ(agreeing.DoModal(), kQxUiIdCancel);
  EXPECT_EQ(takeTranscript().find("\nDialog 9000 "), std::string::npos);
}

TEST_F(DialogTest, WrongActionsChangeNothing) {
  script(
      "show\n"
      "click 999\n"       // no such control
      "set 116 x\n"       // read-only edit
      "click 9\n"         // hidden button
      "set 105 x\n"       // a list takes no text
      "select 106 0,1\n"  // a single-selection list takes one line
      "select 105 7\n"    // no such line
      "select 106 \"Nope\"\n"
      "check 103 0\n"  // radio buttons aren't cleared
      "check 102 5\n"
      "check 109 1\n"     // a check list box needs the line
      "dblclick 107 0\n"  // not a list box
      "rclick 101\n"      // no menu there
      "menu 9101\n"       // no menu is open
      "key CTRL+A\n"
      "key ALT+Q\n"  // no control has that access key
      "size 0 10\n"
      "click\n"
      "frobnicate 3\n"
      "show\n");
  TestDialog dialog;
  dialog.DoModal();
  EXPECT_TRUE(eventsAfterOpening(dialog).empty());
  const std::string transcript = takeTranscript();
  const std::vector<std::string> shown = shownBlocks(transcript);
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[0], shown[1]);
  // Each wrong action said what was wrong: no prompt follows another directly.
  for (const char* message :
       {"The dialog has no control 999.", "edit 116 is read-only.", "button 9 is hidden.",
        "list 106 takes one line.", "list 105 has 3 lines; 7 is not one of them.",
        "list 106 has no line \"Nope\".", "A radio button is cleared",
        "\"check\" takes the id and 0 or 1.", "A check list box takes",
        "\"dblclick\" doesn't work on combo 107", "No menu opens on edit 101.", "No menu is open",
        "Keys are ALT+LETTER", "No control answers to Alt+Q.", "Use: size WIDTH HEIGHT",
        "Use: click ID", "Unknown dialog action \"frobnicate\""}) {
    EXPECT_NE(transcript.find(message), std::string::npos) << message;
  }
}

TEST_F(DialogTest, NotificationsComeInTheOrderOfTheScreen) {
  script("set 101 Roof\nclick 102\nselect 107 0\ncheck 109 1 1\n");
  TestDialog dialog;
  dialog.DoModal();
  // Clicking the check box takes the focus from the edit first.
  EXPECT_EQ(eventsAfterOpening(dialog),
            (Events{L"changed 101: Roof", L"killfocus 101", L"clicked 102: 0", L"chosen 107",
                    L"selection 107: Inches", L"check 109", L"selection 109: 1 checked 1"}));
  EXPECT_EQ(dialog.textAtKillFocus, L"Roof");
}

TEST_F(DialogTest, EnterPressesTheDefaultButtonWithoutMovingTheFocus) {
  script("set 101 Roof\nkey ENTER\n");
  TestDialog dialog;
  EXPECT_EQ(dialog.DoModal(), kQxUiIdOk);
  EXPECT_EQ(dialog.name, L"Roof");
  // The edit never lost the focus, so its kill-focus handler never ran.
  EXPECT_TRUE(dialog.textAtKillFocus.empty());
}

TEST_F(DialogTest, EnterPressesTheFocusedButton) {
  script("click 110\nkey ENTER\nkey esc\n");
  TestDialog dialog;
  EXPECT_EQ(dialog.DoModal(), kQxUiIdCancel);
  // The edit had the focus from the opening.
  EXPECT_EQ(eventsAfterOpening(dialog), (Events{L"killfocus 101", L"clicked 110", L"clicked 110"}));
}

TEST_F(DialogTest, AltKeysGoToTheDialogFirstThenToAccessKeys) {
  script(
      "click 110\nkey ALT+O\nshow\n"  // the dialog's own handler
      "key ALT+L\n"                   // the check box's access key
      "click 110\nkey ALT+N\nshow\n"  // a label's: the next control takes the focus
      "key alt+s\n");                 // lower case names the same key
  TestDialog dialog;
  dialog.DoModal();
  EXPECT_EQ(eventsAfterOpening(dialog),
            (Events{L"killfocus 101", L"clicked 110", L"alt O", L"killfocus 101", L"clicked 102: 0",
                    L"clicked 110", L"killfocus 101", L"clicked 104"}));
  const std::vector<std::string> shown = shownBlocks(takeTranscript());
  ASSERT_EQ(shown.size(), 2u);
  for (const std::string& block : shown) {
    EXPECT_NE(block.find("101 edit \"Walls\" enabled limit=12 selected=0-5 focus"),
              std::string::npos)
        << block;
  }
  EXPECT_EQ(dialog.order, 0);  // cancelled: the fields weren't saved
}

TEST_F(DialogTest, ContextMenuOffersOnlyTheEnabledItems) {
  script(
      "rclick 105\n"
      "menu Release\n"  // disabled: nothing selected is held
      "click 1\n"       // not while the menu is open
      "menu 4711\n"
      "menu hold\n"
      "rclick 105\nmenu cancel\n"
      "rclick 105\nmenu 9103\n");
  TestDialog dialog;
  dialog.DoModal();
  EXPECT_EQ(eventsAfterOpening(dialog), (Events{L"hold", L"select all"}));
  EXPECT_EQ(dialog.layers.GetText(0), L"*0");
  EXPECT_EQ(dialog.layers.GetText(1), L"WALLS");
  EXPECT_EQ(dialog.layers.GetText(2), L"*DOORS");
  EXPECT_EQ(dialog.layers.GetSelCount(), 3);
  const std::string transcript = takeTranscript();
  EXPECT_NE(transcript.find("9102 \"Release\" disabled"), std::string::npos);
  EXPECT_NE(transcript.find("9103 \"Select all\"\n"), std::string::npos);
  EXPECT_NE(transcript.find("Menu item 9102 is disabled."), std::string::npos);
  EXPECT_NE(transcript.find("A context menu is open"), std::string::npos);
  EXPECT_NE(transcript.find("The menu has no item \"4711\"."), std::string::npos);
}

TEST_F(DialogTest, DoubleClickSelectsTheLineThenPostsToTheDialog) {
  script("dblclick 105 1\ndblclick 105 1\n");
  TestDialog dialog;
  dialog.DoModal();
  EXPECT_EQ(eventsAfterOpening(dialog),
            (Events{L"killfocus 101", L"selection 105: 0 1 2", L"toggled 1",
                    L"selection 105: 0 1 2", L"toggled 1"}));
  EXPECT_EQ(dialog.layers.GetText(1), L"WALLS");
}

TEST_F(DialogTest, ResizingKeepsTheDialogsMinimumAndMovesItsControls) {
  script("size 100 50\nsize 300 250\n");
  TestDialog dialog;
  dialog.DoModal();
  EXPECT_EQ(eventsAfterOpening(dialog), (Events{L"size 160x120", L"size 300x250"}));
  EXPECT_EQ(dialog.layers.GetPlacement().Width(), 160);
}

TEST_F(DialogTest, EditorCommandHidesTheDialogWhileTheCommandLineAsks) {
  script("click 115\nROOF\nclick 115\n\n");
  TestDialog dialog;
  dialog.DoModal();
  EXPECT_EQ(eventsAfterOpening(dialog),
            (Events{L"killfocus 101", L"pick: hidden", L"pick: hidden"}));
  EXPECT_EQ(dialog.layers.GetCount(), 4);
  EXPECT_TRUE(dialog.IsWindowVisible());
  EXPECT_NE(takeTranscript().find("Layer to add: ROOF"), std::string::npos);
}

TEST_F(DialogTest, ColourComboAsksForAnyColourAtTheCommandLine) {
  script("select 114 \"Select colour...\"\n30\nselect 114 Blue\n");
  TestDialog dialog;
  dialog.DoModal();
  EXPECT_EQ(eventsAfterOpening(dialog),
            (Events{L"killfocus 101", L"colour 114: 30", L"colour 114: 5"}));
  EXPECT_EQ(dialog.colours.FindItemByColorIndex(30), 9);
}

TEST_F(DialogTest, TypingIsCutAtTheLimit) {
  script("set 101 abcdefghijklmnop\nset 108 C*\nkey ENTER\n");
  TestDialog dialog;
  EXPECT_EQ(dialog.DoModal(), kQxUiIdOk);
  EXPECT_EQ(dialog.name, L"abcdefghijkl");
  // Typing in an editable combo box leaves no line selected.
  EXPECT_EQ(dialog.filter, L"C*");
  EXPECT_NE(takeTranscript().find("edit 101 takes at most 12 characters"), std::string::npos);
}

// A dialog that binds a list of its own during data exchange, after opening.
class LateBindingDialog : public CQxUiDialog {
 public:
  LateBindingDialog() : CQxUiDialog(kTestDialogId) {}
  CQxUiListBox scales;
  CQxUiWnd* boundDuringRun = nullptr;

  bool OnInitDialog() override {
    static_cast<CQxUiListBox*>(GetDlgItem(106))->AddString(L"1:100");
    const bool result = CQxUiDialog::OnInitDialog();
    boundDuringRun = GetDlgItem(106);
    return result;
  }
  void DoDataExchange(CQxUiDataExchange& exchange) override { exchange.Control(106, scales); }
};

TEST_F(DialogTest, ControlBoundAfterOpeningTakesOverTheControlsState) {
  script("select 106 0\n");
  LateBindingDialog dialog;
  dialog.DoModal();
  EXPECT_EQ(dialog.boundDuringRun, &dialog.scales);
  EXPECT_EQ(dialog.scales.GetCount(), 1);
  EXPECT_EQ(dialog.scales.GetCurSel(), 0);
}

class MisboundDialog : public CQxUiDialog {
 public:
  MisboundDialog() : CQxUiDialog(kTestDialogId) { BindControl(105, edit); }
  CQxUiEdit edit;
  bool listMade = false;
  bool OnInitDialog() override {
    listMade = dynamic_cast<CQxUiListBox*>(GetDlgItem(105)) != nullptr;
    return true;
  }
};

TEST_F(DialogTest, ObjectOfTheWrongKindIsNotBound) {
  script("");
  MisboundDialog dialog;
  dialog.DoModal();
  EXPECT_TRUE(dialog.listMade);
  EXPECT_FALSE(dialog.edit.IsCreated());
  EXPECT_TRUE(printed("the object bound to 105 is not of its kind"));
}

TEST_F(DialogTest, MissingTemplateGivesMinusOne) {
  CQxUiDialog dialog(4242);
  EXPECT_EQ(dialog.DoModal(), -1);
  EXPECT_TRUE(printed("Dialog 4242 is not in the resources."));
}

class NumberDialog : public CQxUiDialog {
 public:
  NumberDialog() : CQxUiDialog(kTestDialogId) {}
  int count = 7;
  double ratio = 0.25;
  int choice = 1;
  void DoDataExchange(CQxUiDataExchange& exchange) override {
    exchange.Text(101, count);
    exchange.Text(116, ratio);
    exchange.Radio(103, choice);
  }
};

TEST_F(DialogTest, ValueThatDoesntReadKeepsTheDialogOpen) {
  script("show\nset 101 seven\nclick 1\n\nset 101 12\ncheck 103 1\nclick 1\n");
  NumberDialog dialog;
  EXPECT_EQ(dialog.DoModal(), kQxUiIdOk);
  EXPECT_EQ(dialog.count, 12);
  EXPECT_EQ(dialog.ratio, 0.25);
  EXPECT_EQ(dialog.choice, 0);
  const std::string transcript = takeTranscript();
  EXPECT_NE(transcript.find("101 edit \"7\""), std::string::npos);
  EXPECT_NE(transcript.find("116 edit \"0.25\""), std::string::npos);
  EXPECT_NE(transcript.find("104 radio \"&Second\" enabled checked"), std::string::npos);
  EXPECT_NE(transcript.find("Enter a whole number."), std::string::npos);
}

// Posts two messages from a click; the first ends the dialog, so the second is dropped.
class PostingDialog : public CQxUiDialog {
 public:
  PostingDialog() : CQxUiDialog(kTestDialogId) {
    HandleCommand(110, QxUiNotification::Clicked, [this] {
      PostMessage(kQxUiMessageUser + 1);
      PostMessage(kQxUiMessageUser + 2);
      order.push_back(L"clicked");
    });
    HandleMessage(kQxUiMessageUser + 1, [this](std::uintptr_t, std::intptr_t) {
      order.push_back(L"first");
      if (endOnFirst) EndDialog(7);
      return std::intptr_t{0};
    });
    HandleMessage(kQxUiMessageUser + 2, [this](std::uintptr_t, std::intptr_t) {
      order.push_back(L"second");
      return std::intptr_t{0};
    });
  }
  bool endOnFirst = false;
  Events order;
};

TEST_F(DialogTest, PostedMessagesFollowTheActionInOrder) {
  script("click 110\n");
  PostingDialog dialog;
  EXPECT_EQ(dialog.DoModal(), kQxUiIdCancel);
  EXPECT_EQ(dialog.order, (Events{L"clicked", L"first", L"second"}));

  script("click 110\n");
  PostingDialog ending;
  ending.endOnFirst = true;
  EXPECT_EQ(ending.DoModal(), 7);
  EXPECT_EQ(ending.order, (Events{L"clicked", L"first"}));
}

}  // namespace
}  // namespace korva::testing
