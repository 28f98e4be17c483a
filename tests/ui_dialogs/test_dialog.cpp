#include "test_dialog.h"

#include <algorithm>

#include "qx_input.h"
#include "qx_print.h"
#include "test_resources.h"

namespace korva::testing {

void HoldingListBox::OnRightButtonDown(QxUiPoint point) {
  ClientToScreen(point);
  GetParent()->PostMessage(kMenuMessage, 0, qxuiPackPoint(point));
}

void HoldingListBox::OnLeftButtonDoubleClick(QxUiPoint point) {
  bool outside = false;
  const int line = ItemFromPoint(point, outside);
  if (!outside) GetParent()->PostMessage(kHoldMessage, static_cast<std::uintptr_t>(line));
}

TestDialog::TestDialog() : CHyUiBaseDialog(kTestDialogId) {
  BindControl(105, layers);
  BindControl(114, colours);

  HandleCommand(101, QxUiNotification::Changed,
                [this] { record(L"changed 101: " + GetDlgItemText(101)); });
  HandleCommand(101, QxUiNotification::KillFocus, [this] {
    textAtKillFocus = GetDlgItemText(101);
    record(L"killfocus 101");
  });
  HandleCommand(102, QxUiNotification::Clicked, [this] {
    GetDlgItem(108)->EnableWindow(IsDlgButtonChecked(102) == 1);
    record(L"clicked 102: " + std::to_wstring(IsDlgButtonChecked(102)));
  });
  HandleCommandRange(103, 104, QxUiNotification::Clicked,
                     [this](unsigned id) { record(L"clicked " + std::to_wstring(id)); });
  HandleCommand(105, QxUiNotification::SelectionChanged, [this] {
    std::wstring lines;
    for (int line : layers.GetSelItems()) lines += L" " + std::to_wstring(line);
    record(L"selection 105:" + lines);
  });
  HandleCommand(106, QxUiNotification::SelectionChanged, [this] {
    auto* list = static_cast<CQxUiListBox*>(GetDlgItem(106));
    record(L"selection 106: " + list->GetText(list->GetCurSel()));
  });
  HandleCommand(107, QxUiNotification::SelectionEnded, [this] { record(L"chosen 107"); });
  HandleCommand(107, QxUiNotification::SelectionChanged,
                [this] { record(L"selection 107: " + GetDlgItemText(107)); });
  HandleCommand(108, QxUiNotification::Changed,
                [this] { record(L"changed 108: " + GetDlgItemText(108)); });
  HandleCommand(109, QxUiNotification::CheckChanged, [this] { record(L"check 109"); });
  HandleCommand(109, QxUiNotification::SelectionChanged, [this] {
    auto* list = static_cast<CQxUiCheckListBox*>(GetDlgItem(109));
    const int line = list->GetCurSel();
    record(L"selection 109: " + std::to_wstring(line) + L" checked " +
           std::to_wstring(list->GetCheck(line)));
  });
  HandleCommand(110, QxUiNotification::Clicked, [this] { record(L"clicked 110"); });
  HandleCommand(114, QxUiNotification::SelectionChanged, [this] {
    record(L"colour 114: " + std::to_wstring(colours.GetCurrentItemColorIndex()));
  });
  HandleCommand(115, QxUiNotification::Clicked, [this] { pickLayer(); });

  HandleCommand(kHoldItem, QxUiNotification::Clicked, [this] {
    for (int line : layers.GetSelItems()) {
      const std::wstring text = layers.GetText(line);
      if (text.starts_with(L"*")) continue;
      layers.DeleteString(line);
      layers.InsertString(line, L"*" + text);
      layers.SetSel(line, true);
    }
    record(L"hold");
  });
  HandleCommand(kReleaseItem, QxUiNotification::Clicked, [this] {
    for (int line : layers.GetSelItems()) {
      const std::wstring text = layers.GetText(line);
      if (!text.starts_with(L"*")) continue;
      layers.DeleteString(line);
      layers.InsertString(line, text.substr(1));
      layers.SetSel(line, true);
    }
    record(L"release");
  });
  HandleCommand(kSelectAllItem, QxUiNotification::Clicked, [this] {
    layers.SelItemRange(true, 0, layers.GetCount() - 1);
    record(L"select all");
  });

  HandleMessage(kMenuMessage, [this](std::uintptr_t, std::intptr_t point) {
    showContextMenu(qxuiUnpackPoint(point));
    return 0;
  });
  HandleMessage(kHoldMessage, [this](std::uintptr_t line, std::intptr_t) {
    toggleHold(static_cast<int>(line));
    return 0;
  });
  // Alt+O goes to the name, ahead of the dialog's own access keys.
  HandleMessage(kQxUiMessageSystemKeyDown, [this](std::uintptr_t key, std::intptr_t flags) {
    if ((flags & kQxUiAltHeld) == 0 || key != L'O') return std::intptr_t{0};
    GotoDlgCtrl(GetDlgItem(101));
    record(L"alt O");
    return std::intptr_t{1};
  });
  HandleMessage(kQxUiMessageGetMinMaxInfo, [](std::uintptr_t, std::intptr_t limits) {
    reinterpret_cast<QxUiMinMaxInfo*>(limits)->minTrackSize = {160, 120};
    return std::intptr_t{0};
  });
  // The layer list follows the dialog's width.
  HandleMessage(kQxUiMessageSize, [this](std::uintptr_t, std::intptr_t size) {
    const QxUiPoint client = qxuiUnpackPoint(size);
    const QxUiRect list = layers.GetPlacement();
    layers.MoveWindow(list.left, list.top, client.x - 140, list.Height());
    record(L"size " + std::to_wstring(client.x) + L"x" + std::to_wstring(client.y));
    return std::intptr_t{0};
  });
}

void TestDialog::record(std::wstring event) {
  qxutPrintf(L"\n[%ls]", event.c_str());
  events.push_back(std::move(event));
}

bool TestDialog::OnInitDialog() {
  SetWindowText(L"Layers - 3");
  SetIcon(2387);
  GetDlgItem(9)->ShowWindow(false);
  static_cast<CQxUiEdit*>(GetDlgItem(101))->LimitText(12);
  for (const wchar_t* layer : {L"0", L"WALLS", L"DOORS"}) layers.AddString(layer);
  layers.SetSel(0, true);
  layers.SetSel(2, true);
  auto* scales = static_cast<CQxUiListBox*>(GetDlgItem(106));
  for (const wchar_t* text : {L"Metric", L"imperial", L"Custom"}) scales->AddString(text);
  auto* units = static_cast<CQxUiComboBox*>(GetDlgItem(107));
  for (const wchar_t* text : {L"Inches", L"Feet", L"Meters"}) units->AddString(text);
  auto* filters = static_cast<CQxUiComboBox*>(GetDlgItem(108));
  for (const wchar_t* text : {L"A*", L"B?"}) filters->AddString(text);
  auto* properties = static_cast<CQxUiCheckListBox*>(GetDlgItem(109));
  for (const wchar_t* text : {L"Colour", L"Layer", L"Linetype"}) properties->AddString(text);
  properties->SetCheck(0, 1);
  colours.SetCurrentItemColorIndex(3);
  return CHyUiBaseDialog::OnInitDialog();
}

void TestDialog::DoDataExchange(CQxUiDataExchange& exchange) {
  exchange.Text(101, name);
  exchange.Check(102, log);
  exchange.Radio(103, order);
  exchange.ComboIndex(107, unit);
  exchange.ComboText(108, filter);
  exchange.ListIndex(106, scale);
}

void TestDialog::OnOK() {
  if (!UpdateData(true)) return;
  if (name.empty()) {
    qxuiMessageBox(L"Enter a name.", GetWindowText().c_str());
    GotoDlgCtrl(GetDlgItem(101));
    return;
  }
  EndDialog(kQxUiIdOk);
}

void TestDialog::OnCancel() {
  if (askOnCancel && qxuiMessageBox(L"Discard the changes?", GetWindowText().c_str(),
                                    QxMessageBoxButtons::YesNo) != QxMessageBoxResult::Yes) {
    return;
  }
  EndDialog(kQxUiIdCancel);
}

void TestDialog::showContextMenu(QxUiPoint point) {
  CQxUiMenu menu;
  if (!menu.LoadMenu(kTestMenuId)) return;
  CQxUiMenu* popup = menu.GetSubMenu(0);
  bool held = false;
  bool plain = false;
  for (int line : layers.GetSelItems()) {
    (layers.GetText(line).starts_with(L"*") ? held : plain) = true;
  }
  popup->EnableMenuItem(kHoldItem, plain);
  popup->EnableMenuItem(kReleaseItem, held);
  popup->EnableMenuItem(kSelectAllItem, layers.GetSelCount() < layers.GetCount());
  popup->TrackPopupMenu(point, *this);
}

void TestDialog::toggleHold(int line) {
  const std::wstring text = layers.GetText(line);
  layers.DeleteString(line);
  layers.InsertString(line, text.starts_with(L"*") ? text.substr(1) : L"*" + text);
  layers.SetSel(line, true);
  record(L"toggled " + std::to_wstring(line));
}

void TestDialog::pickLayer() {
  BeginEditorCommand();
  record(IsWindowVisible() ? L"pick: shown" : L"pick: hidden");
  wchar_t answer[64];
  if (qxedGetString(0, L"\nLayer to add: ", answer, 64) == RTNORM && answer[0] != L'\0') {
    layers.AddString(answer);
  }
  CompleteEditorCommand();
}

}  // namespace korva::testing
