// Coordinate transformation and the graphics state of the flat layer.
#pragma once

#include "qx_types.h"

// Transforms point from one system to another. from and to are nodes of type RTSHORT
// (0 world, 1 current user system, 2 display, 3 paper-space display), RTENAME (the
// entity's object system) or RT3DPOINT (the object system of that extrusion vector).
// displacement non-zero: point is a vector, the origins don't apply. RTNORM or RTERROR.
int qxedTrans(const double point[3], const ResultBuffer* from, const ResultBuffer* to,
              int displacement, double result[3]);

// Graphics. korva has no screen: it keeps which entities are highlighted and takes
// the rest as done. mode 1 redraw, 2 undraw, 3 highlight, 4 unhighlight; a null name
// with mode 0 redraws the viewport.
int qxedRedraw(const EntityName name, int mode);
int qxedGrDraw(const double from[3], const double to[3], int color, int highlight);
int qxedGrVecs(const ResultBuffer* vectors, double matrix[4][4]);
// Whether korva shows the entity highlighted (for tests and commands that ask).
bool qxedIsHighlighted(const EntityName name);
