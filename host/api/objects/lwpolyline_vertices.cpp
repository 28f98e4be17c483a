#include "lwpolyline_vertices.h"

#include <algorithm>

#include "db/value_text.h"

namespace korva::api {

namespace {

double real(std::string_view text) {
  return db::parseReal(text).value_or(0);
}

bool isVertexCode(int code) {
  return code == 10 || code == 20 || code == 40 || code == 41 || code == 42 || code == 91;
}

}  // namespace

// Reads one vertex's group into it; false for groups that aren't a vertex's.
bool readVertexGroup(const db::Group& group, LwVertex& v) {
  switch (group.code) {
    case 20:
      v.point.y = real(group.value);
      return true;
    case 40:
      v.startWidth = real(group.value), v.hasWidths = true;
      return true;
    case 41:
      v.endWidth = real(group.value), v.hasWidths = true;
      return true;
    case 42:
      v.bulge = real(group.value);
      return true;
    case 91:
      v.id = db::parseInteger(group.value).value_or(0);
      return true;
    default:
      return false;
  }
}

std::vector<LwVertex> readLwVertices(const db::Record& record) {
  std::vector<LwVertex> vertices;
  record.forEachGroup([&](const db::Group& group) {
    if (group.code == 1001) return false;
    if (group.code == 10) {
      vertices.push_back({});
      vertices.back().point.x = real(group.value);
    } else if (!vertices.empty()) {
      readVertexGroup(group, vertices.back());
    }
    return true;
  });
  return vertices;
}

bool readLwVertex(const db::Record& record, size_t index, LwVertex& vertex) {
  size_t seen = 0;  // vertices started so far
  bool found = false;
  vertex = {};
  record.forEachGroup([&](const db::Group& group) {
    if (group.code == 1001) return false;
    if (group.code == 10) {
      if (found) return false;
      if (seen++ == index) {
        found = true;
        vertex.point.x = real(group.value);
      }
    } else if (found) {
      readVertexGroup(group, vertex);
    }
    return true;
  });
  return found;
}

size_t countLwVertices(const db::Record& record) {
  size_t count = 0;
  record.forEachGroup([&](const db::Group& group) {
    if (group.code == 1001) return false;
    count += group.code == 10;
    return true;
  });
  return count;
}

void writeLwVertices(db::Record& record, const std::vector<LwVertex>& vertices) {
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  // The vertices go where the first one was; in a polyline without vertices, before
  // the normal or the extended data.
  size_t at = groups.size();
  bool seenVertex = false;
  std::vector<db::OwnedGroup> kept;
  kept.reserve(groups.size());
  bool inXdata = false;
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) inXdata = true;
    // 40 and 41 before the first vertex are not vertex groups (there are none in
    // this entity), but a 43 constant width is; keep everything that isn't a vertex's.
    if (!inXdata && seenVertex && isVertexCode(group.code)) continue;
    if (!inXdata && group.code == 10) {
      seenVertex = true;
      at = kept.size();
      continue;
    }
    kept.push_back(std::move(group));
  }
  if (!seenVertex) {
    auto stop = std::find_if(kept.begin(), kept.end(), [](const db::OwnedGroup& g) {
      return g.code == 210 || g.code == 1001;
    });
    at = static_cast<size_t>(stop - kept.begin());
  }
  std::vector<db::OwnedGroup> vertexGroups;
  for (const LwVertex& v : vertices) {
    vertexGroups.push_back({10, db::formatReal(v.point.x)});
    vertexGroups.push_back({20, db::formatReal(v.point.y)});
    if (v.hasWidths && (v.startWidth != 0 || v.endWidth != 0)) {
      vertexGroups.push_back({40, db::formatReal(v.startWidth)});
      vertexGroups.push_back({41, db::formatReal(v.endWidth)});
    }
    if (v.bulge != 0) vertexGroups.push_back({42, db::formatReal(v.bulge)});
    if (v.id != 0) vertexGroups.push_back({91, std::to_string(v.id)});
  }
  kept.insert(kept.begin() + static_cast<long>(at), vertexGroups.begin(), vertexGroups.end());
  auto count =
      std::find_if(kept.begin(), kept.end(), [](const db::OwnedGroup& g) { return g.code == 90; });
  if (count != kept.end()) {
    count->value = std::to_string(vertices.size());
  } else {
    // 90 belongs right before the flags (70) of the polyline part.
    auto flags = std::find_if(kept.begin(), kept.end(),
                              [](const db::OwnedGroup& g) { return g.code == 70; });
    kept.insert(flags, {90, std::to_string(vertices.size())});
  }
  record.assign(std::move(kept));
}

}  // namespace korva::api
