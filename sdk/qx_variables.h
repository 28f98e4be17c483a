// System variables of the host.
#pragma once

#include "qx_types.h"

// Fills node with the variable's value: RTSHORT for integers, RTREAL, RTPOINT or
// RT3DPOINT, or RTSTR with a string from qxad_malloc that the caller frees.
// RTERROR for an unknown name. Names are case-insensitive.
int qxedGetVar(const wchar_t* name, ResultBuffer* node);

// Sets the variable from node (RTSHORT or RTLONG for integers; RTREAL or an integer for
// reals; RTPOINT or RT3DPOINT; RTSTR). RTERROR for an unknown or read-only variable, a
// value of the wrong type or out of range, or a name that must exist (a layer for
// CLAYER) and doesn't.
int qxedSetVar(const wchar_t* name, const ResultBuffer* node);
