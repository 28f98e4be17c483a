// qxedXformSS: moving, rotating, mirroring and scaling set members by rewriting their
// groups. Hatches, dimensions, leaders, images and the other kinds are left out for now:
// a set holding one of them is refused as a whole.
#include <cmath>
#include <numbers>
#include <unordered_map>
#include <unordered_set>

#include "db/value_text.h"
#include "document.h"
#include "geom/affine.h"
#include "objects/entity_transform.h"
#include "qx_selection.h"
#include "selection_sets.h"

namespace korva::api {

namespace {

using geom::Affine3;
using geom::Vec3;
using Groups = std::vector<db::OwnedGroup>;

constexpr double kDegree = std::numbers::pi / 180;

bool isTransformable(std::string_view type) {
  static const std::unordered_set<std::string_view> kinds = {
      "LINE",   "POINT",  "CIRCLE", "ARC",   "ELLIPSE", "LWPOLYLINE", "POLYLINE", "TEXT", "MTEXT",
      "INSERT", "ATTRIB", "ATTDEF", "SOLID", "TRACE",   "3DFACE",     "SPLINE",   "RAY",  "XLINE"};
  return kinds.count(type) != 0;
}

// A point stored as X, Y and maybe Z groups; indices into the group list.
struct PointSlot {
  size_t x = 0;
  long y = -1, z = -1;
};

std::vector<PointSlot> pointSlots(const Groups& groups, int code) {
  std::vector<PointSlot> slots;
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code == 1001) break;  // extended data keeps its own meaning
    if (groups[i].code != code) continue;
    PointSlot slot{i};
    if (i + 1 < groups.size() && groups[i + 1].code == code + 10) slot.y = static_cast<long>(i + 1);
    if (slot.y >= 0 && i + 2 < groups.size() && groups[i + 2].code == code + 20) {
      slot.z = static_cast<long>(i + 2);
    }
    slots.push_back(slot);
  }
  return slots;
}

double number(const db::OwnedGroup& group) {
  return db::parseReal(group.value).value_or(0);
}

Vec3 readSlot(const Groups& groups, const PointSlot& slot, double z = 0) {
  return {number(groups[slot.x]), slot.y >= 0 ? number(groups[slot.y]) : 0,
          slot.z >= 0 ? number(groups[slot.z]) : z};
}

void writeSlot(Groups& groups, const PointSlot& slot, Vec3 p) {
  groups[slot.x].value = db::formatReal(p.x);
  if (slot.y >= 0) groups[slot.y].value = db::formatReal(p.y);
  if (slot.z >= 0) groups[slot.z].value = db::formatReal(p.z);
}

db::OwnedGroup* findGroup(Groups& groups, int code) {
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (group.code == code) return &group;
  }
  return nullptr;
}

// Sets a value, adding the group at the end of the entity's own groups when missing.
void putReal(Groups& groups, int code, double value) {
  if (db::OwnedGroup* group = findGroup(groups, code)) {
    group->value = db::formatReal(value);
    return;
  }
  auto end = groups.begin();
  while (end != groups.end() && end->code != 1001) ++end;
  groups.insert(end, {code, db::formatReal(value)});
}

void putPoint(Groups& groups, int code, Vec3 value) {
  std::vector<PointSlot> slots = pointSlots(groups, code);
  if (!slots.empty()) {
    writeSlot(groups, slots[0], value);
    return;
  }
  putReal(groups, code, value.x);
  putReal(groups, code + 10, value.y);
  putReal(groups, code + 20, value.z);
}

void scaleReals(Groups& groups, std::initializer_list<int> codes, double factor) {
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    for (int code : codes) {
      if (group.code == code) group.value = db::formatReal(number(group) * factor);
    }
  }
}

class MemberTransformer {
 public:
  MemberTransformer(const Affine3& map, double scale)
      : map_(map), scale_(scale), mirrored_(map.determinant() < 0) {}

  void transform(db::Record& record, std::span<db::Record* const> followers);

 private:
  Vec3 extrusion(Groups& groups) {
    std::vector<PointSlot> slots = pointSlots(groups, 210);
    return slots.empty() ? Vec3{0, 0, 1} : readSlot(groups, slots[0], 1);
  }
  void setExtrusion(Groups& groups, Vec3 normal) {
    if (!pointSlots(groups, 210).empty() || std::fabs(normal.z - 1) > 1e-12) {
      putPoint(groups, 210, normal);
    }
  }
  void worldPoints(Groups& groups, int code) {
    for (const PointSlot& slot : pointSlots(groups, code)) {
      writeSlot(groups, slot, map_.point(readSlot(groups, slot)));
    }
  }
  void worldVectors(Groups& groups, int code, bool unit) {
    for (const PointSlot& slot : pointSlots(groups, code)) {
      Vec3 v = map_.vector(readSlot(groups, slot));
      writeSlot(groups, slot, unit ? geom::normalized(v) : v);
    }
  }
  // Object-system points from the old system into the new one; returns the new map.
  void objectPoints(Groups& groups, int code, const Affine3& from, const Affine3& toInverse) {
    for (const PointSlot& slot : pointSlots(groups, code)) {
      writeSlot(groups, slot, toInverse.point(map_.point(from.point(readSlot(groups, slot)))));
    }
  }
  // The angle in the new object system of a direction given by angle in the old one.
  double angleAfter(double angle, const Affine3& from, const Affine3& toInverse) {
    Vec3 d = toInverse.vector(map_.vector(from.vector({std::cos(angle), std::sin(angle), 0})));
    return std::atan2(d.y, d.x);
  }

  void polyline(Groups& groups, std::span<db::Record* const> followers);

  Affine3 map_;
  double scale_;
  bool mirrored_;
};

void MemberTransformer::transform(db::Record& record, std::span<db::Record* const> followers) {
  std::string_view type = record.type();
  if (type == "POLYLINE") {
    Groups groups = record.ownedGroups();
    polyline(groups, followers);
    record.assign(std::move(groups));
    return;
  }
  // The rest is the general entity transform; a similarity keeps every kind its kind.
  TransformedEntity result;
  if (transformEntity(type, record.ownedGroups(), map_, result))
    record.assign(std::move(result.groups));
  if (type != "INSERT") return;
  for (db::Record* follower : followers) {
    if (follower->type() != "ATTRIB") break;
    if (transformEntity("ATTRIB", follower->ownedGroups(), map_, result)) {
      follower->assign(std::move(result.groups));
    }
  }
}

void MemberTransformer::polyline(Groups& groups, std::span<db::Record* const> followers) {
  long long flags =
      db::parseInteger(findGroup(groups, 70) ? findGroup(groups, 70)->value : "0").value_or(0);
  bool world = (flags & (8 | 16 | 64)) != 0;
  Vec3 normal = extrusion(groups);
  Vec3 newNormal = world ? normal : map_.normal(normal);
  Affine3 from = geom::objectToWorld(normal);
  Affine3 toInverse = geom::objectToWorld(newNormal).inverse();
  std::vector<PointSlot> own = pointSlots(groups, 10);
  double elevation = own.empty() ? 0 : readSlot(groups, own[0]).z;
  double newElevation = elevation;
  for (db::Record* follower : followers) {
    if (follower->type() != "VERTEX") break;
    Groups vertex = follower->ownedGroups();
    for (const PointSlot& slot : pointSlots(vertex, 10)) {
      Vec3 p = readSlot(vertex, slot);
      if (world) {
        writeSlot(vertex, slot, map_.point(p));
      } else {
        p.z = elevation;
        p = toInverse.point(map_.point(from.point(p)));
        newElevation = p.z;
        writeSlot(vertex, slot, p);
      }
    }
    if (!world) scaleReals(vertex, {40, 41}, scale_);
    follower->assign(std::move(vertex));
  }
  if (!world) {
    if (!own.empty()) writeSlot(groups, own[0], {0, 0, newElevation});
    scaleReals(groups, {39, 40, 41}, scale_);
    setExtrusion(groups, newNormal);
  }
}

// Where each record sits in its container, for the records that follow it.
std::unordered_map<db::Handle, std::span<db::Record* const>> followersOf(
    db::Database& database, const std::unordered_set<db::Handle>& wanted) {
  std::unordered_map<db::Handle, std::span<db::Record* const>> found;
  auto scan = [&](const std::vector<db::Record*>& records) {
    std::span<db::Record* const> all(records);
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
  double scale = 1;
  if (!korva::geom::Affine3::fromMatrix4(matrix, map) || !korva::geom::isSimilarity(map, scale))
    return RTERROR;
  korva::db::Database& database = document->database();
  std::vector<korva::db::Record*> records;
  std::unordered_set<korva::db::Handle> complex;
  for (korva::db::Handle handle : data->members) {
    korva::db::Record* record = database.lookup(handle);
    if (!record || record->isErased() || !isTransformable(record->type())) return RTERROR;
    records.push_back(record);
    if (record->type() == "INSERT" || record->type() == "POLYLINE") complex.insert(handle);
  }
  auto followers = followersOf(database, complex);
  MemberTransformer transformer(map, scale);
  for (korva::db::Record* record : records) {
    auto found = followers.find(record->handle());
    transformer.transform(
        *record, found == followers.end() ? std::span<korva::db::Record* const>() : found->second);
  }
  database.recordChanged();
  return RTNORM;
}
