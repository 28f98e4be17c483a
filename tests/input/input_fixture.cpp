#include "input_fixture.h"

#include <iostream>

#include "api/system_variables.h"
#include "db/value_text.h"
#include "dxf/new_drawing.h"
#include "input/console.h"
#include "input/input_source.h"

namespace korva::testing {

std::string number(double value) {
  return db::formatReal(value);
}

void InputTest::SetUp() {
  document_ = &api::DocumentList::instance().add(dxf::createNewDrawing(), "input.dxf", true);
  input::Console::instance().setOutput(&transcript_);
}

void InputTest::TearDown() {
  input::Console& console = input::Console::instance();
  while (console.hasInput()) console.popSource();
  console.finish();  // a line left open would start the next test's transcript
  console.setOutput(&std::cout);
  api::DocumentList::instance().close(document_);
  document_ = nullptr;
}

void InputTest::script(std::string text) {
  input::Console::instance().pushSource(input::makeScriptSource(std::move(text)));
}

void InputTest::setShort(std::string_view name, int value) {
  api::VariableValue variable;
  variable.type = api::VariableType::Short;
  variable.number[0] = value;
  ASSERT_EQ(api::setVariable(&database(), name, variable, true), api::SetResult::Done) << name;
}

void InputTest::setReal(std::string_view name, double value) {
  api::VariableValue variable;
  variable.type = api::VariableType::Real;
  variable.number[0] = value;
  ASSERT_EQ(api::setVariable(&database(), name, variable, true), api::SetResult::Done) << name;
}

void InputTest::setPoint(std::string_view name, double x, double y, double z) {
  api::VariableValue variable;
  variable.type = api::findVariable(name)->type;
  variable.number[0] = x;
  variable.number[1] = y;
  variable.number[2] = z;
  ASSERT_EQ(api::setVariable(&database(), name, variable, true), api::SetResult::Done) << name;
}

int InputTest::errorNumber() {
  return static_cast<int>(api::getVariable(&database(), "ERRNO")->number[0]);
}

db::Record* InputTest::add(std::string_view type, Groups groups, db::BlockDefinition* block) {
  return database().addEntity(std::move(groups), type, block);
}

db::Record* InputTest::line(double x1, double y1, double x2, double y2,
                            db::BlockDefinition* block) {
  return add("LINE",
             {{8, "0"},
              {10, number(x1)},
              {20, number(y1)},
              {30, "0.0"},
              {11, number(x2)},
              {21, number(y2)},
              {31, "0.0"}},
             block);
}

db::Record* InputTest::circle(double x, double y, double r) {
  return add("CIRCLE", {{8, "0"}, {10, number(x)}, {20, number(y)}, {30, "0.0"}, {40, number(r)}});
}

std::string InputTest::transcript() const {
  input::Console::instance().finish();
  return transcript_.str();
}

}  // namespace korva::testing
