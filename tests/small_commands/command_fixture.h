// A new drawing as the current document, korva's command processor with the host
// commands and one module command, typed answers and a captured transcript.
#pragma once

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "api/document.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "input/console.h"
#include "input/input_source.h"
#include "qx_variables.h"

class CommandTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto& documents = korva::api::DocumentList::instance();
    while (documents.current()) documents.close(documents.current());
    documents.add(korva::dxf::createNewDrawing(), "");
    korva::cmd::registerHostCommands();
    korva::input::Console& console = korva::input::Console::instance();
    console.setOutput(&transcript_);
    // As the korva program does: scripted commands are shown only while CMDECHO is 1.
    console.setEchoScripted([] {
      ResultBuffer value{};
      return qxedGetVar(L"CMDECHO", &value) != RTNORM || value.value.rint != 0;
    });
  }
  void TearDown() override {
    korva::input::Console& console = korva::input::Console::instance();
    while (console.hasInput()) console.popSource();
    console.setOutput(&std::cout);
    console.setEchoScripted(nullptr);
    korva::cmd::Processor::instance().removeGroup(kGroup);
  }

  void addModuleCommand(const wchar_t* name, QxRxFunctionPtr handler) {
    korva::cmd::CommandDefinition definition;
    definition.group = kGroup;
    definition.globalName = definition.localName = name;
    definition.handler = handler;
    korva::cmd::Processor::instance().addCommand(std::move(definition));
  }
  // Runs the answers through the command loop, as if typed.
  void type(std::vector<std::wstring> answers) {
    korva::input::Console::instance().pushSource(
        korva::input::makeAnswerSource(std::move(answers)));
    korva::cmd::Processor::instance().run();
  }

  static constexpr const wchar_t* kGroup = L"SMALL_COMMAND_TESTS";
  std::ostringstream transcript_;
};
