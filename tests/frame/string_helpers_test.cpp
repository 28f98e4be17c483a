// Resource strings from the module's resource source, and the guarded case changes.
#include "frame/string_helpers.h"
#include "frame/module_state.h"
#include "frame/vn_exception.h"
#include "rt/modules.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

class StringHelpersTest : public ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    QxModuleHandle interfaceLibrary = qxrxGetModuleHandle(L"VnUinfo.dll");
    auto load = reinterpret_cast<QxLoadResourceModuleFunction>(
        qxrxGetProcOrdinal(interfaceLibrary, kQxLoadResourceModuleOrdinal));
    ASSERT_NE(load, nullptr);
    resources_ = load(L"VnExtendRes.dll");
    ASSERT_NE(resources_, nullptr);
    frame::setResourceModule(resources_);
  }
  void TearDown() override {
    frame::setResourceModule(nullptr);
    qxrxFreeLibrary(resources_);
    ScriptTest::TearDown();
  }
  QxModuleHandle resources_ = nullptr;
};

TEST_F(StringHelpersTest, StringsComeFromTheResourceModuleByTheirIds) {
  EXPECT_EQ(LoadResourceString(6069), L"ARCSUM");
  EXPECT_EQ(LoadResourceString(6900), L"%s is not available in this build yet.\n");
  EXPECT_EQ(LoadResourceString(1), L"");
  PrintResourceLine(6069);
  EXPECT_EQ(newOutput(), "\nARCSUM\n");
}

TEST_F(StringHelpersTest, AnUnknownIdIsAlsoShownInAMessageBox) {
  EXPECT_EQ(LoadStringChecked(6069), L"ARCSUM");
  EXPECT_EQ(newOutput(), "");
  EXPECT_EQ(LoadStringChecked(1), L"");
  EXPECT_NE(newOutput().find("loadstring error! check string id is right!"), std::string::npos);
}

TEST_F(StringHelpersTest, CaseChangesReachBeyondAscii) {
  std::wstring text = L"Straße, café ÉLAN 12";
  SafeUpper(text);
  EXPECT_EQ(text.substr(0, 6), L"STRAßE");  // ß has no single upper-case letter
  EXPECT_EQ(text.substr(6), L", CAFÉ ÉLAN 12");
  SafeLower(text);
  EXPECT_EQ(text, L"straße, café élan 12");
}

TEST_F(StringHelpersTest, AFailingCaseChangeIsRecordedThenThrownAndLeavesTheText) {
  std::wstring text = L"keep me";
  auto failing = [](std::wstring& changing) {
    changing = L"half done";
    throw std::length_error("string layer");
  };
  try {
    ChangeCaseSafely(text, failing);
    FAIL() << "nothing was thrown";
  } catch (const VnExceptionWithMsg& thrown) {
    EXPECT_EQ(thrown.fileText(), L"\"\"");
    EXPECT_EQ(thrown.line(), 0);
    EXPECT_EQ(thrown.message(), L"VN_IRELEASE_THROW");
    EXPECT_STREQ(thrown.what(), "VN_IRELEASE_THROW");
  }
  EXPECT_EQ(text, L"keep me");
  ASSERT_EQ(rt::recordedCrashes().size(), 1u);
  EXPECT_EQ(rt::recordedCrashes()[0], L"VN_IRELEASE_THROW");
}

}  // namespace
}  // namespace korva::test
