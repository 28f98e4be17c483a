// Finding entities of the current space for selection: by layer state, by window,
// crossing, polygon and fence, everything and the newest.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

#include "db/database.h"
#include "db/handle.h"
#include "geom/plane_shape.h"

namespace korva::api {

// Vertices, attributes and sequence ends belong to their main entity and are never
// selected on their own.
bool isSubEntity(std::string_view type);

// The states of the drawing's layers that decide what can be selected.
class LayerStates {
 public:
  explicit LayerStates(db::Database& database);
  bool frozen(const db::Record& record) const { return in(frozen_, record); }
  // Frozen or off: not on screen, so not to be picked.
  bool hidden(const db::Record& record) const { return in(hidden_, record); }
  bool locked(const db::Record& record) const { return in(locked_, record); }

 private:
  static bool in(const std::unordered_set<std::string>& names, const db::Record& record);
  std::unordered_set<std::string> frozen_;
  std::unordered_set<std::string> hidden_;
  std::unordered_set<std::string> locked_;
};

// Calls visit(record, followers) for each live main entity of the current space;
// followers are the records after it (an insert's attributes, a polyline's vertices).
void forEachInCurrentSpace(
    db::Database& database,
    const std::function<void(const db::Record&, std::span<db::Record* const>)>& visit);

enum class RegionMethod { Window, Crossing, WindowPolygon, CrossingPolygon, Fence };

// Entities of the current space on visible layers that the region takes; points are in
// the current user system (two corners for Window and Crossing). `accept`, when given,
// is asked first so that rejected entities are never outlined.
std::vector<db::Handle> findInRegion(db::Database& database, RegionMethod method,
                                     const std::vector<geom::Vec2>& points,
                                     const std::function<bool(const db::Record&)>& accept = {});

// Every entity of the current space that isn't on a frozen layer.
std::vector<db::Handle> findAllInCurrentSpace(db::Database& database);

// The newest entity of the current space on a visible layer.
std::optional<db::Handle> findLastVisible(db::Database& database);

}  // namespace korva::api
