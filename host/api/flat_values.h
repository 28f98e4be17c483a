// A record's groups as the flat layer sees them: coordinates joined into points and
// every value typed. Entity lists and selection filters both read records this way.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "db/record.h"
#include "qx_value_kind.h"

namespace korva::api {

struct FlatValue {
  int code = 0;            // a point carries the code of its X group (10 for 10/20/30)
  ValueKind kind = ValueKind::Unknown;
  double point[3] = {0, 0, 0};  // a Real in point[0]
  int dimension = 0;       // 2 or 3 for points
  int64_t integer = 0;     // Int16, Int32, Int64
  std::string_view text;   // String, Binary (hex) and the handle text of EntityName kinds
  bool extendedData = false;  // at or after the first 1001
};

// The record's groups after its type, in order.
std::vector<FlatValue> flatValues(const db::Record& record);

// True when the group code starts a point in the flat layer's lists.
inline bool isPointCode(int code) { return valueKindOfCode(code) == ValueKind::Point3d; }

}  // namespace korva::api
