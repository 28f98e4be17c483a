// The resource source reader: every statement of the test file, and faults that name
// their line.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "api/utf8.h"
#include "ui/resource_module.h"
#include "ui_fixture.h"

namespace korva::test {
namespace {

using ui::ControlKind;
using ui::ControlTemplate;
using ui::ResourceModule;

const char* kindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::Static:
      return "static";
    case ControlKind::Edit:
      return "edit";
    case ControlKind::Button:
      return "button";
    case ControlKind::DefaultButton:
      return "default";
    case ControlKind::CheckBox:
      return "check";
    case ControlKind::RadioButton:
      return "radio";
    case ControlKind::ListBox:
      return "list";
    case ControlKind::ComboBox:
      return "combo";
    case ControlKind::CheckListBox:
      return "checklist";
    case ControlKind::OwnerDrawnButton:
      return "ownerdrawn";
    case ControlKind::GroupBox:
      return "group";
    case ControlKind::Icon:
      return "icon";
    case ControlKind::Dialog:
      return "dialog";
  }
  return "?";
}

// "kind id "caption" x,y,w,h" and the styles that differ from a plain control.
std::string describe(const ControlTemplate& control) {
  std::string text = std::string(kindName(control.kind)) + " " + std::to_string(control.id) +
                     " \"" + api::toUtf8(control.caption) + "\" " + std::to_string(control.x) +
                     "," + std::to_string(control.y) + "," + std::to_string(control.width) + "," +
                     std::to_string(control.height);
  const ui::ControlStyle& style = control.style;
  if (style.multipleSelection) text += " multiple";
  if (style.editable) text += " editable";
  if (style.sorted) text += " sorted";
  if (style.readOnly) text += " readonly";
  if (style.multiline) text += " multiline";
  if (style.password) text += " password";
  if (style.disabled) text += " disabled";
  if (style.hidden) text += " hidden";
  if (style.groupStart) text += " group";
  return text;
}

class ResourceReaderTest : public UiServicesTest {
 protected:
  // Reads source text; the error when it doesn't read, else "".
  std::string readError(const std::string& text) {
    ResourceModule module;
    std::string error;
    const auto path = writeFile("broken.rc", text);
    if (module.read(path, error)) return "";
    // The path stands before the message; the message is what the tests compare.
    const std::string prefix = path.string() + ": ";
    EXPECT_TRUE(error.starts_with(prefix)) << error;
    return error.substr(prefix.size());
  }
};

TEST_F(ResourceReaderTest, ReadsStringsWithTheirEscapes) {
  ResourceModule module;
  std::string error;
  ASSERT_TRUE(module.read(KORVA_TEST_RESOURCES, error)) << error;
  EXPECT_STREQ(module.string(100), L"Plain text");
  EXPECT_STREQ(module.string(101), L"Line one\nLine two\tTabbed \\ \"quoted\" \"doubled\"");
  EXPECT_STREQ(module.string(102), L"Joined from two");
  EXPECT_STREQ(module.string(103), L"Größe ±0.5");
  EXPECT_STREQ(module.string(104), L"Hexadecimal id");
  EXPECT_STREQ(module.string(105), L"");
  EXPECT_EQ(module.string(106), nullptr);
  EXPECT_EQ(module.strings.size(), 6u);
}

TEST_F(ResourceReaderTest, ReadsDialogsWithEveryControlKind) {
  ResourceModule module;
  std::string error;
  ASSERT_TRUE(module.read(KORVA_TEST_RESOURCES, error)) << error;
  const ui::DialogTemplate* dialog = module.dialog(300);
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->title, L"Every control");
  EXPECT_EQ(dialog->width, 240);
  EXPECT_EQ(dialog->height, 160);
  std::vector<std::string> controls;
  for (const ControlTemplate& control : dialog->controls) controls.push_back(describe(control));
  const std::vector<std::string> expected{
      "static 65535 \"&Name:\" 7,7,40,8",
      "edit 301 \"\" 50,7,100,12 readonly",
      "edit 303 \"\" 50,22,100,40 multiline password hidden",
      "list 302 \"\" 7,66,80,50 multiple sorted",
      "combo 304 \"\" 95,66,60,50 sorted",
      "combo 305 \"\" 95,82,60,50 editable",
      "combo 306 \"\" 95,98,60,50 editable",
      "check 307 \"&Visible\" 160,7,70,10 disabled",
      "radio 308 \"&First\" 160,20,70,10 group",
      "radio 309 \"&Second\" 160,32,70,10",
      "group 65535 \"Options\" 155,0,80,50",
      "checklist 310 \"\" 160,55,70,40",
      "ownerdrawn 311 \"Colour\" 160,100,70,14",
      "check 312 \"Keep\" 160,116,70,10",
      "icon 313 \"400\" 7,120,0,0",
      "icon 314 \"\" 30,120,20,20",
      "default 1 \"OK\" 130,140,50,14",
      "button 2 \"Cancel\" 185,140,50,14",
  };
  EXPECT_EQ(controls, expected);

  const ui::DialogTemplate* old = module.dialog(500);
  ASSERT_NE(old, nullptr);
  EXPECT_EQ(old->title, L"Old form");
  EXPECT_EQ(old->x, 10);
  EXPECT_EQ(old->y, 20);
  ASSERT_EQ(old->controls.size(), 1u);
  EXPECT_EQ(describe(old->controls[0]), "static 65535 \"Right\" 0,0,50,8");
  EXPECT_EQ(module.dialog(301), nullptr);
}

TEST_F(ResourceReaderTest, ReadsMenusAndIcons) {
  ResourceModule module;
  std::string error;
  ASSERT_TRUE(module.read(KORVA_TEST_RESOURCES, error)) << error;
  const ui::MenuTemplate* menu = module.menu(400);
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->items.size(), 1u);
  const ui::MenuItem& layers = menu->items[0];
  EXPECT_EQ(layers.text, L"Layers");
  ASSERT_EQ(layers.popup.size(), 4u);
  EXPECT_EQ(layers.popup[0].id, 401u);
  EXPECT_TRUE(layers.popup[0].checked);
  EXPECT_FALSE(layers.popup[0].grayed);
  EXPECT_EQ(layers.popup[1].text, L"&Release");
  EXPECT_TRUE(layers.popup[1].grayed);
  EXPECT_TRUE(layers.popup[2].separator);
  ASSERT_EQ(layers.popup[3].popup.size(), 1u);
  EXPECT_EQ(layers.popup[3].popup[0].id, 403u);
  EXPECT_TRUE(module.hasIcon(400));
  EXPECT_FALSE(module.hasIcon(401));
  EXPECT_EQ(module.icons.at(400), L"layers.ico");
}

TEST_F(ResourceReaderTest, FaultsNameTheirLine) {
  const std::pair<std::string, std::string> cases[] = {
      {"STRINGTABLE\nBEGIN\n  1 \"open\nEND\n", "line 3: a string that is not closed on its line"},
      {"STRINGTABLE BEGIN\n 1 \"a\\qb\" END", "line 2: an unknown escape '\\q'"},
      {"// two\nSTRINGTABLE BEGIN\n 1 \"a\"\n 1 \"b\"\nEND",
       "line 4: string 1 is defined twice (first on line 3)"},
      {"STRINGTABLE BEGIN\n 70000 \"a\"\nEND", "line 2: the id 70000 is not in 0-65535"},
      {"STRINGTABLE BEGIN 1 \"a\"", "line 1: the STRINGTABLE is never closed with END"},
      {"\n\nIDD_MISSING DIALOGEX 0, 0, 10, 10\nBEGIN\nEND",
       "line 3: unknown name 'IDD_MISSING' (give it a value with #define)"},
      {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  LISTBOX 2, 0, 0, 5, 5, LBS_EXTENDSEL\nEND",
       "line 3: unknown style word 'LBS_EXTENDSEL'"},
      {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  CONTROL \"\", 2, \"SysTreeView32\", 0, 0, 0, 5, 5\nEND",
       "line 3: unknown control class 'SysTreeView32'"},
      {"1 DIALOGEX 0, 0 10, 10\nBEGIN\nEND", "line 1: expected ',' after the y position, found 10"},
      {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  SCROLLBAR 2, 0, 0, 5, 5\nEND",
       "line 3: expected a control statement (LTEXT, EDITTEXT, PUSHBUTTON, CONTROL ...) or "
       "END, found 'SCROLLBAR'"},
      {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  LTEXT \"a\", 2, 0, 0, 5, 5\n",
       "line 3: the dialog is never closed with END"},
      {"1 MENU\nBEGIN\n  MENUITEM \"a\" 2\nEND",
       "line 3: expected ',' after the item's text, found 2"},
      {"\n1 BITMAP \"a.bmp\"", "line 2: unsupported resource type 'BITMAP'"},
      {"#include \"resource.h\"", "line 1: '#include' is not supported"},
      {"#define A 1\n#define A 2", "line 2: A is defined again with another value"},
      {"#define B x1", "line 1: the value of B must be a number or a defined name, not 'x1'"},
      {"1 ICON\n\n/* never\nclosed", "line 3: a comment that is never closed with */"},
      {"STRINGTABLE BEGIN\n 1 \"\xff\"\nEND", "line 2: the text is not UTF-8"},
      {"STRINGTABLE BEGIN 1 \"a\" END\n12abc", "line 2: a malformed number '12abc'"},
      {"STRINGTABLE BEGIN 1 \"a\" END\n@", "line 2: unexpected character '@'"},
  };
  for (const auto& [text, expected] : cases) {
    const std::string error = readError(text);
    EXPECT_TRUE(error.starts_with(expected)) << "source:\n" << text << "\ngave: " << error;
  }
}

// The module's own source, which every subsystem adds to, must always read.
TEST_F(ResourceReaderTest, TheModulesSourceReads) {
  ResourceModule module;
  std::string error;
  EXPECT_TRUE(module.read(KORVA_MODULE_RESOURCES, error)) << error;
}

TEST_F(ResourceReaderTest, AFailedReadKeepsWhatWasThere) {
  ResourceModule module;
  std::string error;
  ASSERT_TRUE(module.read(writeFile("good.rc", "STRINGTABLE BEGIN 7 \"kept\" END"), error));
  EXPECT_FALSE(module.read(writeFile("bad.rc", "STRINGTABLE BEGIN 8 \"lost\" 8 \"x\" END"), error));
  EXPECT_STREQ(module.string(7), L"kept");
  EXPECT_EQ(module.string(8), nullptr);
  EXPECT_EQ(module.source(), scratch_ / "good.rc");
  EXPECT_FALSE(module.read(scratch_ / "absent.rc", error));
  EXPECT_NE(error.find("can't be read"), std::string::npos);
}

}  // namespace
}  // namespace korva::test
