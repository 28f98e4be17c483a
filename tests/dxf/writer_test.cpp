// Writing: untouched drawings come back byte for byte, edits touch only what changed,
// binary files carry the same records, saves are atomic, new drawings are complete.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "db/group_code.h"
#include "db/value_text.h"
#include "dxf/new_drawing.h"
#include "dxf/reader.h"
#include "dxf/binary_format.h"
#include "dxf/writer.h"
#include "sample_drawing.h"

namespace korva {
namespace {

namespace fs = std::filesystem;
using db::Handle;

std::unique_ptr<db::Database> read(std::string text) {
  dxf::ReadResult result = dxf::readBuffer(std::move(text));
  EXPECT_TRUE(result.ok()) << result.error;
  EXPECT_TRUE(result.warnings.empty()) << dxf::describe(result.warnings.front());
  return std::move(result.database);
}

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  std::istringstream stream{std::string(text)};
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

class Untouched : public ::testing::TestWithParam<std::string> {};

TEST_P(Untouched, DrawingIsWrittenBackByteForByte) {
  std::unique_ptr<db::Database> database = read(GetParam());
  ASSERT_TRUE(database);
  EXPECT_EQ(dxf::writeToString(*database), GetParam());
}

std::string sampleWithExtras() {
  std::string text(test::kSampleDrawing);
  // A comment inside the entities, blanks after values, odd but valid spellings.
  text.replace(text.find("  0\nCIRCLE"), 0, "999\na comment among the entities\n");
  text.replace(text.find("2.0\n"), 4, " 2.00 \n");
  text.replace(text.find(" 40\n5.0\n"), 8, "40\n+5.\n");
  return text;
}

INSTANTIATE_TEST_SUITE_P(
    Spellings, Untouched,
    ::testing::Values(std::string(test::kSampleDrawing), test::withCrlf(test::kSampleDrawing),
                      test::withUnpaddedCodes(test::kSampleDrawing), sampleWithExtras(),
                      test::withCrlf(sampleWithExtras()),
                      std::string(test::kSampleDrawing) + "data after the end\n\x1a",
                      std::string(test::kSampleDrawing.substr(0, test::kSampleDrawing.size() - 1)),
                      std::string(test::kSampleDrawing) + "\n\n   \n",
                      "\xEF\xBB\xBF" + std::string(test::kSampleDrawing)));

TEST(Untouched, MissingEndOfFileIsAddedAndWarnedAbout) {
  std::string_view sample = test::kSampleDrawing;
  std::string cut(sample.substr(0, sample.find("  0\nEOF")));
  dxf::ReadResult result = dxf::readBuffer(cut);
  ASSERT_TRUE(result.ok()) << result.error;
  ASSERT_EQ(result.warnings.size(), 1u);
  EXPECT_EQ(result.warnings[0].message, "the file has no EOF marker; one is added on save");
  EXPECT_EQ(dxf::writeToString(*result.database), sample);
}

// Lines of the header variable's value, 1-based.
size_t valueLineOf(const std::vector<std::string>& lines, std::string_view variable) {
  for (size_t i = 0; i < lines.size(); ++i) {
    if (lines[i] == variable) return i + 3;
  }
  ADD_FAILURE() << variable;
  return 0;
}

void expectRecentJulianDate(std::string_view text) {
  if (text.ends_with('\r')) text.remove_suffix(1);
  std::optional<double> date = db::parseReal(text);
  ASSERT_TRUE(date) << text;
  double now = static_cast<double>(std::time(nullptr)) / 86400.0 + 2440587.5;
  EXPECT_NEAR(*date, now, 1.0);
}

TEST(EditedDrawing, DiffersOnlyInTheEntityAndUpdateDates) {
  for (bool crlf : {false, true}) {
    std::string original =
        crlf ? test::withCrlf(test::kSampleDrawing) : std::string(test::kSampleDrawing);
    std::unique_ptr<db::Database> database = read(original);
    ASSERT_TRUE(database);
    ASSERT_TRUE(database->lookup(0x31)->setValue(40, "6.25"));
    database->recordChanged();
    std::string written = dxf::writeToString(*database);
    std::vector<std::string> before = linesOf(original);
    std::vector<std::string> after = linesOf(written);
    ASSERT_EQ(before.size(), after.size());
    std::vector<size_t> changed;
    for (size_t i = 0; i < before.size(); ++i) {
      if (before[i] != after[i]) changed.push_back(i + 1);
    }
    size_t radius = 0;
    for (size_t i = before.size(); i-- > 0;) {
      if (before[i] == "5.0" + std::string(crlf ? "\r" : "")) radius = i + 1;
    }
    size_t date = valueLineOf(before, crlf ? "$TDUPDATE\r" : "$TDUPDATE");
    size_t universal = valueLineOf(before, crlf ? "$TDUUPDATE\r" : "$TDUUPDATE");
    EXPECT_EQ(changed, (std::vector<size_t>{date, universal, radius}));
    EXPECT_EQ(after[radius - 1], crlf ? "6.25\r" : "6.25");
    expectRecentJulianDate(after[universal - 1]);
    dxf::ReadResult again = dxf::readBuffer(written);
    ASSERT_TRUE(again.ok());
    expectRecentJulianDate(*again.database->headerValue("$TDUUPDATE"));
    EXPECT_EQ(again.database->lookup(0x31)->find(40), "6.25");
  }
}

TEST(EditedDrawing, NewEntityRaisesTheHandleSeed) {
  std::unique_ptr<db::Database> database = read(std::string(test::kSampleDrawing));
  ASSERT_TRUE(database);
  db::Record* point = database->addEntity(
      {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbPoint"}, {10, "1.0"}, {20, "2.0"}, {30, "0.0"}},
      "POINT");
  EXPECT_EQ(point->handle(), Handle{0x40});
  std::string written = dxf::writeToString(*database);
  std::string pointText = "  0\nPOINT\n  5\n40\n330\n1F\n100\nAcDbEntity\n";
  size_t at = written.find(pointText);
  ASSERT_NE(at, std::string::npos) << written;
  EXPECT_LT(at, written.find("  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS"));
  std::unique_ptr<db::Database> again = read(written);
  ASSERT_TRUE(again);
  EXPECT_EQ(again->headerValue("$HANDSEED"), "41");
  EXPECT_EQ(again->entities()->back()->find(20), "2.0");
  // Everything before the header's changes and after the new entity is as it was.
  std::string original(test::kSampleDrawing);
  size_t seed = original.find("$HANDSEED");
  EXPECT_EQ(written.substr(0, seed), original.substr(0, seed));
  size_t tail = original.find("  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS");
  EXPECT_TRUE(written.ends_with(original.substr(tail)));
}

// Records compared by value: binary files spell reals and integers their own way.
void expectSameRecords(const db::Database& expected, const db::Database& actual) {
  std::vector<const db::Record*> left = test::allRecords(expected);
  std::vector<const db::Record*> right = test::allRecords(actual);
  ASSERT_EQ(left.size(), right.size());
  for (size_t i = 0; i < left.size(); ++i) {
    ASSERT_EQ(left[i]->type(), right[i]->type()) << i;
    std::vector<db::Group> a = left[i]->groupList();
    std::vector<db::Group> b = right[i]->groupList();
    ASSERT_EQ(a.size(), b.size()) << left[i]->type();
    for (size_t k = 0; k < a.size(); ++k) {
      ASSERT_EQ(a[k].code, b[k].code);
      if (a[k].code == 999) continue;
      switch (db::valueTypeOf(a[k].code)) {
        case db::ValueType::Double:
          EXPECT_EQ(db::parseReal(a[k].value), db::parseReal(b[k].value)) << a[k].code;
          break;
        case db::ValueType::Int16:
        case db::ValueType::Int32:
        case db::ValueType::Int64:
        case db::ValueType::Bool:
          EXPECT_EQ(db::parseInteger(a[k].value), db::parseInteger(b[k].value)) << a[k].code;
          break;
        default:
          EXPECT_EQ(a[k].value, b[k].value) << a[k].code;
      }
    }
    EXPECT_EQ(left[i]->handle(), right[i]->handle());
    EXPECT_EQ(left[i]->owner(), right[i]->owner());
  }
}

TEST(BinaryForm, WriteThenReadGivesTheSameRecords) {
  std::string text = test::withCrlf(test::kSampleDrawing);
  std::string r12 = text;
  r12.replace(r12.find("AC1015"), 6, "AC1009");
  for (const std::string& source : {text, r12}) {
    std::unique_ptr<db::Database> database = read(source);
    ASSERT_TRUE(database);
    std::string binary = dxf::writeToString(*database, {.binary = true});
    EXPECT_TRUE(binary.starts_with(korva::dxf::kBinarySentinel));
    std::unique_ptr<db::Database> fromBinary = read(binary);
    ASSERT_TRUE(fromBinary);
    EXPECT_TRUE(fromBinary->format().binary);
    expectSameRecords(*database, *fromBinary);
    // Binary read back, untouched, writes the same bytes; as text it reads the same again.
    EXPECT_EQ(dxf::writeToString(*fromBinary), binary);
    std::unique_ptr<db::Database> asText = read(dxf::writeToString(*fromBinary, {.binary = false}));
    ASSERT_TRUE(asText);
    expectSameRecords(*database, *asText);
  }
}

TEST(BinaryForm, TextValuesWithControlCharactersSurvive) {
  std::unique_ptr<db::Database> database = read(std::string(test::kSampleDrawing));
  ASSERT_TRUE(database);
  database->addEntity({{100, "AcDbEntity"},
                       {8, "0"},
                       {1, "caf\xC3\xA9 ^J x"},
                       {1071, "70000"},
                       {310, "00FF10"},
                       {290, "1"},
                       {160, "-5000000000"}},
                      "TEXT");
  // Both forms are compared as saved: the save updates the header of an edited drawing.
  std::unique_ptr<db::Database> asText = read(dxf::writeToString(*database, {.binary = false}));
  std::unique_ptr<db::Database> asBinary = read(dxf::writeToString(*database, {.binary = true}));
  ASSERT_TRUE(asText && asBinary);
  expectSameRecords(*asText, *asBinary);
  EXPECT_EQ(asBinary->entities()->back()->find(1), "caf\xC3\xA9 ^J x");
}

class SaveTest : public ::testing::Test {
 protected:
  void SetUp() override {
    directory = fs::temp_directory_path() /
                ("korva_save_" + std::to_string(::getpid()) + "_" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(directory);
    fs::create_directories(directory);
    path = (directory / "plan.dxf").string();
  }
  void TearDown() override { fs::remove_all(directory); }

  static std::string contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  fs::path directory;
  std::string path;
};

TEST_F(SaveTest, KeepsTheOldFileAsBackupOnRequest) {
  std::ofstream(path, std::ios::binary) << "old drawing";
  ::chmod(path.c_str(), 0640);
  std::unique_ptr<db::Database> database = read(std::string(test::kSampleDrawing));
  ASSERT_TRUE(database);
  dxf::WriteResult result =
      dxf::writeFile(*database, path, {.keepBackup = true, .binary = std::nullopt});
  ASSERT_TRUE(result.ok) << result.error;
  EXPECT_EQ(contents(path), test::kSampleDrawing);
  EXPECT_EQ(contents(directory / "plan.bak"), "old drawing");
  EXPECT_EQ(files(), (std::vector<std::string>{"plan.bak", "plan.dxf"}));
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640u);
  // A second save replaces the backup with the file it replaces.
  database->lookup(0x30)->setValue(8, "WALLS");
  ASSERT_TRUE(dxf::writeFile(*database, path, {.keepBackup = true, .binary = std::nullopt}).ok);
  EXPECT_EQ(contents(directory / "plan.bak"), test::kSampleDrawing);
  EXPECT_NE(contents(path).find("WALLS"), std::string::npos);
}

TEST_F(SaveTest, NoBackupUnlessAskedAndNoTemporaryFiles) {
  std::ofstream(path, std::ios::binary) << "old drawing";
  std::unique_ptr<db::Database> database = read(std::string(test::kSampleDrawing));
  ASSERT_TRUE(database);
  ASSERT_TRUE(dxf::writeFile(*database, path).ok);
  EXPECT_EQ(files(), (std::vector<std::string>{"plan.dxf"}));
  dxf::WriteResult failed =
      dxf::writeFile(*database, (directory / "missing" / "plan.dxf").string());
  EXPECT_FALSE(failed.ok);
  EXPECT_NE(failed.error.find("missing/plan.dxf"), std::string::npos) << failed.error;
  EXPECT_EQ(files(), (std::vector<std::string>{"plan.dxf"}));
}

TEST_F(SaveTest, SavingDropsErasedRecords) {
  std::unique_ptr<db::Database> database = read(std::string(test::kSampleDrawing));
  ASSERT_TRUE(database);
  database->setErased(*database->lookup(0x31), true);
  ASSERT_TRUE(dxf::writeFile(*database, path).ok);
  EXPECT_EQ(database->lookup(0x31), nullptr);
  EXPECT_EQ(contents(path).find("CIRCLE"), std::string::npos);
}

TEST(NewDrawing, IsCompleteAndConsistent) {
  std::unique_ptr<db::Database> drawing = dxf::createNewDrawing();
  ASSERT_TRUE(drawing);
  EXPECT_EQ(drawing->version(), "AC1032");
  for (auto [table, entry] : std::initializer_list<std::pair<const char*, const char*>>{
           {"LAYER", "0"},
           {"LTYPE", "ByBlock"},
           {"LTYPE", "ByLayer"},
           {"LTYPE", "Continuous"},
           {"STYLE", "Standard"},
           {"DIMSTYLE", "Standard"},
           {"APPID", "ACAD"},
           {"VPORT", "*Active"},
           {"BLOCK_RECORD", "*Model_Space"},
           {"BLOCK_RECORD", "*Paper_Space"}}) {
    EXPECT_NE(drawing->tableEntry(table, entry), nullptr) << table << " " << entry;
  }
  for (const char* table : {"VIEW", "UCS"}) EXPECT_NE(drawing->table(table), nullptr) << table;
  for (const char* block : {"*Model_Space", "*Paper_Space"}) {
    db::BlockDefinition* definition = drawing->block(block);
    ASSERT_NE(definition, nullptr) << block;
    EXPECT_EQ(definition->begin->owner(), drawing->tableEntry("BLOCK_RECORD", block)->handle());
  }
  // The named objects dictionary is the first object and owns the dictionaries others expect.
  ASSERT_FALSE(drawing->objects()->empty());
  db::Record* root = drawing->objects()->front();
  EXPECT_EQ(root->type(), "DICTIONARY");
  EXPECT_EQ(root->owner(), db::kNoHandle);
  std::map<std::string, db::Record*> entries;
  std::string key;
  for (const db::Group& group : root->groups()) {
    if (group.code == 3) key = group.value;
    if (group.code == 350 || group.code == 360) {
      entries[key] = drawing->lookup(db::parseHandle(group.value).value_or(0));
    }
  }
  for (const char* name : {"ACAD_GROUP", "ACAD_LAYOUT", "ACAD_SCALELIST", "ACAD_MATERIAL",
                           "ACAD_MLINESTYLE", "ACAD_PLOTSTYLENAME"}) {
    ASSERT_NE(entries[name], nullptr) << name;
    EXPECT_EQ(entries[name]->owner(), root->handle()) << name;
  }
  int layouts = 0;
  for (const db::Record* object : *drawing->objects()) layouts += object->type() == "LAYOUT";
  EXPECT_GE(layouts, 2);
  // Saved and read back strictly: every pointer resolves and the seed is above all handles.
  std::string written = dxf::writeToString(*drawing);
  dxf::ReadResult again = dxf::readBuffer(written);
  ASSERT_TRUE(again.ok()) << again.error;
  for (const dxf::Diagnostic& warning : again.warnings) ADD_FAILURE() << dxf::describe(warning);
  EXPECT_EQ(again.database->handleSeed(), drawing->handleSeed());
  EXPECT_EQ(again.database->recordCount(), drawing->recordCount());
  expectRecentJulianDate(*again.database->headerValue("$TDCREATE"));
}

}  // namespace
}  // namespace korva
