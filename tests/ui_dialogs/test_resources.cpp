#include "test_resources.h"

namespace korva::testing {
namespace {

ui::ControlTemplate control(unsigned id, ui::ControlKind kind, std::wstring caption, int x, int y,
                            int width, int height) {
  ui::ControlTemplate line;
  line.id = id;
  line.kind = kind;
  line.caption = std::move(caption);
  line.x = x;
  line.y = y;
  line.width = width;
  line.height = height;
  return line;
}

ui::MenuItem item(unsigned id, std::wstring text) {
  ui::MenuItem menuItem;
  menuItem.id = id;
  menuItem.text = std::move(text);
  return menuItem;
}

}  // namespace

ui::ResourceModule makeTestResources() {
  using Kind = ui::ControlKind;
  ui::DialogTemplate dialog;
  dialog.id = kTestDialogId;
  dialog.title = L"Test";
  dialog.x = 20;
  dialog.y = 20;
  dialog.width = 240;
  dialog.height = 200;
  auto& controls = dialog.controls;
  controls.push_back(control(kNoId, Kind::Static, L"&Name:", 5, 5, 30, 8));
  controls.push_back(control(101, Kind::Edit, L"", 40, 5, 100, 12));
  controls.push_back(control(1, Kind::DefaultButton, L"OK", 180, 5, 50, 14));
  controls.push_back(control(2, Kind::Button, L"Cancel", 180, 22, 50, 14));
  controls.push_back(control(102, Kind::CheckBox, L"&Log", 5, 20, 60, 10));
  controls.push_back(control(103, Kind::RadioButton, L"&First", 5, 32, 60, 10));
  controls.back().style.groupStart = true;
  controls.push_back(control(104, Kind::RadioButton, L"&Second", 5, 44, 60, 10));
  controls.push_back(control(105, Kind::ListBox, L"", 5, 60, 100, 48));
  controls.back().style.multipleSelection = true;
  controls.back().style.groupStart = true;
  controls.push_back(control(106, Kind::ListBox, L"", 110, 60, 60, 48));
  controls.back().style.sorted = true;
  controls.push_back(control(107, Kind::ComboBox, L"", 5, 112, 60, 60));
  controls.push_back(control(108, Kind::ComboBox, L"", 70, 112, 60, 60));
  controls.back().style.editable = true;
  controls.push_back(control(109, Kind::CheckListBox, L"", 135, 112, 60, 40));
  controls.push_back(control(110, Kind::OwnerDrawnButton, L"Colour", 5, 130, 50, 14));
  controls.push_back(control(111, Kind::GroupBox, L"&Options", 60, 150, 100, 40));
  controls.push_back(control(112, Kind::Static, L"Ready", 65, 160, 40, 8));
  controls.push_back(control(113, Kind::Icon, L"", 110, 160, 10, 10));
  controls.push_back(control(114, Kind::ComboBox, L"", 125, 160, 60, 60));
  controls.push_back(control(115, Kind::Button, L"&Pick <", 180, 40, 50, 14));
  controls.push_back(control(116, Kind::Edit, L"fixed", 180, 60, 50, 12));
  controls.back().style.readOnly = true;
  controls.push_back(control(9, Kind::Button, L"Help", 180, 180, 50, 14));

  ui::MenuTemplate menu;
  menu.id = kTestMenuId;
  ui::MenuItem popup;
  popup.text = L"List";
  popup.popup.push_back(item(kHoldItem, L"&Hold"));
  popup.popup.push_back(item(kReleaseItem, L"&Release"));
  ui::MenuItem separator;
  separator.separator = true;
  popup.popup.push_back(separator);
  popup.popup.push_back(item(kSelectAllItem, L"Select &all\tCtrl+A"));
  menu.items.push_back(popup);

  ui::ResourceModule resources;
  resources.dialogs[dialog.id] = dialog;
  resources.menus[menu.id] = menu;
  return resources;
}

}  // namespace korva::testing
