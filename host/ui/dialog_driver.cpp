// The dialog driver's loop and the reading of action lines.
#include "ui/dialog_driver.h"

#include <algorithm>
#include <cwchar>
#include <optional>

#include "ui/control_items.h"
#include "ui/dialog_access.h"
#include "ui/dialog_actions.h"
#include "ui/dialog_input.h"
#include "ui/dialog_show.h"

namespace korva::ui {
namespace {

constexpr const wchar_t* kPrompt = L"\nDialog> ";

constexpr const wchar_t* kHelp =
    L"Dialog actions:\n"
    L"  show                      the dialog and its controls\n"
    L"  set ID TEXT               type TEXT into an edit or editable combo box\n"
    L"  check ID 0|1              clear or check a check box; check a radio button\n"
    L"  check ID LINE 0|1         clear or tick a line of a check list box\n"
    L"  select ID LINE[,LINE...]  select lines of a list or combo box (from 0; none)\n"
    L"  select ID \"TEXT\"          select the line with that text\n"
    L"  click ID                  press a button\n"
    L"  dblclick ID LINE          double-click a line of a list box\n"
    L"  rclick ID                 right-click a control; then menu ID or menu cancel\n"
    L"  key ALT+LETTER|ENTER|ESC  press a key\n"
    L"  size WIDTH HEIGHT         resize the dialog (dialog units)";

struct Split {
  std::wstring word;
  std::wstring rest;
};

std::wstring trimmed(const std::wstring& text) {
  const size_t first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos) return {};
  const size_t last = text.find_last_not_of(L" \t");
  return text.substr(first, last - first + 1);
}

Split splitWord(const std::wstring& text) {
  const std::wstring whole = trimmed(text);
  const size_t blank = whole.find_first_of(L" \t");
  if (blank == std::wstring::npos) return {whole, {}};
  return {whole.substr(0, blank), trimmed(whole.substr(blank))};
}

bool isQuoted(const std::wstring& text) {
  return text.size() >= 2 && text.front() == L'"' && text.back() == L'"';
}

std::wstring unquoted(const std::wstring& text) {
  return isQuoted(text) ? text.substr(1, text.size() - 2) : text;
}

std::optional<int> parseInteger(const std::wstring& text) {
  if (text.empty()) return std::nullopt;
  wchar_t* end = nullptr;
  const long value = std::wcstol(text.c_str(), &end, 10);
  if (*end != L'\0' || value < -1000000 || value > 1000000) return std::nullopt;
  return static_cast<int>(value);
}

// Numbers separated by blanks.
std::optional<std::vector<int>> parseNumbers(const std::wstring& text) {
  std::vector<int> numbers;
  Split split = splitWord(text);
  while (!split.word.empty()) {
    const std::optional<int> number = parseInteger(split.word);
    if (!number) return std::nullopt;
    numbers.push_back(*number);
    split = splitWord(split.rest);
  }
  return numbers;
}

// Elements separated by commas outside double quotes.
std::vector<std::wstring> commaSeparated(const std::wstring& text) {
  std::vector<std::wstring> elements(1);
  bool inQuotes = false;
  for (wchar_t c : text) {
    if (c == L'"') inQuotes = !inQuotes;
    if (c == L',' && !inQuotes) {
      elements.emplace_back();
    } else {
      elements.back() += c;
    }
  }
  for (std::wstring& element : elements) element = trimmed(element);
  return elements;
}

int findLine(const CQxUiWnd& control, const std::wstring& text) {
  if (const auto* list = dynamic_cast<const CQxUiListBox*>(&control)) {
    return list->FindStringExact(-1, text);
  }
  if (const auto* combo = dynamic_cast<const CQxUiComboBox*>(&control)) {
    return combo->FindStringExact(-1, text);
  }
  return kQxUiListError;
}

// The lines a "select" names: numbers, texts in quotes or a bare text; "none" or -1
// for no line.
std::optional<std::vector<int>> selectionOf(const CQxUiWnd& control, const std::wstring& text) {
  if (equalIgnoringCase(text, L"none") || text == L"-1") return std::vector<int>();
  const std::vector<std::wstring> elements = commaSeparated(text);
  std::vector<int> lines;
  for (const std::wstring& element : elements) {
    const std::optional<int> number = isQuoted(element) ? std::nullopt : parseInteger(element);
    if (number) {
      lines.push_back(*number);
      continue;
    }
    // A bare text that isn't a number list names one line, commas and all.
    const std::wstring name = elements.size() == 1 ? unquoted(text) : unquoted(element);
    const int line = findLine(control, name);
    if (line == kQxUiListError) {
      printLine(controlName(control) + L" has no line " + quoted(name) + L".");
      return std::nullopt;
    }
    lines.push_back(line);
  }
  return lines;
}

void usage(const std::wstring& form) {
  printLine(L"Use: " + form);
}

void resize(CQxUiDialog& dialog, const std::wstring& arguments) {
  const std::optional<std::vector<int>> numbers = parseNumbers(arguments);
  if (!numbers || numbers->size() != 2 || (*numbers)[0] <= 0 || (*numbers)[1] <= 0) {
    usage(L"size WIDTH HEIGHT");
    return;
  }
  // The dialog may set limits to the user's resizing.
  QxUiMinMaxInfo limits;
  limits.minTrackSize = {1, 1};
  limits.maxTrackSize = {32767, 32767};
  dialog.SendMessage(kQxUiMessageGetMinMaxInfo, 0, reinterpret_cast<std::intptr_t>(&limits));
  const int width = std::clamp((*numbers)[0], limits.minTrackSize.x, limits.maxTrackSize.x);
  const int height = std::clamp((*numbers)[1], limits.minTrackSize.y, limits.maxTrackSize.y);
  const QxUiRect rect = dialog.GetPlacement();
  dialog.MoveWindow(rect.left, rect.top, width, height);
}

void actOnControl(CQxUiDialog& dialog, const std::wstring& word, const std::wstring& rest) {
  const Split target = splitWord(rest);
  const std::optional<int> id = parseInteger(target.word);
  const std::wstring& arguments = target.rest;
  const std::wstring forms[] = {L"set ID TEXT",
                                L"check ID 0|1 or check ID LINE 0|1",
                                L"select ID LINE[,LINE...] or select ID \"TEXT\"",
                                L"click ID",
                                L"dblclick ID LINE",
                                L"rclick ID"};
  const std::wstring words[] = {L"set", L"check", L"select", L"click", L"dblclick", L"rclick"};
  size_t action = 0;
  while (!equalIgnoringCase(words[action], word)) ++action;
  if (!id || *id < 0) {
    usage(forms[action]);
    return;
  }
  CQxUiWnd* control = dialog.GetDlgItem(static_cast<unsigned>(*id));
  if (control == nullptr) {
    printLine(L"The dialog has no control " + std::to_wstring(*id) + L".");
    return;
  }
  if (!control->IsWindowVisible()) {
    printLine(controlName(*control) + L" is hidden.");
    return;
  }
  if (!control->IsWindowEnabled()) {
    printLine(controlName(*control) + L" is disabled.");
    return;
  }
  switch (action) {
    case 0:
      typeText(dialog, *control, unquoted(arguments));
      return;
    case 1: {
      const std::optional<std::vector<int>> numbers = parseNumbers(arguments);
      if (!numbers || numbers->empty()) {
        usage(forms[action]);
        return;
      }
      setCheck(dialog, *control, *numbers);
      return;
    }
    case 2: {
      if (arguments.empty()) {
        usage(forms[action]);
        return;
      }
      if (const std::optional<std::vector<int>> lines = selectionOf(*control, arguments)) {
        selectLines(dialog, *control, *lines);
      }
      return;
    }
    case 3:
      click(dialog, *control);
      return;
    case 4: {
      const std::optional<int> line = parseInteger(arguments);
      if (!line) {
        usage(forms[action]);
        return;
      }
      doubleClick(dialog, *control, *line);
      return;
    }
    default:
      rightClick(dialog, *control);
      return;
  }
}

}  // namespace

void performAction(CQxUiDialog& dialog, const std::wstring& line) {
  const Split split = splitWord(line);
  const std::wstring& word = split.word;
  if (word.empty()) return;
  if (equalIgnoringCase(word, L"show")) {
    printLine(describeDialog(dialog));
  } else if (equalIgnoringCase(word, L"help") || word == L"?") {
    printLine(kHelp);
  } else if (equalIgnoringCase(word, L"key")) {
    if (split.rest.empty()) {
      usage(L"key ALT+LETTER, key ENTER or key ESC");
    } else {
      pressKey(dialog, split.rest);
    }
  } else if (equalIgnoringCase(word, L"size")) {
    resize(dialog, split.rest);
  } else if (equalIgnoringCase(word, L"menu")) {
    printLine(L"No menu is open: \"rclick ID\" opens a control's context menu.");
  } else if (equalIgnoringCase(word, L"set") || equalIgnoringCase(word, L"check") ||
             equalIgnoringCase(word, L"select") || equalIgnoringCase(word, L"click") ||
             equalIgnoringCase(word, L"dblclick") || equalIgnoringCase(word, L"rclick")) {
    actOnControl(dialog, word, split.rest);
  } else {
    printLine(L"Unknown dialog action " + quoted(word) + L"; \"help\" lists the actions.");
  }
  DialogAccess::handlePosted(dialog);
}

void runDialog(CQxUiDialog& dialog) {
  if (readingFromTerminal()) printLine(describeDialog(dialog));
  while (!DialogAccess::ended(dialog)) {
    const std::optional<std::wstring> line = readActionLine(kPrompt);
    if (!line) {
      // The end of the input closes the dialog as its Cancel button does; a dialog
      // that refuses is closed all the same.
      dialog.SendCommand(kQxUiIdCancel, QxUiNotification::Clicked);
      DialogAccess::handlePosted(dialog);
      if (!DialogAccess::ended(dialog)) dialog.EndDialog(kQxUiIdCancel);
      return;
    }
    performAction(dialog, *line);
  }
}

}  // namespace korva::ui
