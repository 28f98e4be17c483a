#include "entity_outline.h"

#include <cmath>
#include <numbers>

#include "geom/spline_curve.h"

namespace korva::api {

using geom::Affine3;
using geom::Vec3;

namespace {
constexpr double kTwoPi = 2 * std::numbers::pi;
constexpr size_t kMaxBlockNesting = 16;
constexpr double kDegree = std::numbers::pi / 180;
}  // namespace

EntityOutliner::EntityOutliner(const db::Database& database, const Affine3& worldToPlane)
    : database_(database),
      encoding_(database.hasUtf8Text(), database.codePage()),
      builder_(worldToPlane) {}

geom::PlaneShape EntityOutliner::outline(const db::Record& record,
                                         std::span<db::Record* const> followers) {
  add(record, followers);
  return builder_.take();
}

std::string EntityOutliner::utf8(std::string_view drawingText) const {
  return encoding_.toUtf8(drawingText);
}

void EntityOutliner::add(const db::Record& record, std::span<db::Record* const> followers) {
  std::string_view type = record.type();
  EntityValues values(record);
  if (type == "LINE") {
    builder_.segment(values.point(10), values.point(11));
  } else if (type == "POINT") {
    builder_.point(values.point(10));
  } else if (type == "CIRCLE" || type == "ARC") {
    addArc(values, type == "CIRCLE");
  } else if (type == "ELLIPSE") {
    addEllipse(values);
  } else if (type == "LWPOLYLINE") {
    addLightPolyline(values);
  } else if (type == "POLYLINE") {
    addPolyline(values, followers);
  } else if (type == "SOLID" || type == "TRACE") {
    addCorners(values, true);
  } else if (type == "3DFACE") {
    addCorners(values, false);
  } else if (type == "SPLINE") {
    addSpline(values);
  } else if (type == "RAY" || type == "XLINE") {
    builder_.line(values.point(10), values.point(11, {1, 0, 0}), type == "RAY");
  } else if (type == "INSERT") {
    addInsert(values, followers);
  } else if (type == "DIMENSION") {
    // The dimension's picture is its anonymous block, drawn in its object system.
    builder_.pushTransform(geom::objectToWorld(values.extrusion()));
    addBlock(values.text(2));
    builder_.popTransform();
  } else if (type == "HATCH") {
    addHatch(record, values);
  } else if (type == "TEXT" || type == "ATTDEF" || type == "ATTRIB") {
    addLineText(record, values);
  } else if (type == "MTEXT") {
    addParagraphText(values);
  } else if (type == "LEADER") {
    std::vector<Vec3> points;
    for (const FlatValue& value : values.all()) {
      if (value.code == 10 && !value.extendedData) points.push_back(pointOf(value));
    }
    builder_.polyline(points, false);
  } else if (type == "IMAGE" || type == "WIPEOUT") {
    addImage(values);
  } else if (type == "VIEWPORT") {
    Vec3 c = values.point(10);
    double w = values.real(40) / 2, h = values.real(41) / 2;
    Vec3 corners[4] = {{c.x - w, c.y - h, c.z},
                       {c.x + w, c.y - h, c.z},
                       {c.x + w, c.y + h, c.z},
                       {c.x - w, c.y + h, c.z}};
    builder_.polyline(corners, true);
  }
}

void EntityOutliner::addArc(const EntityValues& values, bool full) {
  double r = values.real(40);
  double t0 = 0, t1 = kTwoPi;
  if (!full) {
    t0 = values.real(50) * kDegree;
    t1 = values.real(51) * kDegree;
    while (t1 <= t0) t1 += kTwoPi;
  }
  builder_.pushTransform(geom::objectToWorld(values.extrusion()));
  builder_.ellipticArc(values.point(10), {r, 0, 0}, {0, r, 0}, t0, t1);
  builder_.popTransform();
}

void EntityOutliner::addEllipse(const EntityValues& values) {
  Vec3 major = values.point(11, {1, 0, 0});
  Vec3 minor = geom::cross(geom::normalized(values.extrusion()), major) * values.real(40, 1);
  double t0 = values.real(41, 0), t1 = values.real(42, kTwoPi);
  while (t1 <= t0) t1 += kTwoPi;
  builder_.ellipticArc(values.point(10), major, minor, t0, t1);
}

void EntityOutliner::addLightPolyline(const EntityValues& values) {
  double elevation = values.real(38);
  std::vector<Vec3> points;
  std::vector<double> bulges;
  for (const FlatValue& value : values.all()) {
    if (value.extendedData) break;
    if (value.code == 10) {
      points.push_back({value.point[0], value.point[1], elevation});
      bulges.push_back(0);
    } else if (value.code == 42 && !bulges.empty()) {
      bulges.back() = value.point[0];
    }
  }
  bool closed = (values.integer(70) & 1) != 0;
  builder_.pushTransform(geom::objectToWorld(values.extrusion()));
  if (points.size() == 1) builder_.point(points[0]);
  for (size_t i = 0; i + 1 < points.size(); ++i)
    builder_.bulgeSegment(points[i], points[i + 1], bulges[i]);
  if (closed && points.size() > 2)
    builder_.bulgeSegment(points.back(), points.front(), bulges.back());
  builder_.popTransform();
}

void EntityOutliner::addPolyline(const EntityValues& values,
                                 std::span<db::Record* const> followers) {
  long long flags = values.integer(70);
  struct Vertex {
    Vec3 position;
    double bulge = 0;
    long long flags = 0;
    int faces[4] = {0, 0, 0, 0};
  };
  std::vector<Vertex> vertices;
  for (db::Record* follower : followers) {
    if (follower->type() != "VERTEX") break;
    if (follower->isErased()) continue;
    EntityValues vertex(*follower);
    Vertex v{vertex.point(10), vertex.real(42), vertex.integer(70), {}};
    for (int k = 0; k < 4; ++k) v.faces[k] = static_cast<int>(vertex.integer(71 + k));
    // The frame of a spline-fit polyline isn't drawn; its fitted vertices are.
    if (v.flags & 16) continue;
    vertices.push_back(v);
  }
  if (flags & 64) {
    // Polyface mesh: positions first, then faces that index them from 1.
    std::vector<Vec3> positions;
    for (const Vertex& v : vertices) {
      if (v.flags & 64) positions.push_back(v.position);
    }
    for (const Vertex& v : vertices) {
      if ((v.flags & 128) == 0 || (v.flags & 64)) continue;
      std::vector<Vec3> face;
      for (int index : v.faces) {
        int k = std::abs(index);
        if (k >= 1 && static_cast<size_t>(k) <= positions.size()) face.push_back(positions[k - 1]);
      }
      builder_.polyline(face, true);
    }
    return;
  }
  if (flags & 16) {
    // Polygon mesh: rows of N vertices, M of them.
    size_t m = static_cast<size_t>(std::max(0LL, values.integer(71)));
    size_t n = static_cast<size_t>(std::max(0LL, values.integer(72)));
    if (m * n != vertices.size() || m == 0 || n == 0) return;
    for (size_t i = 0; i < m; ++i) {
      std::vector<Vec3> row;
      for (size_t j = 0; j < n; ++j) row.push_back(vertices[i * n + j].position);
      builder_.polyline(row, (flags & 32) != 0);
    }
    for (size_t j = 0; j < n; ++j) {
      std::vector<Vec3> column;
      for (size_t i = 0; i < m; ++i) column.push_back(vertices[i * n + j].position);
      builder_.polyline(column, (flags & 1) != 0);
    }
    return;
  }
  bool closed = (flags & 1) != 0;
  if (flags & 8) {
    std::vector<Vec3> points;
    for (const Vertex& v : vertices) points.push_back(v.position);
    builder_.polyline(points, closed);
    return;
  }
  // 2D polyline: vertices in the object system at the polyline's elevation.
  double elevation = values.point(10).z;
  builder_.pushTransform(geom::objectToWorld(values.extrusion()));
  for (Vertex& v : vertices) v.position.z = elevation;
  if (vertices.size() == 1) builder_.point(vertices[0].position);
  for (size_t i = 0; i + 1 < vertices.size(); ++i) {
    builder_.bulgeSegment(vertices[i].position, vertices[i + 1].position, vertices[i].bulge);
  }
  if (closed && vertices.size() > 2) {
    builder_.bulgeSegment(vertices.back().position, vertices.front().position,
                          vertices.back().bulge);
  }
  builder_.popTransform();
}

void EntityOutliner::addCorners(const EntityValues& values, bool objectSystem) {
  Vec3 p[4] = {values.point(10), values.point(11), values.point(12), values.point(13)};
  if (!values.find(13)) p[3] = p[2];
  if (objectSystem) {
    // Solids and traces run 1-2-4-3 round their outline.
    std::swap(p[2], p[3]);
    builder_.pushTransform(geom::objectToWorld(values.extrusion()));
    builder_.polyline(p, true);
    builder_.popTransform();
  } else {
    builder_.polyline(p, true);
  }
}

void EntityOutliner::addSpline(const EntityValues& values) {
  geom::NurbsCurve curve;
  curve.degree = static_cast<int>(values.integer(71, 3));
  std::vector<Vec3> fit;
  for (const FlatValue& value : values.all()) {
    if (value.extendedData) break;
    if (value.code == 10) curve.control.push_back(pointOf(value));
    if (value.code == 11) fit.push_back(pointOf(value));
    if (value.code == 40) curve.knots.push_back(value.point[0]);
    if (value.code == 41) curve.weights.push_back(value.point[0]);
  }
  const std::vector<Vec3>& reference = curve.control.empty() ? fit : curve.control;
  geom::Box2 box;
  double minZ = 0, maxZ = 0;
  for (const Vec3& p : reference) {
    box.add(geom::Vec2{p.x, p.y});
    minZ = std::min(minZ, p.z);
    maxZ = std::max(maxZ, p.z);
  }
  double size = std::max(box.diagonal() + (maxZ - minZ), 1e-9);
  double tolerance = size * geom::kFlatteningTolerance;
  std::vector<Vec3> points = curve.control.empty() ? geom::flattenThroughFitPoints(fit, tolerance)
                                                   : geom::flatten(curve, tolerance);
  builder_.polyline(points, false);
}

void EntityOutliner::addInsert(const EntityValues& values, std::span<db::Record* const> followers) {
  if (builder_.depth() < kMaxBlockNesting) {
    const db::BlockDefinition* block = const_cast<db::Database&>(database_).block(values.text(2));
    Vec3 base;
    if (block && block->begin) base = EntityValues(*block->begin).point(10);
    int columns = static_cast<int>(std::max(1LL, values.integer(70, 1)));
    int rows = static_cast<int>(std::max(1LL, values.integer(71, 1)));
    double columnSpacing = values.real(44), rowSpacing = values.real(45);
    Affine3 placement = geom::objectToWorld(values.extrusion()) *
                        Affine3::translation(values.point(10)) *
                        Affine3::rotationZ(values.real(50) * kDegree);
    Affine3 scale = Affine3::scaling(values.real(41, 1), values.real(42, 1), values.real(43, 1)) *
                    Affine3::translation(base * -1.0);
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        Vec3 offset{column * columnSpacing, row * rowSpacing, 0};
        builder_.pushTransform(placement * Affine3::translation(offset) * scale);
        addBlock(values.text(2));
        builder_.popTransform();
      }
    }
  }
  // Attributes are drawn where they stand, in world coordinates.
  for (db::Record* follower : followers) {
    if (follower->type() != "ATTRIB") break;
    if (!follower->isErased()) add(*follower, {});
  }
}

void EntityOutliner::addBlock(std::string_view name) {
  if (builder_.depth() >= kMaxBlockNesting) return;  // also ends blocks that hold themselves
  const db::BlockDefinition* block = const_cast<db::Database&>(database_).block(name);
  if (!block) return;
  const std::vector<db::Record*>& entities = block->entities;
  for (size_t i = 0; i < entities.size(); ++i) {
    const db::Record& entity = *entities[i];
    std::string_view type = entity.type();
    // Attribute definitions show in their inserts as attributes.
    if (entity.isErased() || type == "ATTDEF" || type == "VERTEX" || type == "SEQEND" ||
        type == "ATTRIB") {
      continue;
    }
    add(entity, std::span<db::Record* const>(entities).subspan(i + 1));
  }
}

void EntityOutliner::addImage(const EntityValues& values) {
  Vec3 p = values.point(10), u = values.point(11), v = values.point(12);
  Vec3 size = values.point(13);
  Vec3 du = u * size.x, dv = v * size.y;
  Vec3 corners[4] = {p, p + du, p + du + dv, p + dv};
  builder_.polyline(corners, true);
}

}  // namespace korva::api
