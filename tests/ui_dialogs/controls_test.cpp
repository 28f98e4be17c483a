// Controls as dialog code uses them: lines of list and combo boxes, selections, edits,
// the colour combo box, menus, message boxes and the extension modules' records.
#include "dialog_fixture.h"
#include "ui/dialog_access.h"
#include "ui/extension_modules.h"

namespace korva::testing {
namespace {

// A control made from a template line, in a dialog that isn't open: what a control is
// between OnInitDialog and the user's first action.
class ControlTest : public DialogTest {
 protected:
  void make(CQxUiWnd& window, ui::ControlKind kind, ui::ControlStyle style = {}) {
    ui::ControlTemplate line;
    line.id = 300;
    line.kind = kind;
    line.width = 100;
    line.height = 40;
    line.style = style;
    ui::DialogAccess::attach(window, parent_, line);
  }
  CQxUiDialog parent_{kTestDialogId};
};

std::vector<std::wstring> texts(const std::vector<QxUiListItem>& items) {
  std::vector<std::wstring> result;
  for (const QxUiListItem& item : items) result.push_back(item.text);
  return result;
}

using Texts = std::vector<std::wstring>;

TEST_F(ControlTest, SortedListKeepsItsOrderIgnoringCase) {
  CQxUiListBox list;
  ui::ControlStyle sorted;
  sorted.sorted = true;
  make(list, ui::ControlKind::ListBox, sorted);
  EXPECT_EQ(list.AddString(L"b"), 0);
  EXPECT_EQ(list.AddString(L"A"), 0);
  EXPECT_EQ(list.AddString(L"a"), 1);  // after its equal, as it came later
  EXPECT_EQ(list.AddString(L"C"), 3);
  EXPECT_EQ(texts(list.Items()), (Texts{L"A", L"a", L"b", L"C"}));
  // Inserting by position ignores the order.
  EXPECT_EQ(list.InsertString(0, L"z"), 0);
  EXPECT_EQ(list.InsertString(9, L"y"), kQxUiListError);
}

TEST_F(ControlTest, FindingStartsAfterTheGivenLineAndWraps) {
  CQxUiListBox list;
  make(list, ui::ControlKind::ListBox);
  for (const wchar_t* text : {L"Apple", L"Banana", L"apricot"}) list.AddString(text);
  EXPECT_EQ(list.FindString(-1, L"AP"), 0);
  EXPECT_EQ(list.FindString(0, L"ap"), 2);
  EXPECT_EQ(list.FindString(2, L"ap"), 0);
  EXPECT_EQ(list.FindStringExact(-1, L"BANANA"), 1);
  EXPECT_EQ(list.FindStringExact(-1, L"Ban"), kQxUiListError);
  EXPECT_EQ(list.SelectString(-1, L"b"), 1);
  EXPECT_EQ(list.GetCurSel(), 1);
}

TEST_F(ControlTest, SingleSelectionFollowsItsLineThroughChanges) {
  CQxUiListBox list;
  make(list, ui::ControlKind::ListBox);
  for (const wchar_t* text : {L"a", L"b", L"c"}) list.AddString(text);
  EXPECT_EQ(list.SetCurSel(2), 2);
  list.InsertString(0, L"first");
  EXPECT_EQ(list.GetCurSel(), 3);
  EXPECT_EQ(list.DeleteString(1), 3);
  EXPECT_EQ(list.GetCurSel(), 2);
  list.DeleteString(2);
  EXPECT_EQ(list.GetCurSel(), -1);
  EXPECT_EQ(list.SetCurSel(5), kQxUiListError);
  // Operations of multiple-selection lists fail.
  EXPECT_EQ(list.SetSel(0), kQxUiListError);
  EXPECT_EQ(list.GetSelCount(), kQxUiListError);
  EXPECT_EQ(list.SetItemData(1, 42), 0);
  EXPECT_EQ(list.GetItemData(1), 42u);
  EXPECT_EQ(list.GetItemData(7), 0u);
}

TEST_F(ControlTest, MultipleSelectionIsKeptPerLine) {
  CQxUiListBox list;
  ui::ControlStyle multiple;
  multiple.multipleSelection = true;
  make(list, ui::ControlKind::ListBox, multiple);
  for (const wchar_t* text : {L"a", L"b", L"c", L"d"}) list.AddString(text);
  EXPECT_EQ(list.SetCurSel(1), kQxUiListError);
  list.SelItemRange(true, 3, 1);
  EXPECT_EQ(list.GetSelItems(), (std::vector<int>{1, 2, 3}));
  list.SetSel(2, false);
  int found[4] = {};
  EXPECT_EQ(list.GetSelItems(4, found), 2);
  EXPECT_EQ(found[1], 3);
  EXPECT_EQ(list.GetSel(2), 0);
  list.SetSel(-1, true);
  EXPECT_EQ(list.GetSelCount(), 4);
  list.DeleteString(0);
  EXPECT_EQ(list.GetSelCount(), 3);
}

TEST_F(ControlTest, LinesLieUnderPointsFromTheTopLine) {
  CQxUiListBox list;
  make(list, ui::ControlKind::ListBox);
  for (const wchar_t* text : {L"a", L"b", L"c", L"d"}) list.AddString(text);
  list.SetTopIndex(1);
  bool outside = true;
  EXPECT_EQ(list.ItemFromPoint({5, CQxUiListBox::kItemHeight + 1}, outside), 2);
  EXPECT_FALSE(outside);
  EXPECT_EQ(list.ItemFromPoint({5, 10 * CQxUiListBox::kItemHeight}, outside), 3);
  EXPECT_TRUE(outside);
  QxUiRect rect;
  ASSERT_EQ(list.GetItemRect(1, rect), 0);
  EXPECT_EQ(rect.top, 0);
  EXPECT_EQ(rect.Width(), 100);
}

TEST_F(ControlTest, EditableComboShowsTheChosenLine) {
  CQxUiComboBox combo;
  ui::ControlStyle editable;
  editable.editable = true;
  make(combo, ui::ControlKind::ComboBox, editable);
  for (const wchar_t* text : {L"A*", L"B?"}) combo.AddString(text);
  combo.SetCurSel(1);
  EXPECT_EQ(combo.GetWindowText(), L"B?");
  int start = 0;
  int end = 0;
  combo.GetEditSel(start, end);
  EXPECT_EQ(end, 2);
  combo.SetWindowText(L"free text");
  EXPECT_EQ(combo.GetCurSel(), 1);
  combo.SetCurSel(-1);
  EXPECT_EQ(combo.GetWindowText(), L"");
}

TEST_F(ControlTest, DropDownListTextIsItsSelectedLine) {
  CQxUiComboBox combo;
  make(combo, ui::ControlKind::ComboBox);
  for (const wchar_t* text : {L"Inches", L"Feet"}) combo.AddString(text);
  EXPECT_EQ(combo.GetWindowText(), L"");
  combo.SetWindowText(L"feet");
  EXPECT_EQ(combo.GetCurSel(), 1);
  combo.SetWindowText(L"Cubits");
  EXPECT_EQ(combo.GetCurSel(), 1);
  EXPECT_EQ(combo.GetWindowText(), L"Feet");
  combo.DeleteString(0);
  EXPECT_EQ(combo.GetCurSel(), 0);
}

TEST_F(ControlTest, EditTextNotifiesAndSelectionStaysInTheText) {
  CQxUiEdit edit;
  make(edit, ui::ControlKind::Edit);
  int changes = 0;
  parent_.HandleCommand(300, QxUiNotification::Changed, [&changes] { ++changes; });
  edit.SetWindowText(L"hello world");
  edit.SetSel(6, -1);
  int start = 0;
  int end = 0;
  edit.GetSel(start, end);
  EXPECT_EQ(start, 6);
  EXPECT_EQ(end, 11);
  edit.ReplaceSel(L"there");
  EXPECT_EQ(edit.GetWindowText(), L"hello there");
  edit.SetSel(-1, 0);
  edit.GetSel(start, end);
  EXPECT_EQ(start, end);
  EXPECT_EQ(changes, 2);
  edit.LimitText(0);
  EXPECT_EQ(edit.GetLimitText(), CQxUiEdit::kLargestLimit);
}

TEST_F(ControlTest, ColourComboKeepsRecentColoursAheadOfTheAskingLine) {
  CQxUiColorComboBox colours;
  make(colours, ui::ControlKind::ComboBox);
  ASSERT_EQ(colours.GetCount(), 10);
  EXPECT_EQ(colours.FindItemByColorIndex(256), 0);
  EXPECT_EQ(colours.FindItemByColorIndex(0), 1);
  EXPECT_EQ(colours.AddColorToMRU(30), 9);
  EXPECT_EQ(colours.AddColorToMRU(30), 9);
  EXPECT_EQ(colours.GetItemData(10), CQxUiColorComboBox::kAskForColor);
  EXPECT_EQ(colours.AddColorToMRU(300), kQxUiListError);
  colours.SetCurrentItemColorIndex(5);
  EXPECT_EQ(colours.GetWindowText(), L"Blue");
  EXPECT_EQ(colours.GetCurrentItemColorIndex(), 5);
  colours.SetCurSel(10);
  EXPECT_EQ(colours.GetCurrentItemColorIndex(), -1);
}

TEST_F(DialogTest, MenusComeFromTheResources) {
  CQxUiMenu menu;
  EXPECT_FALSE(menu.LoadMenu(4242));
  ASSERT_TRUE(menu.LoadMenu(kTestMenuId));
  EXPECT_EQ(menu.GetMenuItemID(0), 0u);
  CQxUiMenu* popup = menu.GetSubMenu(0);
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(popup->GetMenuItemCount(), 4);
  EXPECT_EQ(popup->GetMenuItemID(2), 0u);
  EXPECT_EQ(popup->GetMenuItemID(3), kSelectAllItem);
  // Items are found by id in submenus too.
  EXPECT_TRUE(menu.EnableMenuItem(kHoldItem, false));
  EXPECT_FALSE(popup->IsMenuItemEnabled(kHoldItem));
  EXPECT_FALSE(menu.EnableMenuItem(4242, false));
  EXPECT_TRUE(popup->CheckMenuItem(kReleaseItem, true));
  EXPECT_TRUE(popup->IsMenuItemChecked(kReleaseItem));

  // The user names an item by its text, without access key and shortcut.
  script("menu select ALL\n");
  CQxUiDialog owner(kTestDialogId);
  EXPECT_EQ(popup->TrackPopupMenu({10, 20}, owner, true), kSelectAllItem);
  const std::string transcript = takeTranscript();
  EXPECT_NE(transcript.find("Menu at 10,20:"), std::string::npos);
  EXPECT_NE(transcript.find("9101 \"Hold\" disabled"), std::string::npos);
  EXPECT_NE(transcript.find("9102 \"Release\" checked"), std::string::npos);
  // The end of the input closes the menu.
  EXPECT_EQ(popup->TrackPopupMenu({0, 0}, owner), 0u);
}

TEST_F(DialogTest, MessageBoxTakesTheNameOfAButton) {
  script("maybe\nYES\n");
  EXPECT_EQ(qxuiMessageBox(L"Replace it?", L"Layers", QxMessageBoxButtons::YesNo),
            QxMessageBoxResult::Yes);
  const std::string transcript = takeTranscript();
  EXPECT_NE(transcript.find("** Layers **\nReplace it?\nYes or No? maybe\nAnswer Yes or No."),
            std::string::npos)
      << transcript;

  script("\n");
  EXPECT_EQ(qxuiMessageBox(L"Done.", nullptr), QxMessageBoxResult::Ok);
  script("cancel\n");
  EXPECT_EQ(qxuiMessageBox(L"Save?", L"", QxMessageBoxButtons::YesNoCancel),
            QxMessageBoxResult::Cancel);
  // Without an answer the box gives what closing it gives.
  EXPECT_EQ(qxuiMessageBox(L"Replace it?", L"", QxMessageBoxButtons::YesNo),
            QxMessageBoxResult::No);
  EXPECT_EQ(qxuiMessageBox(L"Go on?", L"", QxMessageBoxButtons::OkCancel),
            QxMessageBoxResult::Cancel);
  EXPECT_EQ(qxuiMessageBox(L"Done.", L""), QxMessageBoxResult::Ok);
}

TEST(ExtensionModules, LibraryRecordsAttachResourcesUntilTheModuleEnds) {
  int instance = 0;
  int resources = 0;
  int other = 0;
  QxUiExtensionModule module;
  EXPECT_FALSE(qxuiInitExtensionModule(module, nullptr));
  ASSERT_TRUE(qxuiInitExtensionModule(module, &instance));
  EXPECT_FALSE(qxuiInitExtensionModule(module, &instance));

  new CQxUiDynamicLinkLibrary(module);
  EXPECT_TRUE(ui::extensionResourceHandles().empty());  // no resources set yet
  module.resources = &resources;
  new CQxUiDynamicLinkLibrary(module, &other);
  EXPECT_EQ(ui::extensionResourceHandles(), (std::vector<QxModuleHandle>{&resources, &other}));

  qxuiTermExtensionModule(module);
  EXPECT_TRUE(ui::extensionResourceHandles().empty());
  EXPECT_FALSE(module.initialized);
  EXPECT_TRUE(qxuiInitExtensionModule(module, &instance));
  qxuiTermExtensionModule(module);
}

}  // namespace
}  // namespace korva::testing
