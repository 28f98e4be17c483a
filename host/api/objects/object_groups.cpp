#include "object_groups.h"

#include <algorithm>

#include "db/value_text.h"
#include "object_state.h"

namespace korva::api {

namespace {

// Index range [first, end) of a subclass's part of the groups; the whole list without one.
std::pair<size_t, size_t> partOf(const std::vector<db::OwnedGroup>& groups,
                                 std::string_view subclass) {
  size_t first = 0;
  size_t end = groups.size();
  auto xdata = std::find_if(groups.begin(), groups.end(),
                            [](const db::OwnedGroup& group) { return group.code == 1001; });
  end = static_cast<size_t>(xdata - groups.begin());
  if (subclass.empty()) return {first, end};
  for (size_t i = 0; i < end; ++i) {
    if (groups[i].code == 100 && groups[i].value == subclass) {
      first = i + 1;
      size_t next = first;
      while (next < end && groups[next].code != 100) ++next;
      return {first, next};
    }
  }
  return {end, end};
}

void setGroups(db::Record& record, const std::vector<db::OwnedGroup>& values,
               std::string_view subclass) {
  if (isScratchRecord(record)) return;
  record.edit([&](std::vector<db::OwnedGroup>& groups) {
    auto [first, end] = partOf(groups, subclass);
    if (!subclass.empty() && first == end && (end == groups.size() || groups[end].code == 1001)) {
      // The marker is missing: add it before the extended data.
      bool hasMarker = std::any_of(groups.begin(), groups.end(), [&](const db::OwnedGroup& group) {
        return group.code == 100 && group.value == subclass;
      });
      if (!hasMarker) {
        groups.insert(groups.begin() + static_cast<long>(end), {100, std::string(subclass)});
        first = end = end + 1;
      }
    }
    for (const db::OwnedGroup& value : values) {
      auto found = std::find_if(
          groups.begin() + static_cast<long>(first), groups.begin() + static_cast<long>(end),
          [&](const db::OwnedGroup& group) { return group.code == value.code; });
      if (found != groups.begin() + static_cast<long>(end)) {
        found->value = value.value;
      } else {
        groups.insert(groups.begin() + static_cast<long>(end), value);
        ++end;
      }
    }
  });
}

}  // namespace

namespace {

// Finds the occurrence of the code in the subclass's part, in one pass, and hands it and
// the groups behind it to take(group, isMatch) until take returns false.
template <class Take>
bool findInPart(const db::Record& record, int code, std::string_view subclass, int occurrence,
                bool unmarkedIsOnePart, Take take) {
  bool inPart = subclass.empty();
  bool sawMarker = false;
  bool found = false;
  int remaining = occurrence;
  record.forEachGroup([&](const db::Group& group) {
    if (found) return take(group, false);
    if (group.code == 1001) return false;
    if (group.code == 100 && !subclass.empty()) {
      sawMarker = true;
      inPart = group.value == subclass;
      return true;
    }
    if (inPart && group.code == code && remaining-- == 0) {
      found = true;
      return take(group, true);
    }
    return true;
  });
  if (!found && unmarkedIsOnePart && !sawMarker && !subclass.empty()) {
    return findInPart(record, code, {}, occurrence, false, take);
  }
  return found;
}

}  // namespace

std::optional<std::string_view> groupText(const db::Record& record, int code,
                                          std::string_view subclass, int occurrence,
                                          bool unmarkedIsOnePart) {
  std::optional<std::string_view> value;
  findInPart(record, code, subclass, occurrence, unmarkedIsOnePart,
             [&](const db::Group& group, bool) {
               value = group.value;
               return false;
             });
  return value;
}

double groupReal(const db::Record& record, int code, double fallback, std::string_view subclass,
                 int occurrence) {
  std::optional<std::string_view> text = groupText(record, code, subclass, occurrence);
  return text ? db::parseReal(*text).value_or(fallback) : fallback;
}

long long groupInteger(const db::Record& record, int code, long long fallback,
                       std::string_view subclass, int occurrence) {
  std::optional<std::string_view> text = groupText(record, code, subclass, occurrence);
  return text ? db::parseInteger(*text).value_or(fallback) : fallback;
}

bool groupPoint(const db::Record& record, int code, double point[3], std::string_view subclass,
                int occurrence, bool unmarkedIsOnePart) {
  // Y and Z are the groups right behind the occurrence's X.
  int axis = 0;
  point[0] = point[1] = point[2] = 0;
  return findInPart(record, code, subclass, occurrence, unmarkedIsOnePart,
                    [&](const db::Group& group, bool isMatch) {
                      if (!isMatch && (axis == 3 || group.code != code + 10 * axis)) return false;
                      point[axis++] = db::parseReal(group.value).value_or(0);
                      return true;
                    });
}

void setGroupText(db::Record& record, int code, std::string_view text, std::string_view subclass) {
  if (isScratchRecord(record)) return;
  setGroups(record, {{code, std::string(text)}}, subclass);
}

void setGroupReal(db::Record& record, int code, double value, std::string_view subclass) {
  if (isScratchRecord(record)) return;
  setGroups(record, {{code, db::formatReal(value)}}, subclass);
}

void setGroupInteger(db::Record& record, int code, long long value, std::string_view subclass) {
  if (isScratchRecord(record)) return;
  setGroups(record, {{code, std::to_string(value)}}, subclass);
}

void setGroupPoint(db::Record& record, int code, const double point[3], std::string_view subclass,
                   bool withZ) {
  if (isScratchRecord(record)) return;
  std::vector<db::OwnedGroup> values = {{code, db::formatReal(point[0])},
                                        {code + 10, db::formatReal(point[1])}};
  if (withZ) values.push_back({code + 20, db::formatReal(point[2])});
  setGroups(record, values, subclass);
}

void removeGroups(db::Record& record, int code, std::string_view subclass) {
  if (isScratchRecord(record)) return;
  record.edit([&](std::vector<db::OwnedGroup>& groups) {
    auto [first, end] = partOf(groups, subclass);
    groups.erase(std::remove_if(groups.begin() + static_cast<long>(first),
                                groups.begin() + static_cast<long>(end),
                                [code](const db::OwnedGroup& group) { return group.code == code; }),
                 groups.begin() + static_cast<long>(end));
  });
}

}  // namespace korva::api
