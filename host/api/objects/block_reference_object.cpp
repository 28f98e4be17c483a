// QxDbBlockReference and QxDbMInsertBlock over an INSERT record.
#include <cmath>
#include <numbers>

#include "api/record_places.h"
#include "block_pictures.h"
#include "db/handle.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "qx_db_block_reference.h"
#include "qx_db_object_iterator.h"
#include "qx_db_text.h"
#include "qx_ge.h"

namespace m = korva::api::members;
using korva::geom::Affine3;
using korva::geom::Vec3;

namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr std::string_view kReference = "AcDbBlockReference";
constexpr std::string_view kMInsert = "AcDbMInsertBlock";

bool hasMarker(const korva::db::Record& record, std::string_view marker) {
  for (const korva::db::Group& group : record.groups()) {
    if (group.code == 100 && group.value == marker) return true;
  }
  return false;
}

std::string_view partOf(const QxDbObject* reference) {
  return hasMarker(m::record(reference), kMInsert) ? kMInsert : kReference;
}

// Block coordinates to world coordinates for a reference's groups.
struct Placement {
  Vec3 position, normal{0, 0, 1}, scale{1, 1, 1};
  double rotation = 0;
};

Placement placementOf(const QxDbObject* reference) {
  std::string_view part = partOf(reference);
  Placement placement;
  placement.position = m::point(reference, 10, part);
  placement.normal = m::normal(reference, part);
  placement.scale = {m::real(reference, 41, 1, part), m::real(reference, 42, 1, part),
                     m::real(reference, 43, 1, part)};
  placement.rotation = m::real(reference, 50, 0, part) * kDegree;
  return placement;
}

QxDbObjectId blockRecordId(const QxDbObject* reference) {
  korva::db::Database* database = korva::api::databaseOf(*reference);
  std::optional<std::string_view> name = m::text(reference, 2, partOf(reference));
  if (!database || !name) return QxDbObjectId::kNull;
  korva::db::Record* record = database->tableEntry("BLOCK_RECORD", *name);
  return record ? korva::api::idOf(*database, *record) : QxDbObjectId::kNull;
}

QxDbObject* chooseInsertClass(const korva::db::Record& record) {
  bool grid = hasMarker(record, kMInsert) || korva::api::groupInteger(record, 70, 1) > 1 ||
              korva::api::groupInteger(record, 71, 1) > 1;
  return grid ? new QxDbMInsertBlock : nullptr;
}

}  // namespace

const QxRxClass* QxDbBlockReference::desc() {
  static const QxRxClass record(L"QxDbBlockReference", QxDbEntity::desc(), "INSERT");
  return &record;
}

static korva::api::ObjectClassRegistration referenceClass("INSERT", [] {
  return static_cast<QxDbObject*>(new QxDbBlockReference);
});
static korva::api::ObjectChooserRegistration gridClass("INSERT", chooseInsertClass);

QxDbBlockReference::QxDbBlockReference() : QxDbBlockReference("INSERT") {}

QxDbBlockReference::QxDbBlockReference(const char* dxfType) : QxDbEntity(dxfType) {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  korva::api::setGroupText(record, 2, "", kReference);
  korva::api::setGroupPoint(record, 10, origin, kReference);
}

QxDbBlockReference::QxDbBlockReference(const QxGePoint3d& position, QxDbObjectId blockId)
    : QxDbBlockReference() {
  setPosition(position);
  setBlockTableRecord(blockId);
}

QxDbObjectId QxDbBlockReference::blockTableRecord() const {
  return blockRecordId(this);
}

Qxad::ErrorStatus QxDbBlockReference::setBlockTableRecord(QxDbObjectId blockId) {
  korva::db::Database* owner = nullptr;
  korva::db::Record* block = korva::api::recordOf(blockId, &owner);
  if (!block || block->type() != "BLOCK_RECORD") return Qxad::eInvalidInput;
  korva::db::Database* database = korva::api::databaseOf(*this);
  if (database && database != owner) return Qxad::eInvalidInput;
  return m::setText(this, 2, block->find(2).value_or(""), partOf(this));
}

QxGePoint3d QxDbBlockReference::position() const {
  return m::toPoint(korva::geom::objectToWorld(m::normal(this, partOf(this)))
                        .point(m::point(this, 10, partOf(this))));
}

Qxad::ErrorStatus QxDbBlockReference::setPosition(const QxGePoint3d& position) {
  Affine3 toObject = korva::geom::objectToWorld(m::normal(this, partOf(this))).inverse();
  return m::setPoint(this, 10, toObject.point(m::fromPoint(position)), partOf(this));
}

double QxDbBlockReference::rotation() const {
  return m::real(this, 50, 0, partOf(this)) * kDegree;
}
Qxad::ErrorStatus QxDbBlockReference::setRotation(double angle) {
  return m::setReal(this, 50, angle / kDegree, partOf(this));
}

QxGeScale3d QxDbBlockReference::scaleFactors() const {
  Placement placement = placementOf(this);
  return QxGeScale3d(placement.scale.x, placement.scale.y, placement.scale.z);
}

Qxad::ErrorStatus QxDbBlockReference::setScaleFactors(const QxGeScale3d& scale) {
  if (scale.sx == 0 || scale.sy == 0 || scale.sz == 0) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = m::setReal(this, 41, scale.sx, partOf(this));
      status != Qxad::eOk) {
    return status;
  }
  m::setReal(this, 42, scale.sy, partOf(this));
  return m::setReal(this, 43, scale.sz, partOf(this));
}

QxGeVector3d QxDbBlockReference::normal() const {
  return m::toVector(m::normal(this, partOf(this)));
}

Qxad::ErrorStatus QxDbBlockReference::setNormal(const QxGeVector3d& normal) {
  Vec3 n = m::fromVector(normal);
  if (korva::geom::length(n) == 0) return Qxad::eInvalidInput;
  QxGePoint3d keep = position();  // the world position stays
  Qxad::ErrorStatus status = m::setPoint(this, 210, korva::geom::normalized(n), partOf(this));
  return status == Qxad::eOk ? setPosition(keep) : status;
}

QxGeMatrix3d QxDbBlockReference::blockTransform() const {
  Vec3 base;
  if (korva::db::Database* database = korva::api::databaseOf(*this)) {
    if (korva::db::BlockDefinition* block =
            database->block(m::text(this, 2, partOf(this)).value_or(""))) {
      base = korva::api::basePointOf(*block);
    }
  }
  Placement placement = placementOf(this);
  Affine3 map = korva::api::blockToWorld(placement.position, placement.normal, placement.scale,
                                         placement.rotation, base);
  QxGeMatrix3d matrix;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) matrix.entry[row][column] = map.m[row][column];
  }
  matrix.entry[0][3] = map.offset.x;
  matrix.entry[1][3] = map.offset.y;
  matrix.entry[2][3] = map.offset.z;
  matrix.entry[3][0] = matrix.entry[3][1] = matrix.entry[3][2] = 0;
  matrix.entry[3][3] = 1;
  return matrix;
}

QxDbObjectIterator* QxDbBlockReference::attributeIterator() const {
  std::vector<QxDbObjectId> ids;
  korva::db::Database* database = korva::api::databaseOf(*this);
  if (database) {
    korva::api::EntityPlace place = korva::api::placeOf(*database, m::record(this));
    if (place.list) {
      for (size_t i = place.index + 1; i < place.list->size(); ++i) {
        korva::db::Record* follower = (*place.list)[i];
        if (follower->type() != "ATTRIB") break;
        ids.push_back(korva::api::idOf(*database, *follower));
      }
    }
  }
  return new QxDbObjectIterator(std::move(ids));
}

Qxad::ErrorStatus QxDbBlockReference::appendAttribute(QxDbObjectId& id, QxDbAttribute* attribute) {
  id = QxDbObjectId::kNull;
  if (!attribute || !attribute->isNewObject()) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::db::Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  korva::db::Record& self = m::record(this);
  korva::api::EntityPlace place = korva::api::placeOf(*database, self);
  if (!place.list) return Qxad::eNotInDatabase;
  size_t at = place.index + 1;
  while (at < place.list->size() && (*place.list)[at]->type() == "ATTRIB") ++at;
  std::string owner = korva::db::formatHandle(self.handle());
  std::string layer(m::text(this, 8, "AcDbEntity").value_or("0"));
  if (at >= place.list->size() || (*place.list)[at]->type() != "SEQEND") {
    korva::db::Record* end =
        database->newRecord("SEQEND", {{330, owner}, {100, "AcDbEntity"}, {8, layer}});
    place.list->insert(place.list->begin() + static_cast<long>(at), end);
  }
  std::vector<korva::db::OwnedGroup> groups = m::record(attribute).ownedGroups();
  groups.insert(groups.begin(), {330, owner});
  korva::db::Record* made = database->newRecord("ATTRIB", std::move(groups));
  place.list->insert(place.list->begin() + static_cast<long>(at), made);
  m::setInteger(this, 66, 1, partOf(this));
  korva::api::bindNewObject(*attribute, *database, *made);
  id = korva::api::idOf(*database, *made);
  return Qxad::eOk;
}

// ---- Multiple inserts

const QxRxClass* QxDbMInsertBlock::desc() {
  static const QxRxClass record(L"QxDbMInsertBlock", QxDbBlockReference::desc(), "INSERT");
  return &record;
}

QxDbMInsertBlock::QxDbMInsertBlock() : QxDbBlockReference("INSERT") {
  // Its groups live behind the multiple-insert marker instead.
  korva::db::Record& record = m::record(this);
  std::vector<korva::db::OwnedGroup> groups = record.ownedGroups();
  for (korva::db::OwnedGroup& group : groups) {
    if (group.code == 100 && group.value == kReference) group.value = kMInsert;
  }
  record.assign(std::move(groups));
  korva::api::setGroupInteger(record, 70, 1, kMInsert);
  korva::api::setGroupInteger(record, 71, 1, kMInsert);
}

QxDbMInsertBlock::QxDbMInsertBlock(const QxGePoint3d& position, QxDbObjectId blockId, int columns,
                                   int rows, double columnSpacing, double rowSpacing)
    : QxDbMInsertBlock() {
  setPosition(position);
  setBlockTableRecord(blockId);
  setColumns(columns);
  setRows(rows);
  setColumnSpacing(columnSpacing);
  setRowSpacing(rowSpacing);
}

int QxDbMInsertBlock::columns() const {
  return static_cast<int>(m::integer(this, 70, 1, partOf(this)));
}
Qxad::ErrorStatus QxDbMInsertBlock::setColumns(int count) {
  if (count < 1) return Qxad::eInvalidInput;
  return m::setInteger(this, 70, count, partOf(this));
}
int QxDbMInsertBlock::rows() const {
  return static_cast<int>(m::integer(this, 71, 1, partOf(this)));
}
Qxad::ErrorStatus QxDbMInsertBlock::setRows(int count) {
  if (count < 1) return Qxad::eInvalidInput;
  return m::setInteger(this, 71, count, partOf(this));
}
double QxDbMInsertBlock::columnSpacing() const {
  return m::real(this, 44, 0, partOf(this));
}
Qxad::ErrorStatus QxDbMInsertBlock::setColumnSpacing(double spacing) {
  return m::setReal(this, 44, spacing, partOf(this));
}
double QxDbMInsertBlock::rowSpacing() const {
  return m::real(this, 45, 0, partOf(this));
}
Qxad::ErrorStatus QxDbMInsertBlock::setRowSpacing(double spacing) {
  return m::setReal(this, 45, spacing, partOf(this));
}
