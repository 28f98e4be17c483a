// Hand-made broken files: strict reading refuses each with a located message, recovering
// never crashes, and no cut of any of them crashes or hangs the reader.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "dxf/binary_format.h"
#include "dxf/reader.h"
#include "dxf/writer.h"
#include "sample_drawing.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

struct BrokenFile {
  std::string name;
  std::string data;
};

std::vector<BrokenFile> brokenFiles() {
  std::vector<BrokenFile> files;
  for (const auto& entry : fs::directory_iterator(KORVA_BROKEN_DIR)) {
    std::ifstream in(entry.path(), std::ios::binary);
    files.push_back(
        {entry.path().filename().string(), std::string(std::istreambuf_iterator<char>(in), {})});
  }
  std::sort(files.begin(), files.end(),
            [](const BrokenFile& a, const BrokenFile& b) { return a.name < b.name; });
  return files;
}

class BrokenCorpus : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { files_ = new std::vector<BrokenFile>(brokenFiles()); }
  static void TearDownTestSuite() { delete files_; }
  static const std::vector<BrokenFile>& files() { return *files_; }

 private:
  static std::vector<BrokenFile>* files_;
};
std::vector<BrokenFile>* BrokenCorpus::files_ = nullptr;

TEST_F(BrokenCorpus, StrictReadingFailsNamingWhere) {
  ASSERT_GE(files().size(), 25u);
  for (const BrokenFile& file : files()) {
    dxf::ReadResult result = dxf::readBuffer(file.data);
    EXPECT_FALSE(result.ok()) << file.name << " was read";
    // Text files name a line; binary files cut inside a group name the byte. Only a file
    // without any SECTION has nothing to point at.
    bool located = result.error.starts_with("line ") ||
                   (dxf::isBinaryDxf(file.data) && result.error.starts_with("byte ")) ||
                   (file.data.find("SECTION") == std::string::npos &&
                    result.error == "not a DXF file: no SECTION found");
    EXPECT_TRUE(located) << file.name << ": " << result.error;
  }
}

TEST_F(BrokenCorpus, RecoveringGivesADrawingOrAClearError) {
  for (const BrokenFile& file : files()) {
    dxf::ReadResult result = dxf::readBuffer(file.data, {.recover = true});
    if (!result.ok()) {
      EXPECT_FALSE(result.error.empty()) << file.name;
      continue;
    }
    // Something was wrong: it was either dropped or warned about.
    EXPECT_FALSE(result.dropped.empty() && result.warnings.empty()) << file.name;
    for (const dxf::Diagnostic& each : result.dropped) EXPECT_GT(each.line, 0u) << file.name;
    dxf::ReadResult again =
        dxf::readBuffer(dxf::writeToString(*result.database), {.recover = true});
    EXPECT_TRUE(again.ok()) << file.name << ": " << again.error;
  }
}

TEST_F(BrokenCorpus, RecoveringKeepsTheGoodRecords) {
  auto find = [this](std::string_view name) -> const BrokenFile& {
    for (const BrokenFile& file : files()) {
      if (file.name == name) return file;
    }
    throw std::runtime_error("no " + std::string(name));
  };
  dxf::ReadResult badReal = dxf::readBuffer(find("bad_real.dxf").data, {.recover = true});
  ASSERT_TRUE(badReal.ok());
  ASSERT_EQ(badReal.dropped.size(), 1u);
  EXPECT_EQ(badReal.database->lookup(0x30), nullptr);
  EXPECT_TRUE(badReal.database->entities()->empty());
  EXPECT_NE(badReal.database->tableEntry("LAYER", "0"), nullptr);
  ASSERT_NE(badReal.database->block("DOOR"), nullptr);
  EXPECT_EQ(badReal.database->block("DOOR")->entities.size(), 1u);
  dxf::ReadResult noEndtab = dxf::readBuffer(find("missing_endtab.dxf").data, {.recover = true});
  ASSERT_TRUE(noEndtab.ok());
  EXPECT_NE(noEndtab.database->tableEntry("LAYER", "0"), nullptr);
  EXPECT_EQ(noEndtab.database->entities()->size(), 2u);
}

// Every cut of every file, and of a good drawing in both forms: the reader must end,
// with a drawing or a message.
TEST_F(BrokenCorpus, EveryPrefixIsReadWithoutCrashing) {
  std::vector<BrokenFile> inputs = files();
  inputs.push_back({"sample", std::string(test::kSampleDrawing)});
  inputs.push_back({"sample crlf", test::withCrlf(test::kSampleDrawing)});
  dxf::ReadResult sample = dxf::readBuffer(std::string(test::kSampleDrawing));
  ASSERT_TRUE(sample.ok());
  inputs.push_back({"sample binary", dxf::writeToString(*sample.database, {.binary = true})});
  size_t cuts = 0;
  for (const BrokenFile& file : inputs) {
    size_t step = file.data.size() > 8192 ? file.data.size() / 4096 : 1;
    for (size_t length = 0; length < file.data.size(); length += step) {
      std::string prefix = file.data.substr(0, length);
      for (bool recover : {false, true}) {
        dxf::ReadResult result = dxf::readBuffer(prefix, {.recover = recover});
        ASSERT_TRUE(result.ok() || !result.error.empty()) << file.name << " cut at " << length;
      }
      ++cuts;
    }
  }
  EXPECT_GT(cuts, 15000u);
}

}  // namespace
}  // namespace korva
