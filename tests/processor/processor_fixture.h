// A drawing, a captured transcript and scripted answers for the command processor.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "input/answer.h"

namespace korva::test {

class ProcessorTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Answers given in order, as if typed at the keyboard after the prompts.
  void typeAnswers(std::vector<std::wstring> answers);
  // Runs the command loop until the answers run out.
  void runAll();
  std::string transcript() const { return output_.str(); }

  std::ostringstream output_;
};

// What the test commands saw, in order.
std::vector<std::wstring>& events();
input::Answer text(const wchar_t* value);

}  // namespace korva::test
