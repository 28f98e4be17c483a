#include "processor_fixture.h"

#include <iostream>

#include "api/document.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "input/console.h"

namespace korva::test {

std::vector<std::wstring>& events() {
  static std::vector<std::wstring> list;
  return list;
}

input::Answer text(const wchar_t* value) {
  return input::Answer::ofText(value);
}

void ProcessorTest::SetUp() {
  events().clear();
  auto& documents = api::DocumentList::instance();
  while (documents.current()) documents.close(documents.current());
  documents.add(dxf::createNewDrawing(), "");
  input::Console::instance().setOutput(&output_);
}

void ProcessorTest::TearDown() {
  input::Console& console = input::Console::instance();
  while (console.hasInput()) console.popSource();
  console.setOutput(&std::cout);
}

void ProcessorTest::typeAnswers(std::vector<std::wstring> answers) {
  input::Console::instance().pushSource(input::makeAnswerSource(std::move(answers)));
}

void ProcessorTest::runAll() {
  cmd::Processor::instance().run();
}

}  // namespace korva::test
