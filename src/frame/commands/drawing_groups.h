// Groups of the working drawing: making one, filling it from a selection set, and
// finding the groups that hold an entity.
#pragma once

#include <vector>

#include "frame/host_interface.h"

// Makes a group under name in the group dictionary. A name that starts with "*" makes
// an anonymous group, which the dictionary names uniquely ("*A1", "*A2", ...).
// RTNORM with the group's name in groupOut, RTERROR when the group can't be made.
int CreateGroup(const wchar_t* name, const wchar_t* description, EntityName groupOut);

// Appends every member of set whose id can be had to the group. RTNORM or RTERROR.
int AppendSetToGroup(const SelectionSet set, const EntityName group);

// The groups that hold the entity and are not erased, in dictionary order, each with its
// count of entities.
struct GroupHolding {
  QxDbObjectId group;
  std::size_t entityCount = 0;
};
std::vector<GroupHolding> FindGroupsOfEntity(QxDbObjectId entity);

// Takes the group out of the group dictionary, which erases it; its entities stay.
// RTNORM or RTERROR.
int DissolveGroup(QxDbObjectId group);
