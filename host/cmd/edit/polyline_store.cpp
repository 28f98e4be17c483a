#include "cmd/edit/polyline_store.h"

#include <cmath>
#include <vector>

#include "api/coordinate_systems.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/edit/light_polyline_list.h"
#include "cmd/edit/opened_entity.h"
#include "qx_db_curves.h"
#include "qx_db_polylines.h"
#include "qx_entities.h"
#include "qx_memory.h"

namespace korva::cmd::edit {

namespace {

using drawing::fromGe;

// Vertices a fit curve added (1) and spline vertices (8) are not the user's own.
constexpr int kFitVertexFlags = 1 | 8;
constexpr int kClosedFlag = 1;
constexpr int kFitFlags = 2 | 4;
constexpr int kLinetypeGenerationFlag = 128;
// Planes closer than this are one plane.
constexpr double kSamePlane = 1e-8;

// The DXF type of the entity; empty when there is none.
std::wstring typeOf(const EntityName name) {
  std::wstring type;
  ResultBuffer* list = qxdbEntGet(name);
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 0 && node->value.rstring) {
      type = node->value.rstring;
      break;
    }
  }
  qxutRelRb(list);
  return type;
}

// Group 70 of a polyline or a vertex.
int flagsOf(const EntityName name) {
  int flags = 0;
  ResultBuffer* list = qxdbEntGet(name);
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 70) flags = node->value.rint;
  }
  qxutRelRb(list);
  return flags;
}

// Sets and clears bits of group 70 through the flat layer (all polyline kinds keep
// their flags there).
bool changeFlags(const EntityName name, int set, int clear) {
  ResultBuffer* list = qxdbEntGet(name);
  bool found = false;
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type != 70) continue;
    node->value.rint = static_cast<std::int16_t>((node->value.rint | set) & ~clear);
    found = true;
  }
  bool written = found && qxdbEntMod(list) == RTNORM;
  qxutRelRb(list);
  return written;
}

// The 2D vertices of an old-style polyline with their flags, in its object system.
struct OldVertex {
  ChainVertex vertex;
  int flags = 0;
};

std::vector<OldVertex> oldVertices(const QxDb2dPolyline& polyline) {
  std::vector<OldVertex> vertices;
  QxDbObjectIterator* walk = polyline.vertexIterator();
  if (!walk) return vertices;
  for (walk->start(); !walk->done(); walk->step()) {
    QxDbObject* object = nullptr;
    if (walk->getObject(object) != Qxad::eOk) continue;
    if (auto* v = QxDb2dVertex::cast(object)) {
      QxGePoint3d p = v->position();
      OldVertex old;
      old.vertex = {{p.x, p.y}, v->bulge(), v->startWidth(), v->endWidth()};
      EntityName vertexName;
      if (qxdbGetHysName(vertexName, v->objectId()) == Qxad::eOk) old.flags = flagsOf(vertexName);
      vertices.push_back(old);
    }
    object->close();
  }
  delete walk;
  return vertices;
}

// Makes a two-dimensional polyline anew from the old one's list and the chain, and
// erases the old one.
bool remakeOldPolyline(EntityName name, const PlanarPolyline& old, const Chain& chain,
                       bool straightenFit) {
  ResultBuffer* header = qxdbEntGet(name);
  if (!header) return false;
  // The new record gets its own name, handle and owner.
  ResultBuffer* kept = nullptr;
  ResultBuffer** tail = &kept;
  std::wstring layer = L"0";
  for (ResultBuffer* node = header; node;) {
    ResultBuffer* next = node->next;
    node->next = nullptr;
    bool drop = node->type == -1 || node->type == 5 || node->type == 330 || node->type == 360 ||
                node->type == 102;
    if (node->type == 8 && node->value.rstring) layer = node->value.rstring;
    if (node->type == 70) {
      int flags = (node->value.rint & ~kClosedFlag) | (chain.closed ? kClosedFlag : 0);
      if (straightenFit) flags &= ~kFitFlags;
      node->value.rint = static_cast<std::int16_t>(flags);
    }
    if (drop) {
      qxutRelRb(node);
    } else {
      *tail = node;
      tail = &node->next;
    }
    node = next;
  }
  int status = qxdbEntMake(kept);
  qxutRelRb(kept);
  for (const ChainVertex& v : chain.vertices) {
    if (status != RTNORM) break;
    const double point[3] = {v.point.x, v.point.y, old.elevation};
    ResultBuffer* vertex = qxutBuildList(RTDXF0, L"VERTEX", 8, layer.c_str(), 10, point, 40,
                                         v.startWidth, 41, v.endWidth, 42, v.bulge, 70, 0, RTNONE);
    status = qxdbEntMake(vertex);
    qxutRelRb(vertex);
  }
  if (status == RTNORM) {
    ResultBuffer* end = qxutBuildList(RTDXF0, L"SEQEND", 8, layer.c_str(), RTNONE);
    status = qxdbEntMake(end);
    qxutRelRb(end);
  }
  if (status != RTNORM) {
    // Nothing half-made stays waiting for its end.
    qxdbEntMake(nullptr);
    return false;
  }
  EntityName made;
  if (qxdbEntLast(made) != RTNORM) return false;
  return replaceEntity(name, made);
}

bool writeOldInPlace(QxDb2dPolyline& polyline, const Chain& chain, double elevation) {
  QxDbObjectIterator* walk = polyline.vertexIterator();
  if (!walk) return false;
  bool ok = true;
  size_t index = 0;
  for (walk->start(); ok && !walk->done(); walk->step()) {
    QxDbObject* object = nullptr;
    if (walk->getObject(object, QxDb::kForWrite) != Qxad::eOk) {
      ok = false;
      break;
    }
    auto* vertex = QxDb2dVertex::cast(object);
    if (vertex && index < chain.vertices.size()) {
      const ChainVertex& v = chain.vertices[index++];
      ok = vertex->setPosition(QxGePoint3d(v.point.x, v.point.y, elevation)) == Qxad::eOk &&
           vertex->setBulge(v.bulge) == Qxad::eOk &&
           vertex->setStartWidth(v.startWidth) == Qxad::eOk &&
           vertex->setEndWidth(v.endWidth) == Qxad::eOk;
    }
    object->close();
  }
  delete walk;
  return ok && polyline.setClosed(chain.closed) == Qxad::eOk;
}

// A point of a plane's object system seen from another object system.
Vec3 between(const api::CoordinateSystem& from, const api::CoordinateSystem& to, Vec3 point) {
  return to.fromWorld(from.toWorld(point));
}

}  // namespace

bool replaceEntity(EntityName name, const EntityName made) {
  if (qxdbEntDel(name) != RTNORM) {
    qxdbEntDel(made);
    return false;
  }
  name[0] = made[0];
  name[1] = made[1];
  return true;
}

PolylineKind polylineKindOf(const EntityName name) {
  std::wstring type = typeOf(name);
  if (type == L"LWPOLYLINE") return PolylineKind::Light;
  if (type != L"POLYLINE") return PolylineKind::None;
  int flags = flagsOf(name);
  // Meshes (16, 64) are no polylines to edit; 8 marks the three-dimensional kind.
  if (flags & (16 | 64)) return PolylineKind::None;
  return (flags & 8) ? PolylineKind::Old3d : PolylineKind::Old2d;
}

std::optional<PlanarPolyline> readPolyline(const EntityName name, bool controlOnly) {
  PlanarPolyline result;
  result.kind = polylineKindOf(name);
  Opened opened(name, QxDb::kForRead);
  if (result.kind == PolylineKind::Light) {
    std::optional<LightPolyline> light = readLightPolyline(name);
    if (!light) return std::nullopt;
    result.chain = std::move(light->chain);
    result.normal = light->normal;
    result.elevation = light->elevation;
  } else if (auto* old = opened.as<QxDb2dPolyline>(); old && result.kind == PolylineKind::Old2d) {
    for (const OldVertex& v : oldVertices(*old)) {
      if (controlOnly && (v.flags & kFitVertexFlags)) continue;
      result.chain.vertices.push_back(v.vertex);
    }
    result.chain.closed = old->isClosed();
    result.normal = fromGe(old->normal());
    result.elevation = old->elevation();
  } else {
    return std::nullopt;
  }
  if (result.chain.vertices.empty()) return std::nullopt;
  return result;
}

std::optional<Chain> readPiece(const EntityName name, const PlanarPolyline& base) {
  api::CoordinateSystem plane = api::objectSystem(base.normal);
  auto inPlane = [&](Vec3 world, Vec2& point) {
    Vec3 seen = plane.fromWorld(world);
    point = {seen.x, seen.y};
    return std::fabs(seen.z - base.elevation) <= kSamePlane;
  };
  if (std::optional<PlanarPolyline> polyline = readPolyline(name)) {
    api::CoordinateSystem own = api::objectSystem(polyline->normal);
    // Seen from the other side, every arc turns the other way.
    double facing = geom::dot(polyline->normal, base.normal) < 0 ? -1 : 1;
    Chain chain = polyline->chain;
    for (ChainVertex& v : chain.vertices) {
      Vec3 seen = between(own, plane, {v.point.x, v.point.y, polyline->elevation});
      if (std::fabs(seen.z - base.elevation) > kSamePlane) return std::nullopt;
      v.point = {seen.x, seen.y};
      v.bulge *= facing;
    }
    return chain;
  }
  Opened opened(name, QxDb::kForRead);
  if (auto* line = opened.as<QxDbLine>()) {
    Vec2 start, end;
    if (!inPlane(fromGe(line->startPoint()), start) || !inPlane(fromGe(line->endPoint()), end))
      return std::nullopt;
    return segmentChain(start, end, 0);
  }
  if (auto* arc = opened.as<QxDbArc>()) {
    double facing = geom::dot(fromGe(arc->normal()), base.normal);
    QxGePoint3d startPoint, endPoint;
    Vec2 start, end;
    if (std::fabs(std::fabs(facing) - 1) > kSamePlane ||
        arc->getStartPoint(startPoint) != Qxad::eOk || arc->getEndPoint(endPoint) != Qxad::eOk ||
        !inPlane(fromGe(startPoint), start) || !inPlane(fromGe(endPoint), end)) {
      return std::nullopt;
    }
    double bulge = std::tan(arc->totalAngle() / 4) * (facing < 0 ? -1 : 1);
    return segmentChain(start, end, bulge);
  }
  return std::nullopt;
}

bool writePolyline(EntityName name, const Chain& chain, bool straightenFit) {
  PolylineKind kind = polylineKindOf(name);
  if (kind == PolylineKind::Light) return writeLightPolyline(name, chain);
  if (kind != PolylineKind::Old2d) return false;
  std::optional<PlanarPolyline> old = readPolyline(name);
  if (!old) return false;
  bool fitted = (flagsOf(name) & kFitFlags) != 0;
  if (old->chain.vertices.size() != chain.vertices.size() || (straightenFit && fitted)) {
    return remakeOldPolyline(name, *old, chain, straightenFit);
  }
  Opened opened(name, QxDb::kForWrite);
  auto* polyline = opened.as<QxDb2dPolyline>();
  return polyline && writeOldInPlace(*polyline, chain, old->elevation);
}

bool isEditable(const EntityName name) {
  Opened opened(name, QxDb::kForWrite);
  return opened.get() != nullptr;
}

bool isPolylineClosed(const EntityName name) {
  return (flagsOf(name) & kClosedFlag) != 0;
}

bool setPolylineClosed(const EntityName name, bool closed) {
  return changeFlags(name, closed ? kClosedFlag : 0, closed ? 0 : kClosedFlag);
}

bool linetypeGeneration(const EntityName name) {
  return (flagsOf(name) & kLinetypeGenerationFlag) != 0;
}

bool setLinetypeGeneration(const EntityName name, bool on) {
  return changeFlags(name, on ? kLinetypeGenerationFlag : 0, on ? 0 : kLinetypeGenerationFlag);
}

}  // namespace korva::cmd::edit
