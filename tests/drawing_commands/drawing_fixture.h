// A new drawing as the current document of each test, and entities made in it.
#pragma once

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "api/document.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "input/console.h"
#include "qx_db_core.h"
#include "qx_entities.h"
#include "qx_memory.h"

class DrawingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    document_ = &korva::api::DocumentList::instance().add(korva::dxf::createNewDrawing(), "");
  }
  void TearDown() override { korva::api::DocumentList::instance().close(document_); }

  // Makes the entity of the list (released here) and names it in `name`.
  void make(ResultBuffer* list, EntityName name) {
    ASSERT_NE(list, nullptr);
    int status = qxdbEntMake(list);
    qxutRelRb(list);
    ASSERT_EQ(status, RTNORM);
    ASSERT_EQ(qxdbEntLast(name), RTNORM);
  }

  korva::api::Document* document_ = nullptr;
};

// Host commands run as scripts and modules run them, their transcript kept; each test
// must end with no command running and nothing left open.
class HostCommandTest : public DrawingTest {
 protected:
  void SetUp() override {
    DrawingTest::SetUp();
    korva::cmd::registerHostCommands();
    korva::input::Console::instance().setOutput(&transcript_);
  }
  void TearDown() override {
    korva::input::Console::instance().setOutput(&std::cout);
    EXPECT_EQ(korva::cmd::Processor::instance().activeCommand(), nullptr);
    EXPECT_EQ(qxdbOpenObjectCount(), 0u);
    DrawingTest::TearDown();
  }

  void line(double x1, double y1, double x2, double y2, EntityName name) {
    const double start[3] = {x1, y1, 0}, end[3] = {x2, y2, 0};
    make(qxutBuildList(RTDXF0, L"LINE", 10, start, 11, end, RTNONE), name);
  }

  std::ostringstream transcript_;
};
