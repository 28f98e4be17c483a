// A fresh drawing per test, with makers for the entities that selection tests use.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "api/document.h"
#include "db/database.h"
#include "group_text.h"
#include "qx_types.h"

namespace korva::testing {

using Groups = std::vector<db::OwnedGroup>;

class SelectionTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  db::Database& database() { return document_->database(); }
  api::Document& document() { return *document_; }

  db::Record* add(std::string_view type, Groups groups, db::BlockDefinition* block = nullptr);
  db::Record* add(std::string_view type, std::string_view groupText,
                  db::BlockDefinition* block = nullptr) {
    return add(type, groups(groupText), block);
  }
  db::Record* line(double x1, double y1, double x2, double y2, std::string layer = "0");
  db::Record* circle(double x, double y, double r, std::string layer = "0");
  db::Record* arc(double x, double y, double r, double startDegrees, double endDegrees);
  // Vertices with the bulge of the segment that starts there.
  db::Record* lightPolyline(std::vector<std::pair<double, double>> points,
                            std::vector<double> bulges, bool closed);
  db::Record* text(double x, double y, double height, std::string value, double rotation = 0);

  // Runs qxedSSGet and returns the members, freeing the set; `status` gets the result.
  std::set<db::Handle> select(const wchar_t* mode, const void* first = nullptr,
                              const void* second = nullptr, const ResultBuffer* filter = nullptr,
                              int* status = nullptr);
  std::set<db::Handle> window(const wchar_t* mode, double x1, double y1, double x2, double y2);

  // A group's value as a number.
  double real(const db::Record* record, int code);

 private:
  api::Document* document_ = nullptr;
};

std::set<db::Handle> handles(std::initializer_list<const db::Record*> records);

}  // namespace korva::testing
