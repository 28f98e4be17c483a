#include "selection_scan.h"

#include <cctype>

#include "coordinate_systems.h"
#include "db/value_text.h"
#include "entity_outline.h"
#include "geom/selection_region.h"

namespace korva::api {

namespace {

std::string upperName(std::string_view name) {
  std::string upper(name);
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return upper;
}

// Whether a record lies in model space (67 absent or 0) or paper space (67 = 1).
bool inPaperSpaceFlag(const db::Record& record) {
  for (const db::Group& group : record.groups()) {
    if (group.code == 67) return group.value.find('1') != std::string_view::npos;
    if (group.code == 100 && group.value != "AcDbEntity") break;  // the flag comes before
  }
  return false;
}

geom::Affine3 worldToUcs(const db::Database& database) {
  CoordinateSystem ucs = currentUcs(database);
  auto v = [](const Vector3& a) { return geom::Vec3{a.x, a.y, a.z}; };
  return geom::Affine3::fromAxes(v(ucs.xAxis), v(ucs.yAxis), v(ucs.zAxis), v(ucs.origin)).inverse();
}

}  // namespace

bool isSubEntity(std::string_view type) {
  return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

LayerStates::LayerStates(db::Database& database) {
  const db::Table* layers = database.table("LAYER");
  if (!layers) return;
  for (const db::Record* layer : layers->entries) {
    std::string name = upperName(layer->find(2).value_or(""));
    int flags = db::parseInteger(layer->find(70).value_or("0")).value_or(0);
    bool frozen = (flags & 1) != 0;
    bool off = db::parseInteger(layer->find(62).value_or("7")).value_or(7) < 0;
    if (frozen) frozen_.insert(name);
    if (frozen || off) hidden_.insert(name);
    if (flags & 4) locked_.insert(name);
  }
}

bool LayerStates::in(const std::unordered_set<std::string>& names, const db::Record& record) {
  if (names.empty()) return false;
  return names.count(upperName(record.find(8).value_or("0"))) != 0;
}

void forEachInCurrentSpace(
    db::Database& database,
    const std::function<void(const db::Record&, std::span<db::Record* const>)>& visit) {
  std::vector<db::Record*>* records = database.entities();
  if (!records) return;
  bool paper = inPaperSpace(database);
  std::span<db::Record* const> all(*records);
  for (size_t i = 0; i < all.size(); ++i) {
    const db::Record& record = *all[i];
    if (record.isErased() || isSubEntity(record.type())) continue;
    if (inPaperSpaceFlag(record) != paper) continue;
    visit(record, all.subspan(i + 1));
  }
}

std::vector<db::Handle> findInRegion(db::Database& database, RegionMethod method,
                                     const std::vector<geom::Vec2>& points,
                                     const std::function<bool(const db::Record&)>& accept) {
  std::vector<db::Handle> found;
  bool rectangle = method == RegionMethod::Window || method == RegionMethod::Crossing;
  bool polygon = method == RegionMethod::WindowPolygon || method == RegionMethod::CrossingPolygon;
  if (points.size() < (polygon ? 3u : 2u)) return found;
  geom::SelectionRegion region = rectangle ? geom::SelectionRegion::rectangle(points[0], points[1])
                                           : geom::SelectionRegion::polygon(points);
  bool whole = method == RegionMethod::Window || method == RegionMethod::WindowPolygon;
  LayerStates layers(database);
  EntityOutliner outliner(database, worldToUcs(database));
  forEachInCurrentSpace(
      database, [&](const db::Record& record, std::span<db::Record* const> followers) {
        if (layers.hidden(record) || (accept && !accept(record))) return;
        geom::PlaneShape shape = outliner.outline(record, followers);
        bool taken = method == RegionMethod::Fence ? geom::fenceCrosses(points, shape)
                     : whole                       ? region.encloses(shape)
                                                   : region.touches(shape);
        if (taken) found.push_back(record.handle());
      });
  return found;
}

std::vector<db::Handle> findAllInCurrentSpace(db::Database& database) {
  std::vector<db::Handle> found;
  LayerStates layers(database);
  forEachInCurrentSpace(database, [&](const db::Record& record, auto) {
    if (!layers.frozen(record)) found.push_back(record.handle());
  });
  return found;
}

std::optional<db::Handle> findLastVisible(db::Database& database) {
  std::optional<db::Handle> last;
  LayerStates layers(database);
  forEachInCurrentSpace(database, [&](const db::Record& record, auto) {
    if (!layers.hidden(record)) last = record.handle();
  });
  return last;
}

}  // namespace korva::api
