// The entry point's messages, with the module's code linked into the test: what
// initialisation registers, what removal takes away, and the calls it dispatches.
#include "api/utf8.h"
#include "cmd/processor.h"
#include "frame/command_table.h"
#include "frame/lisp_functions.h"
#include "frame/module_entry.h"
#include "frame/module_state.h"
#include "frame/resource_scope.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

class EntryPointTest : public ScriptTest {
 protected:
  void TearDown() override {
    frame::entryPoint(QxRx::kUnloadAppMsg, packet());
    frame::setResourceModuleFinder(nullptr);
    ScriptTest::TearDown();
  }

  void* packet() { return &applicationStandIn_; }

  static std::vector<const cmd::CommandDefinition*> moduleCommands() {
    std::vector<const cmd::CommandDefinition*> found;
    for (const cmd::CommandDefinition* each : cmd::Processor::instance().commands()) {
      if (each->group == frame::kCommandGroup) found.push_back(each);
    }
    return found;
  }

  int applicationStandIn_ = 0;
};

TEST_F(EntryPointTest, WithoutTheResourceModuleNothingIsRegistered) {
  frame::setResourceModuleFinder([]() -> QxModuleHandle { return nullptr; });
  EXPECT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetError);
  EXPECT_TRUE(moduleCommands().empty());
  EXPECT_FALSE(qxrxServiceIsRegistered(frame::kServiceName));
  EXPECT_EQ(frame::resourceModule(), nullptr);
}

TEST_F(EntryPointTest, InitialisationRegistersTheServiceAndEveryRow) {
  ASSERT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetOK);
  EXPECT_NE(frame::resourceModule(), nullptr);
  EXPECT_TRUE(qxrxServiceIsRegistered(frame::kServiceName));
  ASSERT_EQ(moduleCommands().size(), 122u);
  for (const frame::CommandRow& row : frame::commandTable()) {
    const cmd::CommandDefinition* command = cmd::Processor::instance().find(row.globalName);
    ASSERT_NE(command, nullptr) << api::toUtf8(row.globalName);
    // The resource source holds every local name, and they are the global names.
    EXPECT_EQ(command->localName, row.globalName);
    EXPECT_EQ(command->flags, row.flags);
    EXPECT_EQ(command->handler, row.handler);
  }
  EXPECT_EQ(cmd::Processor::instance().find(L"CHSPACE")->flags, 0x200002A);
  EXPECT_EQ(cmd::Processor::instance().find(L"CAL")->flags, QXRX_CMD_TRANSPARENT);
  EXPECT_EQ(cmd::Processor::instance().find(L"COPYM")->flags, 6);
}

TEST_F(EntryPointTest, QuitRemovesTheRegistrationsAndUnloadAlsoTheResources) {
  ASSERT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetOK);
  EXPECT_EQ(frame::entryPoint(QxRx::kQuitMsg, packet()), QxRx::kRetOK);
  EXPECT_TRUE(moduleCommands().empty());
  EXPECT_FALSE(qxrxServiceIsRegistered(frame::kServiceName));
  EXPECT_NE(frame::resourceModule(), nullptr);
  // The group is gone already; removing it again is harmless.
  EXPECT_EQ(frame::entryPoint(QxRx::kUnloadAppMsg, packet()), QxRx::kRetOK);
  EXPECT_EQ(frame::resourceModule(), nullptr);
  EXPECT_TRUE(moduleCommands().empty());
}

TEST_F(EntryPointTest, AServiceRegisteredBeforeIsKeptAndRemovedWithTheModule) {
  QxRxObject* earlier = qxrxRegisterService(frame::kServiceName);
  ASSERT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetOK);
  auto* services = QxRxDictionary::cast(qxrxSysRegistry()->at(L"ServiceDictionary"));
  EXPECT_EQ(services->at(frame::kServiceName), earlier);
  frame::entryPoint(QxRx::kQuitMsg, packet());
  EXPECT_FALSE(qxrxServiceIsRegistered(frame::kServiceName));
}

TEST_F(EntryPointTest, OtherMessagesChangeNothing) {
  ASSERT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetOK);
  newOutput();
  for (int message : {0, 4, 6, 7, 9, 10, 11, 12, -3}) {
    EXPECT_EQ(frame::entryPoint(message, packet()), QxRx::kRetOK) << message;
  }
  EXPECT_EQ(moduleCommands().size(), 122u);
  EXPECT_EQ(newOutput(), "");
}

TEST_F(EntryPointTest, LispCallsAreDispatchedByTheirFunctionNumber) {
  ASSERT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetOK);
  newOutput();
  EXPECT_EQ(frame::dispatchLispCall(-1), RTERROR);
  EXPECT_NE(newOutput().find("Incorrect function code."), std::string::npos);
  EXPECT_EQ(frame::dispatchLispCall(3), RTERROR);
  EXPECT_NE(newOutput().find("Incorrect function code."), std::string::npos);
  EXPECT_EQ(frame::dispatchLispCall(2), 0);
  EXPECT_EQ(newOutput(),
            "\nThis command is not available while a reference is being edited in place.\n");
  // Without arguments the calculator would ask; with no input it ends quietly.
  EXPECT_EQ(frame::dispatchLispCall(0), RTNORM);
  EXPECT_STREQ(frame::lispFunctionTable()[2].name, L"ai_refedit_alert");
}

TEST_F(EntryPointTest, OnlyTheSixSolidCodesRunAMeshCommand) {
  ASSERT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetOK);
  newOutput();
  frame::redirectSolidCommand(0);
  frame::redirectSolidCommand(7);
  EXPECT_EQ(newOutput(), "");
  frame::redirectSolidCommand(1);
  EXPECT_EQ(newOutput(), "AI_BOX is not available in this build yet.\n");
  frame::redirectSolidCommand(6);
  EXPECT_EQ(newOutput(), "AI_TORUS is not available in this build yet.\n");
}

TEST_F(EntryPointTest, CommandsNotBuiltYetSaySoUnderTheirOwnNames) {
  ASSERT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetOK);
  newOutput();
  runScript("DIMEX\n-LAYDEL\nblock?\n");
  const std::string said = newOutput();
  EXPECT_NE(said.find("DIMEX is not available in this build yet.\n"), std::string::npos) << said;
  EXPECT_NE(said.find("-LAYDEL is not available in this build yet.\n"), std::string::npos);
  EXPECT_NE(said.find("BLOCK? is not available in this build yet.\n"), std::string::npos);
}

TEST_F(EntryPointTest, TheResourceScopeMakesTheModulesResourcesCurrent) {
  QxApDocManager* documents = qxDocManagerPtr();
  void* before = documents->currentResourceHandle();
  {
    ResourceScope scope;  // not initialised: the module's own instance
    EXPECT_EQ(documents->currentResourceHandle(), frame::ownInstance());
  }
  ASSERT_EQ(frame::entryPoint(QxRx::kInitAppMsg, packet()), QxRx::kRetOK);
  {
    ResourceScope scope;
    EXPECT_EQ(documents->currentResourceHandle(), frame::resourceModule());
    EXPECT_STREQ(qxrxFindResourceString(nullptr, 6069), L"ARCSUM");
  }
  EXPECT_EQ(documents->currentResourceHandle(), before);
}

}  // namespace
}  // namespace korva::test
