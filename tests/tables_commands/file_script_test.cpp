// NEW, OPEN, SAVEAS and QSAVE driven by scripts.
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "api/document.h"
#include "cmd/tables/layer_records.h"
#include "db/database.h"
#include "dxf/reader.h"
#include "tables_fixture.h"

namespace korva::test {
namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  std::stringstream text;
  text << stream.rdbuf();
  return text.str();
}

class FileScriptTest : public TableCommandTest {
 protected:
  api::DocumentList& documents() { return api::DocumentList::instance(); }
  std::string savedVersion(const fs::path& path) {
    dxf::ReadResult read = dxf::readFile(path.string());
    EXPECT_TRUE(read.ok()) << read.error;
    return read.ok() ? read.database->version() : "";
  }
};

TEST_F(FileScriptTest, SavedDrawingOpensAgainAsTheCurrentDrawing) {
  fs::path plan = scratch_ / "plan";  // the extension is added
  run("-LAYER\nNew\nWalls\n\nSAVEAS\n" + plan.string() + "\n");
  ASSERT_TRUE(fs::exists(scratch_ / "plan.dxf"));
  EXPECT_EQ(documents().current()->path(), (scratch_ / "plan.dxf").string());

  api::Document* saved = documents().current();
  run("NEW\n.\n");
  EXPECT_EQ(documents().documents().size(), 2u);
  EXPECT_TRUE(documents().current()->path().empty());
  EXPECT_FALSE(cmd::findLayer(L"Walls").has_value());

  // Read back from the file once the drawing that wrote it is closed.
  documents().close(saved);
  run("OPEN\n" + (scratch_ / "plan.dxf").string() + "\n");
  ASSERT_EQ(documents().documents().size(), 2u);
  EXPECT_NE(documents().current(), saved);
  EXPECT_EQ(documents().current()->path(), (scratch_ / "plan.dxf").string());
  EXPECT_TRUE(cmd::findLayer(L"Walls").has_value());

  // Opening it again switches to the drawing already open.
  run("NEW\n\n");
  std::string said = run("OPEN\n" + (scratch_ / "plan").string() + "\n");
  EXPECT_NE(said.find("is open already"), std::string::npos) << said;
  EXPECT_EQ(documents().documents().size(), 3u);
  EXPECT_TRUE(cmd::findLayer(L"Walls").has_value());

  said = run("OPEN\n" + (scratch_ / "missing.dxf").string() + "\n");
  EXPECT_NE(said.find("Can't find the drawing"), std::string::npos) << said;
  writeFile("broken.dxf", "0\nSECTION\n2\nHEADER\n9\n");
  said = run("OPEN\n" + (scratch_ / "broken.dxf").string() + "\n");
  EXPECT_NE(said.find("Can't open"), std::string::npos) << said;
  EXPECT_EQ(documents().documents().size(), 3u);
}

TEST_F(FileScriptTest, AsksBeforeReplacingAnotherFile) {
  std::string other = writeFile("other.dxf", "keep me");
  std::string said = run("SAVEAS\n" + other + "\n\n");  // Enter answers No
  EXPECT_NE(said.find("A drawing with this name already exists. Replace it?"), std::string::npos)
      << said;
  EXPECT_EQ(contents(other), "keep me");
  EXPECT_TRUE(documents().current()->path().empty());

  run("SAVE\n" + other + "\n_Y\n");
  EXPECT_NE(contents(other), "keep me");
  EXPECT_EQ(documents().current()->path(), other);

  // Saving to the drawing's own file asks nothing; QSAVE writes there too.
  run("-LAYER\nNew\nLater\n\nSAVEAS\n\n");
  EXPECT_NE(contents(other).find("Later"), std::string::npos);
  run("-LAYER\nNew\nLatest\n\nQSAVE\n");
  EXPECT_NE(contents(other).find("Latest"), std::string::npos);
}

TEST_F(FileScriptTest, QuickSaveOfANewDrawingAsksForAName) {
  std::string said = run("QSAVE\n" + (scratch_ / "first.dxf").string() + "\n");
  EXPECT_NE(said.find("Save drawing as [Version] <Drawing1.dxf>"), std::string::npos) << said;
  EXPECT_TRUE(fs::exists(scratch_ / "first.dxf"));
}

TEST_F(FileScriptTest, SavesInAnotherVersionOfTheSameKind) {
  ASSERT_EQ(api::currentDatabase()->version(), "AC1032");
  std::string said =
      run("SAVEAS\nVersion\nR12\nV\nR2013\n" + (scratch_ / "older.dxf").string() + "\n");
  EXPECT_NE(said.find("A drawing of version R2018 can't be saved as R12."), std::string::npos)
      << said;
  EXPECT_EQ(savedVersion(scratch_ / "older.dxf"), "AC1027");
  EXPECT_EQ(api::currentDatabase()->version(), "AC1027");
}

TEST_F(FileScriptTest, NewDrawingFromATemplateHasNoName) {
  run("-LAYER\nNew\nFromTemplate\n\nSAVEAS\n" + (scratch_ / "template.dxf").string() + "\n");
  run("NEW\n" + (scratch_ / "template").string() + "\n");
  EXPECT_TRUE(documents().current()->path().empty());
  EXPECT_TRUE(cmd::findLayer(L"FromTemplate").has_value());
}

}  // namespace
}  // namespace korva::test
