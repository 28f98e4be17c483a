// The fuzz property, replayed without libFuzzer: over the broken corpus and over
// deterministic mutations of the hand-written drawings.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "fuzz_body.h"

namespace korva {
namespace {

namespace fs = std::filesystem;

std::vector<std::pair<std::string, std::string>> filesIn(const char* directory) {
  std::vector<std::pair<std::string, std::string>> files;
  for (const auto& entry : fs::directory_iterator(directory)) {
    if (entry.path().extension() != ".dxf") continue;
    std::ifstream in(entry.path(), std::ios::binary);
    files.emplace_back(entry.path().filename().string(),
                       std::string(std::istreambuf_iterator<char>(in), {}));
  }
  std::sort(files.begin(), files.end());
  return files;
}

// Small edits of the kinds that break parsers: flipped bits, lost or repeated lines,
// values swapped between lines, cuts, bytes a text file should not hold.
std::string mutate(std::string text, std::mt19937& random) {
  auto pick = [&random](size_t size) { return size ? random() % size : 0; };
  auto lineStart = [&text](size_t at) {
    size_t start = text.rfind('\n', at);
    return start == std::string::npos ? 0 : start + 1;
  };
  int edits = 1 + static_cast<int>(random() % 4);
  for (int i = 0; i < edits && !text.empty(); ++i) {
    size_t at = pick(text.size());
    switch (random() % 8) {
      case 0:
        text[at] = static_cast<char>(text[at] ^ (1 << (random() % 8)));
        break;
      case 1:
        text.erase(at, 1 + pick(8));
        break;
      case 2:
        text.insert(at, 1, static_cast<char>(random() % 256));
        break;
      case 3: {  // drop a line
        size_t start = lineStart(at);
        size_t end = text.find('\n', start);
        text.erase(start, end == std::string::npos ? std::string::npos : end - start + 1);
        break;
      }
      case 4: {  // repeat a stretch of lines
        size_t start = lineStart(at);
        size_t length = std::min<size_t>(text.size() - start, 20 + pick(400));
        text.insert(start, text.substr(start, length));
        break;
      }
      case 5:
        text.resize(at);
        break;
      case 6: {  // another line's text in place of this one
        size_t start = lineStart(at);
        size_t other = lineStart(pick(text.size()));
        std::string line = text.substr(other, text.find('\n', other) - other);
        size_t end = text.find('\n', start);
        text.replace(start, end == std::string::npos ? text.size() - start : end - start, line);
        break;
      }
      default: {
        static constexpr const char* kOdd[] = {"ENDSEC", "SECTION", "EOF", "-1",
                                               "1e999",  "0",       "999", "\r",
                                               "ENDTAB", "BLOCK",   "5",   "FFFFFFFFFFFFFFFF"};
        size_t start = lineStart(at);
        size_t end = text.find('\n', start);
        text.replace(start, end == std::string::npos ? text.size() - start : end - start,
                     kOdd[random() % std::size(kOdd)]);
      }
    }
  }
  return text;
}

TEST(FuzzReplay, BrokenCorpus) {
  auto files = filesIn(KORVA_BROKEN_DIR);
  ASSERT_GE(files.size(), 20u);
  for (const auto& [name, data] : files) EXPECT_EQ(fuzz::checkInput(data), "") << name;
}

TEST(FuzzReplay, HandwrittenDrawingsReadAndKeepTheProperty) {
  auto files = filesIn(KORVA_HANDWRITTEN_DIR);
  ASSERT_GE(files.size(), 10u);
  for (const auto& [name, data] : files) {
    dxf::ReadResult result = dxf::readBuffer(data);
    EXPECT_TRUE(result.ok()) << name << ": " << result.error;
    EXPECT_EQ(fuzz::checkInput(data), "") << name;
  }
}

TEST(FuzzReplay, MutatedHandwrittenDrawings) {
  auto files = filesIn(KORVA_HANDWRITTEN_DIR);
  ASSERT_FALSE(files.empty());
  std::mt19937 random(20240611);
  constexpr int kMutations = 3000;
  int failures = 0;
  for (int i = 0; i < kMutations && failures < 10; ++i) {
    const auto& [name, data] = files[static_cast<size_t>(i) % files.size()];
    std::string input = mutate(data, random);
    std::string problem = fuzz::checkInput(input);
    if (!problem.empty()) {
      ++failures;
      ADD_FAILURE() << "mutation " << i << " of " << name << ": " << problem;
    }
  }
}

}  // namespace
}  // namespace korva
