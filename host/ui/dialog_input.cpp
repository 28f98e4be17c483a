#include "ui/dialog_input.h"

#include "input/console.h"

namespace korva::ui {

std::optional<std::wstring> readActionLine(std::wstring_view prompt) {
  input::AskOptions options;
  options.blanksAllowed = true;
  options.allowTransparent = false;
  options.evaluateLisp = false;
  const input::Answer answer = input::Console::instance().ask(prompt, options);
  if (answer.kind == input::Answer::Kind::Cancel) return std::nullopt;
  // Points and entities from a scripted command's tokens are no actions.
  if (answer.kind != input::Answer::Kind::Text) return std::wstring(L"<not a text>");
  return answer.text;
}

bool readingFromTerminal() {
  const input::InputSource* source = input::Console::instance().topSource();
  return source != nullptr && source->isTerminal();
}

void printLine(std::wstring_view text) {
  std::wstring line = L"\n";
  line += text;
  input::Console::instance().print(line);
}

}  // namespace korva::ui
