#include "compare_drawing.h"

#include "cmd/host_commands.h"
#include "frame/module_state.h"
#include "rt/modules.h"

namespace korva::test {

void CompareDrawingTest::SetUp() {
  static const bool registered = (cmd::registerTableCommands(), true);
  (void)registered;
  ScriptTest::SetUp();
  runScript("-LAYER\nNew\nWalls,Doors\n\n");
}

void CompareDrawingTest::TearDown() {
  if (resources_) {
    frame::setResourceModule(nullptr);
    qxrxFreeLibrary(resources_);
    resources_ = nullptr;
  }
  ScriptTest::TearDown();
}

void CompareDrawingTest::useModuleResources() {
  QxModuleHandle interfaceLibrary = qxrxGetModuleHandle(L"VnUinfo.dll");
  auto load = reinterpret_cast<QxLoadResourceModuleFunction>(
      qxrxGetProcOrdinal(interfaceLibrary, kQxLoadResourceModuleOrdinal));
  ASSERT_NE(load, nullptr);
  resources_ = load(L"VnExtendRes.dll");
  ASSERT_NE(resources_, nullptr);
  frame::setResourceModule(resources_);
}

QxDbObjectId CompareDrawingTest::make(ResultBuffer* list) {
  EntityName name = {0, 0};
  EXPECT_EQ(qxdbEntMakeX(list, name), RTNORM);
  qxutRelRb(list);
  QxDbObjectId id;
  EXPECT_EQ(qxdbGetObjectId(id, name), Qxad::eOk);
  return id;
}

QxDbObjectId CompareDrawingTest::makeSequence(ResultBuffer* head,
                                              std::initializer_list<ResultBuffer*> vertices) {
  EXPECT_EQ(qxdbEntMake(head), RTNORM);
  qxutRelRb(head);
  for (ResultBuffer* vertex : vertices) {
    EXPECT_EQ(qxdbEntMake(vertex), RTNORM);
    qxutRelRb(vertex);
  }
  ResultBuffer* end = qxutBuildList(RTDXF0, L"SEQEND", RTNONE);
  EXPECT_EQ(qxdbEntMake(end), RTNORM);
  qxutRelRb(end);
  // The newest entity is the polyline, not one of its vertices.
  EntityName polyline = {0, 0};
  EXPECT_EQ(qxdbEntLast(polyline), RTNORM);
  QxDbObjectId id;
  EXPECT_EQ(qxdbGetObjectId(id, polyline), Qxad::eOk);
  return id;
}

QxDbObjectId CompareDrawingTest::line(const double start[3], const double end[3],
                                      const wchar_t* layer) {
  return make(qxutBuildList(RTDXF0, L"LINE", 8, layer, 10, start, 11, end, RTNONE));
}

QxDbObjectId CompareDrawingTest::circle(const double center[3], double radius, double thickness) {
  return make(qxutBuildList(RTDXF0, L"CIRCLE", 10, center, 40, radius, 39, thickness, RTNONE));
}

}  // namespace korva::test
