// Measuring single-line texts through the flat layer.
#pragma once

#include "qx_types.h"

// The box of the text an entity list describes (TEXT, ATTRIB or ATTDEF, by name or by
// its groups: 1 or 2, 40, 41, 51, 7, 71, 72, 73/74, 10, 11), relative to the text's
// position (group 10) in its own axes before rotation. The text is measured with the
// font its style maps to. RTNORM, or RTERROR for a list that holds no such text.
int qxedTextBox(const ResultBuffer* list, double lowerLeft[3], double upperRight[3]);
