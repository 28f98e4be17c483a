#include <gtest/gtest.h>

#include <deque>
#include <fstream>
#include <string>
#include <vector>

#include "input/input_source.h"
#include "input/script_reader.h"

namespace korva::input {
namespace {

std::vector<std::wstring> inputsOf(std::string text) {
  std::unique_ptr<InputSource> source = makeScriptSource(std::move(text));
  std::vector<std::wstring> inputs;
  while (std::optional<Answer> answer = source->next(false)) {
    EXPECT_EQ(answer->kind, Answer::Kind::Text);
    inputs.push_back(answer->text);
  }
  return inputs;
}

using Inputs = std::vector<std::wstring>;

TEST(ScriptReader, BlanksAndLineEndsEachEndOneInput) {
  EXPECT_EQ(inputsOf("LINE 0,0 10,0\n"), (Inputs{L"LINE", L"0,0", L"10,0"}));
  // Two blanks in a row, a blank before the line end and an empty line are Enters.
  EXPECT_EQ(inputsOf("LINE 0,0 10,0  \n"), (Inputs{L"LINE", L"0,0", L"10,0", L"", L""}));
  EXPECT_EQ(inputsOf("CIRCLE\n5,5\n\n2\n"), (Inputs{L"CIRCLE", L"5,5", L"", L"2"}));
  // The last line needs no line end.
  EXPECT_EQ(inputsOf("ZOOM E"), (Inputs{L"ZOOM", L"E"}));
  EXPECT_TRUE(inputsOf("").empty());
}

TEST(ScriptReader, QuotesGiveEnterOrHoldBlanks) {
  EXPECT_EQ(inputsOf("-LAYER \"\" \"my layer\" x\n"), (Inputs{L"-LAYER", L"", L"my layer", L"x"}));
  EXPECT_EQ(inputsOf("\"\""), (Inputs{L""}));
}

TEST(ScriptReader, CommentLinesGiveNothing) {
  EXPECT_EQ(inputsOf("; a comment line\nLINE\n;another\n\n"), (Inputs{L"LINE", L""}));
  // Only a line's first character starts a comment.
  EXPECT_EQ(inputsOf("TEXT ;x\n"), (Inputs{L"TEXT", L";x"}));
}

TEST(ScriptReader, LispRunsToItsBalancedParenthesis) {
  EXPECT_EQ(inputsOf("(setq a \"(x\" b 2)\nLINE\n"), (Inputs{L"(setq a \"(x\" b 2)", L"LINE"}));
  EXPECT_EQ(inputsOf("(foo\n  (bar \"a\\\")\" ; comment )\n  ))\n"),
            (Inputs{L"(foo\n  (bar \"a\\\")\" ; comment )\n  ))"}));
  EXPECT_EQ(inputsOf("CIRCLE (list 1 2) 3\n"), (Inputs{L"CIRCLE", L"(list 1 2)", L"3"}));
}

TEST(ScriptReader, PromptsThatTakeBlanksGetTheRestOfTheLine) {
  std::unique_ptr<InputSource> source =
      makeScriptSource("-TEXT 0,0 hello big world\n\"quoted all\"\nx");
  EXPECT_EQ(source->next(false)->text, L"-TEXT");
  EXPECT_EQ(source->next(false)->text, L"0,0");
  EXPECT_EQ(source->next(true)->text, L"hello big world");
  EXPECT_EQ(source->next(true)->text, L"quoted all");
  EXPECT_EQ(source->next(true)->text, L"x");
  EXPECT_FALSE(source->next(true));
}

TEST(ScriptReader, ByteOrderMarkAndWindowsLineEnds) {
  EXPECT_EQ(inputsOf("\xEF\xBB\xBFLINE\r\n1,2\r\n\r\n"), (Inputs{L"LINE", L"1,2", L""}));
  EXPECT_EQ(inputsOf("TEXT \xC3\xA4rger\n"), (Inputs{L"TEXT", L"\u00E4rger"}));
}

TEST(ScriptReader, TextGivenLineByLineReadsAsAWhole) {
  std::deque<std::string> lines = {"(defun f ()\n", "  1)\n", "LINE 1,1 \n"};
  ScriptReader reader([&]() -> std::optional<std::string> {
    if (lines.empty()) return std::nullopt;
    std::string line = lines.front();
    lines.pop_front();
    return line;
  });
  EXPECT_EQ(reader.next(false), L"(defun f ()\n  1)");
  EXPECT_EQ(reader.next(false), L"LINE");
  EXPECT_EQ(reader.next(false), L"1,1");
  EXPECT_EQ(reader.next(false), L"");
  EXPECT_FALSE(reader.next(false));
}

TEST(InputSources, ScriptFiles) {
  const std::string path = ::testing::TempDir() + "input_test_script.scr";
  std::ofstream(path) << "LINE\n0,0\n";
  std::string error;
  std::unique_ptr<InputSource> source = openScriptFile(path, error);
  ASSERT_TRUE(source) << error;
  EXPECT_EQ(source->name(), path);
  EXPECT_EQ(source->next(false)->text, L"LINE");
  EXPECT_FALSE(openScriptFile(path + ".missing", error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(openScriptFile(::testing::TempDir(), error));
  EXPECT_TRUE(makeTerminalSource()->isTerminal());
}

}  // namespace
}  // namespace korva::input
