#include "lisp/lisp_commands.h"

#include "cmd/command_stack.h"
#include "cmd/processor.h"
#include "lisp/interpreter.h"
#include "lisp/module_functions.h"
#include "lisp/printer.h"

namespace korva::lisp {
namespace {

constexpr const wchar_t* kCommandGroup = L"KORVA_LISP_COMMANDS";
constexpr std::wstring_view kCommandPrefix = L"C:";

std::wstring commandNameOf(const std::wstring& functionName) {
  if (functionName.size() <= kCommandPrefix.size() || !functionName.starts_with(kCommandPrefix)) {
    return {};
  }
  return functionName.substr(kCommandPrefix.size());
}

// Every LISP command runs this; the processor tells which one was typed. Its value is
// shown as at the command prompt.
void runLispCommand() {
  const cmd::CommandDefinition* active = cmd::Processor::instance().activeCommand();
  if (!active) return;
  const std::wstring expression = L"(" + std::wstring(kCommandPrefix) + active->globalName + L")";
  std::optional<Value> value = Interpreter::instance().evaluateText(expression);
  if (value && value->kind != Value::Kind::Void) Interpreter::print(printed(*value) + L"\n");
}

}  // namespace

void defineLispCommand(const std::wstring& name) {
  const std::wstring command = commandNameOf(name);
  if (command.empty()) return;
  const cmd::CommandDefinition* existing = cmd::Processor::instance().find(command);
  if (existing) return;
  cmd::commandStack()->addCommand(kCommandGroup, command.c_str(), command.c_str(), QXRX_CMD_MODAL,
                                  runLispCommand);
}

void forgetLispCommand(const std::wstring& name) {
  const std::wstring command = commandNameOf(name);
  if (command.empty()) return;
  const Value bound = Interpreter::instance().variable(name);
  if (bound.kind == Value::Kind::Function || isModuleFunction(name)) return;
  cmd::commandStack()->removeCmd(kCommandGroup, command.c_str());
}

}  // namespace korva::lisp
