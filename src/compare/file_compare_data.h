// One difference found by a drawing comparison: an entity only in the old drawing, only
// in the new one, or a pair that changed.
#pragma once

#include <cstdint>
#include <string>

#include "frame/host_interface.h"

enum VnFileCompareKind : std::int32_t {
  kOldEntity = 0,
  kNewEntity = 1,
  kModifiedPair = 2,
};

struct VnFileCompareData {
  std::int32_t kind = kOldEntity;
  std::wstring handle;  // hexadecimal; the old entity's for a modified pair
  std::wstring type;    // the record type, such as "LINE"
  QxDbExtents extents;
  std::wstring layout;  // the layout the entity stands in (group 410)
};
