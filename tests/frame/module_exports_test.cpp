// The built module as the loader sees it: its three exports, and the interface version
// it gives, which is the host library's own.
#include <dlfcn.h>

#include <filesystem>

#include "qx_runtime.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

class ModuleExportsTest : public ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    const std::filesystem::path module =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "VnExtend.qrx";
    library_ = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library_, nullptr) << dlerror();
  }
  void TearDown() override {
    if (library_) dlclose(library_);
    ScriptTest::TearDown();
  }
  void* library_ = nullptr;
};

TEST_F(ModuleExportsTest, TheModuleForwardsTheHostsInterfaceVersion) {
  ASSERT_NE(dlsym(library_, "qxrxEntryPoint"), nullptr);
  auto version = reinterpret_cast<int (*)()>(dlsym(library_, "qxrxGetApiVersion"));
  ASSERT_NE(version, nullptr);
  EXPECT_NE(reinterpret_cast<void*>(version), reinterpret_cast<void*>(&qxrxGetApiVersion));
  EXPECT_EQ(version(), qxrxGetApiVersion());
  // Helpers of the module stay hidden.
  EXPECT_EQ(dlsym(library_, "_Z18LoadResourceStringj"), nullptr);
}

TEST_F(ModuleExportsTest, UnknownSolidCodesDoNothing) {
  auto redirect = reinterpret_cast<void (*)(int)>(dlsym(library_, "AcisCmdRedirectAICmdForSTD"));
  ASSERT_NE(redirect, nullptr);
  redirect(0);
  redirect(7);
  EXPECT_EQ(newOutput(), "");
}

}  // namespace
}  // namespace korva::test
