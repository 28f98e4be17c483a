#include "cmd/drawing/ucs_state.h"

#include <cmath>
#include <map>

#include "api/coordinate_systems.h"
#include "api/document.h"
#include "api/utf8.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/entity_geometry.h"
#include "db/value_text.h"
#include "qx_db_database.h"
#include "qx_memory.h"
#include "qx_util.h"

namespace korva::cmd::drawing {

namespace {

using geom::Vec3;

// The systems replaced by UCS, newest last, per open drawing; as many as a user goes
// back through.
constexpr size_t kPreviousKept = 10;

std::vector<UserSystem>& previousSystems() {
  static std::map<std::uint64_t, std::vector<UserSystem>> kept;
  api::Document* document = api::DocumentList::instance().current();
  return kept[document ? document->serial() : 0];
}

bool nearlyEqual(Vec3 a, Vec3 b) {
  return geom::length(a - b) < 1e-12;
}

// Axes computed with sines and cosines carry noise such as 6e-17 where a zero belongs.
Vec3 withoutNoise(Vec3 axis) {
  auto clean = [](double value) { return std::fabs(value) < 1e-14 ? 0.0 : value; };
  return {clean(axis.x), clean(axis.y), clean(axis.z)};
}

std::vector<db::OwnedGroup> pointGroups(Vec3 point) {
  return {
      {10, db::formatReal(point.x)}, {20, db::formatReal(point.y)}, {30, db::formatReal(point.z)}};
}

// Paper space keeps its own user system in the $PUCS variables.
void writeSystem(const UserSystem& system) {
  db::Database* database = api::currentDatabase();
  if (!database) return;
  if (api::inPaperSpace(*database)) {
    database->setHeaderVariable("$PUCSORG", pointGroups(system.origin));
    database->setHeaderVariable("$PUCSXDIR", pointGroups(system.xAxis));
    database->setHeaderVariable("$PUCSYDIR", pointGroups(system.yAxis));
    database->setHeaderVariable("$PUCSNAME", {{2, api::toUtf8(system.name)}});
    return;
  }
  hostSetPoint("UCSORG", system.origin);
  hostSetPoint("UCSXDIR", system.xAxis);
  hostSetPoint("UCSYDIR", system.yAxis);
  hostSetString("UCSNAME", system.name);
}

std::wstring recordName(const QxDbSymbolTableRecord& record) {
  wchar_t* name = nullptr;
  if (record.getName(name) != Qxad::eOk || !name) return {};
  std::wstring text = name;
  qxad_free(name);
  return text;
}

UserSystem systemOf(const QxDbUCSTableRecord& record) {
  UserSystem system;
  system.origin = fromGe(record.origin());
  system.xAxis = fromGe(record.xAxis());
  system.yAxis = fromGe(record.yAxis());
  system.name = recordName(record);
  return system;
}

QxDbUCSTable* openTable(int mode) {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  QxDbUCSTable* table = nullptr;
  if (!database || database->getSymbolTable(table, mode) != Qxad::eOk) return nullptr;
  return table;
}

// Visits the table's records in order, each open as `mode` for the call.
template <typename Visit>
void forEachRecord(int mode, Visit&& visit) {
  QxDbUCSTable* table = openTable(QxDb::kForRead);
  if (!table) return;
  QxDbUCSTableIterator* iterator = nullptr;
  if (table->newIterator(iterator) == Qxad::eOk) {
    for (; !iterator->done(); iterator->step()) {
      QxDbUCSTableRecord* record = nullptr;
      if (iterator->getRecord(record, mode) != Qxad::eOk) continue;
      visit(*record);
      record->close();
    }
    delete iterator;
  }
  table->close();
}

bool matches(const std::wstring& name, const std::wstring& pattern) {
  return qxutWcMatch(upperText(name).c_str(), upperText(pattern).c_str()) == RTNORM;
}

}  // namespace

bool UserSystem::isWorld() const {
  return nearlyEqual(origin, {}) && nearlyEqual(xAxis, {1, 0, 0}) && nearlyEqual(yAxis, {0, 1, 0});
}

Vec3 UserSystem::zAxis() const {
  return geom::normalized(geom::cross(xAxis, yAxis));
}

std::optional<UserSystem> systemFromAxes(Vec3 origin, Vec3 xDirection, Vec3 inPlaneDirection) {
  Vec3 x = geom::normalized(xDirection);
  Vec3 z = geom::cross(x, geom::normalized(inPlaneDirection));
  if (geom::length(x) == 0 || geom::length(z) < 1e-10) return std::nullopt;
  z = geom::normalized(z);
  UserSystem system;
  system.origin = origin;
  system.xAxis = withoutNoise(x);
  system.yAxis = withoutNoise(geom::normalized(geom::cross(z, x)));
  return system;
}

UserSystem currentSystem() {
  UserSystem system;
  db::Database* database = api::currentDatabase();
  if (!database) return system;
  api::CoordinateSystem current = api::currentUcs(*database);
  system.origin = current.origin;
  system.xAxis = current.xAxis;
  system.yAxis = current.yAxis;
  if (api::inPaperSpace(*database)) {
    system.name = api::fromUtf8(database->headerValue("$PUCSNAME", 2).value_or(""));
  } else {
    system.name = stringVariable(L"UCSNAME");
  }
  return system;
}

std::wstring displayName(const UserSystem& system) {
  if (!system.name.empty()) return system.name;
  return system.isWorld() ? L"*WORLD*" : L"*NO NAME*";
}

void makeCurrent(const UserSystem& system) {
  std::vector<UserSystem>& previous = previousSystems();
  previous.push_back(currentSystem());
  if (previous.size() > kPreviousKept) previous.erase(previous.begin());
  writeSystem(system);
}

bool restorePrevious() {
  std::vector<UserSystem>& previous = previousSystems();
  if (previous.empty()) return false;
  writeSystem(previous.back());
  previous.pop_back();
  return true;
}

void setCurrentName(const std::wstring& name) {
  UserSystem system = currentSystem();
  system.name = name;
  writeSystem(system);
}

std::optional<UserSystem> findNamedSystem(const std::wstring& name) {
  QxDbUCSTable* table = openTable(QxDb::kForRead);
  if (!table) return std::nullopt;
  std::optional<UserSystem> found;
  QxDbUCSTableRecord* record = nullptr;
  if (table->getAt(name.c_str(), record, QxDb::kForRead) == Qxad::eOk) {
    found = systemOf(*record);
    record->close();
  }
  table->close();
  return found;
}

bool saveNamedSystem(const UserSystem& system) {
  QxDbUCSTable* table = openTable(QxDb::kForWrite);
  if (!table) return false;
  QxDbUCSTableRecord* record = nullptr;
  if (table->getAt(system.name.c_str(), record, QxDb::kForWrite) != Qxad::eOk) {
    record = new QxDbUCSTableRecord();
    if (record->setName(system.name.c_str()) != Qxad::eOk || table->add(record) != Qxad::eOk) {
      delete record;
      table->close();
      return false;
    }
  }
  record->setOrigin(toGePoint(system.origin));
  record->setXAxis(toGeVector(system.xAxis));
  record->setYAxis(toGeVector(system.yAxis));
  record->close();
  table->close();
  return true;
}

std::vector<UserSystem> namedSystemsMatching(const std::wstring& pattern) {
  std::vector<UserSystem> found;
  forEachRecord(QxDb::kForRead, [&](QxDbUCSTableRecord& record) {
    UserSystem system = systemOf(record);
    if (matches(system.name, pattern)) found.push_back(system);
  });
  return found;
}

int deleteNamedSystems(const std::wstring& pattern) {
  int count = 0;
  forEachRecord(QxDb::kForWrite, [&](QxDbUCSTableRecord& record) {
    if (matches(recordName(record), pattern) && record.erase() == Qxad::eOk) ++count;
  });
  return count;
}

}  // namespace korva::cmd::drawing
