#include "input/nested_pick.h"

#include <algorithm>
#include <span>

#include "api/entity_values.h"
#include "input/pick_area.h"

namespace korva::input {
namespace {

// Blocks that hold themselves end here.
constexpr int kMaxNesting = 32;

// The newest entity of a block hit in the pick area, drawn with toWorld; null for none.
// followers gets the records after it.
db::Record* hitInBlock(const PickArea& area, const db::BlockDefinition& block,
                       const geom::Affine3& toWorld, std::span<db::Record* const>& followers) {
  api::EntityOutliner outliner = area.outliner(toWorld);
  const std::span<db::Record* const> all(block.entities);
  for (size_t i = all.size(); i-- > 0;) {
    db::Record& record = *all[i];
    if (!shownInReferences(record) || area.hiddenInReference(record)) continue;
    if (area.hits(outliner, toWorld, record, all.subspan(i + 1))) {
      followers = all.subspan(i + 1);
      return &record;
    }
  }
  return nullptr;
}

std::span<db::Record* const> followersInEntities(db::Database& database, const db::Record& top) {
  std::vector<db::Record*>* records = database.entities();
  if (!records) return {};
  auto found = std::find(records->begin(), records->end(), &top);
  if (found == records->end()) return {};
  return std::span<db::Record* const>(*records).subspan(found - records->begin() + 1);
}

}  // namespace

NestedPick pickNested(db::Database& database, db::Record& top, const double ucsPoint[3]) {
  NestedPick pick;
  pick.entity = &top;
  const PickArea area(database, ucsPoint);
  std::span<db::Record* const> followers = followersInEntities(database, top);
  for (int depth = 0; depth < kMaxNesting && pick.entity->type() == "INSERT"; ++depth) {
    db::Record& reference = *pick.entity;
    // Attributes stand where they are drawn, in the coordinates of the reference's space.
    api::EntityOutliner outliner = area.outliner(pick.toWorld);
    for (db::Record* follower : followers) {
      if (follower->type() != "ATTRIB") break;
      if (!follower->isErased() && area.hits(outliner, pick.toWorld, *follower, {})) {
        pick.entity = follower;
        return pick;
      }
    }
    const db::BlockDefinition* block = database.block(api::EntityValues(reference).text(2));
    if (!block) break;
    db::Record* inner = nullptr;
    geom::Affine3 innerToWorld;
    const int rows = referenceRows(reference);
    const int columns = referenceColumns(reference);
    for (int row = 0; row < rows && !inner; ++row) {
      for (int column = 0; column < columns && !inner; ++column) {
        innerToWorld = pick.toWorld * blockPlacement(database, reference, row, column);
        inner = hitInBlock(area, *block, innerToWorld, followers);
      }
    }
    if (!inner) break;
    pick.containers.insert(pick.containers.begin(), &reference);
    pick.entity = inner;
    pick.toWorld = innerToWorld;
  }
  return pick;
}

bool pointOnEntity(db::Database& database, const db::Record& record, double ucsPoint[3]) {
  api::EntityOutliner outliner(database, worldToCurrentUcs(database));
  const geom::PlaneShape shape = outliner.outline(record, followersInEntities(database, record));
  geom::Vec2 point;
  if (!shape.segments.empty()) {
    point = shape.segments.front().a;
  } else if (!shape.arcs.empty()) {
    point = shape.arcs.front().pointAt(shape.arcs.front().start);
  } else if (!shape.points.empty()) {
    point = shape.points.front();
  } else if (!shape.box.empty()) {
    point = {(shape.box.min.x + shape.box.max.x) / 2, (shape.box.min.y + shape.box.max.y) / 2};
  } else {
    return false;
  }
  ucsPoint[0] = point.x;
  ucsPoint[1] = point.y;
  ucsPoint[2] = 0;
  return true;
}

}  // namespace korva::input
