// The vertex groups of a lightweight polyline: per vertex 10/20, then its own 40, 41,
// 42 and 91 when they are set.
#pragma once

#include <vector>

#include "db/record.h"
#include "geom/vec.h"

namespace korva::api {

struct LwVertex {
  geom::Vec2 point;
  double startWidth = 0;
  double endWidth = 0;
  double bulge = 0;
  long long id = 0;  // 91, written only when not zero
  bool hasWidths = false;
};

std::vector<LwVertex> readLwVertices(const db::Record& record);
// One vertex without reading the others' values, for getters called vertex by vertex;
// false when there is no vertex at the index.
bool readLwVertex(const db::Record& record, size_t index, LwVertex& vertex);
size_t countLwVertices(const db::Record& record);
// Replaces the vertex groups and the count (90); the other groups stay where they are.
void writeLwVertices(db::Record& record, const std::vector<LwVertex>& vertices);

}  // namespace korva::api
