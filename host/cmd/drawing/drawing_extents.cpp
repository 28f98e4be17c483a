#include "cmd/drawing/drawing_extents.h"

#include <span>

#include "api/coordinate_systems.h"
#include "api/document.h"
#include "api/entity_outline.h"
#include "api/record_places.h"
#include "geom/affine.h"
#include "qx_selection.h"

namespace korva::cmd::drawing {

namespace {

geom::Affine3 worldToDisplay(const db::Database& database) {
  api::CoordinateSystem display = api::displaySystem(database);
  return geom::Affine3::fromAxes(display.xAxis, display.yAxis, display.zAxis, display.origin)
      .inverse();
}

}  // namespace

geom::Box2 currentSpaceExtents() {
  geom::Box2 box;
  db::Database* database = api::currentDatabase();
  if (!database) return box;
  SelectionSet all;
  if (qxedSSGet(L"A", nullptr, nullptr, nullptr, all) != RTNORM) return box;
  api::EntityOutliner outliner(*database, worldToDisplay(*database));
  std::int32_t count = 0;
  qxedSSLength(all, &count);
  for (std::int32_t i = 0; i < count; ++i) {
    EntityName name;
    if (qxedSSName(all, i, name) != RTNORM) continue;
    db::Record* record = api::recordOf(name);
    if (!record) continue;
    // Attributes and vertices follow their entity in its list.
    api::EntityPlace place = api::placeOf(*database, *record);
    std::span<db::Record* const> followers;
    if (place.list) followers = std::span<db::Record* const>(*place.list).subspan(place.index + 1);
    box.add(outliner.outline(*record, followers).box);
  }
  qxedSSFree(all);
  return box;
}

geom::Vec2 toDisplay(geom::Vec3 world) {
  db::Database* database = api::currentDatabase();
  if (!database) return {world.x, world.y};
  geom::Vec3 seen = worldToDisplay(*database).point(world);
  return {seen.x, seen.y};
}

}  // namespace korva::cmd::drawing
