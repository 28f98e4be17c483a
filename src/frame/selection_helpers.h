// Selection sets and layers.
#pragma once

#include "frame/host_interface.h"

// Adds every member of from to to; the status of the last addition, RTNORM for an
// empty from.
int AddSetToSet(const SelectionSet from, const SelectionSet to);
// Unhighlights every member. RTNORM.
int UnhighlightSet(const SelectionSet set);
// Highlights (on non-zero) or unhighlights every entity on the layer; the status of
// the selection.
int HighlightLayerEntities(const wchar_t* layerName, int on);
// Non-zero when the layer is locked; 0 when it isn't or doesn't exist.
int IsLayerLocked(const wchar_t* layerName);
// Interactive selection with the command's own prompt (the resource string promptId
// for adding and for removing) through filter, which is released. The status of
// qxedSSGet; set holds the selection on RTNORM.
int SelectWithOwnPrompt(unsigned promptId, ResultBuffer* filter, SelectionSet set);
