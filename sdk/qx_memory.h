// Host memory and ResultBuffer lists. Everything a list owns comes from qxad_malloc.
#pragma once

#include <cstddef>

#include "qx_types.h"

void* qxad_malloc(std::size_t size);
void qxad_free(void* block);
void* qxad_realloc(void* block, std::size_t size);

// A copy of text in host memory, or null when text is null or memory ran out.
wchar_t* qxutNewString(const wchar_t* text);
// Frees a block from qxad_malloc or qxutNewString; null is ignored.
void qxutDelBuffer(void* block);

// A zeroed node of the given type; null when memory ran out.
ResultBuffer* qxutNewRb(int type);
// Frees the whole chain with the strings and binary chunks it owns; null is fine.
// Returns RTNORM.
int qxutRelRb(ResultBuffer* list);

// Builds a list from pairs of type and value, ended by 0 or RTNONE. The value that
// follows a type depends on its kind (korva::api::valueKindOfCode):
//   String            const wchar_t* (copied)
//   Int16             int (promoted 16-bit value)
//   Int32             std::int32_t
//   Int64             std::int64_t
//   Real              double
//   Point2d, Point3d  const double* (2 or 3 doubles copied)
//   EntityName,
//   SelectionSet      const std::int64_t* (the two words are copied)
//   Binary            const QxBinaryChunk* (bytes copied)
//   None              no value (RTLB, RTLE, group -3)
// Returns null for an unknown type, a null string or address, or no memory; nothing
// built so far is leaked then.
ResultBuffer* qxutBuildList(int type, ...);
