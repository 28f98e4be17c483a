// The command line: the stack of input sources and the transcript.
//
// Everything the command line shows goes to the transcript (standard output unless
// redirected): prompts, the answers echoed, printed messages.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "input/answer.h"
#include "input/input_source.h"

namespace korva::input {

struct AskOptions {
  bool blanksAllowed = false;    // the rest of the line is the answer
  bool commandPrompt = false;    // the "Command:" prompt: a source running out isn't a cancel
  bool allowTransparent = true;  // "'NAME" runs a transparent command and asks again
  bool evaluateLisp = true;      // "(...)" is evaluated and its value is the answer
};

class Console {
 public:
  static Console& instance();

  // Sources: the top one is read first; one that runs out is dropped.
  void pushSource(std::unique_ptr<InputSource> source);
  void popSource();
  bool hasInput() const { return !sources_.empty(); }
  size_t sourceDepth() const { return sources_.size(); }
  InputSource* topSource() const { return sources_.empty() ? nullptr : sources_.back().get(); }

  // Shows the prompt and reads one input. When the sources run out during a prompt
  // the answer is Cancel (at the command prompt too, once nothing is left).
  Answer ask(std::wstring_view prompt, const AskOptions& options = {});

  // Transcript output.
  void print(std::wstring_view text);
  void setOutput(std::ostream* output) { output_ = output; }
  // Ends the last line of the transcript (at the end of the run).
  void finish();
  std::ostream& output() const { return *output_; }
  // Whether prompts and answers of scripted commands are shown (CMDECHO).
  void setEchoScripted(std::function<bool()> rule) { echoScripted_ = std::move(rule); }

  // Hooks of the command processor and the LISP evaluator.
  // transparent(name): runs "'name" if it is a transparent command; false if it isn't.
  using TransparentHook = std::function<bool(std::wstring_view name)>;
  // lisp(expression, atCommandPrompt): at the command prompt, the value's printed form
  // as Text (the console prints it); at other prompts the value as an answer (a point
  // as Point, a string or number as Text). nullopt when the evaluation failed or gave
  // nothing to answer with.
  using LispHook =
      std::function<std::optional<Answer>(std::wstring_view expression, bool atCommandPrompt)>;
  // suspend(exhausted): a scripted command's tokens ran out during a prompt (the source
  // is already off the stack). It may suspend the waiting host command until its caller
  // pushes more tokens; reading then goes on from the top of the stack.
  using SuspendHook = std::function<void(const InputSource& exhausted)>;
  void setTransparentHook(TransparentHook hook) { transparent_ = std::move(hook); }
  void setLispHook(LispHook hook) { lisp_ = std::move(hook); }
  void setSuspendHook(SuspendHook hook) { suspend_ = std::move(hook); }

  // How many prompts were cancelled so far (a command that saw one was cancelled).
  unsigned cancelCount() const { return cancelCount_; }

  // True while the last line printed has no line end yet (a prompt waits).
  bool atLineStart() const { return atLineStart_; }

 private:
  Console();
  // The answer's line end, written only if the next text doesn't start a line itself.
  void endLine();
  std::optional<Answer> readRaw(bool blanksAllowed, bool& fromTerminal, bool& scripted);

  std::vector<std::unique_ptr<InputSource>> sources_;
  std::ostream* output_;
  std::function<bool()> echoScripted_;
  TransparentHook transparent_;
  LispHook lisp_;
  SuspendHook suspend_;
  bool atLineStart_ = true;
  unsigned cancelCount_ = 0;
  bool pendingLineEnd_ = false;
  bool typedLineEnd_ = false;
};

}  // namespace korva::input
