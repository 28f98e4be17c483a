// Values exchanged between the host and extension modules through the flat layer.
#pragma once

#include <cstdint>

// Opaque handles of the host. Both are two 64-bit words that callers hold in their
// own storage and pass by address; only the host looks inside or compares them.
using EntityName = std::int64_t[2];
using SelectionSet = std::int64_t[2];

// A length-prefixed block of bytes (group codes 310-319 and 1004).
struct QxBinaryChunk {
  std::int16_t length;
  char* bytes;
};

// The live member follows from ResultBuffer::type; korva::api::valueKindOfCode
// (qx_value_kind.h) tells which one.
union ResultValue {
  std::int16_t rint;
  std::int32_t rlong;
  std::int64_t rint64;
  double rreal;
  wchar_t* rstring;
  double rpoint[3];
  EntityName rlname;
  SelectionSet rssname;
  QxBinaryChunk rbinary;
};

// One node of a typed value list. Strings and binary chunks in a list belong to the
// list and are allocated with qxad_malloc; qxutRelRb releases them with the nodes.
struct ResultBuffer {
  ResultBuffer* next;
  std::int16_t type;
  ResultValue value;
};

// Status values of the flat layer.
constexpr int RTNORM = 5100;    // done; the result is valid
constexpr int RTNONE = 5000;    // Enter at a prompt; also "no value" and a list terminator
constexpr int RTERROR = -5001;  // failure, or nothing found
constexpr int RTCAN = -5002;    // the user cancelled
constexpr int RTKWORD = -5005;  // a keyword was given

// Value types of ResultBuffer nodes besides the DXF group codes.
constexpr int RTREAL = 5001;     // double
constexpr int RTPOINT = 5002;    // two-dimensional point (z of rpoint unused)
constexpr int RTSHORT = 5003;    // 16-bit integer
constexpr int RTANG = 5004;      // angle in radians
constexpr int RTSTR = 5005;      // wide string
constexpr int RTENAME = 5006;    // EntityName
constexpr int RTPICKS = 5007;    // SelectionSet
constexpr int RT3DPOINT = 5009;  // three-dimensional point
constexpr int RTLONG = 5010;     // 32-bit integer
constexpr int RTLB = 5016;       // list begin
constexpr int RTLE = 5017;       // list end
constexpr int RTDXF0 = 5020;     // value of group 0 (entity type) in a list or filter
