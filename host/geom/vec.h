// Small fixed-size vectors for the geometry code.
#pragma once

#include <cmath>

namespace korva::geom {

struct Vec2 {
  double x = 0, y = 0;
};

inline Vec2 operator+(Vec2 a, Vec2 b) {
  return {a.x + b.x, a.y + b.y};
}
inline Vec2 operator-(Vec2 a, Vec2 b) {
  return {a.x - b.x, a.y - b.y};
}
inline Vec2 operator*(Vec2 a, double f) {
  return {a.x * f, a.y * f};
}
inline double dot(Vec2 a, Vec2 b) {
  return a.x * b.x + a.y * b.y;
}
inline double cross(Vec2 a, Vec2 b) {
  return a.x * b.y - a.y * b.x;
}
inline double length(Vec2 a) {
  return std::hypot(a.x, a.y);
}

struct Vec3 {
  double x = 0, y = 0, z = 0;
};

inline Vec3 operator+(Vec3 a, Vec3 b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(Vec3 a, Vec3 b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator*(Vec3 a, double f) {
  return {a.x * f, a.y * f, a.z * f};
}
inline double dot(Vec3 a, Vec3 b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec3 cross(Vec3 a, Vec3 b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(Vec3 a) {
  return std::sqrt(dot(a, a));
}
inline Vec3 normalized(Vec3 a) {
  double l = length(a);
  return l > 0 ? a * (1.0 / l) : a;
}

// DXF's arbitrary-axis rule: the object X axis of a unit normal. Near the world Z the
// world Y axis gives X, elsewhere the world Z axis.
inline Vec3 arbitraryXAxis(Vec3 normal) {
  constexpr double kLimit = 1.0 / 64.0;
  Vec3 helper = (std::fabs(normal.x) < kLimit && std::fabs(normal.y) < kLimit) ? Vec3{0, 1, 0}
                                                                               : Vec3{0, 0, 1};
  return normalized(cross(helper, normal));
}

// An axis-aligned box in the plane; empty until something is added.
struct Box2 {
  Vec2 min{1e300, 1e300};
  Vec2 max{-1e300, -1e300};

  bool empty() const { return min.x > max.x; }
  void add(Vec2 p) {
    if (p.x < min.x) min.x = p.x;
    if (p.y < min.y) min.y = p.y;
    if (p.x > max.x) max.x = p.x;
    if (p.y > max.y) max.y = p.y;
  }
  void add(const Box2& other) {
    if (other.empty()) return;
    add(other.min);
    add(other.max);
  }
  bool contains(const Box2& inner) const {
    return inner.min.x >= min.x && inner.max.x <= max.x && inner.min.y >= min.y &&
           inner.max.y <= max.y;
  }
  bool overlaps(const Box2& other) const {
    return other.min.x <= max.x && other.max.x >= min.x && other.min.y <= max.y &&
           other.max.y >= min.y;
  }
  double diagonal() const { return empty() ? 0 : length(max - min); }
};

}  // namespace korva::geom
