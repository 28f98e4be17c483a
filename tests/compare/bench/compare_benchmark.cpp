// Times a comparison of two revisions of a large drawing: compare_benchmark [ENTITIES].
// The second revision moves, recolours, erases and adds a quarter of 1% of the entities
// each. Reading is timed on its own; comparing and saving is the rest of the run.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "compare/file_compare_manager.h"
#include "frame/host_interface.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

long PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

QxDbBlockTableRecord* OpenModelSpace(QxDbDatabase& database) {
  QxDbObject* object = nullptr;
  qxdbOpenQxDbObject(object, database.currentSpaceId(), QxDb::kForWrite);
  return QxDbBlockTableRecord::cast(object);
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 200000;
  const fs::path folder = fs::temp_directory_path() / "compare_benchmark";
  fs::remove_all(folder);
  fs::create_directories(folder / "user");
  setenv("TMPDIR", folder.c_str(), 1);
  const std::wstring oldPath = (folder / "user" / "big.dxf").wstring();
  const std::wstring newPath = (folder / "user" / "big-b.dxf").wstring();

  std::vector<std::uint64_t> handles;
  {
    QxDbDatabase first(true, false);
    QxDbBlockTableRecord* space = OpenModelSpace(first);
    for (int i = 0; i < count; ++i) {
      auto* line = new QxDbLine(QxGePoint3d(i, 0, 0), QxGePoint3d(i, 10, 0));
      QxDbObjectId id;
      space->appendQxDbEntity(id, line);
      handles.push_back(id.handle().value());
      line->close();
    }
    space->close();
    first.saveAs(oldPath.c_str());
  }
  {
    QxDbDatabase second(false, false);
    second.readDwgFile(oldPath.c_str());
    const std::uint64_t serial = second.currentSpaceId().databaseSerial();
    const int step = 400;  // a quarter of 1% for each of the four changes
    for (int i = 0; i < count; i += step) {
      for (int change = 0; change < 3; ++change) {
        QxDbEntity* entity = nullptr;
        const auto id = QxDbObjectId::fromParts(serial, handles[i + change]);
        if (qxdbOpenQxDbEntity(entity, id, QxDb::kForWrite) != Qxad::eOk) continue;
        if (change == 0) static_cast<QxDbLine*>(entity)->setEndPoint(QxGePoint3d(i, 20, 0));
        if (change == 1) entity->setColorIndex(1);
        if (change == 2) entity->erase();
        entity->close();
      }
    }
    QxDbBlockTableRecord* space = OpenModelSpace(second);
    for (int i = 0; i < count; i += step) {
      auto* line = new QxDbLine(QxGePoint3d(i, 50, 0), QxGePoint3d(i, 60, 0));
      space->appendQxDbEntity(line);
      line->close();
    }
    space->close();
    second.saveAs(newPath.c_str());
  }

  Clock::time_point start = Clock::now();
  {
    QxDbDatabase oldCopy(false, false);
    QxDbDatabase newCopy(false, false);
    oldCopy.readDwgFile(oldPath.c_str());
    newCopy.readDwgFile(newPath.c_str());
  }
  const double reading = SecondsSince(start);

  start = Clock::now();
  VnFileCompareManager manager;
  const bool compared = manager.CompareFiles(oldPath, newPath);
  const double whole = SecondsSince(start);
  std::printf("entities %d, compared %s, differences logged %zu\n", count,
              compared ? "yes" : "no", manager.Log().Records().size());
  std::printf("reading both files %.2f s, whole comparison %.2f s, comparing and saving "
              "%.2f s, peak memory %ld MB\n",
              reading, whole, whole - reading, PeakMegabytes());
  fs::remove_all(folder);
  return compared ? 0 : 1;
}
