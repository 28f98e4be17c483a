// Loading and unloading modules: the messages they get and in which order, refusals,
// locks, dependencies, and what korva cleans up after them.
#include <filesystem>
#include <fstream>

#include "api/utf8.h"
#include "cmd/processor.h"
#include "qx_input.h"
#include "qx_runtime.h"
#include "rt/module_table.h"
#include "rt/modules.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

using ModuleLoadingTest = ScriptTest;

bool load(const std::string& name, std::string* errorOut = nullptr) {
  std::string error;
  const bool loaded = rt::loadModule(name, error);
  if (errorOut) *errorOut = error;
  return loaded;
}

TEST_F(ModuleLoadingTest, LoadingSendsInitialiseThenOneLoadDrawingPerDrawing) {
  ASSERT_TRUE(load("test_recorder"));
  EXPECT_EQ(newOutput(), "[recorder 1]\n[recorder 3]\n");
  ASSERT_EQ(rt::loadedModules().size(), 1u);
  EXPECT_EQ(std::filesystem::path(rt::loadedModules()[0]).filename(), "test_recorder.qrx");
  EXPECT_TRUE(qxrxAppIsLoaded(L"test_recorder"));
  EXPECT_TRUE(qxrxAppIsLoaded(L"TEST_RECORDER.QRX"));
  EXPECT_TRUE(qxrxAppIsLoaded(api::fromUtf8(rt::loadedModules()[0]).c_str()));
  EXPECT_FALSE(qxrxAppIsLoaded(L"test_record"));

  ASSERT_TRUE(load("test_recorder"));  // loaded already: nothing is sent again
  EXPECT_EQ(newOutput(), "");
  rt::drawingOpened();
  rt::drawingClosing();
  EXPECT_EQ(newOutput(), "[recorder 3]\n[recorder 4]\n");
}

TEST_F(ModuleLoadingTest, UnloadingSendsUnloadAndTheModuleTakesItsRegistrationsAway) {
  ASSERT_TRUE(load("test_recorder"));
  EXPECT_TRUE(qxrxServiceIsRegistered(L"RecorderService"));
  EXPECT_NE(cmd::Processor::instance().find(L"RECHELLO"), nullptr);
  newOutput();
  EXPECT_EQ(qxedQrxUnload(L"test_recorder"), RTNORM);
  EXPECT_EQ(newOutput(), "[recorder 2]\n");
  EXPECT_FALSE(qxrxServiceIsRegistered(L"RecorderService"));
  EXPECT_EQ(cmd::Processor::instance().find(L"RECHELLO"), nullptr);
  EXPECT_FALSE(qxrxAppIsLoaded(L"test_recorder"));
  EXPECT_EQ(qxedQrxUnload(L"test_recorder"), RTERROR);
}

TEST_F(ModuleLoadingTest, ARefusedInitialisationUnloadsAtOnceAndDropsWhatItRegistered) {
  std::string error;
  EXPECT_FALSE(load("test_refuser", &error));
  EXPECT_EQ(error, "the module refused to initialise");
  EXPECT_EQ(newOutput(), "[refuser 1]\n");
  EXPECT_FALSE(qxrxAppIsLoaded(L"test_refuser"));
  EXPECT_EQ(cmd::Processor::instance().find(L"REFUSED"), nullptr);
  EXPECT_EQ(qxedQrxLoad(L"test_refuser"), RTERROR);
}

TEST_F(ModuleLoadingTest, FilesThatAreNotModulesAreRefusedWithTheReason) {
  std::string error;
  EXPECT_FALSE(load("no_such_module", &error));
  EXPECT_EQ(error, "file not found");
  EXPECT_FALSE(load("libkorva_api.so", &error));
  EXPECT_EQ(error, "it has no qxrxEntryPoint");
  const std::filesystem::path notLibrary =
      std::filesystem::temp_directory_path() / "korva_runtime_not_a_module.qrx";
  { std::ofstream(notLibrary) << "plain text"; }
  EXPECT_FALSE(load(notLibrary.string(), &error));
  EXPECT_NE(error.find("korva_runtime_not_a_module.qrx"), std::string::npos);
  std::filesystem::remove(notLibrary);
  EXPECT_TRUE(rt::loadedModules().empty());
}

TEST_F(ModuleLoadingTest, ALockedModuleStaysUntilUnlocked) {
  ASSERT_TRUE(load("test_locked"));
  auto* linker = QxRxDynamicLinker::cast(qxrxSysRegistry()->at(L"DynamicLinker"));
  EXPECT_TRUE(linker->isApplicationLocked(L"test_locked"));
  std::string error;
  EXPECT_FALSE(rt::unloadModule("test_locked", error));
  EXPECT_EQ(error, "the module is locked");

  void* id = rt::moduleByName(L"test_locked")->id();
  EXPECT_TRUE(linker->unlockApplication(id));
  EXPECT_FALSE(linker->isApplicationLocked(L"test_locked"));
  EXPECT_TRUE(linker->lockApplication(id));
  EXPECT_TRUE(linker->isApplicationLocked(L"test_locked"));
  EXPECT_TRUE(linker->unlockApplication(id));
  EXPECT_FALSE(linker->unlockApplication(nullptr));
  // It never removes its command: korva does, so nothing calls into unmapped code.
  EXPECT_NE(cmd::Processor::instance().find(L"LOCKEDCMD"), nullptr);
  EXPECT_TRUE(rt::unloadModule("test_locked", error));
  EXPECT_EQ(cmd::Processor::instance().find(L"LOCKEDCMD"), nullptr);
}

TEST_F(ModuleLoadingTest, ModulesDeclareWhetherTheyWorkWithSeveralDrawings) {
  ASSERT_TRUE(load("test_recorder"));
  ASSERT_TRUE(load("test_locked"));
  EXPECT_TRUE(rt::moduleByName(L"test_recorder")->mdiAware);
  rt::Module* locked = rt::moduleByName(L"test_locked");
  EXPECT_FALSE(locked->mdiAware);
  EXPECT_TRUE(qxrxRegisterAppMDIAware(locked->id()));
  EXPECT_TRUE(locked->mdiAware);
  EXPECT_TRUE(qxrxRegisterAppNotMDIAware(locked->id()));
  EXPECT_FALSE(locked->mdiAware);
  EXPECT_FALSE(qxrxRegisterAppMDIAware(nullptr));
}

TEST_F(ModuleLoadingTest, AModuleLoadedByAnotherIsItsDependencyUntilThatOneGoes) {
  ASSERT_TRUE(load("test_dependent"));
  EXPECT_EQ(newOutput(),
            "[dependent 1]\n[recorder 1]\n[recorder 3]\n[recorder 10]\n[dependent 3]\n");
  std::string error;
  EXPECT_FALSE(rt::unloadModule("test_recorder", error));
  EXPECT_EQ(error, "needed by test_dependent.qrx");
  EXPECT_TRUE(rt::unloadModule("test_dependent", error));
  EXPECT_EQ(newOutput(), "[dependent 2]\n[recorder 11]\n");
  EXPECT_TRUE(rt::unloadModule("test_recorder", error));
}

TEST_F(ModuleLoadingTest, AtTheEndModulesGetQuitThenUnloadDependentsFirst) {
  ASSERT_TRUE(load("test_dependent"));
  ASSERT_TRUE(load("test_locked"));
  newOutput();
  rt::shutdown();
  EXPECT_EQ(newOutput(),
            "[locked 8]\n[locked 2]\n[dependent 8]\n[dependent 2]\n[recorder 11]\n"
            "[recorder 8]\n[recorder 2]\n");
  EXPECT_TRUE(rt::loadedModules().empty());
  EXPECT_FALSE(qxrxServiceIsRegistered(L"RecorderService"));
}

TEST_F(ModuleLoadingTest, TheLinkerLoadsAndReportsWhenAsked) {
  auto* linker = QxRxDynamicLinker::cast(qxrxSysRegistry()->at(L"DynamicLinker"));
  EXPECT_TRUE(linker->loadModule(L"test_recorder", true));
  EXPECT_NE(transcript().find("test_recorder loaded.\n"), std::string::npos);
  EXPECT_FALSE(linker->loadModule(L"test_refuser", true));
  EXPECT_NE(transcript().find("Unable to load test_refuser: the module refused to initialise\n"),
            std::string::npos);
  EXPECT_TRUE(linker->unloadModule(L"test_recorder", false));
  EXPECT_FALSE(linker->unloadModule(L"test_recorder", false));
}

TEST_F(ModuleLoadingTest, ApploadAndUnloadAreCommands) {
  runScript(
      "APPLOAD\ntest_recorder\nRECHELLO\nAPPLOAD\ntest_recorder\nAPPLOAD\nnothing_here\n"
      "UNLOAD\ntest_recorder\nUNLOAD\ntest_recorder\n");
  const std::string text = transcript();
  size_t at = findAfter(text,
                        "Module to load: test_recorder\n[recorder 1]\n[recorder 3]\n"
                        "test_recorder loaded.\n");
  at = findAfter(text, "[recorder] hello\n", at);
  at = findAfter(text, "test_recorder is already loaded.\n", at);
  at = findAfter(text, "Unable to load nothing_here: file not found\n", at);
  at = findAfter(text, "Module to unload: test_recorder\n[recorder 2]\ntest_recorder unloaded.\n",
                 at);
  at = findAfter(text, "Unable to unload test_recorder: not loaded\n", at);
  EXPECT_NE(at, std::string::npos) << text;
}

TEST_F(ModuleLoadingTest, UnloadRefusesALockedModuleWithTheReason) {
  runScript("APPLOAD\ntest_locked\nUNLOAD\ntest_locked\n");
  EXPECT_NE(transcript().find("Unable to unload test_locked: the module is locked\n"),
            std::string::npos)
      << transcript();
  EXPECT_TRUE(qxrxAppIsLoaded(L"test_locked"));
}

TEST(ApiVersionTest, IsPositive) {
  EXPECT_GT(qxrxGetApiVersion(), 0);
}

}  // namespace
}  // namespace korva::test
