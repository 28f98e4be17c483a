#include "record_view.h"

#include <cstdint>

#include "qx_value_kind.h"

namespace korva::api {

RecordView viewOf(const db::Record& record) {
  RecordView view;
  view.groups = record.groupList();
  const std::vector<db::Group>& groups = view.groups;
  view.slots.reserve(groups.size());
  bool inAppGroup = false;
  bool extended = false;
  view.extendedStart = SIZE_MAX;
  int handleCode = record.type() == "DIMSTYLE" ? 105 : 5;
  for (size_t i = 0; i < groups.size(); ++i) {
    Slot slot{groups[i].code, i, 1, inAppGroup};
    if (groups[i].code == 1001 && !extended) {
      extended = true;
      view.extendedStart = view.slots.size();
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
      if (slot.code == handleCode && view.handleSlot < 0) {
        view.handleSlot = static_cast<int>(view.slots.size());
      } else if (slot.code == 330 && view.ownerSlot < 0) {
        view.ownerSlot = static_cast<int>(view.slots.size());
      }
    }
    view.slots.push_back(slot);
  }
  if (view.extendedStart == SIZE_MAX) view.extendedStart = view.slots.size();
  return view;
}

}  // namespace korva::api
