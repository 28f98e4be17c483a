// UNGROUP: dissolves the groups of the selected entities. Of the groups that hold an
// entity, the one with the most entities goes; the others stay.
#include <algorithm>
#include <vector>

#include "frame/commands/drawing_groups.h"
#include "frame/commands/small_command_ids.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"

namespace {

// The largest holder; among equals the first found.
QxDbObjectId LargestGroup(const std::vector<GroupHolding>& holders) {
  auto largest = std::max_element(holders.begin(), holders.end(),
                                  [](const GroupHolding& first, const GroupHolding& second) {
                                    return first.entityCount < second.entityCount;
                                  });
  return largest->group;
}

}  // namespace

void cmdUngroup() {
  ResourceScope resources;
  SelectionSet set;
  if (qxedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) return;
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  std::vector<QxDbObjectId> dissolving;
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName name;
    QxDbObjectId id;
    if (qxedSSName(set, index, name) != RTNORM || qxdbGetObjectId(id, name) != Qxad::eOk) {
      continue;
    }
    const std::vector<GroupHolding> holders = FindGroupsOfEntity(id);
    if (holders.empty()) continue;
    const QxDbObjectId group = LargestGroup(holders);
    if (std::find(dissolving.begin(), dissolving.end(), group) == dissolving.end()) {
      dissolving.push_back(group);
    }
  }
  if (dissolving.empty()) PrintResourceLine(small_commands::kNoGroupFound);
  // Through the group dictionary: korva's qxdbEntDel erases entities only.
  for (QxDbObjectId group : dissolving) DissolveGroup(group);
  qxedSSFree(set);
}
