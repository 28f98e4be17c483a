// A new drawing as the current document of each test, and entities made in it.
#pragma once

#include <gtest/gtest.h>

#include "api/document.h"
#include "dxf/new_drawing.h"
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
