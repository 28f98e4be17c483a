// qxedFindFile: the drawing's folder, the added folders in order, the installed support
// folder, the current folder; absolute names as they are.
#include <filesystem>
#include <string>

#include "api/document.h"
#include "input/support_path.h"
#include "qx_input.h"
#include "qx_types.h"
#include "tables_fixture.h"

namespace korva::test {
namespace {

namespace fs = std::filesystem;

class SupportPathTest : public TableCommandTest {
 protected:
  std::wstring find(const wchar_t* name, std::size_t bufferChars = 512) {
    std::wstring result(bufferChars, L'\0');
    if (qxedFindFile(name, result.data(), bufferChars) != RTNORM) return L"(not found)";
    return result.c_str();
  }
  std::wstring wide(const fs::path& path) { return path.lexically_normal().wstring(); }
};

TEST_F(SupportPathTest, SearchesTheFoldersInOrder) {
  for (const char* folder : {"drawing", "first", "second", "current"}) {
    writeFile(std::string(folder) + "/probe.lin", folder);
  }
  api::DocumentList::instance().current()->setPath((scratch_ / "drawing" / "plan.dxf").string());
  input::addSupportFolder((scratch_ / "first").string());
  input::addSupportFolder((scratch_ / "second").string());
  input::addSupportFolder((scratch_ / "not-there").string());
  fs::path before = fs::current_path();
  fs::current_path(scratch_ / "current");

  EXPECT_EQ(find(L"probe.lin"), wide(scratch_ / "drawing" / "probe.lin"));
  fs::remove(scratch_ / "drawing" / "probe.lin");
  EXPECT_EQ(find(L"probe.lin"), wide(scratch_ / "first" / "probe.lin"));
  fs::remove(scratch_ / "first" / "probe.lin");
  EXPECT_EQ(find(L"probe.lin"), wide(scratch_ / "second" / "probe.lin"));
  fs::remove(scratch_ / "second" / "probe.lin");
  EXPECT_EQ(find(L"probe.lin"), wide(scratch_ / "current" / "probe.lin"));
  fs::remove(scratch_ / "current" / "probe.lin");
  EXPECT_EQ(find(L"probe.lin"), L"(not found)");

  // The installed folder comes before the current folder.
  writeFile("current/KORVA.lin", "");
  EXPECT_EQ(find(L"KORVA.lin"), wide(fs::path(input::installedSupportFolder()) / "KORVA.lin"));
  fs::current_path(before);
}

TEST_F(SupportPathTest, TakesAbsoluteAndNestedNames) {
  std::string path = writeFile("nested/deeper/part.lin", "");
  EXPECT_EQ(find(fs::path(path).wstring().c_str()), wide(path));
  EXPECT_EQ(find((scratch_ / "nested" / "missing.lin").wstring().c_str()), L"(not found)");
  input::addSupportFolder((scratch_ / "nested").string());
  EXPECT_EQ(find(L"deeper/part.lin"), wide(path));
  // A folder of that name isn't a file.
  EXPECT_EQ(find(L"deeper"), L"(not found)");
}

TEST_F(SupportPathTest, RefusesWhatDoesNotFit) {
  std::string path = writeFile("file.lin", "");
  input::addSupportFolder(scratch_.string());
  EXPECT_EQ(find(L"file.lin", path.size()), L"(not found)");  // no room for the terminator
  EXPECT_EQ(find(L"file.lin", path.size() + 1), wide(path));
  wchar_t buffer[16];
  EXPECT_EQ(qxedFindFile(nullptr, buffer, 16), RTERROR);
  EXPECT_EQ(qxedFindFile(L"", buffer, 16), RTERROR);
}

}  // namespace
}  // namespace korva::test
