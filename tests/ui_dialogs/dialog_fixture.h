// The test dialog's resources in front of all others, a fresh drawing, and a console
// driven by script text with its transcript kept.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "api/document.h"
#include "test_resources.h"
#include "ui/dialog_resources.h"

namespace korva::testing {

class DialogTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Input lines for the dialogs and prompts to come.
  void script(std::string text);
  // What was printed so far, with the last line ended; cleared when taken.
  std::string takeTranscript();
  bool printed(const std::string& text) const {
    return transcript_.str().find(text) != std::string::npos;
  }

  ui::ResourceModule resources_ = makeTestResources();

 private:
  std::unique_ptr<ui::PreferredResources> preferred_;
  api::Document* document_ = nullptr;
  std::ostringstream transcript_;
};

}  // namespace korva::testing
