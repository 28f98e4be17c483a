#include "cmd/processor.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <map>
#include <memory>

#include "api/document.h"
#include "api/selection_sets.h"
#include "api/utf8.h"
#include "cmd/command_table.h"
#include "cmd/command_worker.h"
#include "cmd/variable_prompt.h"
#include "input/answer_queue.h"
#include "input/console.h"
#include "qx_db_core.h"
#include "qx_print.h"
#include "qx_runtime.h"
#include "rt/modules.h"

namespace korva::cmd {
namespace {

constexpr wchar_t kHostGroup[] = L"KORVA_COMMANDS";

// The tokens of one qxedCommand, remembering which context scripted them.
class TokenSource : public input::AnswerQueue {
 public:
  TokenSource(std::vector<input::Answer> tokens, CommandWorker* owner)
      : AnswerQueue(std::move(tokens), true), owner_(owner) {}
  CommandWorker* owner() const { return owner_; }

 private:
  CommandWorker* owner_;
};

struct Frame {
  const CommandDefinition* command;
  bool nested;
};

struct State {
  CommandTable table;
  // Running commands of each context (the main thread is null), outermost first.
  std::map<CommandWorker*, std::vector<Frame>> frames;
  std::vector<CommandListener*> listeners;
  // Host commands waiting for tokens that their scripting context hasn't given yet.
  std::vector<std::unique_ptr<CommandWorker>> waiting;
};

State& state() {
  static State instance;
  return instance;
}

bool onStack(const input::InputSource* source) {
  input::Console& console = input::Console::instance();
  return console.hasInput() && console.topSource() == source;
}

CommandWorker* waitingOf(CommandWorker* context) {
  for (auto it = state().waiting.rbegin(); it != state().waiting.rend(); ++it) {
    if ((*it)->owner() == context) return it->get();
  }
  return nullptr;
}

void dropFinished() {
  std::erase_if(state().waiting, [](const auto& worker) { return worker->finished(); });
}

// A host command left waiting by this context goes on with the input beneath: the
// user's, once the command that scripted it has ended.
void finishWaiting(CommandWorker* context) {
  while (CommandWorker* worker = waitingOf(context)) {
    // A worker that reads nothing more is cancelled at its prompt and ends.
    worker->resume();
    dropFinished();
  }
}

void clearPickFirst() {
  if (api::Document* document = api::DocumentList::instance().current()) {
    document->selection().pickFirst.clear();
  }
}

std::wstring describeFailure(std::exception_ptr failure, const void*& object) {
  object = nullptr;
  try {
    std::rethrow_exception(failure);
  } catch (const std::exception& error) {
    object = &error;
    return api::fromUtf8(error.what());
  } catch (...) {
    return L"unknown exception";
  }
}

void reportLeftOpen(const CommandDefinition& command, std::size_t objectsBefore, int setsBefore) {
  const std::size_t objects = qxdbOpenObjectCount();
  const int sets = api::openSelectionSetTotal();
  const long objectsLeft = static_cast<long>(objects) - static_cast<long>(objectsBefore);
  const int setsLeft = sets - setsBefore;
  if (objectsLeft <= 0 && setsLeft <= 0) return;
  qxutPrintf(L"\n** %s left %ld object%s open and %d selection set%s unfreed **\n",
             command.globalName.c_str(), std::max(objectsLeft, 0L), objectsLeft == 1 ? L"" : L"s",
             std::max(setsLeft, 0), setsLeft == 1 ? L"" : L"s");
}

}  // namespace

Processor& Processor::instance() {
  static Processor processor;
  return processor;
}

Processor::Processor() {
  input::Console& console = input::Console::instance();
  console.setTransparentHook(
      [this](std::wstring_view name) { return runCommand(name, true) == StartResult::Started; });
  console.setSuspendHook([](const input::InputSource& exhausted) {
    const auto* tokens = dynamic_cast<const TokenSource*>(&exhausted);
    CommandWorker* worker = CommandWorker::current();
    if (tokens && worker && worker->owner() == tokens->owner()) worker->suspend();
  });
}

void Processor::addHostCommand(const wchar_t* globalName, QxRxFunctionPtr handler, int flags) {
  CommandDefinition definition;
  definition.group = kHostGroup;
  definition.globalName = globalName;
  definition.localName = globalName;
  definition.flags = flags;
  definition.handler = handler;
  definition.builtIn = true;
  // A later registration replaces the earlier one, so a stand-in can take a host
  // command's place.
  state().table.remove(kHostGroup, globalName);
  state().table.add(std::move(definition));
}

bool Processor::addCommand(CommandDefinition definition) {
  return state().table.add(std::move(definition));
}

bool Processor::removeCommand(std::wstring_view group, std::wstring_view globalName) {
  return state().table.remove(group, globalName);
}

size_t Processor::removeGroup(std::wstring_view group) {
  return state().table.removeGroup(group);
}

const CommandDefinition* Processor::find(std::wstring_view typed) const {
  bool global = false;
  bool builtIn = false;
  if (!typed.empty() && typed.front() == L'\'') typed.remove_prefix(1);
  while (!typed.empty() && (typed.front() == L'_' || typed.front() == L'.')) {
    if (typed.front() == L'_') global = true;
    if (typed.front() == L'.') builtIn = true;
    typed.remove_prefix(1);
  }
  if (typed.empty()) return nullptr;
  return state().table.find(typed, global, builtIn);
}

const CommandDefinition* Processor::activeCommand() const {
  for (CommandWorker* context = CommandWorker::current();; context = context->owner()) {
    auto found = state().frames.find(context);
    if (found != state().frames.end() && !found->second.empty()) {
      return found->second.back().command;
    }
    if (!context) return nullptr;
  }
}

int Processor::commandDepth() const {
  int depth = 0;
  for (CommandWorker* context = CommandWorker::current();; context = context->owner()) {
    auto found = state().frames.find(context);
    if (found != state().frames.end()) depth += static_cast<int>(found->second.size());
    if (!context) return depth;
  }
}

void Processor::addListener(CommandListener* listener) {
  state().listeners.push_back(listener);
}

void Processor::removeListener(CommandListener* listener) {
  std::erase(state().listeners, listener);
}

std::vector<const CommandDefinition*> Processor::commands() const {
  return state().table.all();
}

int Processor::execute(const CommandDefinition& command, bool nested) {
  input::Console& console = input::Console::instance();
  CommandWorker* context = CommandWorker::current();
  const std::size_t objectsBefore = qxdbOpenObjectCount();
  const int setsBefore = api::openSelectionSetTotal();
  if (!nested) {
    lastCommand_ = command.globalName;
    if (!(command.flags & QXRX_CMD_USEPICKSET)) clearPickFirst();
  }
  state().frames[context].push_back({&command, nested});
  for (CommandListener* listener : state().listeners) listener->commandStarted(command, nested);
  const unsigned cancelsBefore = console.cancelCount();
  bool failed = false;
  try {
    command.handler();
  } catch (...) {
    failed = true;
    const void* object = nullptr;
    const std::wstring what = describeFailure(std::current_exception(), object);
    if (QxCrashRecorder* recorder = qxadGetCrashRecorder()) recorder->record(object, what.c_str());
    qxutPrintf(L"\n%s failed: %s\n", command.globalName.c_str(), what.c_str());
  }
  finishWaiting(context);
  state().frames[context].pop_back();
  const bool cancelled = console.cancelCount() != cancelsBefore;
  for (CommandListener* listener : state().listeners) {
    listener->commandEnded(command, nested, cancelled || failed);
  }
  if (!nested) {
    if (!(command.flags & QXRX_CMD_REDRAW)) clearPickFirst();
    reportLeftOpen(command, objectsBefore, setsBefore);
    rt::runApplicationContextQueue();
  }
  if (failed) return RTERROR;
  return cancelled ? RTCAN : RTNORM;
}

StartResult Processor::runCommand(std::wstring_view typed, bool transparent) {
  if (!typed.empty() && typed.front() == L'\'') {
    transparent = true;
    typed.remove_prefix(1);
  }
  const CommandDefinition* command = find(typed);
  if (!command) {
    if (!transparent && promptForVariable(typed)) return StartResult::Started;
    qxutPrintf(L"Unknown command \"%s\".\n", upperCase(typed).c_str());
    return StartResult::Unknown;
  }
  if (transparent && !(command->flags & QXRX_CMD_TRANSPARENT)) {
    qxutPrintf(L"%s can't run while another command is active.\n", command->globalName.c_str());
    return StartResult::NotNow;
  }
  const bool nested = commandDepth() > 0;
  lastStatus_ = execute(*command, nested);
  if (transparent && nested) {
    if (const CommandDefinition* resumed = activeCommand()) {
      // A transparent command may leave its last line open, as CAL does with its value.
      const wchar_t* lineStart = input::Console::instance().atLineStart() ? L"" : L"\n";
      qxutPrintf(L"%sResuming %s command.\n", lineStart, resumed->globalName.c_str());
    }
  }
  return StartResult::Started;
}

int Processor::runTokens(std::vector<input::Answer> tokens) {
  input::Console& console = input::Console::instance();
  CommandWorker* context = CommandWorker::current();
  auto owned = std::make_unique<TokenSource>(std::move(tokens), context);
  TokenSource* source = owned.get();
  console.pushSource(std::move(owned));
  int status = RTNORM;
  if (CommandWorker* waiting = waitingOf(context)) {
    waiting->resume();
    dropFinished();
    if (waitingOf(context) == waiting) return status;  // it waits for more tokens
  }
  while (onStack(source) && !source->empty()) {
    input::AskOptions options;
    options.commandPrompt = true;
    options.allowTransparent = false;
    input::Answer name = console.ask(L"Command: ", options);
    if (name.kind != input::Answer::Kind::Text) {
      status = RTERROR;
      break;
    }
    if (name.text.empty()) continue;
    if (!find(name.text) && !isVariableName(name.text)) {
      qxutPrintf(L"Unknown command \"%s\".\n", upperCase(name.text).c_str());
      status = RTERROR;
      break;
    }
    // The worker may outlive this call when it waits for more tokens.
    auto result = std::make_shared<int>(RTNORM);
    auto worker = std::make_unique<CommandWorker>(context, [this, name, result] {
      if (runCommand(name.text) != StartResult::Started)
        *result = RTERROR;
      else
        *result = lastStatus_;
    });
    worker->resume();
    if (!worker->finished()) {
      state().waiting.push_back(std::move(worker));
      return status;
    }
    if (*result != RTNORM) status = *result;
  }
  if (onStack(source)) console.popSource();
  return status;
}

void Processor::run() {
  input::Console& console = input::Console::instance();
  input::AskOptions options;
  options.commandPrompt = true;
  for (;;) {
    finishWaiting(nullptr);
    if (!console.hasInput()) break;
    if (!console.atLineStart()) console.print(L"\n");
    input::Answer answer = console.ask(L"Command: ", options);
    if (answer.isCancel()) {
      if (!console.hasInput()) break;
      continue;
    }
    if (answer.kind != input::Answer::Kind::Text) continue;
    std::wstring typed = answer.text;
    if (typed.empty()) {
      if (lastCommand_.empty()) continue;
      typed = lastCommand_;
    }
    runCommand(typed);
  }
  finishWaiting(nullptr);
}

}  // namespace korva::cmd
