#include "more_fixture.h"

#include "api/objects/object_state.h"
#include "dxf/new_drawing.h"
#include "qx_entities.h"
#include "qx_memory.h"
#include "qx_value_kind.h"

namespace korva::test {

std::vector<db::OwnedGroup> groups(std::string_view text) {
  std::vector<db::OwnedGroup> result;
  while (!text.empty()) {
    size_t bar = text.find('|');
    std::string_view item = text.substr(0, bar);
    size_t space = item.find(' ');
    result.push_back({std::stoi(std::string(item.substr(0, space))),
                      space == std::string_view::npos ? "" : std::string(item.substr(space + 1))});
    text = bar == std::string_view::npos ? std::string_view() : text.substr(bar + 1);
  }
  return result;
}

void MoreEntitiesTest::SetUp() {
  use(dxf::createNewDrawing());
}

void MoreEntitiesTest::TearDown() {
  EXPECT_EQ(qxdbOpenObjectCount(), 0u) << "an object was left open";
  api::DocumentList::instance().close(document_);
}

void MoreEntitiesTest::use(std::unique_ptr<db::Database> database) {
  if (document_) api::DocumentList::instance().close(document_);
  document_ = &api::DocumentList::instance().add(std::move(database), "more.dxf", true);
}

QxDbObjectId MoreEntitiesTest::add(std::string_view type, std::vector<db::OwnedGroup> groups,
                                   db::BlockDefinition* block) {
  std::vector<db::OwnedGroup> all = {{100, "AcDbEntity"}, {8, "0"}};
  all.insert(all.end(), groups.begin(), groups.end());
  db::Record* record = database().addEntity(std::move(all), type, block);
  return api::idOf(database(), *record);
}

db::Record* MoreEntitiesTest::recordOf(QxDbObjectId id) {
  return api::recordOf(id);
}

bool MoreEntitiesTest::withNode(QxDbObjectId id, int code, int occurrence, int variable, bool write,
                                const std::function<void(ResultBuffer&)>& use) {
  EntityName name;
  if (qxdbGetHysName(name, id) != Qxad::eOk) return false;
  ResultBuffer* applications = qxutBuildList(RTSTR, L"*", 0);
  ResultBuffer* all = variable < 0 ? qxdbEntGet(name) : qxdbEntGetX(name, applications);
  qxutRelRb(applications);
  ResultBuffer* found = nullptr;
  for (ResultBuffer* each = all; each && !found; each = each->next) {
    if (variable < 0 && each->type == code && occurrence-- == 0) found = each;
    if (variable >= 0 && each->type == 1070 && each->value.rint == variable) found = each->next;
  }
  if (found) use(*found);
  if (found && write) {
    EXPECT_EQ(qxdbEntMod(all), RTNORM);
  }
  qxutRelRb(all);
  return found != nullptr;
}

std::optional<std::wstring> MoreEntitiesTest::listText(QxDbObjectId id, int code, int occurrence) {
  std::optional<std::wstring> value;
  withNode(id, code, occurrence, -1, false, [&](ResultBuffer& node) {
    if (node.value.rstring) value = node.value.rstring;
  });
  return value;
}

std::optional<double> MoreEntitiesTest::listReal(QxDbObjectId id, int code, int occurrence) {
  std::optional<double> value;
  withNode(id, code, occurrence, -1, false, [&](ResultBuffer& node) { value = node.value.rreal; });
  return value;
}

std::optional<long> MoreEntitiesTest::listInteger(QxDbObjectId id, int code, int occurrence) {
  std::optional<long> value;
  withNode(id, code, occurrence, -1, false, [&](ResultBuffer& node) {
    value =
        api::valueKindOfCode(code) == api::ValueKind::Int32 ? node.value.rlong : node.value.rint;
  });
  return value;
}

std::optional<QxGePoint3d> MoreEntitiesTest::listPoint(QxDbObjectId id, int code, int occurrence) {
  std::optional<QxGePoint3d> value;
  withNode(id, code, occurrence, -1, false, [&](ResultBuffer& node) {
    value = QxGePoint3d(node.value.rpoint[0], node.value.rpoint[1], node.value.rpoint[2]);
  });
  return value;
}

void MoreEntitiesTest::modifyReal(QxDbObjectId id, int code, double value) {
  EXPECT_TRUE(withNode(id, code, 0, -1, true, [&](ResultBuffer& node) {
    node.value.rreal = value;
  })) << code;
}

void MoreEntitiesTest::modifyInteger(QxDbObjectId id, int code, long value) {
  EXPECT_TRUE(withNode(id, code, 0, -1, true, [&](ResultBuffer& node) {
    if (api::valueKindOfCode(code) == api::ValueKind::Int32)
      node.value.rlong = static_cast<std::int32_t>(value);
    else
      node.value.rint = static_cast<std::int16_t>(value);
  })) << code;
}

void MoreEntitiesTest::modifyPoint(QxDbObjectId id, int code, const QxGePoint3d& value,
                                   int occurrence) {
  EXPECT_TRUE(withNode(id, code, occurrence, -1, true, [&](ResultBuffer& node) {
    node.value.rpoint[0] = value.x;
    node.value.rpoint[1] = value.y;
    node.value.rpoint[2] = value.z;
  })) << code;
}

void MoreEntitiesTest::modifyText(QxDbObjectId id, int code, const wchar_t* value) {
  EXPECT_TRUE(withNode(id, code, 0, -1, true, [&](ResultBuffer& node) {
    qxad_free(node.value.rstring);
    node.value.rstring = qxutNewString(value);
  })) << code;
}

QxDbExtents MoreEntitiesTest::extentsOf(QxDbObjectId id, Qxad::ErrorStatus expected) {
  QxDbExtents extents;
  QxDbEntity* entity = open<QxDbEntity>(id);
  if (!entity) return extents;
  EXPECT_EQ(entity->getGeomExtents(extents), expected);
  entity->close();
  return extents;
}

std::optional<double> MoreEntitiesTest::overrideValue(QxDbObjectId id, int variable) {
  std::optional<double> value;
  withNode(id, 0, 0, variable, false, [&](ResultBuffer& node) {
    value = node.type == 1040 ? node.value.rreal : node.value.rint;
  });
  return value;
}

void MoreEntitiesTest::modifyOverride(QxDbObjectId id, int variable, double value) {
  EXPECT_TRUE(withNode(id, 0, 0, variable, true, [&](ResultBuffer& node) {
    ASSERT_EQ(node.type, 1040);
    node.value.rreal = value;
  })) << variable;
}

}  // namespace korva::test
