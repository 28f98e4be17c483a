// Reading and changing ResultBuffer lists. Every helper takes a list head that may be
// null; unless told otherwise they return RTNORM, or RTERROR when the group is absent.
#pragma once

#include <cstddef>

#include "frame/host_interface.h"

// The first node of this group code, or null.
ResultBuffer* FindGroupCode(ResultBuffer* list, int code);
const ResultBuffer* FindGroupCode(const ResultBuffer* list, int code);

// The 16-bit value of the first such node, widened with its sign.
int GetGroupInt(const ResultBuffer* list, int code, int& value);
// Copies the string of the first such node into buffer (size characters with the
// terminator; longer text is cut).
int GetGroupString(const ResultBuffer* list, int code, wchar_t* buffer, std::size_t size);
int GetGroupReal(const ResultBuffer* list, int code, double& value);
// The entity name of the first node of group -2.
int GetGroupEntity(const ResultBuffer* list, EntityName name);

// Replaces the string of the first such node with a copy of text in host memory.
int SetGroupString(ResultBuffer* list, int code, const wchar_t* text);
int SetGroupReal(ResultBuffer* list, int code, double value);
// Replaces the 16-bit value of group 60.
int SetGroup60(ResultBuffer* list, int value);

// Appends node at the tail; an empty list gets node as its head. RTNORM.
int AppendResultBuffer(ResultBuffer*& head, ResultBuffer* node);
