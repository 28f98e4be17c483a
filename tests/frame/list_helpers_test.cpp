// The list helpers on lists built here: absent groups, null lists, cut strings.
#include <gtest/gtest.h>

#include "frame/list_helpers.h"

namespace {

class ListHelpersTest : public ::testing::Test {
 protected:
  void TearDown() override { qxutRelRb(list_); }
  ResultBuffer* list_ = nullptr;
};

TEST_F(ListHelpersTest, ReadsTheFirstNodeOfACode) {
  const double point[3] = {1, 2, 3};
  list_ = qxutBuildList(RTDXF0, L"LINE", 8, L"Walls", 70, -5, 70, 9, 40, 2.5, 10, point, RTNONE);
  ASSERT_NE(list_, nullptr);
  EXPECT_EQ(FindGroupCode(list_, 40)->value.rreal, 2.5);
  EXPECT_EQ(FindGroupCode(list_, 62), nullptr);

  int flags = 0;
  ASSERT_EQ(GetGroupInt(list_, 70, flags), RTNORM);
  EXPECT_EQ(flags, -5);  // the first of the two, with its sign

  wchar_t layer[16] = L"untouched";
  ASSERT_EQ(GetGroupString(list_, 8, layer, 16), RTNORM);
  EXPECT_STREQ(layer, L"Walls");
  wchar_t cut[4];
  ASSERT_EQ(GetGroupString(list_, 8, cut, 4), RTNORM);
  EXPECT_STREQ(cut, L"Wal");

  double real = 0;
  EXPECT_EQ(GetGroupReal(list_, 40, real), RTNORM);
  EXPECT_EQ(real, 2.5);
}

TEST_F(ListHelpersTest, AbsentGroupsAndNullListsFailAndLeaveTheTarget) {
  list_ = qxutBuildList(8, L"0", RTNONE);
  wchar_t buffer[8] = L"kept";
  EXPECT_EQ(GetGroupString(nullptr, 8, buffer, 8), RTERROR);
  EXPECT_EQ(GetGroupString(list_, 1, buffer, 8), RTERROR);
  EXPECT_STREQ(buffer, L"kept");
  int value = 7;
  EXPECT_EQ(GetGroupInt(list_, 70, value), RTERROR);
  EXPECT_EQ(value, 7);
  EntityName name{};
  EXPECT_EQ(GetGroupEntity(list_, name), RTERROR);
  EXPECT_EQ(SetGroupString(list_, 1, L"x"), RTERROR);
  EXPECT_EQ(SetGroupReal(nullptr, 40, 1.0), RTERROR);
  EXPECT_EQ(SetGroup60(list_, 1), RTERROR);
}

TEST_F(ListHelpersTest, ChangesValuesInPlace) {
  list_ = qxutBuildList(8, L"0", 60, 0, 40, 1.0, RTNONE);
  ASSERT_EQ(SetGroupString(list_, 8, L"A much longer layer name"), RTNORM);
  EXPECT_STREQ(FindGroupCode(list_, 8)->value.rstring, L"A much longer layer name");
  ASSERT_EQ(SetGroup60(list_, 1), RTNORM);
  EXPECT_EQ(FindGroupCode(list_, 60)->value.rint, 1);
  ASSERT_EQ(SetGroupReal(list_, 40, 0.25), RTNORM);
  EXPECT_EQ(FindGroupCode(list_, 40)->value.rreal, 0.25);
}

TEST_F(ListHelpersTest, AppendingToAnEmptyListMakesTheHead) {
  ResultBuffer* first = qxutBuildList(8, L"A", RTNONE);
  ASSERT_EQ(AppendResultBuffer(list_, first), RTNORM);
  EXPECT_EQ(list_, first);
  ResultBuffer* second = qxutBuildList(62, 3, RTNONE);
  ResultBuffer* third = qxutBuildList(6, L"DASHED2", RTNONE);
  AppendResultBuffer(list_, second);
  AppendResultBuffer(list_, third);
  EXPECT_EQ(list_->next, second);
  EXPECT_EQ(second->next, third);
}

TEST_F(ListHelpersTest, ReadsTheReferencedEntity) {
  const std::int64_t target[2] = {0x2A, 1};
  list_ = qxutBuildList(8, L"0", -2, target, RTNONE);
  EntityName name{};
  ASSERT_EQ(GetGroupEntity(list_, name), RTNORM);
  EXPECT_EQ(name[0], 0x2A);
  EXPECT_EQ(name[1], 1);
}

}  // namespace
