// -FCMP: the answers it refuses and why, starting over on the same file twice, and a
// comparison that leaves its two results in the temporary folder.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "cmd/command_stack.h"
#include "compare/file_compare_commands.h"
#include "compare_drawing.h"

namespace korva::test {
namespace {

namespace fs = std::filesystem;

class CommandLineTest : public CompareDrawingTest {
 protected:
  void SetUp() override {
    CompareDrawingTest::SetUp();
    useModuleResources();
    static const bool registered =
        cmd::commandStack()->addCommand(L"COMPARE_TESTS", L"-FCMP", L"-FCMP", QXRX_CMD_MODAL,
                                        cmdFileCompareCommandLine) == Qxad::eOk;
    ASSERT_TRUE(registered);
    folder_ = fs::temp_directory_path() / ("compare_command_line_test_" + std::to_string(getpid()));
    fs::remove_all(folder_);
    fs::create_directories(folder_ / "user");
    setenv("TMPDIR", folder_.c_str(), 1);
    QxDbDatabase drawing(true, false);
    ASSERT_EQ(drawing.saveAs((folder_ / "user" / "a.dxf").wstring().c_str()), Qxad::eOk);
    ASSERT_EQ(drawing.saveAs((folder_ / "user" / "b.DXF").wstring().c_str()), Qxad::eOk);
    std::ofstream(folder_ / "user" / "notes.txt") << "text";
  }
  void TearDown() override {
    unsetenv("TMPDIR");
    fs::remove_all(folder_);
    CompareDrawingTest::TearDown();
  }
  std::string user(const char* name) const { return (folder_ / "user" / name).string(); }
  fs::path folder_;
};

TEST_F(CommandLineTest, RefusedAnswersAskAgainAndTheSameFileTwiceStartsOver) {
  QxApDocManager* documents = qxDocManagerPtr();
  QxApDocument* current = documents->curDocument();
  const int openBefore = documents->documentCount();
  runScript("-FCMP\n" + user("missing.dxf") + "\n" + user("") + "\n" + user("notes.txt") + "\n" +
            user("a.dxf") + "\n" + user("a.dxf") + "\n" + user("a.dxf") + "\n" + user("b.DXF") +
            "\n");
  const std::string output = transcript();
  size_t at = findAfter(output, "The file does not exist or is a folder.");
  at = findAfter(output, "The file does not exist or is a folder.", at + 1);
  at = findAfter(output, "The file is not a drawing.", at);
  at = findAfter(output, "Old drawing file: ", at);
  at = findAfter(output, "New drawing file: ", at);
  at = findAfter(output, "The old and the new drawing are the same file.", at);
  at = findAfter(output, "Old drawing file: ", at);
  at = findAfter(output, "New drawing file: ", at);
  EXPECT_NE(at, std::string::npos) << output;
  EXPECT_TRUE(fs::exists(folder_ / "fcmp" / "Old - a.dxf"));
  EXPECT_TRUE(fs::exists(folder_ / "fcmp" / "New - b.DXF"));
  EXPECT_FALSE(fs::exists(folder_ / "fcmp" / "Old - a.bak"));
  // Both results are open beside the drawing, which stays current, and the host said so,
  // once for each.
  at = findAfter(output, "Opened drawing " + (folder_ / "fcmp" / "Old - a.dxf").string() + ".\n",
                 at);
  at = findAfter(output, "Opened drawing " + (folder_ / "fcmp" / "New - b.DXF").string() + ".\n",
                 at);
  EXPECT_NE(at, std::string::npos) << output;
  EXPECT_EQ(output.find("Opened drawing", at + 1), std::string::npos) << output;
  EXPECT_EQ(documents->documentCount(), openBefore + 2);
  EXPECT_EQ(documents->curDocument(), current);
}

TEST_F(CommandLineTest, CancellingTheSecondPromptComparesNothing) {
  runScript("-FCMP\n" + user("a.dxf") + "\n\x03");
  EXPECT_FALSE(fs::exists(folder_ / "fcmp"));
}

}  // namespace
}  // namespace korva::test
