// Drawings for the undo tests: one read from DXF text, so that its records are untouched
// file text, and the current document of the flat layer.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "api/document.h"
#include "db/change_journal.h"
#include "db/database.h"

namespace korva::test {

// A new drawing with two lines on layer "0" (handles in lineHandles), written and read
// back.
class ReadDrawing : public ::testing::Test {
 protected:
  void SetUp() override;

  db::Database& database() { return *database_; }
  db::ChangeJournal& journal() { return database_->journal(); }
  db::Record& line(int index);
  std::string written() const;

  std::unique_ptr<db::Database> database_;
  db::Handle lineHandles[2] = {db::kNoHandle, db::kNoHandle};
};

// The current document of the flat layer, a new drawing.
class CurrentDocument : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  db::Database& database() { return document_->database(); }
  db::ChangeJournal& journal() { return database().journal(); }

  api::Document* document_ = nullptr;
};

// The text of one section of a written drawing, from its name to its ENDSEC.
std::string_view sectionOf(std::string_view file, std::string_view name);
// True when the written drawing holds a record with this handle (the header aside).
bool holdsHandle(std::string_view file, db::Handle handle);

}  // namespace korva::test
