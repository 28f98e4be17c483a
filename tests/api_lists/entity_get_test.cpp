// qxdbEntGet and qxdbEntGetX: the shape of entity lists.
#include <cstring>

#include "db/value_text.h"
#include "list_fixture.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

class EntityGetTest : public DrawingTest {
 protected:
  // A line made through the database, with values spelt as a file might spell them.
  db::Record* addLine(std::vector<db::OwnedGroup> extra = {}) {
    std::vector<db::OwnedGroup> line = groups(
        "100 AcDbEntity|8 0|100 AcDbLine|10 1.50|20 2|30 0.0|11 4|21 6|"
        "31 0");
    line.insert(line.end(), extra.begin(), extra.end());
    return database().addEntity(std::move(line), "LINE");
  }
  void nameOf(const db::Record& record, EntityName name) { api::nameOf(document(), record, name); }
};

TEST_F(EntityGetTest, LineListHasHeaderGroupsInOrderAndJoinedPoints) {
  EntityName name;
  nameOf(*addLine(), name);
  List list(qxdbEntGet(name));
  std::vector<int> expected = {-1, 0, 330, 5, 100, 67, 410, 8, 100, 10, 11};
  EXPECT_EQ(list.codes(), expected);
  EXPECT_EQ(list.string(0), L"LINE");
  EXPECT_EQ(list.string(410), L"Model");
  EXPECT_EQ(list.find(67)->value.rint, 0);
  EXPECT_EQ(std::memcmp(list.find(-1)->value.rlname, name, sizeof(EntityName)), 0);
  const double* start = list.point(10);
  EXPECT_DOUBLE_EQ(start[0], 1.5);
  EXPECT_DOUBLE_EQ(start[1], 2.0);
  // The owner is an entity name of the model space block record.
  List owner(qxdbEntGet(list.find(330)->value.rlname));
  EXPECT_EQ(owner.string(0), L"BLOCK_RECORD");
  EXPECT_EQ(owner.string(2), L"*Model_Space");
}

TEST_F(EntityGetTest, PaperSpaceEntityNamesItsLayout) {
  database().setHeaderVariable("$TILEMODE", {{70, "0"}});
  database().setHeaderVariable("$CVPORT", {{70, "1"}});
  double a[3] = {0, 0, 0}, b[3] = {1, 1, 0};
  make(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE));
  EntityName last;
  ASSERT_EQ(qxdbEntLast(last), RTNORM);
  List list(qxdbEntGet(last));
  EXPECT_EQ(list.find(67)->value.rint, 1);
  EXPECT_EQ(list.string(410), L"Layout1");
  List owner(qxdbEntGet(list.find(330)->value.rlname));
  EXPECT_EQ(owner.string(2), L"*Paper_Space");
}

TEST_F(EntityGetTest, ExtendedDataOnlyThroughGetXPerApplication) {
  ASSERT_EQ(qxdbRegApp(L"KORVA_A"), RTNORM);
  ASSERT_EQ(qxdbRegApp(L"OTHER"), RTNORM);
  EntityName name;
  nameOf(*addLine(groups("1001 KORVA_A|1000 first|1001 OTHER|1070 7|1010 1|1020 2|1030 3")), name);

  List plain(qxdbEntGet(name));
  EXPECT_EQ(plain.find(-3), nullptr);
  EXPECT_EQ(plain.find(1001), nullptr);

  List patterns(qxutBuildList(RTSTR, L"korva*", RTNONE));
  List one(qxdbEntGetX(name, patterns));
  ASSERT_NE(one.find(-3), nullptr);
  EXPECT_EQ(one.string(1001), L"KORVA_A");
  EXPECT_EQ(one.string(1000), L"first");
  EXPECT_EQ(one.find(1001, 1), nullptr);

  List all(qxutBuildList(RTSTR, L"*", RTNONE));
  List both(qxdbEntGetX(name, all));
  ASSERT_NE(both.find(1001, 1), nullptr);
  EXPECT_EQ(both.find(1070)->value.rint, 7);
  EXPECT_DOUBLE_EQ(both.point(1010)[2], 3.0);

  List none(qxutBuildList(RTSTR, L"NOPE", RTNONE));
  List without(qxdbEntGetX(name, none));
  EXPECT_EQ(without.find(-3), nullptr);
}

TEST_F(EntityGetTest, UnknownOrNullNameGivesNoList) {
  EntityName unknown = {0x7FFFFF, static_cast<int64_t>(document().serial())};
  EXPECT_EQ(qxdbEntGet(unknown), nullptr);
  EntityName null = {0, 0};
  EXPECT_EQ(qxdbEntGet(null), nullptr);
}

TEST_F(EntityGetTest, StringsComeBackWideFromDrawingEncoding) {
  database().setHeaderVariable("$ACADVER", {{1, "AC1015"}});
  database().setHeaderVariable("$DWGCODEPAGE", {{3, "ANSI_1251"}});
  double at[3] = {0, 0, 0};
  make(qxutBuildList(RTDXF0, L"TEXT", 10, at, 40, 2.5, 1, L"Привет", RTNONE));
  EntityName last;
  ASSERT_EQ(qxdbEntLast(last), RTNORM);
  db::Record* record = api::recordOf(last);
  // Stored in code page 1251: one byte a letter.
  EXPECT_EQ(record->find(1).value_or(""), "\xCF\xF0\xE8\xE2\xE5\xF2");
  List list(qxdbEntGet(last));
  EXPECT_EQ(list.string(1), L"Привет");
}

}  // namespace
}  // namespace korva::test
