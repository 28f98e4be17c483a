// A new drawing open as the current document, seen through both layers.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "../api_select/group_text.h"
#include "api/document.h"
#include "api/objects/object_access.h"
#include "db/database.h"
#include "qx_db_core.h"
#include "qx_db_database.h"

using korva::testing::groups;

class TablesTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  korva::db::Database& database() { return document_->database(); }
  QxDbDatabase* working() { return s_pServices->workingDatabase(); }
  QxDbObjectId idOf(const korva::db::Record* record) const;
  // Adds a LINE on the layer to model space through the flat database.
  korva::db::Record* addLine(const std::string& layer);
  korva::db::Record* addLayer(const std::string& name, int flags = 0, int color = 7);
  // The whole drawing as DXF text.
  std::string dxfText() const;

  korva::api::Document* document_ = nullptr;
};

// The text of a wide string from the host, freed.
std::string taken(wchar_t* text);
