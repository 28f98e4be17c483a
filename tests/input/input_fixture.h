// A fresh drawing per test, and a console driven by script text with its transcript kept.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "../api_select/group_text.h"
#include "api/document.h"
#include "db/database.h"

namespace korva::testing {

using Groups = std::vector<db::OwnedGroup>;

class InputTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  db::Database& database() { return document_->database(); }
  // Answers for the prompts to come.
  void script(std::string text);
  // What was printed, with the last line ended.
  std::string transcript() const;

  void setShort(std::string_view name, int value);
  void setReal(std::string_view name, double value);
  void setPoint(std::string_view name, double x, double y, double z = 0);
  int errorNumber();

  db::Record* add(std::string_view type, Groups groups, db::BlockDefinition* block = nullptr);
  db::Record* add(std::string_view type, std::string_view groupText,
                  db::BlockDefinition* block = nullptr) {
    return add(type, groups(groupText), block);
  }
  db::Record* line(double x1, double y1, double x2, double y2,
                   db::BlockDefinition* block = nullptr);
  db::Record* circle(double x, double y, double r);

 private:
  api::Document* document_ = nullptr;
  std::ostringstream transcript_;
};

std::string number(double value);

}  // namespace korva::testing
