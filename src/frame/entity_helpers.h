// One group of an entity: each helper gets the entity's list, copies the group and
// releases the list. RTERROR only when the list can't be had; a missing group is
// RTNORM with the target left as it was, so callers clear their target first.
#pragma once

#include <cstddef>
#include <string>

#include "frame/host_interface.h"

// The string of group 0.
int GetEntityType(const EntityName name, wchar_t* buffer, std::size_t size);
int GetEntityString(const EntityName name, int code, wchar_t* buffer, std::size_t size);
int GetEntityPoint(const EntityName name, int code, double point[3]);
// The 16-bit value of the group.
int GetEntityInt(const EntityName name, int code, int& value);
int GetEntityReal(const EntityName name, int code, double& value);
// The layer (group 8): 1 when it was read, 0 otherwise.
int GetEntityLayer(const EntityName name, std::wstring& layer);
// Opens the entity for reading; null when it has no id or can't be opened. The caller
// closes it.
QxDbEntity* OpenEntityForRead(const EntityName name);
