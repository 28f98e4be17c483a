#include "record_view.h"

#include <cstdint>

#include "qx_value_kind.h"

namespace korva::api {

RecordView::RecordView(const db::Record& record) {
  record.forEachGroup([&](const db::Group& group) {
    groups.push_back(group);
    return true;
  });
  bool inAppGroup = false;
  bool extended = false;
  extendedStart = SIZE_MAX;
  int handleCode = record.type() == "DIMSTYLE" ? 105 : 5;
  for (size_t i = 0; i < groups.size(); ++i) {
    Slot slot{groups[i].code, i, 1, inAppGroup};
    if (groups[i].code == 1001 && !extended) {
      extended = true;
      extendedStart = slots.size();
    }
    if (groups[i].code == 102) {
      inAppGroup = !groups[i].value.empty() && groups[i].value[0] == '{';
      slot.inAppGroup = true;
    }
    if (valueKindOfCode(slot.code) == ValueKind::Point3d) {
      while (slot.count < 3 && i + 1 < groups.size() &&
             groups[i + 1].code == slot.code + 10 * slot.count) {
        ++slot.count;
        ++i;
      }
    }
    if (!extended && !slot.inAppGroup) {
      if (slot.code == handleCode && handleSlot < 0) {
        handleSlot = static_cast<int>(slots.size());
      } else if (slot.code == 330 && ownerSlot < 0) {
        ownerSlot = static_cast<int>(slots.size());
      }
    }
    slots.push_back(slot);
  }
  if (extendedStart == SIZE_MAX) extendedStart = slots.size();
}

}  // namespace korva::api
