// qxdbTblSearch, qxdbTblNext, qxdbTblObjName: list shapes and the next position.
#include <cstring>

#include "list_fixture.h"

namespace korva::test {
namespace {

class SymbolTableTest : public DrawingTest {
 protected:
  void SetUp() override {
    DrawingTest::SetUp();
    for (const wchar_t* name : {L"Alpha", L"Beta", L"Gamma"}) {
      make(qxutBuildList(RTDXF0, L"LAYER", 2, name, 70, 0, 62, 3, 6, L"Continuous", RTNONE));
    }
  }
  std::vector<std::wstring> walk(const wchar_t* table, bool rewind) {
    std::vector<std::wstring> names;
    for (List list(qxdbTblNext(table, rewind)); list.head; list = List(qxdbTblNext(table, 0))) {
      names.push_back(list.string(2));
    }
    return names;
  }
};

TEST_F(SymbolTableTest, LayerListShapeAndCaseInsensitiveNames) {
  List layer(qxdbTblSearch(L"layer", L"bEtA", 0));
  ASSERT_NE(layer.head, nullptr);
  std::vector<int> codes = layer.codes();
  ASSERT_GE(codes.size(), 6u);
  EXPECT_EQ(std::vector<int>(codes.begin(), codes.begin() + 6),
            (std::vector<int>{-1, 0, 2, 70, 62, 6}));
  EXPECT_EQ(layer.string(0), L"LAYER");
  EXPECT_EQ(layer.string(2), L"Beta");
  EXPECT_EQ(layer.find(100), nullptr);
  EXPECT_EQ(qxdbTblSearch(L"LAYER", L"Delta", 0), nullptr);
  EXPECT_EQ(qxdbTblSearch(L"NOTABLE", L"Beta", 0), nullptr);
}

TEST_F(SymbolTableTest, TurningLayerOffThroughItsListMakesColourNegative) {
  List layer(qxdbTblSearch(L"LAYER", L"Gamma", 0));
  layer.find(62)->value.rint = -3;
  ASSERT_EQ(qxdbEntMod(layer), RTNORM);
  List again(qxdbTblSearch(L"LAYER", L"Gamma", 0));
  EXPECT_EQ(again.find(62)->value.rint, -3);
  // A name taken by another layer is refused.
  setString(again, 2, L"alpha");
  EXPECT_EQ(qxdbEntMod(again), RTERROR);
}

TEST_F(SymbolTableTest, NextWalksInTableOrderAndSearchSetsThePosition) {
  EXPECT_EQ(walk(L"LAYER", true), (std::vector<std::wstring>{L"0", L"Alpha", L"Beta", L"Gamma"}));
  EXPECT_EQ(qxdbTblNext(L"LAYER", 0), nullptr);  // stays at the end
  List beta(qxdbTblSearch(L"LAYER", L"Beta", 1));
  EXPECT_EQ(walk(L"LAYER", false), (std::vector<std::wstring>{L"Gamma"}));
  List unmoved(qxdbTblSearch(L"LAYER", L"0", 0));
  EXPECT_EQ(walk(L"LAYER", false), std::vector<std::wstring>{});
  EXPECT_EQ(walk(L"APPID", true), (std::vector<std::wstring>{L"ACAD"}));
}

TEST_F(SymbolTableTest, BlockListLeadsToItsEntities) {
  double base[3] = {1, 2, 3}, a[3] = {0, 0, 0}, b[3] = {1, 0, 0};
  make(qxutBuildList(RTDXF0, L"BLOCK", 2, L"Part", 70, 0, 10, base, RTNONE));
  make(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE));
  make(qxutBuildList(RTDXF0, L"CIRCLE", 10, a, 40, 1.0, RTNONE));
  make(qxutBuildList(RTDXF0, L"ENDBLK", RTNONE));
  List block(qxdbTblSearch(L"BLOCK", L"PART", 0));
  ASSERT_NE(block.head, nullptr);
  EXPECT_EQ(block.codes(), (std::vector<int>{-1, 0, 2, 70, 10, -2}));
  EXPECT_DOUBLE_EQ(block.point(10)[2], 3.0);
  // Layout blocks are no table entries.
  EXPECT_EQ(walk(L"BLOCK", true), (std::vector<std::wstring>{L"Part"}));
  EXPECT_EQ(qxdbTblSearch(L"BLOCK", L"*Model_Space", 0), nullptr);

  EntityName header;
  ASSERT_EQ(qxdbTblObjName(L"BLOCK", L"part", header), RTNORM);
  std::vector<std::wstring> kinds;
  EntityName walkName;
  std::memcpy(walkName, header, sizeof walkName);
  while (qxdbEntNext(walkName, walkName) == RTNORM)
    kinds.push_back(List(qxdbEntGet(walkName)).string(0));
  EXPECT_EQ(kinds, (std::vector<std::wstring>{L"LINE", L"CIRCLE"}));
  // The drawing's own walk doesn't enter block definitions.
  EntityName first = {0, 0};
  EXPECT_EQ(qxdbEntNext(nullptr, first), RTERROR);
}

TEST_F(SymbolTableTest, ObjectNameGivesFullRecordList) {
  EntityName name;
  EXPECT_EQ(qxdbTblObjName(L"LAYER", L"Nope", name), RTERROR);
  ASSERT_EQ(qxdbTblObjName(L"layer", L"alpha", name), RTNORM);
  List list(qxdbEntGet(name));
  EXPECT_EQ(list.string(0), L"LAYER");
  EXPECT_NE(list.find(100), nullptr);
  EXPECT_NE(list.find(330), nullptr);
  list.find(70)->value.rint = 1;
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  EXPECT_EQ(List(qxdbTblSearch(L"LAYER", L"Alpha", 0)).find(70)->value.rint, 1);
  EXPECT_EQ(saveAndAudit(database(), "tables.dxf"), "");
}

}  // namespace
}  // namespace korva::test
