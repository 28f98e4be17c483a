// Runs the fuzz target's body over a fixed corpus and a deterministic stream of mutated and
// random inputs, so that every build exercises it without libFuzzer.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "fuzz_body.h"

namespace {

const char* const kSeeds[] = {
    "",
    "1+2*3",
    "sin(x)+max(1,2,3,4)",
    "2^3^2",
    "-2^2",
    "--1",
    "!!5",
    "2*!1",
    "(1+2,3)",
    "(1)(2)",
    "1+(2,3)",
    "[a+b]*x",
    "[a+b",
    "max((1),2)",
    "min()",
    "rand()+1",
    "rand(x,y)",
    "fact(171)",
    "1>=2|x<=y&!x",
    "f(1,)",
    "max(,1)",
    "((((x))))",
    "sum(x,y,x*y,-x)",
    "1e5",
    "1)",
    "(1",
    "1,2",
    "x]",
    "[[x]",
    "1 2",
    "avg(x)%y",
    "-!1",
    "sin(2*!1)",
    "1+()",
    "(x,y)(1)",
    "pi*e",
    "ln(0)/log(0)",
    "((,))",
    "max(min(x,1),y)",
    "---------x",
};

std::string mutate(std::string text, std::mt19937& random) {
  static const std::string kAlphabet = "0123456789.,()[]+-*/^%<>=!&|xyzaeisnmpfc\t ";
  std::uniform_int_distribution<int> action(0, 3);
  const int edits = 1 + static_cast<int>(random() % 4);
  for (int edit = 0; edit < edits; ++edit) {
    const std::size_t at = text.empty() ? 0 : random() % (text.size() + 1);
    const char character = kAlphabet[random() % kAlphabet.size()];
    switch (action(random)) {
      case 0:
        text.insert(at, 1, character);
        break;
      case 1:
        if (at < text.size()) text.erase(at, 1);
        break;
      case 2:
        if (at < text.size()) text[at] = character;
        break;
      default:
        text.insert(at, text.substr(0, at));  // duplicates build nesting and long chains
        break;
    }
  }
  return text;
}

bool run(const std::string& text) {
  return compileFuzzInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

TEST(FuzzCorpus, SeedsCompileOrAreRefusedCleanly) {
  int compiled = 0;
  for (const char* seed : kSeeds) compiled += run(seed) ? 1 : 0;
  // Both outcomes must occur, or the corpus has stopped covering the refusals.
  EXPECT_GT(compiled, 10);
  EXPECT_LT(compiled, static_cast<int>(std::size(kSeeds)));
}

TEST(FuzzCorpus, MutatedAndRandomInputsNeverEscape) {
  std::mt19937 random(12345);
  int compiled = 0;
  for (int round = 0; round < 4000; ++round) {
    std::string text;
    if (round % 4 == 0) {
      text.resize(random() % 64);
      for (char& character : text) character = static_cast<char>(random() & 0xFF);
    } else {
      text = mutate(kSeeds[random() % std::size(kSeeds)], random);
    }
    SCOPED_TRACE(text);
    EXPECT_NO_THROW(compiled += run(text) ? 1 : 0);
  }
  EXPECT_GT(compiled, 100);
}

TEST(FuzzCorpus, LongInputsStayFast) {
  for (const std::string& text :
       {std::string(4000, '-') + "x", std::string(2000, '(') + "x" + std::string(2000, ')'),
        std::string(4000, '[')}) {
    EXPECT_NO_THROW(run(text));
  }
  std::string chain = "x";
  std::string arguments = "max(x";
  for (int i = 0; i < 1000; ++i) {
    chain += "+x";
    arguments += ",y";
  }
  EXPECT_TRUE(run(chain));
  EXPECT_TRUE(run(arguments + ")"));
}

}  // namespace
