// GROUPUNNAME: puts the selected entities into a new anonymous group.
#include "frame/commands/drawing_groups.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"

void cmdGroupUnname() {
  ResourceScope resources;
  SelectionSet set;
  if (qxedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) return;
  EntityName group;
  // A group that can't be made leaves the entities as they were, without a message.
  if (CreateGroup(L"*A", L"", group) == RTNORM) AppendSetToGroup(set, group);
  qxedSSFree(set);
}
