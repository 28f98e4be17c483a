#include "flat_values.h"

#include "db/value_text.h"
#include "record_view.h"

namespace korva::api {

std::vector<FlatValue> flatValues(const db::Record& record) {
  // The record view joins the coordinates; this only types what it found.
  RecordView view = viewOf(record);
  std::vector<FlatValue> values;
  values.reserve(view.slots.size());
  for (size_t index = 0; index < view.slots.size(); ++index) {
    const Slot& slot = view.slots[index];
    const db::Group& group = view.groups[slot.first];
    FlatValue value;
    value.code = slot.code;
    value.kind = valueKindOfCode(slot.code);
    value.extendedData = index >= view.extendedStart;
    switch (value.kind) {
      case ValueKind::Point3d:
        for (int axis = 0; axis < slot.count; ++axis) {
          value.point[axis] = db::parseReal(view.groups[slot.first + axis].value).value_or(0.0);
        }
        value.dimension = slot.count;
        // A lone X is just a number.
        if (slot.count == 1) value.kind = ValueKind::Real;
        if (slot.count == 2) value.kind = ValueKind::Point2d;
        break;
      case ValueKind::Real:
        value.point[0] = db::parseReal(group.value).value_or(0.0);
        break;
      case ValueKind::Int16:
      case ValueKind::Int32:
      case ValueKind::Int64:
        value.integer = db::parseInteger(group.value).value_or(0);
        break;
      default:
        value.text = group.value;
        break;
    }
    values.push_back(value);
  }
  return values;
}

}  // namespace korva::api
