#include "selection_fixture.h"

#include "db/value_text.h"
#include "dxf/new_drawing.h"
#include "qx_selection.h"

namespace korva::testing {

namespace {
std::string number(double value) {
  return db::formatReal(value);
}
}  // namespace

void SelectionTest::SetUp() {
  document_ = &api::DocumentList::instance().add(dxf::createNewDrawing(), "select.dxf", true);
}

void SelectionTest::TearDown() {
  api::DocumentList::instance().close(document_);
  document_ = nullptr;
}

db::Record* SelectionTest::add(std::string_view type, Groups groups, db::BlockDefinition* block) {
  return database().addEntity(std::move(groups), type, block);
}

db::Record* SelectionTest::line(double x1, double y1, double x2, double y2, std::string layer) {
  return add("LINE", {{8, layer},
                      {10, number(x1)},
                      {20, number(y1)},
                      {30, "0.0"},
                      {11, number(x2)},
                      {21, number(y2)},
                      {31, "0.0"}});
}

db::Record* SelectionTest::circle(double x, double y, double r, std::string layer) {
  return add("CIRCLE",
             {{8, layer}, {10, number(x)}, {20, number(y)}, {30, "0.0"}, {40, number(r)}});
}

db::Record* SelectionTest::arc(double x, double y, double r, double a0, double a1) {
  return add("ARC", {{8, "0"},
                     {10, number(x)},
                     {20, number(y)},
                     {30, "0.0"},
                     {40, number(r)},
                     {50, number(a0)},
                     {51, number(a1)}});
}

db::Record* SelectionTest::lightPolyline(std::vector<std::pair<double, double>> points,
                                         std::vector<double> bulges, bool closed) {
  Groups groups{{8, "0"}, {90, std::to_string(points.size())}, {70, closed ? "1" : "0"}};
  for (size_t i = 0; i < points.size(); ++i) {
    groups.push_back({10, number(points[i].first)});
    groups.push_back({20, number(points[i].second)});
    if (i < bulges.size() && bulges[i] != 0) groups.push_back({42, number(bulges[i])});
  }
  return add("LWPOLYLINE", std::move(groups));
}

db::Record* SelectionTest::text(double x, double y, double height, std::string value,
                                double rotation) {
  return add("TEXT", {{8, "0"},
                      {10, number(x)},
                      {20, number(y)},
                      {30, "0.0"},
                      {40, number(height)},
                      {1, std::move(value)},
                      {50, number(rotation)}});
}

std::set<db::Handle> SelectionTest::select(const wchar_t* mode, const void* first,
                                           const void* second, const ResultBuffer* filter,
                                           int* status) {
  SelectionSet set = {0, 0};
  int result = qxedSSGet(mode, first, second, filter, set);
  if (status) *status = result;
  std::set<db::Handle> members;
  if (result != RTNORM) return members;
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  for (std::int32_t i = 0; i < count; ++i) {
    EntityName name;
    if (qxedSSName(set, i, name) == RTNORM) members.insert(static_cast<db::Handle>(name[0]));
  }
  qxedSSFree(set);
  return members;
}

std::set<db::Handle> SelectionTest::window(const wchar_t* mode, double x1, double y1, double x2,
                                           double y2) {
  const double a[3] = {x1, y1, 0}, b[3] = {x2, y2, 0};
  return select(mode, a, b);
}

double SelectionTest::real(const db::Record* record, int code) {
  return db::parseReal(record->find(code).value_or("nan")).value_or(-1e300);
}

std::set<db::Handle> handles(std::initializer_list<const db::Record*> records) {
  std::set<db::Handle> out;
  for (const db::Record* record : records) out.insert(record->handle());
  return out;
}

}  // namespace korva::testing
