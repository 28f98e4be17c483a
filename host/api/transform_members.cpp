// qxedXformSS: moving, rotating, mirroring and scaling set members by rewriting their
// groups. Every member is worked out before any is written: a set holding one member the
// map can't carry is refused as a whole and left as it was.
#include <map>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "db/value_text.h"
#include "document.h"
#include "geom/affine.h"
#include "objects/entity_transform.h"
#include "objects/group_transform.h"
#include "objects/old_polyline_transform.h"
#include "objects/picture_copy.h"
#include "qx_selection.h"
#include "record_places.h"
#include "selection_sets.h"
#include "transform_kinds.h"

namespace korva::api {

namespace {

using geom::Affine3;
using geom::Vec3;
using transform::Groups;

using Followers = std::span<db::Record* const>;

// New groups for a record, written when the whole set is known to follow the map.
struct Change {
  db::Record* record = nullptr;
  Groups groups;
};

// A dimension block shared with dimensions outside the set: the set's dimensions get a
// transformed copy, so that the others keep their picture.
struct BlockCopy {
  db::BlockDefinition* source = nullptr;
  std::vector<BlockEntityCopy> entities;
  std::vector<size_t> dimensionChanges;
};

std::string upperName(std::string_view name) {
  std::string upper(name);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

class SetTransform {
 public:
  SetTransform(db::Database& database, const Affine3& map) : database_(database), map_(map) {}

  bool add(db::Record& record, Followers followers) {
    if (!entity(record, followers, changes_)) return false;
    if (record.type() == "DIMENSION") {
      std::string name(record.find(2).value_or(""));
      if (!name.empty()) dimensionsByBlock_[upperName(name)].push_back(changes_.size() - 1);
    }
    return true;
  }

  // The pictures of the dimensions: false when one holds what the map can't carry.
  bool planDimensionBlocks();
  void commit();

 private:
  bool entity(db::Record& record, Followers followers, std::vector<Change>& out);
  bool polyline(db::Record& record, Followers followers, std::vector<Change>& out);
  bool blockEntities(db::BlockDefinition& block, std::vector<Change>& out);
  std::vector<db::Record*> dimensionsNaming(std::string_view blockName);
  void makeCopy(BlockCopy& copy);

  db::Database& database_;
  Affine3 map_;
  std::vector<Change> changes_;
  std::map<std::string, std::vector<size_t>> dimensionsByBlock_;  // indices into changes_
  std::vector<BlockCopy> copies_;
};

bool SetTransform::entity(db::Record& record, Followers followers, std::vector<Change>& out) {
  std::string_view type = record.type();
  if (type == "POLYLINE") return polyline(record, followers, out);
  Groups groups;
  if (!transformGroups(type, record.ownedGroups(), map_, groups)) return false;
  out.push_back({&record, std::move(groups)});
  if (type != "INSERT") return true;
  for (db::Record* follower : followers) {
    if (follower->type() != "ATTRIB") break;
    if (!transformGroups("ATTRIB", follower->ownedGroups(), map_, groups)) return false;
    out.push_back({follower, std::move(groups)});
  }
  return true;
}

bool SetTransform::polyline(db::Record& record, Followers followers, std::vector<Change>& out) {
  Groups groups = record.ownedGroups();
  std::vector<Groups> vertices;
  for (db::Record* follower : followers) {
    if (follower->type() != "VERTEX") break;
    vertices.push_back(follower->ownedGroups());
  }
  if (!transformOldPolylineGroups(groups, vertices, map_)) return false;
  // The polyline ahead of its vertices, as a copy of its block must hold them.
  out.push_back({&record, std::move(groups)});
  for (size_t i = 0; i < vertices.size(); ++i)
    out.push_back({followers[i], std::move(vertices[i])});
  return true;
}

bool SetTransform::blockEntities(db::BlockDefinition& block, std::vector<Change>& out) {
  Followers all(block.entities);
  for (size_t i = 0; i < all.size(); ++i) {
    db::Record& record = *all[i];
    if (record.isErased() || isSubEntityType(record.type())) continue;
    if (!entity(record, all.subspan(i + 1), out)) return false;
  }
  return true;
}

std::vector<db::Record*> SetTransform::dimensionsNaming(std::string_view blockName) {
  std::vector<db::Record*> found;
  auto scan = [&](const std::vector<db::Record*>& records) {
    for (db::Record* record : records) {
      if (!record->isErased() && record->type() == "DIMENSION" &&
          db::sameName(record->find(2).value_or(""), blockName))
        found.push_back(record);
    }
  };
  if (std::vector<db::Record*>* entities = database_.entities()) scan(*entities);
  if (db::Section* blocks = database_.section(db::SectionKind::Blocks)) {
    for (db::BlockDefinition& block : blocks->blocks) scan(block.entities);
  }
  return found;
}

bool SetTransform::planDimensionBlocks() {
  // A map that distorts may need other kinds of records than a picture holds (arcs
  // become ellipses, skewed references break up): the dimensions then get a copy.
  double scale = 1;
  bool similar = geom::isSimilarity(map_, scale);
  for (auto& [name, indices] : dimensionsByBlock_) {
    db::BlockDefinition* block = database_.block(name);
    if (!block) continue;  // a dimension without its picture draws from its values
    std::unordered_set<const db::Record*> inSet;
    for (size_t index : indices) inSet.insert(changes_[index].record);
    bool shared = false;
    for (db::Record* user : dimensionsNaming(name)) shared = shared || !inSet.count(user);
    if (!shared && similar) {
      if (!blockEntities(*block, changes_)) return false;
      continue;
    }
    BlockCopy copy{block, {}, indices};
    if (similar) {
      std::vector<Change> changes;
      if (!blockEntities(*block, changes)) return false;
      for (Change& change : changes)
        copy.entities.push_back({std::string(change.record->type()), std::move(change.groups)});
    } else {
      PictureEntities carried;
      if (!carryBlockEntities(database_, name, map_, carried)) return false;
      for (auto& [type, groups] : carried) copy.entities.push_back({type, std::move(groups)});
    }
    copies_.push_back(std::move(copy));
  }
  return true;
}

void SetTransform::makeCopy(BlockCopy& copy) {
  std::string name = addPictureCopy(database_, *copy.source, std::move(copy.entities));
  if (name.empty()) return;
  for (size_t index : copy.dimensionChanges) transform::put(changes_[index].groups, 2, name);
}

void SetTransform::commit() {
  for (BlockCopy& copy : copies_) makeCopy(copy);
  for (Change& change : changes_) change.record->assign(std::move(change.groups));
  database_.recordChanged();
}

// Where each record sits in its container, for the records that follow it.
std::unordered_map<db::Handle, Followers> followersOf(
    db::Database& database, const std::unordered_set<db::Handle>& wanted) {
  std::unordered_map<db::Handle, Followers> found;
  auto scan = [&](const std::vector<db::Record*>& records) {
    Followers all(records);
    for (size_t i = 0; i < all.size(); ++i) {
      if (wanted.count(all[i]->handle())) found[all[i]->handle()] = all.subspan(i + 1);
    }
  };
  if (std::vector<db::Record*>* records = database.entities()) scan(*records);
  if (db::Section* blocks = database.section(db::SectionKind::Blocks)) {
    for (db::BlockDefinition& block : blocks->blocks) scan(block.entities);
  }
  return found;
}

}  // namespace

}  // namespace korva::api

int qxedXformSS(const SelectionSet set, const double matrix[4][4]) {
  using namespace korva::api;
  SelectionSetData* data = findSelectionSet(set);
  if (!data || !matrix) return RTERROR;
  Document* document = DocumentList::instance().bySerial(data->documentSerial);
  if (!document) return RTERROR;
  korva::geom::Affine3 map;
  // A map that flattens space can't be carried by any entity.
  if (!korva::geom::Affine3::fromMatrix4(matrix, map) || map.determinant() == 0) return RTERROR;
  korva::db::Database& database = document->database();
  std::vector<korva::db::Record*> records;
  std::unordered_set<korva::db::Handle> complex;
  for (korva::db::Handle handle : data->members) {
    korva::db::Record* record = database.lookup(handle);
    if (!record || record->isErased()) return RTERROR;
    records.push_back(record);
    if (record->type() == "INSERT" || record->type() == "POLYLINE") complex.insert(handle);
  }
  auto followers = followersOf(database, complex);
  SetTransform transform(database, map);
  for (korva::db::Record* record : records) {
    auto found = followers.find(record->handle());
    if (!transform.add(*record, found == followers.end() ? Followers() : found->second))
      return RTERROR;
  }
  if (!transform.planDimensionBlocks()) return RTERROR;
  transform.commit();
  return RTNORM;
}
