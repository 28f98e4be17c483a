#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>

#include "qx_memory.h"
#include "qx_value_kind.h"

namespace {

using korva::api::ValueKind;
using korva::api::valueKindOfCode;

TEST(HostMemory, AllocatesCopiesAndFrees) {
  auto* block = static_cast<char*>(qxad_malloc(4));
  ASSERT_NE(block, nullptr);
  std::memcpy(block, "abc", 4);
  block = static_cast<char*>(qxad_realloc(block, 4096));
  ASSERT_NE(block, nullptr);
  EXPECT_STREQ(block, "abc");
  qxad_free(block);

  wchar_t* copy = qxutNewString(L"Layer \u00e9");
  ASSERT_NE(copy, nullptr);
  EXPECT_STREQ(copy, L"Layer \u00e9");
  qxutDelBuffer(copy);
  EXPECT_EQ(qxutNewString(nullptr), nullptr);
  qxutDelBuffer(nullptr);
}

TEST(ValueKindOfCode, FollowsTypeCodesAndDxfRanges) {
  const std::pair<int, ValueKind> cases[] = {
      {RTNONE, ValueKind::None},
      {RTLB, ValueKind::None},
      {RTLE, ValueKind::None},
      {-3, ValueKind::None},
      {RTREAL, ValueKind::Real},
      {RTANG, ValueKind::Real},
      {RTPOINT, ValueKind::Point2d},
      {RT3DPOINT, ValueKind::Point3d},
      {RTSHORT, ValueKind::Int16},
      {RTLONG, ValueKind::Int32},
      {RTSTR, ValueKind::String},
      {RTDXF0, ValueKind::String},
      {RTENAME, ValueKind::EntityName},
      {RTPICKS, ValueKind::SelectionSet},
      {-1, ValueKind::EntityName},
      {-2, ValueKind::EntityName},
      {-4, ValueKind::String},
      {0, ValueKind::String},
      {8, ValueKind::String},
      {9, ValueKind::String},
      {10, ValueKind::Point3d},
      {19, ValueKind::Point3d},
      {38, ValueKind::Real},
      {40, ValueKind::Real},
      {50, ValueKind::Real},
      {59, ValueKind::Real},
      {60, ValueKind::Int16},
      {79, ValueKind::Int16},
      {80, ValueKind::Unknown},
      {90, ValueKind::Int32},
      {99, ValueKind::Int32},
      {100, ValueKind::String},
      {109, ValueKind::String},
      {110, ValueKind::Point3d},
      {160, ValueKind::Int64},
      {210, ValueKind::Point3d},
      {290, ValueKind::Int16},
      {310, ValueKind::Binary},
      {330, ValueKind::EntityName},
      {360, ValueKind::EntityName},
      {420, ValueKind::Int32},
      {999, ValueKind::String},
      {1000, ValueKind::String},
      {1004, ValueKind::Binary},
      {1010, ValueKind::Point3d},
      {1040, ValueKind::Real},
      {1070, ValueKind::Int16},
      {1071, ValueKind::Int32},
      {1072, ValueKind::Unknown},
      {-5, ValueKind::Unknown},
      {5008, ValueKind::Unknown},
  };
  for (const auto& [code, kind] : cases) {
    EXPECT_EQ(valueKindOfCode(code), kind) << "code " << code;
  }
}

TEST(ResultBufferList, BuildsEveryKindAndReleasesIt) {
  const double point[3] = {1.5, 2.5, 3.5};
  const double flat[2] = {7, 8};
  const EntityName entity = {11, 22};
  const char bytes[3] = {1, 0, 2};
  const QxBinaryChunk chunk = {3, const_cast<char*>(bytes)};
  ResultBuffer* list = qxutBuildList(RTDXF0, L"LINE", 8, L"Walls", 10, point, RTPOINT, flat, 62, 3,
                                     90, std::int32_t{70000}, 40, 2.25, -1, entity, RTLB, RTLE, 310,
                                     &chunk, 160, std::int64_t{1} << 40, RTNONE);
  ASSERT_NE(list, nullptr);

  ResultBuffer* node = list;
  ASSERT_EQ(node->type, RTDXF0);
  EXPECT_STREQ(node->value.rstring, L"LINE");
  node = node->next;
  ASSERT_EQ(node->type, 8);
  EXPECT_STREQ(node->value.rstring, L"Walls");
  node = node->next;
  ASSERT_EQ(node->type, 10);
  EXPECT_EQ(node->value.rpoint[0], 1.5);
  EXPECT_EQ(node->value.rpoint[2], 3.5);
  node = node->next;
  ASSERT_EQ(node->type, RTPOINT);
  EXPECT_EQ(node->value.rpoint[1], 8);
  node = node->next;
  ASSERT_EQ(node->type, 62);
  EXPECT_EQ(node->value.rint, 3);
  node = node->next;
  ASSERT_EQ(node->type, 90);
  EXPECT_EQ(node->value.rlong, 70000);
  node = node->next;
  ASSERT_EQ(node->type, 40);
  EXPECT_EQ(node->value.rreal, 2.25);
  node = node->next;
  ASSERT_EQ(node->type, -1);
  EXPECT_EQ(node->value.rlname[0], 11);
  EXPECT_EQ(node->value.rlname[1], 22);
  node = node->next;
  EXPECT_EQ(node->type, RTLB);
  node = node->next;
  EXPECT_EQ(node->type, RTLE);
  node = node->next;
  ASSERT_EQ(node->type, 310);
  ASSERT_EQ(node->value.rbinary.length, 3);
  EXPECT_NE(node->value.rbinary.bytes, bytes);  // the list holds its own copy
  EXPECT_EQ(node->value.rbinary.bytes[2], 2);
  node = node->next;
  ASSERT_EQ(node->type, 160);
  EXPECT_EQ(node->value.rint64, std::int64_t{1} << 40);
  EXPECT_EQ(node->next, nullptr);

  // Run under a leak checker, this also shows that strings and chunks go with the list.
  EXPECT_EQ(qxutRelRb(list), RTNORM);
}

TEST(ResultBufferList, ZeroEndsTheListLikeRtnone) {
  ResultBuffer* list = qxutBuildList(RTSHORT, 1, 0, RTSHORT, 2, RTNONE);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->value.rint, 1);
  EXPECT_EQ(list->next, nullptr);
  qxutRelRb(list);
  EXPECT_EQ(qxutBuildList(RTNONE), nullptr);
}

TEST(ResultBufferList, FilterOfTheCommonForm) {
  ResultBuffer* filter = qxutBuildList(-4, L"<OR", RTDXF0, L"ARC", -4, L"OR>", RTNONE);
  ASSERT_NE(filter, nullptr);
  ASSERT_NE(filter->next, nullptr);
  ASSERT_NE(filter->next->next, nullptr);
  EXPECT_STREQ(filter->value.rstring, L"<OR");
  EXPECT_STREQ(filter->next->value.rstring, L"ARC");
  EXPECT_STREQ(filter->next->next->value.rstring, L"OR>");
  EXPECT_EQ(filter->next->next->next, nullptr);
  qxutRelRb(filter);
}

TEST(ResultBufferList, RefusesWhatItCannotRead) {
  EXPECT_EQ(qxutBuildList(RTSTR, L"kept", 81, 5, RTNONE), nullptr);  // 81 is no known code
  EXPECT_EQ(qxutBuildList(RTSTR, L"kept", RTSTR, static_cast<const wchar_t*>(nullptr), RTNONE),
            nullptr);
  EXPECT_EQ(qxutBuildList(10, static_cast<const double*>(nullptr), RTNONE), nullptr);
}

TEST(ResultBufferList, NewNodeIsZeroedAndReleaseToleratesNull) {
  ResultBuffer* node = qxutNewRb(RTSTR);
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(node->type, RTSTR);
  EXPECT_EQ(node->next, nullptr);
  EXPECT_EQ(node->value.rstring, nullptr);
  node->value.rstring = qxutNewString(L"owned by the node");
  node->next = qxutNewRb(RT3DPOINT);
  EXPECT_EQ(node->next->value.rpoint[2], 0.0);
  EXPECT_EQ(qxutRelRb(node), RTNORM);
  EXPECT_EQ(qxutRelRb(nullptr), RTNORM);
}

}  // namespace
