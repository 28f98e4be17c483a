#include "dialog_fixture.h"

#include <iostream>

#include "dxf/new_drawing.h"
#include "input/console.h"
#include "input/input_source.h"

namespace korva::testing {

void DialogTest::SetUp() {
  preferred_ = std::make_unique<ui::PreferredResources>(resources_);
  document_ = &api::DocumentList::instance().add(dxf::createNewDrawing(), "dialogs.dxf", true);
  input::Console::instance().setOutput(&transcript_);
}

void DialogTest::TearDown() {
  input::Console& console = input::Console::instance();
  while (console.hasInput()) console.popSource();
  console.finish();
  console.setOutput(&std::cout);
  api::DocumentList::instance().close(document_);
  preferred_.reset();
}

void DialogTest::script(std::string text) {
  input::Console::instance().pushSource(input::makeScriptSource(std::move(text)));
}

std::string DialogTest::takeTranscript() {
  input::Console::instance().finish();
  std::string text = transcript_.str();
  transcript_.str("");
  return text;
}

}  // namespace korva::testing
