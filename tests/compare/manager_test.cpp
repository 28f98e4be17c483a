// A whole comparison from two revisions of a drawing on disk: the user's files stay as
// they were, the copies are marked up by layer, and the log lists the differences in
// their fixed order.
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "compare/file_compare_manager.h"
#include "frame/host_interface.h"

namespace {

namespace fs = std::filesystem;

std::string ReadBytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::stringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

QxDbObjectId AddLine(QxDbDatabase& database, double y) {
  QxDbObject* object = nullptr;
  EXPECT_EQ(qxdbOpenQxDbObject(object, database.currentSpaceId(), QxDb::kForWrite), Qxad::eOk);
  auto* space = QxDbBlockTableRecord::cast(object);
  auto* line = new QxDbLine(QxGePoint3d(0, y, 0), QxGePoint3d(10, y, 0));
  QxDbObjectId id;
  EXPECT_EQ(space->appendQxDbEntity(id, line), Qxad::eOk);
  line->close();
  space->close();
  return id;
}

// The layer name of an entity of a database.
std::wstring LayerOf(QxDbDatabase& database, QxDbHandle handle) {
  QxDbEntity* entity = nullptr;
  const QxDbObjectId id =
      QxDbObjectId::fromParts(database.currentSpaceId().databaseSerial(), handle.value());
  if (qxdbOpenQxDbEntity(entity, id, QxDb::kForRead) != Qxad::eOk) return L"(none)";
  wchar_t* name = entity->layer();
  std::wstring layer = name ? name : L"";
  qxad_free(name);
  entity->close();
  return layer;
}

class CompareManagerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("compare_manager_test_" + std::to_string(getpid()));
    fs::remove_all(folder_);
    fs::create_directories(folder_ / "user");
    hadTemporary_ = std::getenv("TMPDIR") != nullptr;
    if (hadTemporary_) previousTemporary_ = std::getenv("TMPDIR");
    setenv("TMPDIR", folder_.c_str(), 1);
    oldPath_ = folder_ / "user" / "plan.dxf";
    newPath_ = folder_ / "user" / "plan-b.dxf";

    // The first revision: three lines.
    QxDbDatabase first(true, false);
    moved_ = AddLine(first, 0).handle();
    erased_ = AddLine(first, 5).handle();
    kept_ = AddLine(first, 10).handle();
    ASSERT_EQ(first.saveAs(oldPath_.wstring().c_str()), Qxad::eOk);

    // The second: the first line moved, the second erased, a fourth added.
    QxDbDatabase second(false, false);
    ASSERT_EQ(second.readDwgFile(oldPath_.wstring().c_str()), Qxad::eOk);
    const std::uint64_t serial = second.currentSpaceId().databaseSerial();
    QxDbEntity* entity = nullptr;
    ASSERT_EQ(qxdbOpenQxDbEntity(entity, QxDbObjectId::fromParts(serial, moved_.value()),
                                 QxDb::kForWrite),
              Qxad::eOk);
    static_cast<QxDbLine*>(entity)->setEndPoint(QxGePoint3d(12, 0, 0));
    entity->close();
    ASSERT_EQ(qxdbOpenQxDbEntity(entity, QxDbObjectId::fromParts(serial, erased_.value()),
                                 QxDb::kForWrite),
              Qxad::eOk);
    entity->erase();
    entity->close();
    added_ = AddLine(second, 20).handle();
    ASSERT_EQ(second.saveAs(newPath_.wstring().c_str()), Qxad::eOk);
  }
  void TearDown() override {
    if (hadTemporary_) {
      setenv("TMPDIR", previousTemporary_.c_str(), 1);
    } else {
      unsetenv("TMPDIR");
    }
    fs::remove_all(folder_);
  }

  fs::path folder_;
  bool hadTemporary_ = false;
  std::string previousTemporary_;
  fs::path oldPath_;
  fs::path newPath_;
  QxDbHandle moved_, erased_, kept_, added_;
};

TEST_F(CompareManagerTest, TheCopiesAreMarkedUpAndTheUsersFilesStayAsTheyWere) {
  const std::string oldBytes = ReadBytes(oldPath_);
  const std::string newBytes = ReadBytes(newPath_);
  VnFileCompareManager manager;
  ASSERT_TRUE(manager.CompareFiles(oldPath_.wstring(), newPath_.wstring()));
  EXPECT_EQ(qxdbOpenObjectCount(), 0u);
  EXPECT_EQ(ReadBytes(oldPath_), oldBytes);
  EXPECT_EQ(ReadBytes(newPath_), newBytes);
  EXPECT_EQ(fs::path(manager.OldResultPath()), folder_ / "fcmp" / "Old - plan.dxf");
  EXPECT_EQ(fs::path(manager.NewResultPath()), folder_ / "fcmp" / "New - plan-b.dxf");
  // The saves keep no back-ups of the copies.
  std::vector<std::string> left;
  for (const auto& entry : fs::directory_iterator(folder_ / "fcmp")) {
    left.push_back(entry.path().filename().string());
  }
  std::sort(left.begin(), left.end());
  EXPECT_EQ(left, (std::vector<std::string>{"New - plan-b.dxf", "Old - plan.dxf"}));

  QxDbDatabase oldResult(false, false);
  ASSERT_EQ(oldResult.readDwgFile(manager.OldResultPath().c_str()), Qxad::eOk);
  EXPECT_EQ(LayerOf(oldResult, moved_), L"VN_FILECOMPARE_MOD");
  EXPECT_EQ(LayerOf(oldResult, erased_), L"VN_FILECOMPARE_DIF");
  EXPECT_EQ(LayerOf(oldResult, kept_), L"VN_FILECOMPARE_SAM");
  QxDbDatabase newResult(false, false);
  ASSERT_EQ(newResult.readDwgFile(manager.NewResultPath().c_str()), Qxad::eOk);
  EXPECT_EQ(LayerOf(newResult, moved_), L"VN_FILECOMPARE_MOD");
  EXPECT_EQ(LayerOf(newResult, kept_), L"VN_FILECOMPARE_SAM");
  EXPECT_EQ(LayerOf(newResult, added_), L"VN_FILECOMPARE_DIF");

  // New-only first, then old-only, then the modified pairs.
  const auto& records = manager.Log().Records();
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0].kind, kNewEntity);
  EXPECT_EQ(records[1].kind, kOldEntity);
  EXPECT_EQ(records[2].kind, kModifiedPair);
  // Type and layout come from the entity lists of the two side databases.
  for (const VnFileCompareData& record : records) {
    EXPECT_EQ(record.type, L"LINE");
    EXPECT_EQ(record.layout, L"Model");
  }
  wchar_t handle[17] = {};
  moved_.getIntoAsciiBuffer(handle, 17);
  EXPECT_EQ(records[2].handle, handle);
}

TEST_F(CompareManagerTest, AFileComparedWithItselfIsAllTheSame) {
  VnFileCompareManager manager;
  ASSERT_TRUE(manager.CompareFiles(oldPath_.wstring(), oldPath_.wstring()));
  EXPECT_TRUE(manager.Log().Records().empty());
  QxDbDatabase newResult(false, false);
  ASSERT_EQ(newResult.readDwgFile(manager.NewResultPath().c_str()), Qxad::eOk);
  EXPECT_EQ(LayerOf(newResult, moved_), L"VN_FILECOMPARE_SAM");
  EXPECT_EQ(LayerOf(newResult, erased_), L"VN_FILECOMPARE_SAM");
}

TEST_F(CompareManagerTest, AMissingFileFailsSilently) {
  VnFileCompareManager manager;
  EXPECT_FALSE(manager.CompareFiles((folder_ / "none.dxf").wstring(), newPath_.wstring()));
  EXPECT_TRUE(manager.Log().Records().empty());
}

// Two revisions, written by a script, in which one handle names a line and then a circle;
// the handle, or 0 when the script failed.
std::uint64_t WriteHandleClash(const fs::path& oldFile, const fs::path& newFile) {
  const std::string command = std::string(KORVA_PYTHON) + " " + HANDLE_CLASH_SCRIPT + " " +
                              oldFile.string() + " " + newFile.string();
  FILE* output = popen(command.c_str(), "r");
  if (!output) return 0;
  char text[32] = {};
  const bool read = std::fgets(text, sizeof text, output) != nullptr;
  const int status = pclose(output);
  return read && status == 0 ? std::stoull(text, nullptr, 16) : 0;
}

TEST_F(CompareManagerTest, OneHandleWithTwoClassesIsDifferentOnBothSides) {
  const fs::path lineFile = folder_ / "user" / "line.dxf";
  const fs::path circleFile = folder_ / "user" / "circle.dxf";
  const std::uint64_t handle = WriteHandleClash(lineFile, circleFile);
  ASSERT_NE(handle, 0u);
  VnFileCompareOptions options;
  options.SetOldDifferentVisible(0);
  VnFileCompareManager manager;
  manager.SetOptions(options);
  ASSERT_TRUE(manager.CompareFiles(lineFile.wstring(), circleFile.wstring()));
  const auto& records = manager.Log().Records();
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0].kind, kOldEntity);
  EXPECT_EQ(records[0].type, L"LINE");
  EXPECT_EQ(records[1].kind, kNewEntity);
  EXPECT_EQ(records[1].type, L"CIRCLE");

  QxDbDatabase oldResult(false, false);
  ASSERT_EQ(oldResult.readDwgFile(manager.OldResultPath().c_str()), Qxad::eOk);
  EXPECT_EQ(LayerOf(oldResult, QxDbHandle(handle)), L"VN_FILECOMPARE_DIF");
  // The class made invisible is frozen; the others are made even with nothing on them.
  QxDbLayerTable* layers = nullptr;
  ASSERT_EQ(oldResult.getSymbolTable(layers, QxDb::kForRead), Qxad::eOk);
  QxDbLayerTableRecord* different = nullptr;
  ASSERT_EQ(layers->getAt(L"VN_FILECOMPARE_DIF", different, QxDb::kForRead), Qxad::eOk);
  EXPECT_TRUE(different->isFrozen());
  EXPECT_EQ(different->color().colorIndex(), 1);
  different->close();
  EXPECT_TRUE(layers->has(L"VN_FILECOMPARE_MOD"));
  EXPECT_TRUE(layers->has(L"VN_FILECOMPARE_SAM"));
  layers->close();
}

}  // namespace
