#include "flat_values.h"

#include "db/value_text.h"

namespace korva::api {

std::vector<FlatValue> flatValues(const db::Record& record) {
  std::vector<FlatValue> values;
  std::vector<db::Group> groups = record.groupList();
  values.reserve(groups.size());
  bool extended = false;
  for (size_t i = 0; i < groups.size(); ++i) {
    const db::Group& group = groups[i];
    FlatValue value;
    value.code = group.code;
    value.kind = valueKindOfCode(group.code);
    extended = extended || group.code == 1001;
    value.extendedData = extended;
    switch (value.kind) {
      case ValueKind::Point3d: {
        value.point[0] = db::parseReal(group.value).value_or(0.0);
        value.dimension = 1;
        // Y and Z follow X with codes 10 and 20 higher.
        for (int axis = 1; axis < 3 && i + 1 < groups.size(); ++axis) {
          if (groups[i + 1].code != group.code + 10 * axis) break;
          value.point[axis] = db::parseReal(groups[++i].value).value_or(0.0);
          value.dimension = axis + 1;
        }
        if (value.dimension == 1) {
          value.kind = ValueKind::Real;  // a lone X is just a number
        } else if (value.dimension == 2) {
          value.kind = ValueKind::Point2d;
        }
        break;
      }
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
