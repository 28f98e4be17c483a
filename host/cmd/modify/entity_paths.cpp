#include "cmd/modify/entity_paths.h"

#include <cmath>
#include <numbers>
#include <vector>

#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "qx_coordinates.h"
#include "qx_db_blocks.h"
#include "qx_db_curves.h"
#include "qx_db_polylines.h"
#include "qx_entities.h"
#include "qx_memory.h"

namespace korva::cmd::modify {

// The plane geometry the commands cut, offset and round with.
using namespace geom;

namespace {

using drawing::fromGe;
using drawing::isWorldZ;

// An entity open for as long as the value lives.
class OpenEntity {
 public:
  OpenEntity(const EntityName name, int mode) {
    QxDbObjectId id;
    if (qxdbGetObjectId(id, name) == Qxad::eOk) qxdbOpenQxDbEntity(entity_, id, mode);
  }
  explicit OpenEntity(QxDbEntity* adopted) : entity_(adopted) {}
  ~OpenEntity() {
    if (entity_) entity_->close();
  }
  OpenEntity(const OpenEntity&) = delete;
  OpenEntity& operator=(const OpenEntity&) = delete;
  QxDbEntity* get() const { return entity_; }

 private:
  QxDbEntity* entity_ = nullptr;
};

Vec2 flat(const QxGePoint3d& point) {
  return {point.x, point.y};
}

double normalAngle(double angle) {
  constexpr double kTwoPi = 2 * std::numbers::pi;
  angle = std::fmod(angle, kTwoPi);
  return angle < 0 ? angle + kTwoPi : angle;
}

std::optional<PlanePath> oldPolylinePath(const QxDb2dPolyline& polyline) {
  if (polyline.polyType() != QxDb::k2dSimplePoly || !isWorldZ(fromGe(polyline.normal()))) {
    return std::nullopt;
  }
  std::vector<Vec2> points;
  std::vector<double> bulges;
  QxDbObjectIterator* vertices = polyline.vertexIterator();
  if (!vertices) return std::nullopt;
  for (vertices->start(); !vertices->done(); vertices->step()) {
    QxDbObject* object = nullptr;
    if (vertices->getObject(object) != Qxad::eOk) continue;
    if (auto* vertex = QxDb2dVertex::cast(object)) {
      points.push_back(flat(vertex->position()));
      bulges.push_back(vertex->bulge());
    }
    object->close();
  }
  delete vertices;
  PlanePath path;
  path.closed = polyline.isClosed();
  size_t segments = path.closed ? points.size() : points.size() - 1;
  for (size_t i = 0; points.size() >= 2 && i < segments; ++i) {
    path.pieces.push_back(bulgePiece(points[i], points[(i + 1) % points.size()], bulges[i]));
  }
  if (path.pieces.empty()) return std::nullopt;
  return path;
}

std::optional<EntityPath> pathOf(QxDbEntity* entity) {
  EntityPath result;
  if (auto* line = QxDbLine::cast(entity)) {
    result.kind = CurveKind::Line;
    result.elevation = line->startPoint().z;
    result.endElevation = line->endPoint().z;
    if (geom::length(flat(line->endPoint()) - flat(line->startPoint())) <= kSamePoint) {
      return std::nullopt;
    }
    result.path.pieces.push_back(linePiece(flat(line->startPoint()), flat(line->endPoint())));
  } else if (auto* arc = QxDbArc::cast(entity)) {
    if (!isWorldZ(fromGe(arc->normal()))) return std::nullopt;
    result.kind = CurveKind::Arc;
    result.elevation = arc->center().z;
    result.path.pieces.push_back(
        arcPiece(flat(arc->center()), arc->radius(), arc->startAngle(), arc->totalAngle()));
  } else if (auto* circle = QxDbCircle::cast(entity)) {
    if (!isWorldZ(fromGe(circle->normal()))) return std::nullopt;
    result.kind = CurveKind::Circle;
    result.elevation = circle->center().z;
    result.path.closed = true;
    result.path.pieces.push_back(
        arcPiece(flat(circle->center()), circle->radius(), 0, 2 * std::numbers::pi));
  } else if (auto* polyline = QxDbPolyline::cast(entity)) {
    if (!isWorldZ(fromGe(polyline->normal())) || polyline->numVerts() < 2) return std::nullopt;
    result.kind = CurveKind::LightPolyline;
    result.elevation = polyline->elevation();
    double width = 0;
    if (polyline->getConstantWidth(width) == Qxad::eOk) result.constantWidth = width;
    unsigned count = polyline->numVerts();
    result.path.closed = polyline->isClosed();
    unsigned segments = result.path.closed ? count : count - 1;
    for (unsigned i = 0; i < segments; ++i) {
      QxGePoint2d start, end;
      double bulge = 0;
      polyline->getPointAt(i, start);
      polyline->getPointAt((i + 1) % count, end);
      polyline->getBulgeAt(i, bulge);
      result.path.pieces.push_back(bulgePiece({start.x, start.y}, {end.x, end.y}, bulge));
    }
  } else if (auto* old = QxDb2dPolyline::cast(entity)) {
    std::optional<PlanePath> path = oldPolylinePath(*old);
    if (!path) return std::nullopt;
    result.kind = CurveKind::OldPolyline;
    result.elevation = old->elevation();
    result.path = *path;
  } else {
    return std::nullopt;
  }
  return result;
}

// The height of a point of a line's part: the source line's heights, in proportion.
double lineHeight(const EntityPath& shape, Vec2 point) {
  double fraction = fractionOf(shape.path.pieces.front(), point);
  return shape.elevation + (shape.endElevation - shape.elevation) * fraction;
}

QxGePoint3d lift(const EntityPath& shape, Vec2 point) {
  double z = shape.kind == CurveKind::Line ? lineHeight(shape, point) : shape.elevation;
  return {point.x, point.y, z};
}

void arcAngles(const Piece& piece, double& start, double& end) {
  start = normalAngle(piece.sweep > 0 ? piece.startAngle : piece.startAngle + piece.sweep);
  end = normalAngle(start + std::fabs(piece.sweep));
}

void fillPolyline(QxDbPolyline& polyline, const EntityPath& shape, const PlanePath& path) {
  unsigned index = 0;
  for (const Piece& piece : path.pieces) {
    polyline.addVertexAt(index++, {piece.start.x, piece.start.y}, bulgeOf(piece));
  }
  if (!path.closed && !path.pieces.empty()) {
    polyline.addVertexAt(index, {path.pieces.back().end.x, path.pieces.back().end.y});
  }
  polyline.setClosed(path.closed);
  polyline.setElevation(shape.elevation);
  if (shape.constantWidth > 0) polyline.setConstantWidth(shape.constantWidth);
}

QxDbEntity* newEntity(const EntityPath& shape, const PlanePath& path) {
  if (path.pieces.empty()) return nullptr;
  const Piece& first = path.pieces.front();
  switch (shape.kind) {
    case CurveKind::Line:
      return new QxDbLine(lift(shape, first.start), lift(shape, first.end));
    case CurveKind::Arc:
    case CurveKind::Circle: {
      QxGePoint3d center{first.center.x, first.center.y, shape.elevation};
      if (isWholeCircle(first)) return new QxDbCircle(center, {0, 0, 1}, first.radius);
      double start = 0, end = 0;
      arcAngles(first, start, end);
      return new QxDbArc(center, first.radius, start, end);
    }
    case CurveKind::LightPolyline: {
      auto* polyline = new QxDbPolyline(static_cast<unsigned>(path.pieces.size() + 1));
      fillPolyline(*polyline, shape, path);
      return polyline;
    }
    case CurveKind::OldPolyline:
      return nullptr;
  }
  return nullptr;
}

// Old-style polylines are made record by record: the header, its vertices, SEQEND.
bool makeOldPolyline(const EntityPath& shape, const PlanePath& path, EntityName made) {
  double origin[3] = {0, 0, shape.elevation};
  ResultBuffer* header =
      qxutBuildList(RTDXF0, L"POLYLINE", 66, 1, 10, origin, 70, path.closed ? 1 : 0, 0);
  int status = qxdbEntMake(header);
  qxutRelRb(header);
  auto vertex = [&](Vec2 point, double bulge) {
    double at[3] = {point.x, point.y, shape.elevation};
    ResultBuffer* list = qxutBuildList(RTDXF0, L"VERTEX", 10, at, 42, bulge, 70, 0, 0);
    if (status == RTNORM) status = qxdbEntMake(list);
    qxutRelRb(list);
  };
  for (const Piece& piece : path.pieces) vertex(piece.start, bulgeOf(piece));
  if (!path.closed) vertex(path.pieces.back().end, 0);
  ResultBuffer* end = qxutBuildList(RTDXF0, L"SEQEND", 0);
  if (status == RTNORM) status = qxdbEntMakeX(end, made);
  qxutRelRb(end);
  return status == RTNORM;
}

}  // namespace

std::optional<EntityPath> readEntityPath(const EntityName name) {
  OpenEntity entity(name, QxDb::kForRead);
  if (!entity.get()) return std::nullopt;
  return pathOf(entity.get());
}

bool addEntityLike(const EntityName source, const EntityPath& shape, const PlanePath& path,
                   EntityName made) {
  if (shape.kind == CurveKind::OldPolyline) {
    if (path.pieces.empty() || !makeOldPolyline(shape, path, made)) return false;
    OpenEntity original(source, QxDb::kForRead);
    OpenEntity copy(made, QxDb::kForWrite);
    if (original.get() && copy.get()) copy.get()->setPropertiesFrom(original.get());
    return true;
  }
  QxDbObjectId owner;
  QxDbEntity* entity = newEntity(shape, path);
  if (!entity) return false;
  {
    OpenEntity original(source, QxDb::kForRead);
    if (!original.get()) {
      delete entity;
      return false;
    }
    entity->setPropertiesFrom(original.get());
    owner = original.get()->ownerId();
  }
  return drawing::appendToBlock(entity, owner, made);
}

bool rewriteEntity(const EntityName name, const EntityPath& shape, const PlanePath& path) {
  if (path.pieces.empty()) return false;
  OpenEntity entity(name, QxDb::kForWrite);
  if (!entity.get()) return false;
  const Piece& first = path.pieces.front();
  if (auto* line = QxDbLine::cast(entity.get()); line && shape.kind == CurveKind::Line) {
    return line->setStartPoint(lift(shape, first.start)) == Qxad::eOk &&
           line->setEndPoint(lift(shape, first.end)) == Qxad::eOk;
  }
  if (auto* arc = QxDbArc::cast(entity.get()); arc && shape.kind == CurveKind::Arc) {
    double start = 0, end = 0;
    arcAngles(first, start, end);
    return arc->setStartAngle(start) == Qxad::eOk && arc->setEndAngle(end) == Qxad::eOk;
  }
  if (auto* polyline = QxDbPolyline::cast(entity.get());
      polyline && shape.kind == CurveKind::LightPolyline) {
    while (polyline->numVerts() > 0) {
      if (polyline->removeVertexAt(polyline->numVerts() - 1) != Qxad::eOk) return false;
    }
    fillPolyline(*polyline, shape, path);
    return true;
  }
  return false;
}

Vec2 worldPlanePoint(const double userPoint[3]) {
  ResultBuffer from{}, to{};
  from.type = to.type = RTSHORT;
  from.value.rint = 1;
  to.value.rint = 0;
  double world[3] = {userPoint[0], userPoint[1], userPoint[2]};
  if (qxedTrans(userPoint, &from, &to, 0, world) != RTNORM) return {userPoint[0], userPoint[1]};
  return {world[0], world[1]};
}

}  // namespace korva::cmd::modify
