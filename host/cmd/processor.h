// The command processor: the "Command:" loop, starting commands by name, scripted
// commands (qxedCommand) and what korva reports after each command.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "input/answer.h"
#include "qx_command.h"

namespace korva::cmd {

// A registered command.
struct CommandDefinition {
  std::wstring group;
  std::wstring globalName;  // upper case
  std::wstring localName;   // upper case
  int flags = 0;
  QxRxFunctionPtr handler = nullptr;
  int functionCode = -1;
  void* resourceHandle = nullptr;
  bool builtIn = false;  // a host command (reached with "." even when undefined)
};

// Told when commands start and end (undo groups, reports).
class CommandListener {
 public:
  virtual ~CommandListener() = default;
  // nested: started by a running command through qxedCommand.
  virtual void commandStarted(const CommandDefinition& command, bool nested) = 0;
  virtual void commandEnded(const CommandDefinition& command, bool nested, bool cancelled) = 0;
};

// Why a command can't be found or started, for the messages.
enum class StartResult { Started, Unknown, NotNow };

class Processor {
 public:
  static Processor& instance();

  // Host commands: group "KORVA_COMMANDS", reachable by global name, "_" + global name
  // and "." + either, also when a module redefines the name.
  void addHostCommand(const wchar_t* globalName, QxRxFunctionPtr handler, int flags = 0);

  // Module commands (QxEdCommandStack): false when the group already has the name.
  bool addCommand(CommandDefinition definition);
  bool removeCommand(std::wstring_view group, std::wstring_view globalName);
  size_t removeGroup(std::wstring_view group);

  // Finds a command as typed: "LINE", "_LINE", "._LINE", ".LINE", "-LAYER", "'CAL".
  const CommandDefinition* find(std::wstring_view typed) const;

  // Reads and runs commands until the input runs out.
  void run();
  // Runs one command by the name typed, now, in this context (the "Command:" prompt or,
  // for transparent commands, inside a prompt). Prints "Unknown command ..." and returns
  // Unknown when there is no such command.
  StartResult runCommand(std::wstring_view typed, bool transparent = false);

  // Runs scripted tokens as if typed at the command prompt (qxedCommand, LISP command).
  // RTNORM, RTCAN or RTERROR.
  int runTokens(std::vector<input::Answer> tokens);

  // The innermost running command, or null at the "Command:" prompt.
  const CommandDefinition* activeCommand() const;
  int commandDepth() const;
  // The name of the last command run, for Enter at the command prompt.
  const std::wstring& lastCommand() const { return lastCommand_; }

  void addListener(CommandListener* listener);
  void removeListener(CommandListener* listener);

  // All commands (for tests and "?" listings).
  std::vector<const CommandDefinition*> commands() const;

 private:
  Processor();
  // Runs a found command in this context; RTNORM, RTCAN or RTERROR.
  int execute(const CommandDefinition& command, bool nested);

  std::wstring lastCommand_;
  int lastStatus_ = RTNORM;
};

// Host command registration, one function per family.
void registerHostCommands();

}  // namespace korva::cmd
