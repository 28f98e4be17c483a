// A new drawing as the current document, records added straight to it, and objects
// opened over them; every test must close what it opened.
#pragma once

#include <gtest/gtest.h>

#include <numbers>
#include <string>
#include <vector>

#include "api/document.h"
#include "api/objects/object_groups.h"
#include "api/objects/object_state.h"
#include "qx_db_core.h"
#include "qx_db_entity.h"

namespace korva::test {

// Explodes the entity; the pieces are the caller's to delete.
Qxad::ErrorStatus explodeInto(const QxDbEntity* entity, std::vector<QxDbEntity*>& pieces);

constexpr double kPi = std::numbers::pi;

class EntitiesTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  db::Database& database() { return document_->database(); }

  // An entity of model space (or of a block) from its groups; returns its id.
  QxDbObjectId add(std::string_view type, std::vector<db::OwnedGroup> groups,
                   std::string_view block = {});
  void addBlock(std::string_view name);
  api::Document* document_ = nullptr;
};

}  // namespace korva::test
