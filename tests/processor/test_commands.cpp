#include "test_commands.h"

#include <stdexcept>

#include "cmd/command_stack.h"
#include "cmd/processor.h"
#include "input/console.h"
#include "processor_fixture.h"
#include "qx_command.h"
#include "qx_selection.h"

namespace korva::test {
namespace {

void logAnswer(const wchar_t* who, const input::Answer& answer) {
  events().push_back(std::wstring(who) + L":" + (answer.isCancel() ? L"cancel" : answer.text));
}

void askTwo() {
  input::Console& console = input::Console::instance();
  input::Answer first = console.ask(L"First: ");
  logAnswer(L"ASKTWO", first);
  if (first.isCancel()) return;
  logAnswer(L"ASKTWO", console.ask(L"Second: "));
}

void scripter() {
  events().push_back(L"SCRIPTER:status " +
                     std::to_wstring(qxedCommand(RTSTR, L"_.ASKTWO", RTSTR, L"one", RTNONE)));
  events().push_back(L"SCRIPTER:status " + std::to_wstring(qxedCommand(RTSTR, L"two", RTNONE)));
}

void leaver() {
  qxedCommand(RTSTR, L"_.ASKTWO", RTSTR, L"mine", RTNONE);
}

void transparent() {
  events().push_back(L"TRANS");
}

void thrower() {
  throw std::runtime_error("broken on purpose");
}

void leaker() {
  SelectionSet set;
  qxedSSAdd(nullptr, nullptr, set);
}

}  // namespace

void registerTestCommands() {
  static bool done = false;
  if (done) return;
  done = true;
  cmd::Processor::instance().addHostCommand(L"ASKTWO", askTwo);
  QxEdCommandStack* stack = cmd::commandStack();
  stack->addCommand(L"TEST_COMMANDS", L"SCRIPTER", L"SCRIPTER", QXRX_CMD_MODAL, scripter);
  stack->addCommand(L"TEST_COMMANDS", L"LEAVER", L"VERLASSEN", QXRX_CMD_MODAL, leaver);
  stack->addCommand(L"TEST_COMMANDS", L"TRANS", L"TRANS", QXRX_CMD_TRANSPARENT, transparent);
  stack->addCommand(L"TEST_COMMANDS", L"THROWER", L"THROWER", QXRX_CMD_MODAL, thrower);
  stack->addCommand(L"TEST_COMMANDS", L"LEAKER", L"LEAKER", QXRX_CMD_MODAL, leaker);
}

}  // namespace korva::test
