// A new drawing as the current document, and small helpers for lists in tests.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "../api_select/group_text.h"
#include "api/document.h"
#include "qx_entities.h"
#include "qx_memory.h"

namespace korva::test {

using korva::testing::groups;

// Owns a list and releases it.
struct List {
  ResultBuffer* head = nullptr;
  explicit List(ResultBuffer* list = nullptr) : head(list) {}
  ~List() { qxutRelRb(head); }
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  List(List&& other) noexcept : head(other.head) { other.head = nullptr; }
  List& operator=(List&& other) noexcept {
    std::swap(head, other.head);
    return *this;
  }
  operator ResultBuffer*() const { return head; }
  ResultBuffer* find(int code, int occurrence = 0) const;
  std::wstring string(int code) const;
  const double* point(int code) const;
  std::vector<int> codes() const;
};

class DrawingTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  db::Database& database() { return document_->database(); }
  api::Document& document() { return *document_; }

  // Makes an entity from a list built by qxutBuildList; RTNORM expected.
  void make(ResultBuffer* list);
  // The record of the newest entity.
  db::Record& last();
  api::Document* document_ = nullptr;
};

// Saves the drawing and runs ezdxf's audit on it; the audit's report when it found
// errors or the file didn't load, empty when all is well.
std::string saveAndAudit(db::Database& database, const std::string& name);
// Saves the drawing and has ezdxf check that every name a record gives (layers,
// linetypes, text and dimension styles, blocks, header variables) is there; what is
// missing, empty when nothing is.
std::string saveAndCheckNames(db::Database& database, const std::string& name);

// Replaces the string of the first node with `code`.
void setString(ResultBuffer* list, int code, const wchar_t* text);
// Appends a node at the tail and returns it.
ResultBuffer* appendNode(ResultBuffer* list, int type);

}  // namespace korva::test
