// A drawing as the current document, entities added to it from their groups, opened
// through the object layer and read back through the flat layer. Every test must close
// what it opened.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "api/document.h"
#include "db/database.h"
#include "qx_db_core.h"
#include "qx_db_entity.h"
#include "qx_ge.h"
#include "qx_types.h"

namespace korva::test {

// Groups written as "code value|code value|...": each value runs to the next bar.
std::vector<db::OwnedGroup> groups(std::string_view text);

class MoreEntitiesTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  // Replaces the drawing (a new one is made in SetUp).
  void use(std::unique_ptr<db::Database> database);
  db::Database& database() { return document_->database(); }

  // An entity of model space (or of the block) from its groups after the common part;
  // returns its id.
  QxDbObjectId add(std::string_view type, std::vector<db::OwnedGroup> groups,
                   db::BlockDefinition* block = nullptr);
  db::Record* recordOf(QxDbObjectId id);

  // Opens the entity as the class, failing the test (and leaving nothing open) otherwise.
  template <typename T>
  T* open(QxDbObjectId id, int mode = QxDb::kForRead) {
    QxDbObject* object = nullptr;
    EXPECT_EQ(qxdbOpenQxDbObject(object, id, mode), Qxad::eOk);
    T* typed = T::cast(object);
    EXPECT_NE(typed, nullptr) << "opened as another class";
    if (!typed && object) object->close();
    return typed;
  }

  // Through the flat layer: the occurrence-th node of the group in the entity's list, as
  // text, number or point; nothing when missing.
  std::optional<std::wstring> listText(QxDbObjectId id, int code, int occurrence = 0);
  std::optional<double> listReal(QxDbObjectId id, int code, int occurrence = 0);
  std::optional<long> listInteger(QxDbObjectId id, int code, int occurrence = 0);
  std::optional<QxGePoint3d> listPoint(QxDbObjectId id, int code, int occurrence = 0);
  // Changes one node of the entity's list and writes it back with qxdbEntMod.
  void modifyReal(QxDbObjectId id, int code, double value);
  void modifyInteger(QxDbObjectId id, int code, long value);
  void modifyPoint(QxDbObjectId id, int code, const QxGePoint3d& value, int occurrence = 0);
  void modifyText(QxDbObjectId id, int code, const wchar_t* value);
  // The entity's box, its status checked against the one expected.
  QxDbExtents extentsOf(QxDbObjectId id, Qxad::ErrorStatus expected = Qxad::eOk);
  // The value behind (1070 . variable) in the entity's dimension override (a 1040 real
  // or a 1070 integer), read with qxdbEntGetX; and a real one changed with qxdbEntMod.
  std::optional<double> overrideValue(QxDbObjectId id, int variable);
  void modifyOverride(QxDbObjectId id, int variable, double value);

  api::Document* document_ = nullptr;

 private:
  // Hands the node to use: the occurrence-th of the group code, or with a variable the
  // node behind (1070 . variable) of the extended data. With write the list then goes
  // back through qxdbEntMod. False when there is no such node.
  bool withNode(QxDbObjectId id, int code, int occurrence, int variable, bool write,
                const std::function<void(ResultBuffer&)>& use);
};

}  // namespace korva::test

#define EXPECT_POINT_NEAR(actual, ex, ey, ez, tol) \
  do {                                             \
    QxGePoint3d p_ = (actual);                     \
    EXPECT_NEAR(p_.x, (ex), (tol));                \
    EXPECT_NEAR(p_.y, (ey), (tol));                \
    EXPECT_NEAR(p_.z, (ez), (tol));                \
  } while (0)

#define EXPECT_EXTENTS_NEAR(box, x0, y0, z0, x1, y1, z1, tol) \
  do {                                                        \
    QxDbExtents b_ = (box);                                   \
    EXPECT_POINT_NEAR(b_.minPoint(), (x0), (y0), (z0), tol);  \
    EXPECT_POINT_NEAR(b_.maxPoint(), (x1), (y1), (z1), tol);  \
  } while (0)
