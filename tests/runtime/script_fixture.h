// A fresh drawing, a captured transcript, and scripts run through the command loop.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace korva::test {

class ScriptTest : public ::testing::Test {
 protected:
  void SetUp() override;
  // Unloads every module (messages 8 and 2) and gives the console back.
  void TearDown() override;

  // Runs script text (the korva script rules) until it runs out.
  void runScript(const std::string& script);
  // Everything printed since the test started.
  std::string transcript() const { return output_.str(); }
  // What was printed since the last call.
  std::string newOutput();

 private:
  std::ostringstream output_;
  size_t seen_ = 0;
};

// Where text first occurs in haystack after from; npos when it doesn't.
size_t findAfter(const std::string& haystack, const std::string& text, size_t from = 0);

}  // namespace korva::test
