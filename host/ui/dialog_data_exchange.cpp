// Data exchange between a dialog's controls and its fields.
#include <cstdint>
#include <cwchar>

#include "qx_ui_dialog.h"
#include "ui/dialog_input.h"

namespace {

std::wstring trimmed(const std::wstring& text) {
  const size_t first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos) return {};
  const size_t last = text.find_last_not_of(L" \t");
  return text.substr(first, last - first + 1);
}

std::wstring formatReal(double value) {
  wchar_t buffer[64];
  std::swprintf(buffer, 64, L"%.15g", value);
  return buffer;
}

}  // namespace

CQxUiDataExchange::CQxUiDataExchange(CQxUiDialog& dialog, bool saveAndValidate)
    : dialog_(dialog), saving_(saveAndValidate) {}

CQxUiWnd* CQxUiDataExchange::Find(unsigned id) {
  if (failed_) return nullptr;
  CQxUiWnd* window = dialog_.GetDlgItem(id);
  if (window == nullptr) {
    // A dialog's code names a control its template lacks: a fault of the dialog.
    korva::ui::printLine(L"Dialog " + std::to_wstring(dialog_.GetTemplateId()) +
                         L" has no control " + std::to_wstring(id) + L".");
    failed_ = true;
  }
  return window;
}

void CQxUiDataExchange::Fail(unsigned id, const std::wstring& message) {
  if (failed_) return;
  failed_ = true;
  qxuiMessageBox(message.c_str(), dialog_.GetWindowText().c_str());
  if (CQxUiWnd* window = dialog_.GetDlgItem(id)) dialog_.GotoDlgCtrl(window);
}

void CQxUiDataExchange::Text(unsigned id, std::wstring& value) {
  CQxUiWnd* window = Find(id);
  if (window == nullptr) return;
  if (saving_) {
    value = window->GetWindowText();
  } else {
    window->SetWindowText(value);
  }
}

void CQxUiDataExchange::Text(unsigned id, int& value) {
  CQxUiWnd* window = Find(id);
  if (window == nullptr) return;
  if (!saving_) {
    window->SetWindowText(std::to_wstring(value));
    return;
  }
  const std::wstring text = trimmed(window->GetWindowText());
  wchar_t* end = nullptr;
  const long read = std::wcstol(text.c_str(), &end, 10);
  if (text.empty() || *end != L'\0' || read < INT32_MIN || read > INT32_MAX) {
    Fail(id, L"Enter a whole number.");
    return;
  }
  value = static_cast<int>(read);
}

void CQxUiDataExchange::Text(unsigned id, double& value) {
  CQxUiWnd* window = Find(id);
  if (window == nullptr) return;
  if (!saving_) {
    window->SetWindowText(formatReal(value));
    return;
  }
  const std::wstring text = trimmed(window->GetWindowText());
  wchar_t* end = nullptr;
  const double read = std::wcstod(text.c_str(), &end);
  if (text.empty() || *end != L'\0') {
    Fail(id, L"Enter a number.");
    return;
  }
  value = read;
}

void CQxUiDataExchange::Check(unsigned id, int& value) {
  auto* button = dynamic_cast<CQxUiButton*>(Find(id));
  if (button == nullptr) return;
  if (saving_) {
    value = button->GetCheck();
  } else {
    button->SetCheck(value);
  }
}

void CQxUiDataExchange::Radio(unsigned firstId, int& index) {
  if (Find(firstId) == nullptr) return;
  // The group: from the first button to the next one that starts a group.
  std::vector<CQxUiButton*> group;
  bool inGroup = false;
  for (CQxUiWnd* window : dialog_.GetControls()) {
    if (window->GetDlgCtrlID() == firstId) {
      inGroup = true;
    } else if (inGroup && (window->GetKind() != QxUiControlKind::RadioButton ||
                           window->GetControlStyle().groupStart)) {
      break;
    }
    if (inGroup) group.push_back(dynamic_cast<CQxUiButton*>(window));
  }
  if (saving_) {
    index = -1;
    for (size_t position = 0; position < group.size(); ++position) {
      if (group[position] != nullptr && group[position]->GetCheck() == 1) {
        index = static_cast<int>(position);
        break;
      }
    }
    return;
  }
  for (size_t position = 0; position < group.size(); ++position) {
    if (group[position] != nullptr) {
      group[position]->SetCheck(static_cast<int>(position) == index ? 1 : 0);
    }
  }
}

void CQxUiDataExchange::ComboIndex(unsigned id, int& index) {
  auto* combo = dynamic_cast<CQxUiComboBox*>(Find(id));
  if (combo == nullptr) return;
  if (saving_) {
    index = combo->GetCurSel();
  } else {
    combo->SetCurSel(index);
  }
}

void CQxUiDataExchange::ComboText(unsigned id, std::wstring& value) {
  auto* combo = dynamic_cast<CQxUiComboBox*>(Find(id));
  if (combo == nullptr) return;
  if (saving_) {
    value = combo->GetWindowText();
  } else if (combo->GetControlStyle().editable) {
    combo->SetWindowText(value);
  } else {
    combo->SetCurSel(combo->FindStringExact(-1, value));
  }
}

void CQxUiDataExchange::ListIndex(unsigned id, int& index) {
  auto* list = dynamic_cast<CQxUiListBox*>(Find(id));
  if (list == nullptr) return;
  if (saving_) {
    index = list->GetCurSel();
  } else {
    list->SetCurSel(index);
  }
}

void CQxUiDataExchange::ListText(unsigned id, std::wstring& value) {
  auto* list = dynamic_cast<CQxUiListBox*>(Find(id));
  if (list == nullptr) return;
  if (saving_) {
    value = list->GetText(list->GetCurSel());
  } else {
    list->SetCurSel(list->FindStringExact(-1, value));
  }
}

void CQxUiDataExchange::Control(unsigned id, CQxUiWnd& control) {
  if (saving_ || Find(id) == nullptr) return;
  dialog_.BindControl(id, control);
}
