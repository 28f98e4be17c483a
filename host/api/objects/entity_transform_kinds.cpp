#include <cmath>

#include "db/value_text.h"
#include "entity_transform_kinds.h"

namespace korva::api {

namespace {

using namespace transform;

bool similarityScale(const Affine3& map, double& scale) {
  return geom::isSimilarity(map, scale);
}

// Images and wipeouts: the frame's corner and its pixel vectors; the clip boundary
// is in pixels and stays.
bool image(Groups& groups, const Affine3& map) {
  moveWorldPoints(groups, map, 10);
  for (int code : {11, 12}) {
    Vec3 vector;
    if (readPoint(groups, code, vector)) writePoint(groups, code, map.vector(vector));
  }
  return true;
}

// A table: its insertion point and direction, row heights, column widths and text
// heights.
bool table(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale)) return false;
  Vec3 normal = extrusion(groups);
  moveWorldPoints(groups, map, 10);
  Vec3 direction{1, 0, 0};
  if (readPoint(groups, 11, direction))
    writePoint(groups, 11, geom::normalized(map.vector(direction)));
  scaleReals(groups, {140, 141, 142}, scale);
  setExtrusion(groups, map.normal(normal), 10);
  return true;
}

// A viewport's rectangle stays upright in paper space: only moves and positive uniform
// scales keep it one.
bool viewport(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale)) return false;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      double expected = row == column ? scale : 0;
      if (std::fabs(map.m[row][column] - expected) > 1e-9 * scale) return false;
    }
  }
  moveWorldPoints(groups, map, 10);
  scaleReals(groups, {40, 41}, scale);
  return true;
}

// A tolerance frame's size comes from its dimension style: it can turn and move only.
bool tolerance(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale) || std::fabs(scale - 1) > 1e-9) return false;
  Vec3 normal = extrusion(groups);
  moveWorldPoints(groups, map, 10);
  Vec3 direction{1, 0, 0};
  if (readPoint(groups, 11, direction))
    writePoint(groups, 11, geom::normalized(map.vector(direction)));
  setExtrusion(groups, map.normal(normal));
  return true;
}

// Leaders: world vertices, the direction of the hook line and the offsets to the
// annotation; the annotation's size scales with the map.
bool leader(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale)) return false;
  Vec3 normal = extrusion(groups);
  moveWorldPoints(groups, map, 10);
  Vec3 vector;
  if (readPoint(groups, 211, vector) && geom::length(vector) > 0)
    writePoint(groups, 211, geom::normalized(map.vector(vector)));
  for (int code : {212, 213}) {
    if (readPoint(groups, code, vector)) writePoint(groups, code, map.vector(vector));
  }
  scaleReals(groups, {40, 41}, scale);
  setExtrusion(groups, map.normal(normal));
  return true;
}

}  // namespace

bool transformAnnotation(std::string_view type, Groups& groups, const Affine3& map,
                         bool& cannotScaleNonUniformly) {
  if (type == "DIMENSION" || type == "ARC_DIMENSION" || type == "LARGE_RADIAL_DIMENSION")
    return transformDimensionGroups(type, groups, map, cannotScaleNonUniformly);
  if (type == "HATCH") return transformHatchGroups(groups, map);
  if (type == "IMAGE" || type == "WIPEOUT") return image(groups, map);
  if (type == "MLINE") return transformMultilineGroups(groups, map, cannotScaleNonUniformly);
  if (type == "ACAD_TABLE") return table(groups, map);
  if (type == "VIEWPORT") return viewport(groups, map);
  if (type == "TOLERANCE") return tolerance(groups, map);
  if (type == "LEADER") return leader(groups, map);
  return false;
}

}  // namespace korva::api
