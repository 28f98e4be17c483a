// Where the command line's inputs come from: a script, lines given to korva with -c,
// the terminal, or the tokens of a scripted command.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "input/answer.h"

namespace korva::input {

class InputSource {
 public:
  virtual ~InputSource() = default;
  // The next input; nullopt when the source has no more. With blanksAllowed a text
  // source gives the rest of the current line (a prompt that takes blanks). A text
  // source gives a LISP expression, "(" to its balanced ")", as one input.
  virtual std::optional<Answer> next(bool blanksAllowed) = 0;
  // The terminal shows what the user typed; other sources are echoed in the transcript.
  virtual bool isTerminal() const { return false; }
  // The tokens of a scripted command (qxedCommand): when they run out, the host command
  // waiting for input is suspended rather than cancelled.
  virtual bool isScriptedCommand() const { return false; }
  // A script file's name for messages, empty otherwise.
  virtual std::string name() const { return {}; }
};

// Script text (.scr, or -c lines): a blank or a line end ends one input; an empty line
// is Enter; "" is an explicit Enter; a double-quoted input may hold blanks; a line
// starting with ";" is a comment.
std::unique_ptr<InputSource> makeScriptSource(std::string text, std::string name = {});
// A script file; null when it can't be read (error set to the reason).
std::unique_ptr<InputSource> openScriptFile(const std::string& path, std::string& error);
// Standard input, line by line, with the script rules.
std::unique_ptr<InputSource> makeTerminalSource();
// Whole answers, one per prompt, for callers that have them already.
std::unique_ptr<InputSource> makeAnswerSource(std::vector<std::wstring> answers);
// A scripted command's tokens.
std::unique_ptr<InputSource> makeTokenSource(std::vector<Answer> tokens);

}  // namespace korva::input
