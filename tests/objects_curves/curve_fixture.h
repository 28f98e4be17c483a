// A drawing as the current document, records added to it, and their objects opened.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "../../host/api/objects/object_state.h"
#include "../api_select/group_text.h"
#include "api/document.h"
#include "db/database.h"
#include "dxf/new_drawing.h"
#include "qx_db_curves.h"

using korva::testing::groups;

class CurveDrawing : public ::testing::Test {
 protected:
  void SetUp() override { use(korva::dxf::createNewDrawing()); }
  void TearDown() override {
    EXPECT_EQ(qxdbOpenObjectCount(), 0u) << "a test left an object open";
    korva::api::DocumentList::instance().close(document_);
  }

  void use(std::unique_ptr<korva::db::Database> database) {
    if (document_) korva::api::DocumentList::instance().close(document_);
    document_ =
        &korva::api::DocumentList::instance().add(std::move(database), "/work/plans/curves.dxf");
  }
  korva::db::Database& database() { return document_->database(); }

  // An entity made of these groups (after the common ones) in model space.
  korva::db::Record* add(std::string_view type, std::vector<korva::db::OwnedGroup> groups) {
    std::vector<korva::db::OwnedGroup> all = {{100, "AcDbEntity"}, {8, "0"}};
    all.insert(all.end(), groups.begin(), groups.end());
    return database().addEntity(std::move(all), type);
  }
  korva::db::Record* add(std::string_view type, std::string_view groupText) {
    return add(type, groups(groupText));
  }
  // A 2D vertex of an old-style polyline, owned by it as in files.
  korva::db::Record* vertex(const korva::db::Record* polyline, const std::string& groupText) {
    korva::db::Record* v = add("VERTEX", "100 AcDbVertex|100 AcDb2dVertex|" + groupText);
    korva::db::Database::setLinks(*v, v->handle(), polyline->handle());
    return v;
  }
  QxDbObjectId idOf(const korva::db::Record* record) {
    return korva::api::idOf(database(), *record);
  }
  template <typename T>
  T* open(const korva::db::Record* record, int mode = QxDb::kForRead) {
    QxDbObject* object = nullptr;
    EXPECT_EQ(qxdbOpenQxDbObject(object, idOf(record), mode), Qxad::eOk);
    T* typed = T::cast(object);
    EXPECT_NE(typed, nullptr) << "opened as another class";
    if (!typed && object) object->close();
    return typed;
  }
  // A group's value of a record, as text.
  static std::string value(const korva::db::Record* record, int code, int occurrence = 0) {
    for (const korva::db::Group& group : record->groups()) {
      if (group.code == code && occurrence-- == 0) return std::string(group.value);
    }
    return {};
  }
  static double number(const korva::db::Record* record, int code, int occurrence = 0) {
    return std::stod(value(record, code, occurrence));
  }

  korva::api::Document* document_ = nullptr;
};

#define EXPECT_POINT_NEAR(actual, ex, ey, ez, tol) \
  do {                                             \
    QxGePoint3d p_ = (actual);                     \
    EXPECT_NEAR(p_.x, (ex), (tol));                \
    EXPECT_NEAR(p_.y, (ey), (tol));                \
    EXPECT_NEAR(p_.z, (ez), (tol));                \
  } while (0)
