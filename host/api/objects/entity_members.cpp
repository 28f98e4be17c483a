#include "entity_members.h"

#include "db/handle.h"
#include "db/value_text.h"
#include "qx_ge.h"
#include "qx_memory.h"

namespace korva::api::members {

namespace {

// Records written without subclass markers (before R13) hold every group in one part.
std::string_view partIn(const db::Record& r, std::string_view subclass) {
  if (subclass.empty()) return subclass;
  for (const db::Group& group : r.groups()) {
    if (group.code == 100 && group.value == subclass) return subclass;
  }
  for (const db::Group& group : r.groups()) {
    if (group.code == 100) return subclass;  // has markers, just not this one: add it
  }
  return {};
}

}  // namespace

std::string_view part(const QxDbObject* object, std::string_view subclass) {
  return partIn(record(object), subclass);
}

Vec3 point(const QxDbObject* object, int code, std::string_view subclass, Vec3 fallback,
           int occurrence) {
  double p[3];
  if (!groupPoint(record(object), code, p, subclass, occurrence, true)) return fallback;
  return {p[0], p[1], p[2]};
}

double real(const QxDbObject* object, int code, double fallback, std::string_view subclass,
            int occurrence) {
  std::optional<std::string_view> value =
      groupText(record(object), code, subclass, occurrence, true);
  return value ? db::parseReal(*value).value_or(fallback) : fallback;
}

long long integer(const QxDbObject* object, int code, long long fallback, std::string_view subclass,
                  int occurrence) {
  std::optional<std::string_view> value =
      groupText(record(object), code, subclass, occurrence, true);
  return value ? db::parseInteger(*value).value_or(fallback) : fallback;
}

std::optional<std::string_view> text(const QxDbObject* object, int code, std::string_view subclass,
                                     int occurrence) {
  return groupText(record(object), code, subclass, occurrence, true);
}

std::wstring wide(const QxDbObject* object, std::string_view drawingText) {
  return wideText(databaseOf(*object), drawingText);
}

std::string drawing(const QxDbObject* object, const wchar_t* wideText) {
  return drawingText(databaseOf(*object), wideText ? wideText : L"");
}

wchar_t* newWide(const QxDbObject* object, int code, std::string_view subclass) {
  std::wstring value = wide(object, text(object, code, subclass).value_or(""));
  return qxutNewString(value.c_str());
}

Vec3 normal(const QxDbObject* object, std::string_view subclass) {
  Vec3 n = point(object, 210, subclass, {0, 0, 1});
  return geom::length(n) > 0 ? geom::normalized(n) : Vec3{0, 0, 1};
}

void changed(QxDbObject* object) {
  if (db::Database* database = databaseOf(*object)) database->recordChanged();
}

namespace {

// Runs a write after the write check, then marks the change.
template <typename Write>
Qxad::ErrorStatus writeWith(QxDbObject* object, Write write) {
  if (Qxad::ErrorStatus status = object->assertWriteEnabled(); status != Qxad::eOk) return status;
  if (isScratchRecord(record(object))) return Qxad::eOk;  // a default the record replaces
  write(record(object));
  changed(object);
  return Qxad::eOk;
}

}  // namespace

Qxad::ErrorStatus setPoint(QxDbObject* object, int code, Vec3 value, std::string_view subclass) {
  return writeWith(object, [&](db::Record& r) {
    const double p[3] = {value.x, value.y, value.z};
    setGroupPoint(r, code, p, partIn(r, subclass));
  });
}

Qxad::ErrorStatus setReal(QxDbObject* object, int code, double value, std::string_view subclass) {
  return writeWith(object,
                   [&](db::Record& r) { setGroupReal(r, code, value, partIn(r, subclass)); });
}

Qxad::ErrorStatus setInteger(QxDbObject* object, int code, long long value,
                             std::string_view subclass) {
  return writeWith(object,
                   [&](db::Record& r) { setGroupInteger(r, code, value, partIn(r, subclass)); });
}

Qxad::ErrorStatus setText(QxDbObject* object, int code, std::string_view value,
                          std::string_view subclass) {
  return writeWith(object,
                   [&](db::Record& r) { setGroupText(r, code, value, partIn(r, subclass)); });
}

Qxad::ErrorStatus setFlag(QxDbObject* object, int code, long long bit, bool on,
                          std::string_view subclass) {
  long long flags = integer(object, code, 0, subclass);
  return setInteger(object, code, on ? (flags | bit) : (flags & ~bit), subclass);
}

QxDbObjectId reference(const QxDbObject* object, int code, std::string_view subclass,
                       int occurrence) {
  db::Database* database = databaseOf(*object);
  std::optional<std::string_view> value = text(object, code, subclass, occurrence);
  if (!database || !value) return QxDbObjectId::kNull;
  std::optional<db::Handle> handle = db::parseHandle(*value);
  if (!handle || *handle == 0) return QxDbObjectId::kNull;
  return QxDbObjectId::fromParts(database->serial(), *handle);
}

QxDbObjectId tableEntryId(const QxDbObject* object, std::string_view table, int code,
                          std::string_view subclass, std::string_view fallback) {
  db::Database* database = databaseOf(*object);
  if (!database) return QxDbObjectId::kNull;
  std::string_view name = text(object, code, subclass).value_or(fallback);
  if (name.empty()) name = fallback;
  db::Record* entry = database->tableEntry(table, name);
  return entry ? idOf(*database, *entry) : QxDbObjectId::kNull;
}

std::optional<std::string> tableEntryName(const QxDbObject* object, QxDbObjectId id) {
  db::Database* owner = nullptr;
  db::Record* entry = recordOf(id, &owner);
  // A new object takes names from any drawing; one in a drawing only from its own.
  if (!entry || (databaseOf(*object) && owner != databaseOf(*object))) return std::nullopt;
  std::optional<std::string_view> name = entry->find(2);
  if (!name) return std::nullopt;
  return std::string(*name);
}

QxGePoint3d toPoint(Vec3 v) {
  return QxGePoint3d(v.x, v.y, v.z);
}
QxGeVector3d toVector(Vec3 v) {
  return QxGeVector3d(v.x, v.y, v.z);
}
Vec3 fromPoint(const QxGePoint3d& p) {
  return {p.x, p.y, p.z};
}
Vec3 fromVector(const QxGeVector3d& v) {
  return {v.x, v.y, v.z};
}

}  // namespace korva::api::members
