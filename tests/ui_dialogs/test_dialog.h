// A dialog with one control of each kind, whose handlers record what reaches them, as
// the module's dialogs use the dialog layer: data exchange, a list box of its own with
// a context menu and double clicks, Alt keys, resizing, and picking at the command line.
#pragma once

#include <string>
#include <vector>

#include "qx_ui_dialog.h"

namespace korva::testing {

// The layer list: a right click asks the dialog for its menu (message 0x464 with the
// point), a double click toggles the line's hold (message 0x465 with the line).
class HoldingListBox : public CQxUiListBox {
 public:
  void OnRightButtonDown(QxUiPoint point) override;
  void OnLeftButtonDoubleClick(QxUiPoint point) override;
};

constexpr unsigned kMenuMessage = 0x464;
constexpr unsigned kHoldMessage = 0x465;

class TestDialog : public CHyUiBaseDialog {
 public:
  TestDialog();

  // Fields exchanged with the controls.
  std::wstring name = L"Walls";
  int log = 1;
  int order = 0;
  int unit = 2;
  std::wstring filter = L"A*";
  int scale = 0;
  // Cancel asks first, when set.
  bool askOnCancel = false;

  // What reached the handlers, in order ("changed 101", "clicked 102" ...).
  std::vector<std::wstring> events;
  // The text of edit 101 when it last lost the focus.
  std::wstring textAtKillFocus;

  HoldingListBox layers;
  CQxUiColorComboBox colours;

  bool OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  void DoDataExchange(CQxUiDataExchange& exchange) override;

 private:
  void record(std::wstring event);
  void showContextMenu(QxUiPoint point);
  void toggleHold(int line);
  void pickLayer();
};

}  // namespace korva::testing
