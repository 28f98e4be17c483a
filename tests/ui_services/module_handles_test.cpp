// Resource modules loaded through the interface library's ordinal 14, their strings by
// id, reference counts, and the module handles of loaded code.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "input/support_path.h"
#include "qx_resources.h"
#include "qx_runtime.h"
#include "ui/resource_module.h"
#include "ui_fixture.h"

// Found by name through the program's handle (the tests export their symbols).
extern "C" int testExportedFunction() {
  return 14;
}

namespace korva::test {
namespace {

namespace fs = std::filesystem;

class ModuleHandlesTest : public UiServicesTest {
 protected:
  void SetUp() override {
    UiServicesTest::SetUp();
    fs::create_directories(scratch_ / "resources");
    fs::copy_file(KORVA_TEST_RESOURCES, scratch_ / "resources" / "TestRes.rc");
    input::addSupportFolder((scratch_ / "resources").string());
  }
  void TearDown() override {
    input::clearSupportFolders();
    UiServicesTest::TearDown();
  }

  QxLoadResourceModuleFunction loader() {
    QxModuleHandle library = qxrxGetModuleHandle(L"VnUinfo.dll");
    return reinterpret_cast<QxLoadResourceModuleFunction>(
        qxrxGetProcOrdinal(library, kQxLoadResourceModuleOrdinal));
  }
};

TEST_F(ModuleHandlesTest, LoadsOnceAndCountsReferences) {
  QxLoadResourceModuleFunction load = loader();
  ASSERT_NE(load, nullptr);
  QxModuleHandle first = load(L"TestRes.dll");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(load(L"testres.DLL"), first);
  EXPECT_EQ(qxrxGetModuleHandle(L"TestRes.dll"), first);
  EXPECT_STREQ(qxrxFindResourceString(first, 100), L"Plain text");
  ASSERT_NE(ui::resourceModuleOf(first), nullptr);
  EXPECT_NE(ui::resourceModuleOf(first)->dialog(300), nullptr);

  EXPECT_TRUE(qxrxFreeLibrary(first));
  EXPECT_NE(ui::resourceModuleOf(first), nullptr);  // one reference is left
  EXPECT_TRUE(qxrxFreeLibrary(first));
  EXPECT_EQ(ui::resourceModuleOf(first), nullptr);
  EXPECT_EQ(qxrxGetModuleHandle(L"TestRes.dll"), nullptr);
  EXPECT_FALSE(qxrxFreeLibrary(first));
}

TEST_F(ModuleHandlesTest, LoadStringCutsToTheBuffer) {
  QxModuleHandle resources = loader()(L"TestRes.dll");
  ASSERT_NE(resources, nullptr);
  wchar_t buffer[6];
  EXPECT_EQ(qxrxLoadString(resources, 100, buffer, std::size(buffer)), 5);
  EXPECT_STREQ(buffer, L"Plain");
  EXPECT_EQ(qxrxLoadString(resources, 999, buffer, std::size(buffer)), 0);
  EXPECT_STREQ(buffer, L"");
  EXPECT_EQ(qxrxFindResourceString(resources, 999), nullptr);
  EXPECT_TRUE(qxrxFreeLibrary(resources));
}

TEST_F(ModuleHandlesTest, NullMeansTheResourcesInUse) {
  QxModuleHandle resources = loader()(L"TestRes.dll");
  ASSERT_NE(resources, nullptr);
  QxApDocManager* manager = qxDocManagerPtr();
  EXPECT_EQ(qxrxFindResourceString(nullptr, 102), nullptr);
  manager->pushResourceHandle(resources);
  EXPECT_STREQ(qxrxFindResourceString(nullptr, 102), L"Joined from two");
  EXPECT_EQ(ui::currentResources(), ui::resourceModuleOf(resources));
  // A module's own instance holds no resources.
  manager->pushResourceHandle(qxrxModuleOfAddress(reinterpret_cast<void*>(&qxrxLoadString)));
  EXPECT_EQ(qxrxFindResourceString(nullptr, 102), nullptr);
  manager->popResourceHandle();
  manager->popResourceHandle();
  EXPECT_EQ(ui::currentResources(), nullptr);
  EXPECT_TRUE(qxrxFreeLibrary(resources));
}

TEST_F(ModuleHandlesTest, MissingOrBrokenSourcesGiveNoHandle) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(loader()(L"Absent.dll"), nullptr);
  std::ofstream(scratch_ / "resources" / "Broken.rc") << "STRINGTABLE\nBEGIN\n  1 oops\nEND\n";
  EXPECT_EQ(loader()(L"Broken.dll"), nullptr);
  const std::string errors = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(errors.find("Absent.rc was not found"), std::string::npos) << errors;
  EXPECT_NE(errors.find("Broken.rc: line 3: expected the string of the id in quotes"),
            std::string::npos)
      << errors;
  EXPECT_EQ(loader()(nullptr), nullptr);
}

TEST_F(ModuleHandlesTest, CodeHandlesReachTheirFunctions) {
  // korva's own library: its functions go by their symbol names.
  const void* function = reinterpret_cast<void*>(&qxrxGetModuleHandle);
  QxModuleHandle host = qxrxModuleOfAddress(function);
  ASSERT_NE(host, nullptr);
  Dl_info info{};
  ASSERT_NE(dladdr(function, &info), 0);
  ASSERT_NE(info.dli_sname, nullptr);
  EXPECT_EQ(qxrxGetProcAddress(host, info.dli_sname), function);
  EXPECT_EQ(qxrxGetProcAddress(host, "noSuchFunction"), nullptr);
  EXPECT_TRUE(qxrxFreeLibrary(host));  // a look-up, nothing is unloaded
  EXPECT_EQ(qxrxGetProcAddress(host, info.dli_sname), function);

  // The program itself, which has no file name of its own to the loader.
  QxModuleHandle program = qxrxModuleOfAddress(reinterpret_cast<void*>(&testExportedFunction));
  ASSERT_NE(program, nullptr);
  EXPECT_EQ(qxrxGetProcAddress(program, "testExportedFunction"),
            reinterpret_cast<void*>(&testExportedFunction));

  // Handles korva didn't give out are refused, not handed to the loader.
  int stranger = 0;
  EXPECT_EQ(qxrxGetProcAddress(&stranger, "qxrxGetModuleHandle"), nullptr);
  EXPECT_FALSE(qxrxFreeLibrary(&stranger));

  QxModuleHandle library = qxrxGetModuleHandle(L"vnuinfo");
  EXPECT_EQ(library, qxrxGetModuleHandle(L"VnUinfo.dll"));
  EXPECT_EQ(qxrxGetProcOrdinal(library, 13), nullptr);
  EXPECT_EQ(qxrxGetProcOrdinal(host, kQxLoadResourceModuleOrdinal), nullptr);
  EXPECT_EQ(qxrxGetModuleHandle(L"NotLoaded.qrx"), nullptr);
  EXPECT_EQ(qxrxGetModuleHandle(nullptr), nullptr);
}

}  // namespace
}  // namespace korva::test
