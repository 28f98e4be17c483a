#include "input/console.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>

#include "api/print_sink.h"
#include "api/utf8.h"

namespace korva::input {
namespace {

std::wstring formatNumber(double value) {
  wchar_t buffer[64];
  std::swprintf(buffer, 64, L"%.10g", value);
  return buffer;
}

// How an answer that wasn't typed shows in the transcript.
std::wstring echoText(const Answer& answer) {
  switch (answer.kind) {
    case Answer::Kind::Text:
      return answer.text;
    case Answer::Kind::Point:
      return formatNumber(answer.point[0]) + L"," + formatNumber(answer.point[1]) + L"," +
             formatNumber(answer.point[2]);
    case Answer::Kind::Entity:
      return L"<entity>";
    case Answer::Kind::EntityPick:
      return L"<entity at " + formatNumber(answer.point[0]) + L"," + formatNumber(answer.point[1]) +
             L">";
    case Answer::Kind::Set:
      return L"<selection set>";
    case Answer::Kind::Cancel:
      return L"*Cancel*";
  }
  return {};
}

// Input typed at a terminal is already on the screen; piped input is echoed like a script.
bool typedAtTerminal(const InputSource& source) {
  static const bool terminal = ::isatty(STDIN_FILENO) != 0;
  return source.isTerminal() && terminal;
}

bool isTransparentCall(const Answer& answer) {
  return answer.kind == Answer::Kind::Text && answer.text.size() > 1 && answer.text[0] == L'\'';
}

bool isLispExpression(const Answer& answer) {
  return answer.kind == Answer::Kind::Text && !answer.text.empty() && answer.text[0] == L'(';
}

}  // namespace

Console& Console::instance() {
  static Console console;
  return console;
}

Console::Console() : output_(&std::cout) {
  api::setPrintSink([this](std::wstring_view text) { print(text); });
}

void Console::pushSource(std::unique_ptr<InputSource> source) {
  sources_.push_back(std::move(source));
}

void Console::popSource() {
  if (!sources_.empty()) sources_.pop_back();
}

void Console::print(std::wstring_view text) {
  if (text.empty()) return;
  // The line end after an echoed answer is the next text's, as on a command line: a
  // prompt starting with its own line end doesn't leave an empty line.
  if (pendingLineEnd_) {
    pendingLineEnd_ = false;
    if (text.front() != L'\n') output_->put('\n');
  } else if (typedLineEnd_) {
    // The user's Enter already ended the line on the terminal.
    typedLineEnd_ = false;
    if (text.front() == L'\n') text.remove_prefix(1);
    if (text.empty()) return;
  }
  const std::string bytes = api::toUtf8(text);
  output_->write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  output_->flush();
  atLineStart_ = text.back() == L'\n';
}

// Reads from the sources from the top down: a source that runs out is dropped, except a
// scripted command's tokens, which suspend the waiting host command until more come.
// A "\" token of a scripted command pauses for one input from the sources beneath it.
void Console::endLine() {
  pendingLineEnd_ = true;
  atLineStart_ = true;
}

void Console::finish() {
  if (pendingLineEnd_ || !atLineStart_) print(L"\n");
  pendingLineEnd_ = false;
  output_->flush();
}

std::optional<Answer> Console::readRaw(bool blanksAllowed, bool& fromTerminal, bool& scripted) {
  size_t level = sources_.size();
  while (level > 0) {
    InputSource& source = *sources_[level - 1];
    std::optional<Answer> answer = source.next(blanksAllowed);
    if (!answer) {
      std::unique_ptr<InputSource> exhausted = std::move(sources_[level - 1]);
      sources_.erase(sources_.begin() + static_cast<std::ptrdiff_t>(level - 1));
      if (!exhausted->isScriptedCommand()) return std::nullopt;
      // A host command whose scripted tokens ran out waits for the next ones, or goes
      // on with what lies beneath.
      if (suspend_) suspend_(*exhausted);
      level = sources_.size();
      continue;
    }
    if (source.isScriptedCommand() && answer->kind == Answer::Kind::Text && answer->text == L"\\") {
      --level;
      continue;
    }
    fromTerminal = typedAtTerminal(source);
    scripted = source.isScriptedCommand();
    return answer;
  }
  return std::nullopt;
}

Answer Console::ask(std::wstring_view prompt, const AskOptions& options) {
  for (;;) {
    if (sources_.empty()) {
      ++cancelCount_;
      return Answer::cancel();
    }
    const bool terminalNext = typedAtTerminal(*sources_.back());
    if (terminalNext) print(prompt);
    bool fromTerminal = false;
    bool scripted = false;
    std::optional<Answer> answer = readRaw(options.blanksAllowed, fromTerminal, scripted);
    if (!answer) {
      if (options.commandPrompt && !sources_.empty()) continue;
      if (!atLineStart_) print(L"\n");
      ++cancelCount_;
      return Answer::cancel();
    }
    const bool shown = !scripted || !echoScripted_ || echoScripted_();
    if (!fromTerminal && shown) {
      print(prompt);
      print(echoText(*answer));
      endLine();
    } else if (fromTerminal) {
      atLineStart_ = true;  // the user's line end
      typedLineEnd_ = true;
    }
    if (options.allowTransparent && transparent_ && isTransparentCall(*answer)) {
      transparent_(std::wstring_view(answer->text).substr(1));
      continue;
    }
    if (options.evaluateLisp && lisp_ && isLispExpression(*answer)) {
      std::optional<Answer> value = lisp_(answer->text, options.commandPrompt);
      if (options.commandPrompt) {
        if (value) print(value->text + L"\n");
        continue;
      }
      if (!value) continue;
      return *value;
    }
    return *answer;
  }
}

}  // namespace korva::input
