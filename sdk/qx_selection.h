// Selection sets of the flat layer: making them from the drawing, reading, editing and
// freeing them, the pick-first set, and moving their members.
#pragma once

#include <cstdint>

#include "qx_types.h"

// Makes a set from the current drawing. Modes without a prompt:
//   "X"             every entity of model space and all layouts that passes `filter`
//   "A", "_A"       every entity of the current space
//   "I", "_I"       the pick-first set; RTERROR when there is none
//   "P"             the previous selection
//   "L", "_L"       the last entity made in the current space
//   "W", "C"        window (wholly inside) or crossing between the corner points
//                   first and second (const double[3], current user system)
//   "WP", "CP"      window or crossing polygon; first is a list of RTPOINT or
//                   RT3DPOINT nodes (const ResultBuffer*)
//   "F"             fence through the points of such a list
// The interactive modes (null, ":$", ":S", ":L", ":?" and the "-M" forms) return
// RTERROR until the command processor can prompt.
// RTNORM with a new set in `set`; RTERROR when nothing was found, the filter is
// malformed, the arguments don't fit the mode, or 128 sets are already open.
int qxedSSGet(const wchar_t* mode, const void* first, const void* second,
              const ResultBuffer* filter, SelectionSet set);

int qxedSSLength(const SelectionSet set, std::int32_t* count);
// The member at index; RTERROR when out of range.
int qxedSSName(const SelectionSet set, std::int32_t index, EntityName name);
// Adds name to set, or makes a new set (null set) holding name, or an empty one
// (null name, null set). The result names the set that was added to or made.
int qxedSSAdd(const EntityName name, const SelectionSet set, SelectionSet result);
// RTERROR when name is not a member.
int qxedSSDel(const EntityName name, const SelectionSet set);
// RTNORM when name is a member, RTERROR otherwise.
int qxedSSMemb(const EntityName name, const SelectionSet set);
int qxedSSFree(const SelectionSet set);
// Makes `pickSet` the pick-first set of the current drawing (gripSet is accepted and
// not used: there are no grips); (null, null) clears it.
int qxedSSSetFirst(const SelectionSet pickSet, const SelectionSet gripSet);

// Transforms every member by the row-major 4x4 matrix (column vectors). The matrix
// must be a rotation or mirror with uniform scale and translation; RTERROR for other
// matrices or when a member's kind can't be transformed (then nothing changes).
int qxedXformSS(const SelectionSet set, const double matrix[4][4]);
