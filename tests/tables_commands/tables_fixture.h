// A new drawing, the host commands, scripts run through the command processor and the
// transcript they leave, and a scratch folder.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>

namespace korva::db {
class Record;
}

namespace korva::test {

class TableCommandTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Runs script text (the rules of .scr files) until it runs out; returns what it printed.
  std::string run(const std::string& script);
  // A file in the scratch folder with this text; its path.
  std::string writeFile(const std::string& name, const std::string& text);
  // The current drawing's table record, or null.
  db::Record* tableRecord(const char* table, const char* name);
  // The values of every group of that code in the record, in order.
  std::vector<std::string> values(const db::Record& record, int code);

  std::filesystem::path scratch_;
  std::ostringstream output_;
};

}  // namespace korva::test
