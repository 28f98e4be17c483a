// Walking entities, erasing and bringing back, handles, registered applications.
#include <cstring>

#include "list_fixture.h"

namespace korva::test {
namespace {

class EntityWalkTest : public DrawingTest {
 protected:
  void makeLine(double x) {
    double a[3] = {x, 0, 0}, b[3] = {x, 1, 0};
    make(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE));
  }
  std::vector<double> walkStarts() {
    std::vector<double> starts;
    EntityName name = {0, 0};
    while (qxdbEntNext(name, name) == RTNORM) {
      List list(qxdbEntGet(name));
      starts.push_back(list.point(10)[0]);
    }
    return starts;
  }
};

TEST_F(EntityWalkTest, WalkFromNothingThroughAllAndErasedAreSkipped) {
  EntityName name = {0, 0};
  EXPECT_EQ(qxdbEntNext(nullptr, name), RTERROR);
  for (double x : {1.0, 2.0, 3.0}) makeLine(x);
  EXPECT_EQ(walkStarts(), (std::vector<double>{1, 2, 3}));

  EntityName last;
  ASSERT_EQ(qxdbEntLast(last), RTNORM);
  ASSERT_EQ(qxdbEntDel(last), RTNORM);
  EXPECT_EQ(walkStarts(), (std::vector<double>{1, 2}));
  EntityName newest;
  ASSERT_EQ(qxdbEntLast(newest), RTNORM);
  EXPECT_DOUBLE_EQ(List(qxdbEntGet(newest)).point(10)[0], 2.0);
  ASSERT_EQ(qxdbEntDel(last), RTNORM);  // brought back
  EXPECT_EQ(walkStarts(), (std::vector<double>{1, 2, 3}));
}

TEST_F(EntityWalkTest, ErasingComplexEntityTakesItsParts) {
  double a[3] = {0, 0, 0}, b[3] = {1, 1, 1};
  make(qxutBuildList(RTDXF0, L"POLYLINE", 70, 8, RTNONE));
  make(qxutBuildList(RTDXF0, L"VERTEX", 10, a, 70, 32, RTNONE));
  make(qxutBuildList(RTDXF0, L"VERTEX", 10, b, 70, 32, RTNONE));
  make(qxutBuildList(RTDXF0, L"SEQEND", RTNONE));
  makeLine(5);
  EntityName polyline = {0, 0};
  ASSERT_EQ(qxdbEntNext(nullptr, polyline), RTNORM);
  EntityName vertex;
  ASSERT_EQ(qxdbEntNext(polyline, vertex), RTNORM);
  EXPECT_EQ(qxdbEntDel(vertex), RTERROR);  // parts go only with their entity
  ASSERT_EQ(qxdbEntDel(polyline), RTNORM);
  EXPECT_EQ(walkStarts(), (std::vector<double>{5}));
  EXPECT_EQ(saveAndAudit(database(), "walk_erased_polyline.dxf"), "");
}

TEST_F(EntityWalkTest, HandleUpdateAndRoom) {
  makeLine(1);
  EntityName line;
  ASSERT_EQ(qxdbEntLast(line), RTNORM);
  List list(qxdbEntGet(line));
  EntityName found;
  ASSERT_EQ(qxdbHandEnt(list.string(5).c_str(), found), RTNORM);
  EXPECT_EQ(std::memcmp(found, line, sizeof found), 0);
  EXPECT_EQ(qxdbHandEnt(L"0", found), RTERROR);
  EXPECT_EQ(qxdbHandEnt(L"FFFFFF", found), RTERROR);
  EXPECT_EQ(qxdbHandEnt(L"zz", found), RTERROR);

  EXPECT_EQ(qxdbEntUpd(line), RTNORM);
  ASSERT_EQ(qxdbEntDel(line), RTNORM);
  EXPECT_EQ(qxdbEntUpd(line), RTERROR);
  ASSERT_EQ(qxdbEntDel(line), RTNORM);

  long room = 0;
  ASSERT_EQ(qxdbXdRoom(line, &room), RTNORM);
  EXPECT_EQ(room, 16384);
  ASSERT_EQ(qxdbRegApp(L"ROOMAPP"), RTNORM);
  EXPECT_EQ(qxdbRegApp(L"ROOMAPP"), RTERROR);
  EXPECT_EQ(qxdbRegApp(L"bad name"), RTERROR);
  List data(qxutBuildList(-1, line, -3, 1001, L"ROOMAPP", 1000, L"0123456789", RTNONE));
  ASSERT_EQ(qxdbEntMod(data), RTNORM);
  long less = 0;
  ASSERT_EQ(qxdbXdRoom(line, &less), RTNORM);
  EXPECT_LT(less, room);
  EXPECT_GT(less, room - 64);
}

TEST_F(EntityWalkTest, OverfullExtendedDataIsRefused) {
  makeLine(1);
  EntityName line;
  ASSERT_EQ(qxdbEntLast(line), RTNORM);
  ASSERT_EQ(qxdbRegApp(L"BIG"), RTNORM);
  std::wstring chunk(250, L'x');
  List list(qxutBuildList(-1, line, -3, 1001, L"BIG", RTNONE));
  for (int i = 0; i < 70; ++i) appendNode(list, 1000)->value.rstring = qxutNewString(chunk.c_str());
  EXPECT_EQ(qxdbEntMod(list), RTERROR);
}

}  // namespace
}  // namespace korva::test
