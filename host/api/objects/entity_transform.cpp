#include "entity_transform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "conjugate_ellipse.h"
#include "db/value_text.h"
#include "entity_transform_kinds.h"
#include "group_transform.h"

namespace korva::api {

namespace {

using namespace transform;

constexpr double kDegree = std::numbers::pi / 180;
constexpr double kTwoPi = 2 * std::numbers::pi;

bool hasSubclassMarkers(const Groups& groups) {
  return std::any_of(groups.begin(), groups.end(),
                     [](const db::OwnedGroup& group) { return group.code == 100; });
}

// The groups of a circle's, an arc's or an ellipse's own part, in records without
// subclass markers.
bool isConicCode(int code) {
  constexpr int kCodes[] = {10, 20, 30, 11, 21, 31, 39, 40, 41, 42, 50, 51, 210, 220, 230};
  return std::find(std::begin(kCodes), std::end(kCodes), code) != std::end(kCodes);
}

// The record with its conic part replaced by `part`: the handle, reactors, owner, the
// common entity groups, parts it doesn't know and the extended data all stay.
Groups replaceConicPart(const Groups& groups, Groups part) {
  Groups out;
  bool markers = hasSubclassMarkers(groups);
  bool inConic = false;
  size_t partAt = std::string::npos;
  size_t index = 0;
  for (; index < groups.size() && groups[index].code != 1001; ++index) {
    const db::OwnedGroup& group = groups[index];
    if (markers && group.code == 100) {
      inConic =
          group.value == "AcDbCircle" || group.value == "AcDbArc" || group.value == "AcDbEllipse";
    }
    bool conic = markers ? inConic : isConicCode(group.code);
    if (!conic) {
      out.push_back(group);
    } else if (partAt == std::string::npos) {
      partAt = out.size();
    }
  }
  if (partAt == std::string::npos) partAt = out.size();
  out.insert(out.begin() + static_cast<std::ptrdiff_t>(partAt), part.begin(), part.end());
  out.insert(out.end(), groups.begin() + static_cast<std::ptrdiff_t>(index), groups.end());
  return out;
}

// An ellipse from center and conjugate semi-diameters a, b (point(t) = c + a cos t + b sin t).
void writeEllipse(TransformedEntity& result, Groups& groups, Vec3 center, Vec3 a, Vec3 b,
                  double start, double end) {
  PrincipalAxes axes = principalAxes(a, b);
  Vec3 major = axes.major, minor = axes.minor;
  double t0 = axes.shift;
  Vec3 normal = geom::normalized(geom::cross(major, minor));
  Groups part;
  if (hasSubclassMarkers(groups)) part.push_back({100, "AcDbEllipse"});
  writePoint(part, 10, center);
  writePoint(part, 11, major);
  writePoint(part, 210, normal);
  putReal(part, 40, geom::length(minor) / geom::length(major));
  bool full = std::fabs(end - start - kTwoPi) < 1e-12;
  putReal(part, 41, full ? 0 : normalizedAngle(start - t0));
  putReal(part, 42, full ? kTwoPi : normalizedAngle(end - t0));
  result.type = "ELLIPSE";
  result.groups = replaceConicPart(groups, std::move(part));
}

bool circle(std::string_view type, Groups& groups, const Affine3& map, TransformedEntity& result) {
  Vec3 normal = extrusion(groups);
  Affine3 from = geom::objectToWorld(normal);
  Vec3 center;
  readPoint(groups, 10, center);
  double radius = real(groups, 40, 0);
  double start = type == "ARC" ? real(groups, 50, 0) * kDegree : 0;
  double end = type == "ARC" ? real(groups, 51, 360) * kDegree : kTwoPi;
  if (type == "ARC" && end <= start) end += kTwoPi;
  Vec3 a = map.vector(from.vector({radius, 0, 0}));
  Vec3 b = map.vector(from.vector({0, radius, 0}));
  Vec3 c = map.point(from.point(center));
  double la = geom::length(a), lb = geom::length(b);
  bool round = std::fabs(la - lb) <= 1e-9 * la && std::fabs(geom::dot(a, b)) <= 1e-9 * la * lb;
  if (!round) {
    writeEllipse(result, groups, c, a, b, start, end);
    return true;
  }
  Vec3 newNormal = geom::normalized(geom::cross(a, b));
  Affine3 toInverse = geom::objectToWorld(newNormal).inverse();
  writePoint(groups, 10, toInverse.point(c));
  putReal(groups, 40, la);
  scaleThickness(groups, map, normal);
  if (type == "ARC") {
    double shift = angleIn(toInverse, a);
    putReal(groups, 50, normalizedAngle(start + shift) / kDegree);
    putReal(groups, 51, normalizedAngle(end + shift) / kDegree);
  }
  setExtrusion(groups, newNormal);
  result.type = std::string(type);
  result.groups = std::move(groups);
  return true;
}

bool ellipse(Groups& groups, const Affine3& map, TransformedEntity& result) {
  Vec3 center, major;
  readPoint(groups, 10, center);
  readPoint(groups, 11, major);
  Vec3 normal = extrusion(groups);
  double ratio = real(groups, 40, 1);
  Vec3 minor = geom::cross(normal, major) * ratio;
  double start = real(groups, 41, 0), end = real(groups, 42, kTwoPi);
  if (end <= start) end += kTwoPi;
  writeEllipse(result, groups, map.point(center), map.vector(major), map.vector(minor), start, end);
  return true;
}

bool lightPolyline(Groups& groups, const Affine3& map, double similarityScale, bool similar) {
  Vec3 normal = extrusion(groups);
  PlaneMove move(map, normal);
  for (const db::OwnedGroup& group : groups) {
    if (group.code == 42 && number(group) != 0 && !similar) return false;
  }
  double elevation = real(groups, 38, 0);
  int count = countOf(groups, 10);
  double newElevation = elevation;
  for (int k = 0; k < count; ++k) {
    Vec3 p;
    readPoint(groups, 10, p, k);
    p.z = elevation;
    Vec3 q = move.point(map, p);
    writePoint(groups, 10, {q.x, q.y, 0}, k, false);
    newElevation = q.z;
  }
  if (newElevation != 0 || find(groups, 38)) putReal(groups, 38, newElevation);
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (group.code == 40 || group.code == 41 || group.code == 43) {
      group.value = db::formatReal(number(group) * similarityScale);
    }
  }
  scaleThickness(groups, map, normal);
  setExtrusion(groups, move.newNormal);
  return true;
}

// Texts: the baseline direction and the text's up direction, mapped, give the new
// rotation, height, width factor and slant.
void text(Groups& groups, const Affine3& map) {
  Vec3 normal = extrusion(groups);
  Affine3 from = geom::objectToWorld(normal);
  double rotation = real(groups, 50, 0) * kDegree;
  Vec3 along = map.vector(from.vector(rotatedX(rotation)));
  Vec3 up = map.vector(from.vector(rotatedX(rotation + std::numbers::pi / 2)));
  Vec3 newNormal = geom::normalized(geom::cross(along, up));
  Affine3 toInverse = geom::objectToWorld(newNormal).inverse();
  double stretch = geom::length(along);
  Vec3 alongUnit = along * (1 / stretch);
  double shear = geom::dot(up, alongUnit);
  double rise = geom::length(up - alongUnit * shear);
  double height = real(groups, 40, 1);
  double widthFactor = real(groups, 41, 1);
  double slant = std::tan(real(groups, 51, 0) * kDegree);
  for (int code : {10, 11}) {
    Vec3 p;
    if (readPoint(groups, code, p))
      writePoint(groups, code, toInverse.point(map.point(from.point(p))));
  }
  putReal(groups, 40, height * rise);
  if (std::fabs(stretch / rise - 1) > 1e-12 || find(groups, 41))
    putReal(groups, 41, widthFactor * stretch / rise, 40);
  double newSlant = (stretch * slant + shear) / rise;
  if (std::fabs(newSlant) > 1e-12 || find(groups, 51))
    putReal(groups, 51, std::atan(newSlant) / kDegree, 40);
  putReal(groups, 50, normalizedAngle(angleIn(toInverse, along)) / kDegree, 40);
  scaleThickness(groups, map, normal);
  setExtrusion(groups, newNormal, 40);
}

void paragraph(Groups& groups, const Affine3& map) {
  Vec3 normal = extrusion(groups);
  Affine3 from = geom::objectToWorld(normal);
  Vec3 direction;
  if (!readPoint(groups, 11, direction) || geom::length(direction) == 0) {
    direction = from.vector(rotatedX(real(groups, 50, 0)));
  }
  Vec3 along = map.vector(geom::normalized(direction));
  Vec3 up = map.vector(geom::cross(normal, geom::normalized(direction)));
  Vec3 newNormal = geom::normalized(geom::cross(along, up));
  double stretch = geom::length(along);
  double rise = geom::length(up - geom::normalized(along) * geom::dot(up, geom::normalized(along)));
  moveWorldPoints(groups, map, 10);
  writePoint(groups, 11, geom::normalized(along));
  if (find(groups, 50))
    putReal(groups, 50, angleIn(geom::objectToWorld(newNormal).inverse(), along));
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (group.code == 40 || group.code == 43 || group.code == 46)
      group.value = db::formatReal(number(group) * rise);
    if (group.code == 41 || group.code == 42) group.value = db::formatReal(number(group) * stretch);
  }
  setExtrusion(groups, newNormal);
}

// A block reference stays one when the map keeps its axes perpendicular.
bool insert(Groups& groups, const Affine3& map) {
  Vec3 normal = extrusion(groups);
  Affine3 from = geom::objectToWorld(normal);
  double rotation = real(groups, 50, 0) * kDegree;
  Vec3 scale{real(groups, 41, 1), real(groups, 42, 1), real(groups, 43, 1)};
  Vec3 axes[3] = {map.vector(from.vector(rotatedX(rotation) * scale.x)),
                  map.vector(from.vector(rotatedX(rotation + std::numbers::pi / 2) * scale.y)),
                  map.vector(from.vector(Vec3{0, 0, scale.z}))};
  double lengths[3] = {geom::length(axes[0]), geom::length(axes[1]), geom::length(axes[2])};
  for (int i = 0; i < 3; ++i) {
    for (int j = i + 1; j < 3; ++j) {
      if (std::fabs(geom::dot(axes[i], axes[j])) > 1e-9 * lengths[i] * lengths[j]) return false;
    }
  }
  // Keep the Z scale's sign in the normal and the X scale positive along the rotation.
  Vec3 newNormal = geom::normalized(axes[2]) * (scale.z < 0 ? -1 : 1);
  Affine3 toInverse = geom::objectToWorld(newNormal).inverse();
  double newRotation = angleIn(toInverse, axes[0]);
  Vec3 yInPlane = toInverse.vector(axes[1]);
  Vec3 xInPlane = toInverse.vector(axes[0]);
  double ySign = (xInPlane.x * yInPlane.y - xInPlane.y * yInPlane.x) >= 0 ? 1 : -1;
  Vec3 position;
  readPoint(groups, 10, position);
  writePoint(groups, 10, toInverse.point(map.point(from.point(position))));
  putReal(groups, 41, lengths[0], 10);
  putReal(groups, 42, lengths[1] * ySign, 41);
  putReal(groups, 43, lengths[2] * (scale.z < 0 ? -1 : 1), 42);
  putReal(groups, 50, normalizedAngle(newRotation) / kDegree, 43);
  // A grid's spacings run along the reference's turned, unscaled axes: measured again
  // along the new ones, which a mirror may turn against them.
  Affine3 to = geom::objectToWorld(newNormal);
  for (int code : {44, 45}) {
    if (!find(groups, code)) continue;
    double quarter = code == 45 ? std::numbers::pi / 2 : 0;
    Vec3 step = map.vector(from.vector(rotatedX(rotation + quarter)));
    Vec3 along = to.vector(rotatedX(newRotation + quarter));
    putReal(groups, code, real(groups, code, 0) * geom::dot(step, along));
  }
  setExtrusion(groups, newNormal);
  return true;
}

}  // namespace

bool transformEntity(std::string_view type, std::vector<db::OwnedGroup> groups, const Affine3& map,
                     TransformedEntity& result) {
  double scale = 1;
  bool similar = geom::isSimilarity(map, scale);
  result.type = std::string(type);
  result.cannotScaleNonUniformly = false;
  if (type == "CIRCLE" || type == "ARC") return circle(type, groups, map, result);
  if (type == "ELLIPSE") return ellipse(groups, map, result);
  if (type == "LINE" || type == "POINT") {
    Vec3 normal = extrusion(groups);
    moveWorldPoints(groups, map, 10);
    moveWorldPoints(groups, map, 11);
    scaleThickness(groups, map, normal);
    setExtrusion(groups, map.normal(normal));
  } else if (type == "3DFACE") {
    for (int code : {10, 11, 12, 13}) moveWorldPoints(groups, map, code);
  } else if (type == "RAY" || type == "XLINE") {
    moveWorldPoints(groups, map, 10);
    Vec3 direction;
    if (readPoint(groups, 11, direction))
      writePoint(groups, 11, geom::normalized(map.vector(direction)));
  } else if (type == "SOLID" || type == "TRACE") {
    Vec3 normal = extrusion(groups);
    PlaneMove move(map, normal);
    for (int code : {10, 11, 12, 13}) movePlanePoints(groups, map, move, code);
    scaleThickness(groups, map, normal);
    setExtrusion(groups, move.newNormal);
  } else if (type == "LWPOLYLINE") {
    if (!lightPolyline(groups, map, scale, similar)) return false;
  } else if (type == "TEXT" || type == "ATTDEF" || type == "ATTRIB") {
    text(groups, map);
  } else if (type == "MTEXT") {
    paragraph(groups, map);
  } else if (type == "INSERT") {
    if (!insert(groups, map)) return false;
  } else if (type == "SHAPE") {
    text(groups, map);
  } else if (type == "SPLINE" && similar) {
    for (int code : {10, 11}) moveWorldPoints(groups, map, code);
    for (int code : {12, 13}) {
      Vec3 tangent;
      if (readPoint(groups, code, tangent))
        writePoint(groups, code, geom::normalized(map.vector(tangent)));
    }
    if (find(groups, 210)) writePoint(groups, 210, map.normal(extrusion(groups)));
  } else if (!transformAnnotation(type, groups, map, result.cannotScaleNonUniformly)) {
    return false;
  }
  result.groups = std::move(groups);
  return true;
}

}  // namespace korva::api
