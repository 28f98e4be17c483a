#include "group_transform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "db/value_text.h"

namespace korva::api::transform {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

Groups::iterator extendedDataStart(Groups& groups) {
  return std::find_if(groups.begin(), groups.end(),
                      [](const db::OwnedGroup& g) { return g.code == 1001; });
}

}  // namespace

double number(const db::OwnedGroup& group) {
  return db::parseReal(group.value).value_or(0);
}

db::OwnedGroup* find(Groups& groups, int code, int occurrence) {
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (group.code == code && occurrence-- == 0) return &group;
  }
  return nullptr;
}

double real(Groups& groups, int code, double fallback) {
  db::OwnedGroup* group = find(groups, code);
  return group ? number(*group) : fallback;
}

int countOf(Groups& groups, int code) {
  int count = 0;
  for (const db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (group.code == code) ++count;
  }
  return count;
}

void put(Groups& groups, int code, std::string value, int after) {
  if (db::OwnedGroup* group = find(groups, code)) {
    group->value = std::move(value);
    return;
  }
  auto end = extendedDataStart(groups);
  auto at = end;
  if (after >= 0) {
    auto anchor =
        std::find_if(groups.begin(), end, [&](const db::OwnedGroup& g) { return g.code == after; });
    if (anchor != end) {
      at = anchor + 1;
      // A point's Y and Z stay with their X.
      if (after >= 10 && after < 20 && at != end && at->code == after + 10) ++at;
      if (after >= 10 && after < 20 && at != end && at->code == after + 20) ++at;
      if (after >= 110 && after < 120 && at != end && at->code == after + 10) ++at;
      if (after >= 110 && after < 120 && at != end && at->code == after + 20) ++at;
      if (after == 210 && at != end && at->code == 220) ++at;
      if (after == 210 && at != end && at->code == 230) ++at;
    }
  }
  groups.insert(at, {code, std::move(value)});
}

void putReal(Groups& groups, int code, double value, int after) {
  put(groups, code, db::formatReal(value), after);
}

bool readPoint(Groups& groups, int code, Vec3& point, int occurrence, double z) {
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code == 1001) break;
    if (groups[i].code != code || occurrence-- != 0) continue;
    point = {number(groups[i]), 0, z};
    if (i + 1 < groups.size() && groups[i + 1].code == code + 10) point.y = number(groups[i + 1]);
    if (i + 2 < groups.size() && groups[i + 2].code == code + 20) point.z = number(groups[i + 2]);
    return true;
  }
  return false;
}

void writePoint(Groups& groups, int code, Vec3 point, int occurrence, bool withZ) {
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code == 1001) break;
    if (groups[i].code != code || occurrence-- != 0) continue;
    groups[i].value = db::formatReal(point.x);
    if (i + 1 < groups.size() && groups[i + 1].code == code + 10)
      groups[i + 1].value = db::formatReal(point.y);
    if (i + 2 < groups.size() && groups[i + 2].code == code + 20) {
      groups[i + 2].value = db::formatReal(point.z);
    } else if (withZ && i + 1 < groups.size() && groups[i + 1].code == code + 10) {
      groups.insert(groups.begin() + static_cast<long>(i) + 2,
                    {code + 20, db::formatReal(point.z)});
    }
    return;
  }
  auto end = extendedDataStart(groups);
  std::vector<db::OwnedGroup> added = {{code, db::formatReal(point.x)},
                                       {code + 10, db::formatReal(point.y)}};
  if (withZ) added.push_back({code + 20, db::formatReal(point.z)});
  groups.insert(end, added.begin(), added.end());
}

Vec3 extrusion(Groups& groups) {
  Vec3 n{0, 0, 1};
  readPoint(groups, 210, n, 0, 1);
  return geom::length(n) > 0 ? geom::normalized(n) : Vec3{0, 0, 1};
}

void setExtrusion(Groups& groups, Vec3 n, int after) {
  n = geom::normalized(n);
  if (find(groups, 210)) {
    writePoint(groups, 210, n);
  } else if (std::fabs(n.z - 1) > 1e-12) {
    putReal(groups, 210, n.x, after);
    putReal(groups, 220, n.y, 210);
    putReal(groups, 230, n.z, 220);
  }
}

Vec3 rotatedX(double angle) {
  return {std::cos(angle), std::sin(angle), 0};
}

double angleIn(const Affine3& worldToObject, Vec3 worldDirection) {
  Vec3 d = worldToObject.vector(worldDirection);
  return std::atan2(d.y, d.x);
}

double normalizedAngle(double angle) {
  angle = std::fmod(angle, kTwoPi);
  return angle < 0 ? angle + kTwoPi : angle;
}

PlaneMove::PlaneMove(const Affine3& map, Vec3 normal) {
  newNormal = geom::normalized(map.normal(normal));
  from = geom::objectToWorld(normal);
  toInverse = geom::objectToWorld(newNormal).inverse();
}

double PlaneMove::turn(const Affine3& map) const {
  Vec3 x = vector(map, {1, 0, 0});
  return std::atan2(x.y, x.x);
}

void movePlanePoints(Groups& groups, const Affine3& map, const PlaneMove& move, int code) {
  int count = countOf(groups, code);
  for (int k = 0; k < count; ++k) {
    Vec3 p;
    readPoint(groups, code, p, k);
    writePoint(groups, code, move.point(map, p), k);
  }
}

void moveWorldPoints(Groups& groups, const Affine3& map, int code) {
  int count = countOf(groups, code);
  for (int k = 0; k < count; ++k) {
    Vec3 p;
    readPoint(groups, code, p, k);
    writePoint(groups, code, map.point(p), k);
  }
}

void scaleThickness(Groups& groups, const Affine3& map, Vec3 normal) {
  if (db::OwnedGroup* thickness = find(groups, 39)) {
    thickness->value = db::formatReal(number(*thickness) * geom::length(map.vector(normal)));
  }
}

void scaleReals(Groups& groups, std::initializer_list<int> codes, double factor) {
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (std::find(codes.begin(), codes.end(), group.code) != codes.end())
      group.value = db::formatReal(number(group) * factor);
  }
}

}  // namespace korva::api::transform
