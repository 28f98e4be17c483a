#include "script_fixture.h"

#include <iostream>

#include "api/document.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "input/console.h"
#include "input/input_source.h"
#include "rt/modules.h"

namespace korva::test {

void ScriptTest::SetUp() {
  static const bool registered = (cmd::registerModuleCommands(), true);
  (void)registered;
  auto& documents = api::DocumentList::instance();
  while (documents.current()) documents.close(documents.current());
  documents.add(dxf::createNewDrawing(), "");
  input::Console::instance().setOutput(&output_);
  rt::clearRecordedCrashes();
}

void ScriptTest::TearDown() {
  rt::shutdown();
  input::Console& console = input::Console::instance();
  while (console.hasInput()) console.popSource();
  console.setOutput(&std::cout);
}

void ScriptTest::runScript(const std::string& script) {
  input::Console::instance().pushSource(input::makeScriptSource(script, "test"));
  cmd::Processor::instance().run();
}

std::string ScriptTest::newOutput() {
  const std::string all = output_.str();
  std::string fresh = all.substr(seen_);
  seen_ = all.size();
  return fresh;
}

size_t findAfter(const std::string& haystack, const std::string& text, size_t from) {
  return from == std::string::npos ? std::string::npos : haystack.find(text, from);
}

}  // namespace korva::test
