// Polylines: a path of straight and circular pieces, vertex i at parameter i. All
// three kinds come here: lightweight (bulges in the object system), old-style 2D
// (bulges in VERTEX records) and 3D (straight pieces in world coordinates).
#include <cmath>
#include <numbers>
#include <vector>

#include "curve_model.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "geom/bulge_path.h"
#include "geom/elliptic_arc.h"
#include "lwpolyline_vertices.h"
#include "object_groups.h"
#include "polyline_vertices.h"

namespace korva::api {

namespace {

struct Piece {
  bool arc = false;
  Vec3 a, b;                // straight pieces
  geom::EllipticArc curve;  // circular pieces, running from curve.start to curve.end
  double length = 0;
};

class PathModel final : public CurveModel {
 public:
  PathModel(std::vector<Piece> pieces, bool closed) : pieces_(std::move(pieces)), closed_(closed) {
    for (const Piece& piece : pieces_) total_ += piece.length;
  }

  double startParam() const override { return 0; }
  double endParam() const override { return static_cast<double>(pieces_.size()); }
  bool closed() const override { return closed_; }
  Vec3 point(double param) const override {
    auto [index, fraction] = split(param);
    const Piece& p = pieces_[index];
    if (!p.arc) return p.a + (p.b - p.a) * fraction;
    return p.curve.pointAt(p.curve.start + (p.curve.end - p.curve.start) * fraction);
  }
  Vec3 derivative(double param) const override {
    auto [index, fraction] = split(param);
    const Piece& p = pieces_[index];
    if (!p.arc) return p.b - p.a;
    double span = p.curve.end - p.curve.start;
    return p.curve.derivativeAt(p.curve.start + span * fraction) * span;
  }
  bool distAtParam(double param, double& dist) const override {
    auto [index, fraction] = split(param);
    dist = 0;
    for (size_t i = 0; i < index; ++i) dist += pieces_[i].length;
    dist += pieces_[index].length * fraction;
    return true;
  }
  bool paramAtDist(double dist, double& param) const override {
    double before = 0;
    for (size_t i = 0; i < pieces_.size(); ++i) {
      double length = pieces_[i].length;
      if (dist <= before + length || i + 1 == pieces_.size()) {
        param = static_cast<double>(i) + (length > 0 ? (dist - before) / length : 0);
        return true;
      }
      before += length;
    }
    return false;
  }
  double closestParam(Vec3 p) const override {
    double best = 0, bestDistance = HUGE_VAL;
    for (size_t i = 0; i < pieces_.size(); ++i) {
      const Piece& piece = pieces_[i];
      double fraction = 0;
      if (!piece.arc) {
        Vec3 d = piece.b - piece.a;
        double squared = dot(d, d);
        fraction = squared > 0 ? std::fmin(std::fmax(dot(p - piece.a, d) / squared, 0.0), 1.0) : 0;
      } else {
        double t = piece.curve.closestParam(p);
        fraction = (t - piece.curve.start) / (piece.curve.end - piece.curve.start);
      }
      double param = static_cast<double>(i) + fraction;
      double distance = geom::length(point(param) - p);
      if (distance < bestDistance) best = param, bestDistance = distance;
    }
    return best;
  }
  bool box(geom::SpaceBox& box) const override {
    for (const Piece& piece : pieces_) {
      if (piece.arc) {
        box.add(piece.curve.box());
      } else {
        box.add(piece.a);
        box.add(piece.b);
      }
    }
    return !box.empty();
  }
  bool area(double& area) const override {
    if (!planar_) return false;
    area = std::fabs(signedArea_);
    return true;
  }

  void setPlanarArea(double signedArea) {
    planar_ = true;
    signedArea_ = signedArea;
  }

 private:
  // The piece of a parameter and the fraction along it; the end parameter is the end
  // of the last piece.
  std::pair<size_t, double> split(double param) const {
    double whole = std::floor(param);
    size_t index = whole < 0 ? 0 : static_cast<size_t>(whole);
    if (index >= pieces_.size()) return {pieces_.size() - 1, param - double(pieces_.size() - 1)};
    return {index, param - whole};
  }

  std::vector<Piece> pieces_;
  bool closed_;
  double total_ = 0;
  bool planar_ = false;
  double signedArea_ = 0;
};

// Pieces of a planar polyline in its object system, carried to the world.
std::unique_ptr<PathModel> planarPath(const std::vector<geom::Vec2>& points,
                                      const std::vector<double>& bulges, bool closed,
                                      double elevation, Vec3 normal) {
  geom::Affine3 toWorld = geom::objectToWorld(normal);
  std::vector<Piece> pieces;
  double area = 0;
  for (const geom::BulgeSegment& s : geom::bulgeSegments(points, bulges, closed)) {
    Piece piece;
    piece.length = s.length();
    piece.a = toWorld.point({s.start.x, s.start.y, elevation});
    piece.b = toWorld.point({s.end.x, s.end.y, elevation});
    // The shoelace term of the chord, plus the circular segment between chord and arc.
    area += geom::cross(s.start, s.end) / 2;
    if (s.isArc()) {
      piece.arc = true;
      geom::Vec2 c = s.center();
      double r = s.radius();
      double sweep = s.sweep();
      double start = s.startAngle();
      // A clockwise arc runs counterclockwise about the mirrored Y axis.
      double turn = sweep > 0 ? 1 : -1;
      piece.curve.center = toWorld.point({c.x, c.y, elevation});
      piece.curve.u = toWorld.vector({r, 0, 0});
      piece.curve.v = toWorld.vector({0, r * turn, 0});
      piece.curve.start = start * turn;
      piece.curve.end = piece.curve.start + std::fabs(sweep);
      area += r * r / 2 * (sweep - std::sin(sweep));
    }
    pieces.push_back(piece);
  }
  // An open path encloses its area together with the chord back to its start.
  if (!closed && points.size() > 1) area += geom::cross(points.back(), points.front()) / 2;
  // A single vertex is a degenerate path: one piece of length zero.
  if (pieces.empty() && !points.empty()) {
    Piece dot;
    dot.a = dot.b = toWorld.point({points[0].x, points[0].y, elevation});
    pieces.push_back(dot);
  }
  if (pieces.empty()) return nullptr;
  auto model = std::make_unique<PathModel>(std::move(pieces), closed);
  model->setPlanarArea(area);
  return model;
}

}  // namespace

std::unique_ptr<CurveModel> pathModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status) {
  const QxDbObject* object = &curve;
  const db::Record& record = recordOf(curve);
  status = Qxad::eOk;
  std::unique_ptr<CurveModel> model;
  if (record.type() == "LWPOLYLINE") {
    constexpr std::string_view kPart = "AcDbPolyline";
    std::vector<geom::Vec2> points;
    std::vector<double> bulges;
    for (const LwVertex& v : readLwVertices(record)) {
      points.push_back(v.point);
      bulges.push_back(v.bulge);
    }
    bool closed = (members::integer(object, 70, 0, kPart) & 1) != 0;
    Vec3 normal = members::normal(object, kPart);
    model = planarPath(points, bulges, closed, members::real(object, 38, 0, kPart), normal);
    if (model) model->sweep = normal * members::real(object, 39, 0, kPart);
  } else {
    db::Database* database = databaseOf(curve);
    std::vector<db::Record*> vertices;
    if (database) vertices = vertexRecordsOf(*database, record);
    long long flags = groupInteger(record, 70, 0);
    bool closed = (flags & 1) != 0;
    if (flags & 8) {
      std::vector<Piece> pieces;
      std::vector<Vec3> points;
      for (const db::Record* v : vertices) {
        if (!isCurveVertex(*v)) continue;
        double p[3];
        groupPoint(*v, 10, p);
        points.push_back({p[0], p[1], p[2]});
      }
      size_t n = points.size();
      for (size_t i = 0; n > 1 && i < (closed ? n : n - 1); ++i) {
        Piece piece;
        piece.a = points[i];
        piece.b = points[(i + 1) % n];
        piece.length = geom::length(piece.b - piece.a);
        pieces.push_back(piece);
      }
      if (pieces.empty() && n == 1) pieces.push_back({false, points[0], points[0], {}, 0});
      if (!pieces.empty()) model = std::make_unique<PathModel>(std::move(pieces), closed);
    } else if ((flags & (16 | 64)) == 0) {
      std::vector<geom::Vec2> points;
      std::vector<double> bulges;
      for (const db::Record* v : vertices) {
        if (!isCurveVertex(*v)) continue;
        double p[3];
        groupPoint(*v, 10, p);
        points.push_back({p[0], p[1]});
        bulges.push_back(groupReal(*v, 42, 0));
      }
      double elevation[3];
      groupPoint(record, 10, elevation);
      double n[3] = {0, 0, 1};
      if (!groupPoint(record, 210, n)) n[2] = 1;
      Vec3 normal = geom::normalized({n[0], n[1], n[2]});
      model = planarPath(points, bulges, closed, elevation[2], normal);
      if (model) model->sweep = normal * groupReal(record, 39, 0);
    } else {
      // Meshes and polyface meshes are not curves.
      status = Qxad::eNotApplicable;
      return nullptr;
    }
  }
  if (!model && status == Qxad::eOk) status = Qxad::eDegenerateGeometry;
  return model;
}

}  // namespace korva::api
