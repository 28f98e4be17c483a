// Points as users type them: absolute, relative to the last point, polar, or in world
// coordinates with a leading "*".
#include <cmath>
#include <cwctype>
#include <vector>

#include "input/drawing_variables.h"
#include "input/point_input.h"
#include "qx_coordinates.h"

namespace korva::input {
namespace {

// Coordinates or a polar length and angle; false when the text is neither.
bool parseOffset(std::wstring_view text, double offset[3]) {
  if (const size_t less = text.find(L'<'); less != std::wstring_view::npos) {
    std::optional<double> length = parseDistanceInput(text.substr(0, less));
    std::optional<double> angle = parseAngleInput(text.substr(less + 1));
    if (!length || !angle) return false;
    const double direction = directionOfTypedAngle(*angle);
    offset[0] = *length * std::cos(direction);
    offset[1] = *length * std::sin(direction);
    offset[2] = 0;
    return true;
  }
  std::vector<std::wstring_view> parts;
  size_t start = 0;
  for (;;) {
    const size_t comma = text.find(L',', start);
    parts.push_back(text.substr(start, comma == std::wstring_view::npos ? comma : comma - start));
    if (comma == std::wstring_view::npos) break;
    start = comma + 1;
  }
  if (parts.size() != 2 && parts.size() != 3) return false;
  for (size_t axis = 0; axis < 3; ++axis) {
    offset[axis] = 0;
    if (axis >= parts.size()) continue;
    std::optional<double> value = parseDistanceInput(parts[axis]);
    if (!value) return false;
    offset[axis] = *value;
  }
  return true;
}

// World coordinates into the current user system.
void worldToUser(double point[3], bool displacement) {
  ResultBuffer world{nullptr, RTSHORT, {}};
  world.value.rint = 0;
  ResultBuffer user{nullptr, RTSHORT, {}};
  user.value.rint = 1;
  double converted[3];
  if (qxedTrans(point, &world, &user, displacement ? 1 : 0, converted) != RTNORM) return;
  for (int axis = 0; axis < 3; ++axis) point[axis] = converted[axis];
}

}  // namespace

bool parsePointInput(std::wstring_view text, const double* base, double result[3]) {
  text = trimmedInput(text);
  if (text.empty()) return false;
  const bool relative = text.front() == L'@';
  if (relative) text.remove_prefix(1);
  const bool world = !text.empty() && text.front() == L'*';
  if (world) text.remove_prefix(1);

  double offset[3] = {0, 0, 0};
  // "@" alone is the last point itself.
  if (!(relative && text.empty()) && !parseOffset(text, offset)) return false;
  if (!relative) {
    if (world) worldToUser(offset, false);
    for (int axis = 0; axis < 3; ++axis) result[axis] = offset[axis];
    return true;
  }
  if (world) worldToUser(offset, true);
  double origin[3] = {0, 0, 0};
  if (base) {
    for (int axis = 0; axis < 3; ++axis) origin[axis] = base[axis];
  } else {
    pointVariable("LASTPOINT", origin);
  }
  for (int axis = 0; axis < 3; ++axis) result[axis] = origin[axis] + offset[axis];
  return true;
}

}  // namespace korva::input
