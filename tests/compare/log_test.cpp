// The comparison log: what a record takes from its entities, and the file's exact form.
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "compare/file_compare_log.h"
#include "compare_drawing.h"

namespace korva::test {
namespace {

class CompareLogTest : public CompareDrawingTest {
 protected:
  // The headings and labels come from the module's resources.
  void SetUp() override {
    CompareDrawingTest::SetUp();
    useModuleResources();
  }
  static std::wstring handleOf(QxDbObjectId id) {
    wchar_t text[17] = {};
    id.handle().getIntoAsciiBuffer(text, 17);
    return text;
  }
  static std::string narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
  }

  const double origin_[3] = {0, 0, 0};
  const double east_[3] = {10.4, 0, 0};
  const double far_[3] = {30, 20.6, -2};
};

TEST_F(CompareLogTest, RecordsTakeKindHandleTypeAndExtents) {
  const QxDbObjectId oldLine = line(origin_, east_);
  const QxDbObjectId newLine = line(east_, far_);
  const QxDbObjectId circleId = circle(far_, 2);
  VnFileCompareLog log;
  ASSERT_TRUE(log.AddOldEntity(oldLine));
  ASSERT_TRUE(log.AddNewEntity(circleId));
  ASSERT_TRUE(log.AddModifiedEntity(oldLine, newLine));
  EXPECT_FALSE(log.AddModifiedEntity(oldLine, QxDbObjectId::kNull));
  EXPECT_FALSE(log.AddOldEntity(QxDbObjectId::kNull));
  EXPECT_EQ(qxdbOpenObjectCount(), 0u);

  const auto& records = log.Records();
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0].kind, kOldEntity);
  EXPECT_EQ(records[0].handle, handleOf(oldLine));
  EXPECT_EQ(records[0].type, L"LINE");
  EXPECT_EQ(records[1].kind, kNewEntity);
  EXPECT_EQ(records[1].type, L"CIRCLE");
  EXPECT_EQ(records[1].extents.minPoint(), QxGePoint3d(28, -2 + 20.6, -2));
  // A modified pair names the old entity and spans both positions.
  EXPECT_EQ(records[2].kind, kModifiedPair);
  EXPECT_EQ(records[2].handle, handleOf(oldLine));
  EXPECT_EQ(records[2].extents.minPoint(), QxGePoint3d(0, 0, -2));
  EXPECT_EQ(records[2].extents.maxPoint(), QxGePoint3d(30, 20.6, 0));
}

TEST_F(CompareLogTest, TheFileHasEightColumnsAndCarriageReturnsOnly) {
  const QxDbObjectId oldLine = line(origin_, east_);
  const QxDbObjectId newLine = line(east_, far_);
  VnFileCompareLog log;
  log.AddNewEntity(newLine);
  log.AddModifiedEntity(oldLine, newLine);
  const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                     ("compare_log_test_" + std::to_string(getpid()) + ".csv");
  ASSERT_TRUE(log.Save(path.wstring().c_str()));
  std::ifstream file(path, std::ios::binary);
  std::stringstream bytes;
  bytes << file.rdbuf();
  std::filesystem::remove(path);

  const std::string layout = narrow(log.Records()[0].layout);
  const std::string expected =
      "Status,Handle,Type,Lower corner,,Upper corner,,Layout\r"
      "Added,\"\"\"" +
      narrow(handleOf(newLine)) + "\"\"\",LINE,\"(10,0,-2)\",,\"(30,21,0)\",," + layout + "\r" +
      "Modified,\"\"\"" + narrow(handleOf(oldLine)) + "\"\"\",LINE,\"(0,0,-2)\",,\"(30,21,0)\",," +
      layout + "\r";
  EXPECT_EQ(bytes.str(), expected);
}

TEST_F(CompareLogTest, AFileThatCantBeMadeIsRefused) {
  VnFileCompareLog log;
  EXPECT_FALSE(log.Save(L"/nonexistent-folder/log.csv"));
}

}  // namespace
}  // namespace korva::test
