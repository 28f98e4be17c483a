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
// Modes that ask the user, joined with ":" (for example "-M:$:K"):
//   null            the prompt "Select objects: " until Enter
//   ":$"            own prompts: first is const wchar_t* const[2], the adding and the
//                   removing prompt
//   ":S"            the first selection that takes something ends the prompt
//   ":L"            entities on locked layers are rejected
//   ":?"            input the prompt doesn't understand goes to the other-input callback
//   ":K"            second is a keyword list (as for qxedInitGet); a keyword given at the
//                   prompt goes to the keyword callback
//   "-M"            a keyword ends the prompt after its callback ran: the call returns
//                   what was selected so far
// At the prompt: a point (an entity there, or the corner of an implied window: left to
// right a window, right to left a crossing), W, C, WP, CP, F, ALL, L (last), P
// (previous), R (go on removing), A (go on adding), U (undo the last step), #HANDLE,
// and a selection set or an entity given by a scripted command. The filter applies to
// every one of them. When the running command takes the pick-first set and PICKFIRST is
// 1, null and ":$" return a non-empty pick-first set without asking, and clear it.
// RTNORM with a new set in `set`; RTERROR when nothing was found or selected, the filter
// is malformed, the arguments don't fit the mode, or 128 sets are already open; RTCAN
// when the user cancelled or the input ran out during the prompt.
int qxedSSGet(const wchar_t* mode, const void* first, const void* second,
              const ResultBuffer* filter, SelectionSet set);

// Called with the keyword (its global form) or the other input given at a prompting
// qxedSSGet. The list returned (or null) belongs to the host afterwards: the members of
// its RTPICKS sets and its RTENAME entities are added to the selection, as one step,
// through the filter; the sets are freed and the list released. The other-input callback
// returns null when it doesn't understand the input (the prompt then says so); any list,
// even one holding a single RTNONE node, means the input was taken.
using QxSelectionCallback = ResultBuffer* (*)(const wchar_t* input);
// Install a callback (null removes it); the Get forms give the installed one, so that a
// caller can restore it.
int qxedSSSetKwordCallbackPtr(QxSelectionCallback callback);
int qxedSSGetKwordCallbackPtr(QxSelectionCallback* callback);
int qxedSSSetOtherCallbackPtr(QxSelectionCallback callback);
int qxedSSGetOtherCallbackPtr(QxSelectionCallback* callback);

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
