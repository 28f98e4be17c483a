// A fresh drawing as the current document of each test.
#pragma once

#include <gtest/gtest.h>

#include "api/document.h"
#include "dxf/new_drawing.h"

class CurrentDrawing : public ::testing::Test {
 protected:
  void SetUp() override {
    document_ = &korva::api::DocumentList::instance().add(korva::dxf::createNewDrawing(),
                                                         "/work/plans/site.dxf");
  }
  void TearDown() override { korva::api::DocumentList::instance().close(document_); }

  korva::db::Database& database() { return document_->database(); }

  korva::api::Document* document_ = nullptr;
};
