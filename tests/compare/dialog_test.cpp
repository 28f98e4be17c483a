// FCMP through its dialog, driven by dialog actions: the checks of OK, the log, and the
// options that only Apply and Reset store.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "cmd/command_stack.h"
#include "compare/file_compare_commands.h"
#include "compare/file_compare_options.h"
#include "compare_drawing.h"

namespace korva::test {
namespace {

namespace fs = std::filesystem;

class CompareDialogTest : public CompareDrawingTest {
 protected:
  void SetUp() override {
    CompareDrawingTest::SetUp();
    useModuleResources();
    static const bool registered =
        cmd::commandStack()->addCommand(L"COMPARE_DIALOG_TESTS", L"FCMP", L"FCMP", QXRX_CMD_MODAL,
                                        cmdFileCompare) == Qxad::eOk;
    ASSERT_TRUE(registered);
    folder_ = fs::temp_directory_path() / ("compare_dialog_test_" + std::to_string(getpid()));
    fs::remove_all(folder_);
    fs::create_directories(folder_ / "user");
    setenv("TMPDIR", folder_.c_str(), 1);
    QxDbDatabase drawing(true, false);
    ASSERT_EQ(drawing.saveAs(path("a.dxf").wstring().c_str()), Qxad::eOk);
    ASSERT_EQ(drawing.saveAs(path("b.dxf").wstring().c_str()), Qxad::eOk);
    VnFileCompareOptions defaults;
    defaults.Save();
  }
  void TearDown() override {
    unsetenv("TMPDIR");
    fs::remove_all(folder_);
    CompareDrawingTest::TearDown();
  }
  fs::path path(const char* name) const { return folder_ / "user" / name; }
  std::string pathsAndOk() const {
    return "set 3180 " + path("a.dxf").string() + "\nset 3181 " + path("b.dxf").string() + "\n";
  }
  fs::path folder_;
};

TEST_F(CompareDialogTest, OkComparesAndWritesTheLogWhenAsked) {
  const fs::path log = path("changes.csv");
  runScript("FCMP\n" + pathsAndOk() + "click 3229\nset 3227 " + log.string() + "\nclick 1\n");
  EXPECT_TRUE(fs::exists(folder_ / "fcmp" / "Old - a.dxf"));
  EXPECT_TRUE(fs::exists(folder_ / "fcmp" / "New - b.dxf"));
  std::ifstream file(log, std::ios::binary);
  std::stringstream bytes;
  bytes << file.rdbuf();
  // Two copies of one drawing: the heading alone.
  EXPECT_EQ(bytes.str(), "Status,Handle,Type,Lower corner,,Upper corner,,Layout\r");
}

TEST_F(CompareDialogTest, OkRefusesMissingFilesTheSameFileAndAnUnwritableLog) {
  runScript("FCMP\nset 3180 " + path("none.dxf").string() + "\nclick 1\n\n" + "set 3180 " +
            path("a.dxf").string() + "\nset 3181 " + path("a.dxf").string() +
            "\nclick 1\n\nset 3181 " + path("b.dxf").string() +
            "\nclick 3229\nset 3227 /nonexistent-folder/log.csv\nclick 1\n\nclick 2\n");
  const std::string output = transcript();
  size_t at = findAfter(output, "The drawing file does not exist.");
  at = findAfter(output, "The old and the new drawing are the same file.", at);
  at = findAfter(output, "The log file can't be written.", at);
  EXPECT_NE(at, std::string::npos) << output;
  EXPECT_FALSE(fs::exists(folder_ / "fcmp"));
}

TEST_F(CompareDialogTest, OnlyApplyAndResetStoreTheOptions) {
  // Changed and cancelled: nothing stored.
  runScript("FCMP\nclick 3184\ncheck 3196 0\nclick 2\n");
  VnFileCompareOptions stored;
  stored.Load();
  EXPECT_EQ(stored.GetOldDifferentVisible(), 1);

  // Applied, then cancelled: stored. A colour is chosen at the command line.
  runScript("FCMP\ncheck 3196 0\ncheck 3194 6 0\nclick 3188\n40\nclick 3192\nshow\nclick 2\n");
  EXPECT_NE(transcript().find("3188 owner-drawn \"Color 40\""), std::string::npos);
  stored.Load();
  EXPECT_EQ(stored.GetOldDifferentVisible(), 0);
  EXPECT_EQ(stored.GetOldSameColor(), 40);
  EXPECT_EQ(stored.GetCompareFlag(), kCompareAll & ~kCompareGeometry);

  // Reset stores the defaults at once.
  runScript("FCMP\nclick 3193\nclick 2\n");
  stored.Load();
  EXPECT_EQ(stored.GetOldDifferentVisible(), 1);
  EXPECT_EQ(stored.GetCompareFlag(), kCompareAll);
}

}  // namespace
}  // namespace korva::test
