#include "repeated_groups.h"

#include <algorithm>

#include "db/value_text.h"

namespace korva::api {

namespace {

struct Range {
  size_t first = 0, end = 0;
  bool found = false;
};

// Index range [first, end) of a part within the groups; the whole list before the
// extended data when subclass is empty, an empty range before the extended data when
// the part is missing.
Range rangeOf(const std::vector<db::OwnedGroup>& groups, std::string_view subclass) {
  size_t end = 0;
  while (end < groups.size() && groups[end].code != 1001) ++end;
  if (subclass.empty()) return {0, end, true};
  for (size_t i = 0; i < end; ++i) {
    if (groups[i].code != 100 || groups[i].value != subclass) continue;
    size_t next = i + 1;
    while (next < end && groups[next].code != 100) ++next;
    return {i + 1, next, true};
  }
  return {end, end, false};
}

}  // namespace

std::vector<db::Group> partGroups(const db::Record& record, std::string_view subclass) {
  std::vector<db::Group> part;
  bool inPart = subclass.empty();
  for (const db::Group& group : record.groups()) {
    if (group.code == 1001) break;
    if (group.code == 100 && !subclass.empty()) {
      inPart = group.value == subclass;
      continue;
    }
    if (inPart) part.push_back(group);
  }
  return part;
}

int countGroups(const db::Record& record, int code, std::string_view subclass) {
  int count = 0;
  for (const db::Group& group : partGroups(record, subclass)) count += group.code == code;
  return count;
}

bool setRepeatedPoint(db::Record& record, int code, int occurrence, const double point[3],
                      std::string_view subclass) {
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  auto [first, end, found] = rangeOf(groups, subclass);
  for (size_t i = first; i < end; ++i) {
    if (groups[i].code != code || occurrence-- != 0) continue;
    groups[i].value = db::formatReal(point[0]);
    for (int axis = 1; axis < 3; ++axis) {
      if (i + axis < end && groups[i + axis].code == code + 10 * axis)
        groups[i + axis].value = db::formatReal(point[axis]);
    }
    record.assign(std::move(groups));
    return true;
  }
  return false;
}

void appendRepeatedPoint(db::Record& record, int code, const double point[3],
                         std::string_view subclass) {
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  auto [first, end, found] = rangeOf(groups, subclass);
  if (!found) {
    groups.insert(groups.begin() + static_cast<long>(end), {100, std::string(subclass)});
    first = end = end + 1;
  }
  size_t at = end;
  for (size_t i = first; i < end; ++i) {
    if (groups[i].code != code) continue;
    at = i + 1;
    while (at < end && (groups[at].code == code + 10 || groups[at].code == code + 20)) ++at;
  }
  std::vector<db::OwnedGroup> values = {{code, db::formatReal(point[0])},
                                        {code + 10, db::formatReal(point[1])},
                                        {code + 20, db::formatReal(point[2])}};
  groups.insert(groups.begin() + static_cast<long>(at), values.begin(), values.end());
  record.assign(std::move(groups));
}

void replaceRepeatedPoints(db::Record& record, int code, const std::vector<geom::Vec3>& points,
                           bool withZ, std::string_view subclass) {
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  auto [first, end, found] = rangeOf(groups, subclass);
  if (!found) {
    groups.insert(groups.begin() + static_cast<long>(end), {100, std::string(subclass)});
    first = end = end + 1;
  }
  size_t at = end;
  for (size_t i = first; i < end;) {
    int each = groups[i].code;
    if (each != code && each != code + 10 && each != code + 20) {
      ++i;
      continue;
    }
    at = std::min(at, i);
    groups.erase(groups.begin() + static_cast<long>(i));
    --end;
  }
  std::vector<db::OwnedGroup> values;
  for (const geom::Vec3& p : points) {
    values.push_back({code, db::formatReal(p.x)});
    values.push_back({code + 10, db::formatReal(p.y)});
    if (withZ) values.push_back({code + 20, db::formatReal(p.z)});
  }
  groups.insert(groups.begin() + static_cast<long>(at), values.begin(), values.end());
  record.assign(std::move(groups));
}

}  // namespace korva::api
