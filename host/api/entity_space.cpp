#include "entity_space.h"

#include <algorithm>
#include <string>

#include "db/handle.h"
#include "record_places.h"

namespace korva::api {
namespace {

constexpr size_t kNowhere = static_cast<size_t>(-1);

// Sets 67 and 410 for a space: model space leaves 67 out, as files do; an existing 410
// takes the layout's name.
void writeSpaceGroups(std::vector<db::OwnedGroup>& groups, bool toPaperSpace,
                      std::string_view layoutName) {
  auto ownEnd = std::find_if(groups.begin(), groups.end(),
                             [](const db::OwnedGroup& group) { return group.code == 1001; });
  groups.erase(std::remove_if(groups.begin(), ownEnd,
                              [](const db::OwnedGroup& group) { return group.code == 67; }),
               ownEnd);
  size_t entityMarker = kNowhere, firstLayer = kNowhere;
  for (size_t i = 0; i < groups.size() && groups[i].code != 1001; ++i) {
    db::OwnedGroup& group = groups[i];
    if (group.code == 410) group.value = layoutName;
    if (group.code == 100 && group.value == "AcDbEntity" && entityMarker == kNowhere)
      entityMarker = i;
    if (group.code == 8 && firstLayer == kNowhere) firstLayer = i;
  }
  if (!toPaperSpace) return;
  // Where qxdbEntMake puts it: behind the AcDbEntity marker, before the layer.
  size_t at = entityMarker != kNowhere ? entityMarker + 1 : firstLayer;
  if (at == kNowhere) at = 0;
  groups.insert(groups.begin() + static_cast<long>(at), {67, "1"});
}

bool isLayoutSpace(std::string_view blockName) {
  return db::sameName(blockName, "*Model_Space") || db::sameName(blockName, "*Paper_Space");
}

}  // namespace

bool writeSpaceMove(db::Database& database, const db::Record& record, bool toPaperSpace,
                    std::vector<db::OwnedGroup>& out) {
  db::Record* from = owningBlockRecord(database, record);
  if (!from || !isLayoutSpace(from->find(2).value_or(""))) return false;
  db::Record* target =
      database.tableEntry("BLOCK_RECORD", toPaperSpace ? "*Paper_Space" : "*Model_Space");
  if (!target) return false;
  writeSpaceGroups(out, toPaperSpace,
                   toPaperSpace ? layoutNameOf(database, *target) : std::string_view("Model"));
  // The owner is the first 330 outside the application groups.
  bool inAppGroup = false;
  for (db::OwnedGroup& group : out) {
    if (group.code == 1001) break;
    if (group.code == 102) inAppGroup = !group.value.empty() && group.value[0] == '{';
    if (group.code == 330 && !inAppGroup) {
      group.value = db::formatHandle(target->handle());
      return true;
    }
  }
  out.insert(out.begin(), {330, db::formatHandle(target->handle())});
  return true;
}

void moveFollowersToSpace(db::Database& database, const db::Record& main, bool toPaperSpace) {
  EntityPlace place = placeOf(database, main);
  if (!place.list) return;
  std::string_view layoutName = "Model";
  if (toPaperSpace) {
    if (db::Record* paper = database.tableEntry("BLOCK_RECORD", "*Paper_Space"))
      layoutName = layoutNameOf(database, *paper);
  }
  std::vector<db::Record*>& list = *place.list;
  for (size_t i = place.index + 1; i < list.size(); ++i) {
    db::Record& follower = *list[i];
    if (follower.owner() != main.handle() || !isSubEntityType(follower.type())) break;
    std::vector<db::OwnedGroup> groups = follower.ownedGroups();
    writeSpaceGroups(groups, toPaperSpace, layoutName);
    follower.assign(std::move(groups));
  }
}

}  // namespace korva::api
