#include "cmd/edit/polyline_conversion.h"

#include <cmath>

#include "api/coordinate_systems.h"
#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/edit/opened_entity.h"
#include "cmd/edit/polyline_store.h"
#include "qx_db_blocks.h"
#include "qx_db_curves.h"
#include "qx_db_polylines.h"
#include "qx_entities.h"

namespace korva::cmd::edit {

namespace {

using drawing::fromGe;
using drawing::toGeVector;
using geom::Vec3;

// Ends of a line further apart than this across its plane leave it out of any plane.
constexpr double kSamePlane = 1e-8;

// The polyline a line or arc becomes, with its properties, and the block it stands in.
QxDbPolyline* polylineOf(const EntityName name, QxDbObjectId& blockId) {
  Opened opened(name, QxDb::kForRead);
  QxDbEntity* entity = opened.get();
  if (!entity) return nullptr;
  Vec3 normal{0, 0, 1};
  Vec3 start, end;
  double bulge = 0;
  if (auto* line = opened.as<QxDbLine>()) {
    normal = fromGe(line->normal());
    start = fromGe(line->startPoint());
    end = fromGe(line->endPoint());
  } else if (auto* arc = opened.as<QxDbArc>()) {
    normal = fromGe(arc->normal());
    QxGePoint3d a, b;
    arc->getStartPoint(a);
    arc->getEndPoint(b);
    start = fromGe(a);
    end = fromGe(b);
    bulge = std::tan(arc->totalAngle() / 4);
  } else {
    return nullptr;
  }
  api::CoordinateSystem plane = api::objectSystem(normal);
  Vec3 a = plane.fromWorld(start), b = plane.fromWorld(end);
  if (std::fabs(a.z - b.z) > kSamePlane) return nullptr;
  auto* polyline = new QxDbPolyline(2);
  polyline->addVertexAt(0, QxGePoint2d(a.x, a.y), bulge);
  polyline->addVertexAt(1, QxGePoint2d(b.x, b.y));
  if (!drawing::isWorldZ(normal)) polyline->setNormal(toGeVector(normal));
  if (a.z != 0) polyline->setElevation(a.z);
  polyline->setPropertiesFrom(entity);
  blockId = entity->blockId();
  return polyline;
}

}  // namespace

bool convertToPolyline(EntityName name) {
  QxDbObjectId blockId;
  QxDbPolyline* polyline = polylineOf(name, blockId);
  if (!polyline) return false;
  EntityName made;
  return drawing::appendToBlock(polyline, blockId, made) && replaceEntity(name, made);
}

}  // namespace korva::cmd::edit
