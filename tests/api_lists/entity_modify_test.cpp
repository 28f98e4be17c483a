// qxdbEntMod: lists written back, changed, shortened and lengthened.
#include <algorithm>

#include "db/value_text.h"
#include "list_fixture.h"

namespace korva::test {
namespace {

class EntityModifyTest : public DrawingTest {
 protected:
  void SetUp() override {
    DrawingTest::SetUp();
    double a[3] = {0, 0, 0}, b[3] = {10, 0, 0};
    make(qxutBuildList(RTDXF0, L"LINE", 8, L"0", 10, a, 11, b, RTNONE));
    ASSERT_EQ(qxdbEntLast(line_), RTNORM);
  }
  db::Record& lineRecord() { return *api::recordOf(line_); }
  std::vector<int> recordCodes() {
    std::vector<int> codes;
    for (const db::Group& group : lineRecord().groups()) codes.push_back(group.code);
    return codes;
  }
  EntityName line_;
};

TEST_F(EntityModifyTest, UnchangedListLeavesRecordAndSpellingAlone) {
  db::Record* record =
      database().addEntity(groups("100 AcDbEntity|8 0|100 AcDbLine|10 1.50|20 2|30 0.0|11 4.0|"
                                  "21 6.0|31 0.0"),
                           "LINE");
  EntityName name;
  api::nameOf(document(), *record, name);
  List list(qxdbEntGet(name));
  list.find(11)->value.rpoint[0] = 5;
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  EXPECT_EQ(record->find(10).value_or(""), "1.50");
  EXPECT_EQ(record->find(30).value_or(""), "0.0");
  EXPECT_DOUBLE_EQ(db::parseReal(record->find(11).value_or("")).value_or(0), 5.0);
  EXPECT_EQ(record->find(21).value_or(""), "6.0");
}

TEST_F(EntityModifyTest, NewLayerIsCreatedWithUsualGroups) {
  List list(qxdbEntGet(line_));
  setString(list, 8, L"Walls");
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  EXPECT_EQ(lineRecord().find(8).value_or(""), "Walls");
  List layer(qxdbTblSearch(L"LAYER", L"walls", 0));
  ASSERT_NE(layer.head, nullptr);
  EXPECT_EQ(layer.find(62)->value.rint, 7);
  EXPECT_EQ(layer.string(6), L"Continuous");
  EXPECT_EQ(saveAndAudit(database(), "modify_layer.dxf"), "");
}

TEST_F(EntityModifyTest, GroupAppendedAtTailGoesUnderAcDbEntity) {
  List list(qxdbEntGet(line_));
  appendNode(list, 62)->value.rint = 1;
  appendNode(list, 6)->value.rstring = qxutNewString(L"Continuous");
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  std::vector<int> codes = recordCodes();
  auto marker = std::find(codes.begin() + 3, codes.end(), 100);  // AcDbLine
  auto colour = std::find(codes.begin(), codes.end(), 62);
  auto linetype = std::find(codes.begin(), codes.end(), 6);
  ASSERT_NE(colour, codes.end());
  EXPECT_LT(colour, marker);
  EXPECT_LT(linetype, marker);
  EXPECT_EQ(saveAndAudit(database(), "modify_append.dxf"), "");
}

TEST_F(EntityModifyTest, GroupLeftOutOfFullListIsRemoved) {
  {
    List list(qxdbEntGet(line_));
    appendNode(list, 62)->value.rint = 3;
    ASSERT_EQ(qxdbEntMod(list), RTNORM);
  }
  ASSERT_TRUE(lineRecord().find(62).has_value());
  List list(qxdbEntGet(line_));
  ResultBuffer* before = list.head;
  while (before->next->type != 62) before = before->next;
  ResultBuffer* colour = before->next;
  before->next = colour->next;
  colour->next = nullptr;
  qxutRelRb(colour);
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  EXPECT_FALSE(lineRecord().find(62).has_value());
  EXPECT_TRUE(lineRecord().find(11).has_value());
}

TEST_F(EntityModifyTest, ShortListChangesOnlyWhatItNames) {
  List list(qxutBuildList(-1, line_, 62, 5, RTNONE));
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  EXPECT_EQ(lineRecord().find(62).value_or(""), "5");
  EXPECT_TRUE(lineRecord().find(10).has_value());
  EXPECT_EQ(lineRecord().find(8).value_or(""), "0");
}

TEST_F(EntityModifyTest, MalformedListsFail) {
  struct Case {
    const char* what;
    ResultBuffer* list;
  };
  double point[3] = {1, 2, 3};
  Case cases[] = {
      {"no -1", qxutBuildList(RTDXF0, L"LINE", 62, 1, RTNONE)},
      {"other type", qxutBuildList(-1, line_, RTDXF0, L"CIRCLE", RTNONE)},
      {"value type code", qxutBuildList(-1, line_, RTSTR, L"x", RTNONE)},
      {"line break", qxutBuildList(-1, line_, 8, L"a\nb", RTNONE)},
      {"empty layer", qxutBuildList(-1, line_, 8, L"", RTNONE)},
      {"data before -3", qxutBuildList(-1, line_, 1000, L"x", RTNONE)},
      {"value not after 1001", qxutBuildList(-1, line_, -3, 1000, L"x", RTNONE)},
      {"application not registered",
       qxutBuildList(-1, line_, -3, 1001, L"NOAPP", 1000, L"x", RTNONE)},
      {"unknown group code", qxutBuildList(-1, line_, 10, point, RTNONE)},
  };
  cases[std::size(cases) - 1].list->next->type = 500;  // no value type is known for 500
  std::string before = std::string(lineRecord().find(8).value_or(""));
  for (Case& each : cases) {
    List list(each.list);
    ASSERT_NE(list.head, nullptr) << each.what;
    EXPECT_EQ(qxdbEntMod(list), RTERROR) << each.what;
  }
  EXPECT_EQ(lineRecord().find(8).value_or(""), before);
  EXPECT_FALSE(lineRecord().find(62).has_value());
}

TEST_F(EntityModifyTest, ErasedOrLockedEntityIsNotModified) {
  List change(qxutBuildList(-1, line_, 62, 2, RTNONE));
  ASSERT_EQ(qxdbEntDel(line_), RTNORM);
  EXPECT_EQ(qxdbEntMod(change), RTERROR);
  ASSERT_EQ(qxdbEntDel(line_), RTNORM);

  List layer(qxdbTblSearch(L"LAYER", L"0", 0));
  layer.find(70)->value.rint = 4;
  ASSERT_EQ(qxdbEntMod(layer), RTNORM);
  EXPECT_EQ(qxdbEntMod(change), RTERROR);
  EXPECT_EQ(qxdbEntDel(line_), RTERROR);
  layer.find(70)->value.rint = 0;
  ASSERT_EQ(qxdbEntMod(layer), RTNORM);
  EXPECT_EQ(qxdbEntMod(change), RTNORM);
}

TEST_F(EntityModifyTest, LightweightPolylineKeepsTwoDimensionalVertices) {
  double p1[3] = {0, 0, 0}, p2[3] = {5, 0, 0}, p3[3] = {5, 5, 0};
  make(qxutBuildList(RTDXF0, L"LWPOLYLINE", 10, p1, 10, p2, 10, p3, RTNONE));
  EntityName polyline;
  ASSERT_EQ(qxdbEntLast(polyline), RTNORM);
  List list(qxdbEntGet(polyline));
  EXPECT_EQ(list.find(90)->value.rlong, 3);
  list.find(10, 1)->value.rpoint[1] = 2;
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  db::Record* record = api::recordOf(polyline);
  EXPECT_FALSE(record->find(30).has_value());
  List again(qxdbEntGet(polyline));
  EXPECT_DOUBLE_EQ(again.find(10, 1)->value.rpoint[1], 2.0);
  EXPECT_DOUBLE_EQ(again.find(10, 2)->value.rpoint[0], 5.0);
  EXPECT_EQ(saveAndAudit(database(), "modify_lwpolyline.dxf"), "");
}

TEST_F(EntityModifyTest, ExtendedDataOfNamedApplicationsIsReplaced) {
  ASSERT_EQ(qxdbRegApp(L"KEEP"), RTNORM);
  ASSERT_EQ(qxdbRegApp(L"DROP"), RTNORM);
  {
    List list(
        qxutBuildList(-1, line_, -3, 1001, L"KEEP", 1000, L"k", 1001, L"DROP", 1070, 1, RTNONE));
    ASSERT_EQ(qxdbEntMod(list), RTNORM);
  }
  List all(qxutBuildList(RTSTR, L"*", RTNONE));
  {
    List list(qxdbEntGetX(line_, all));
    EXPECT_EQ(list.string(1001), L"KEEP");
    // Give DROP without values: its data goes, KEEP's stays.
    List change(qxutBuildList(-1, line_, -3, 1001, L"DROP", RTNONE));
    ASSERT_EQ(qxdbEntMod(change), RTNORM);
  }
  List list(qxdbEntGetX(line_, all));
  EXPECT_EQ(list.string(1000), L"k");
  EXPECT_EQ(list.find(1001, 1), nullptr);
  long room = 0;
  ASSERT_EQ(qxdbXdRoom(line_, &room), RTNORM);
  EXPECT_LT(room, 16384);
  EXPECT_GT(room, 16300);
}

TEST_F(EntityModifyTest, StringTakenOverByCallerBecomesEmpty) {
  double at[3] = {0, 0, 0};
  make(qxutBuildList(RTDXF0, L"TEXT", 10, at, 40, 1.0, 1, L"old", RTNONE));
  EntityName text;
  ASSERT_EQ(qxdbEntLast(text), RTNORM);
  List list(qxdbEntGet(text));
  ResultBuffer* node = list.find(1);
  qxutDelBuffer(node->value.rstring);
  node->value.rstring = nullptr;
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  EXPECT_EQ(api::recordOf(text)->find(1).value_or("x"), "");
}

}  // namespace
}  // namespace korva::test
