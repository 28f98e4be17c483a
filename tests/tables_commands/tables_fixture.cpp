#include "tables_fixture.h"

#include <fstream>
#include <iostream>

#include "api/document.h"
#include "cmd/processor.h"
#include "db/database.h"
#include "dxf/new_drawing.h"
#include "input/console.h"
#include "input/input_source.h"
#include "input/support_path.h"

namespace korva::test {

void TableCommandTest::SetUp() {
  static const bool registered = (cmd::registerHostCommands(), true);
  (void)registered;
  auto& documents = api::DocumentList::instance();
  while (documents.current()) documents.close(documents.current());
  documents.add(dxf::createNewDrawing(), "");
  input::Console::instance().setOutput(&output_);
  input::clearSupportFolders();
  const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
  scratch_ = std::filesystem::temp_directory_path() /
             (std::string("korva_tables_") + test->test_suite_name() + "_" + test->name());
  std::filesystem::remove_all(scratch_);
  std::filesystem::create_directories(scratch_);
}

void TableCommandTest::TearDown() {
  input::Console& console = input::Console::instance();
  while (console.hasInput()) console.popSource();
  console.setOutput(&std::cout);
  input::clearSupportFolders();
  std::filesystem::remove_all(scratch_);
}

std::string TableCommandTest::run(const std::string& script) {
  size_t before = output_.str().size();
  input::Console::instance().pushSource(input::makeScriptSource(script));
  cmd::Processor::instance().run();
  return output_.str().substr(before);
}

std::string TableCommandTest::writeFile(const std::string& name, const std::string& text) {
  std::filesystem::path path = scratch_ / name;
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
  return path.string();
}

db::Record* TableCommandTest::tableRecord(const char* table, const char* name) {
  return api::currentDatabase()->tableEntry(table, name);
}

std::vector<std::string> TableCommandTest::values(const db::Record& record, int code) {
  std::vector<std::string> found;
  for (const db::Group& group : record.groups()) {
    if (group.code == code) found.emplace_back(group.value);
  }
  return found;
}

}  // namespace korva::test
