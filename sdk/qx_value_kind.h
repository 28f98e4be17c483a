// Which member of a ResultBuffer's value a type code or DXF group code uses.
#pragma once

#include "qx_types.h"

namespace korva::api {

enum class ValueKind {
  None,          // carries no value: RTNONE, RTLB, RTLE, group -3
  Int16,         // value.rint
  Int32,         // value.rlong
  Int64,         // value.rint64
  Real,          // value.rreal
  Point2d,       // value.rpoint[0..1]
  Point3d,       // value.rpoint
  String,        // value.rstring, owned by the list
  EntityName,    // value.rlname
  SelectionSet,  // value.rssname
  Binary,        // value.rbinary, bytes owned by the list
  Unknown,       // not a code the flat layer knows
};

namespace value_kind_detail {

// Group codes from -5 to 1071 by table: lists are typed node by node, so this lookup
// sits on every path through a list.
constexpr int kFirstCode = -5;
constexpr int kLastCode = 1071;

constexpr ValueKind kindOfGroupCode(int code) {
  switch (code) {
    case -3:
      return ValueKind::None;
    case -4:
      return ValueKind::String;
    case -1:
    case -2:
      return ValueKind::EntityName;
    default:
      break;
  }
  struct Range {
    int first;
    int last;
    ValueKind kind;
  };
  constexpr Range kRanges[] = {
      {0, 9, ValueKind::String},         {10, 19, ValueKind::Point3d},
      {20, 59, ValueKind::Real},         {60, 79, ValueKind::Int16},
      {90, 99, ValueKind::Int32},        {100, 109, ValueKind::String},
      {110, 119, ValueKind::Point3d},    {120, 149, ValueKind::Real},
      {160, 169, ValueKind::Int64},      {170, 179, ValueKind::Int16},
      {210, 219, ValueKind::Point3d},    {220, 239, ValueKind::Real},
      {270, 299, ValueKind::Int16},      {300, 309, ValueKind::String},
      {310, 319, ValueKind::Binary},     {320, 329, ValueKind::String},
      {330, 369, ValueKind::EntityName}, {370, 389, ValueKind::Int16},
      {390, 399, ValueKind::EntityName}, {400, 409, ValueKind::Int16},
      {410, 419, ValueKind::String},     {420, 429, ValueKind::Int32},
      {430, 439, ValueKind::String},     {440, 459, ValueKind::Int32},
      {460, 469, ValueKind::Real},       {470, 479, ValueKind::String},
      {480, 481, ValueKind::EntityName}, {999, 1003, ValueKind::String},
      {1004, 1004, ValueKind::Binary},   {1005, 1009, ValueKind::String},
      {1010, 1019, ValueKind::Point3d},  {1020, 1059, ValueKind::Real},
      {1060, 1070, ValueKind::Int16},    {1071, 1071, ValueKind::Int32},
  };
  for (const Range& range : kRanges) {
    if (code >= range.first && code <= range.last) return range.kind;
  }
  return ValueKind::Unknown;
}

struct KindTable {
  ValueKind kinds[kLastCode - kFirstCode + 1];
};

constexpr KindTable makeKindTable() {
  KindTable table{};
  for (int code = kFirstCode; code <= kLastCode; ++code) {
    table.kinds[code - kFirstCode] = kindOfGroupCode(code);
  }
  return table;
}

inline constexpr KindTable kKindTable = makeKindTable();

}  // namespace value_kind_detail

// Group codes follow the public DXF ranges; object references (330-369, 390-399,
// 480-481) travel as entity names in lists, as they do in entity lists of the host.
constexpr ValueKind valueKindOfCode(int code) {
  using namespace value_kind_detail;
  if (code >= kFirstCode && code <= kLastCode) return kKindTable.kinds[code - kFirstCode];
  switch (code) {
    case RTNONE:
    case RTLB:
    case RTLE:
      return ValueKind::None;
    case RTREAL:
    case RTANG:
      return ValueKind::Real;
    case RTPOINT:
      return ValueKind::Point2d;
    case RT3DPOINT:
      return ValueKind::Point3d;
    case RTSHORT:
      return ValueKind::Int16;
    case RTLONG:
      return ValueKind::Int32;
    case RTSTR:
    case RTDXF0:
      return ValueKind::String;
    case RTENAME:
      return ValueKind::EntityName;
    case RTPICKS:
      return ValueKind::SelectionSet;
    default:
      return ValueKind::Unknown;
  }
}

}  // namespace korva::api
