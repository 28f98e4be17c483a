// Message boxes at the command line: the caption and text are printed and the user
// answers with a button's name.
#include <string>
#include <vector>

#include "qx_ui_services.h"
#include "ui/control_items.h"
#include "ui/dialog_input.h"

namespace {

struct Choice {
  const wchar_t* name;
  QxMessageBoxResult result;
};

std::vector<Choice> choicesOf(QxMessageBoxButtons buttons) {
  switch (buttons) {
    case QxMessageBoxButtons::Ok:
      return {{L"OK", QxMessageBoxResult::Ok}};
    case QxMessageBoxButtons::YesNo:
      return {{L"Yes", QxMessageBoxResult::Yes}, {L"No", QxMessageBoxResult::No}};
    case QxMessageBoxButtons::OkCancel:
      return {{L"OK", QxMessageBoxResult::Ok}, {L"Cancel", QxMessageBoxResult::Cancel}};
    case QxMessageBoxButtons::YesNoCancel:
      return {{L"Yes", QxMessageBoxResult::Yes},
              {L"No", QxMessageBoxResult::No},
              {L"Cancel", QxMessageBoxResult::Cancel}};
  }
  return {{L"OK", QxMessageBoxResult::Ok}};
}

// What closing the box without an answer gives: its Cancel, else No, else OK.
QxMessageBoxResult closedResult(QxMessageBoxButtons buttons) {
  switch (buttons) {
    case QxMessageBoxButtons::Ok:
      return QxMessageBoxResult::Ok;
    case QxMessageBoxButtons::YesNo:
      return QxMessageBoxResult::No;
    default:
      return QxMessageBoxResult::Cancel;
  }
}

std::wstring trimmed(const std::wstring& text) {
  const size_t first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos) return {};
  const size_t last = text.find_last_not_of(L" \t");
  return text.substr(first, last - first + 1);
}

}  // namespace

QxMessageBoxResult qxuiMessageBox(const wchar_t* text, const wchar_t* caption,
                                  QxMessageBoxButtons buttons) {
  using korva::ui::printLine;
  const std::wstring title = caption != nullptr ? caption : L"";
  if (!title.empty()) printLine(L"** " + title + L" **");
  printLine(text != nullptr ? text : L"");

  const std::vector<Choice> choices = choicesOf(buttons);
  std::wstring names;
  for (size_t index = 0; index < choices.size(); ++index) {
    if (index > 0) names += index + 1 == choices.size() ? L" or " : L", ";
    names += choices[index].name;
  }
  const std::wstring prompt = L"\n" + names + L"? ";
  for (;;) {
    const std::optional<std::wstring> line = korva::ui::readActionLine(prompt);
    if (!line) return closedResult(buttons);
    const std::wstring answer = trimmed(*line);
    // Enter presses the only button of a box that has one.
    if (answer.empty() && choices.size() == 1) return choices.front().result;
    for (const Choice& choice : choices) {
      if (korva::ui::equalIgnoringCase(answer, choice.name)) return choice.result;
    }
    printLine(L"Answer " + names + L".");
  }
}
