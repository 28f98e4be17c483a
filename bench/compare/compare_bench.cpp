// Times -FCMP's work on two revisions of a large drawing: compare_bench [ENTITIES].
// The drawing mixes lines, circles, arcs, polylines and texts; the second revision
// moves, recolours, erases and adds a quarter of 1% of the entities each. The two files
// are written by a child process so that the peak memory is the comparison's own.
// Target: comparing and marking up take less time than reading the two files.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "compare/file_compare_manager.h"
#include "frame/host_interface.h"

namespace {

namespace fs = std::filesystem;

constexpr int kChangeStep = 400;  // a quarter of 1% for each of the four changes

QxDbBlockTableRecord* OpenModelSpace(QxDbDatabase& database) {
  QxDbObject* object = nullptr;
  qxdbOpenQxDbObject(object, database.currentSpaceId(), QxDb::kForWrite);
  return QxDbBlockTableRecord::cast(object);
}

QxDbEntity* MakeEntity(int i, double y) {
  const double x = i * 3.0;
  switch (i % 20) {
    case 0:
    case 1:
    case 2:
      return new QxDbCircle(QxGePoint3d(x, y, 0), QxGeVector3d::kZAxis, 1.0 + i % 7);
    case 3:
    case 4:
    case 5:
      return new QxDbArc(QxGePoint3d(x, y, 0), 2.0, 0.1 * (i % 9), 3.0);
    case 6:
    case 7:
    case 8: {
      auto* polyline = new QxDbPolyline(4);
      polyline->addVertexAt(0, QxGePoint2d(x, y), 0.0);
      polyline->addVertexAt(1, QxGePoint2d(x + 2, y), 0.5);
      polyline->addVertexAt(2, QxGePoint2d(x + 2, y + 4), 0.0);
      polyline->addVertexAt(3, QxGePoint2d(x, y + 4), 0.0);
      polyline->setClosed(true);
      return polyline;
    }
    case 9:
    case 10: {
      auto* text = new QxDbText(QxGePoint3d(x, y + 12, 0), (L"Room " + std::to_wstring(i)).c_str());
      text->setHeight(2.5);
      return text;
    }
    default:
      return new QxDbLine(QxGePoint3d(x, y, 0), QxGePoint3d(x, y + 10, 0));
  }
}

// Writes the two revisions; returns false when either can't be saved.
bool WriteRevisions(int count, const std::wstring& oldPath, const std::wstring& newPath) {
  std::vector<std::uint64_t> handles;
  {
    QxDbDatabase first(true, false);
    QxDbBlockTableRecord* space = OpenModelSpace(first);
    for (int i = 0; i < count; ++i) {
      QxDbEntity* entity = MakeEntity(i, 0);
      entity->setColorIndex(static_cast<std::uint16_t>(1 + i % 7));
      QxDbObjectId id;
      space->appendQxDbEntity(id, entity);
      handles.push_back(id.handle().value());
      entity->close();
    }
    space->close();
    if (first.saveAs(oldPath.c_str()) != Qxad::eOk) return false;
  }
  QxDbDatabase second(false, false);
  if (second.readDwgFile(oldPath.c_str()) != Qxad::eOk) return false;
  const std::uint64_t serial = second.currentSpaceId().databaseSerial();
  QxGeMatrix3d move;
  move.setToTranslation(QxGeVector3d(0, 0.5, 0));
  for (int i = 0; i + 2 < count; i += kChangeStep) {
    for (int change = 0; change < 3; ++change) {
      QxDbEntity* entity = nullptr;
      const auto id = QxDbObjectId::fromParts(serial, handles[i + change]);
      if (qxdbOpenQxDbEntity(entity, id, QxDb::kForWrite) != Qxad::eOk) continue;
      if (change == 0) entity->transformBy(move);
      if (change == 1) entity->setColorIndex(250);
      if (change == 2) entity->erase();
      entity->close();
    }
  }
  QxDbBlockTableRecord* space = OpenModelSpace(second);
  for (int i = 0; i < count; i += kChangeStep) {
    QxDbEntity* entity = MakeEntity(i, 50);
    space->appendQxDbEntity(entity);
    entity->close();
  }
  space->close();
  return second.saveAs(newPath.c_str()) == Qxad::eOk;
}

long PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 200000;
  const fs::path folder = fs::temp_directory_path() / ("compare_bench-" + std::to_string(getpid()));
  fs::remove_all(folder);
  fs::create_directories(folder / "user");
  setenv("TMPDIR", folder.c_str(), 1);
  const std::wstring oldPath = (folder / "user" / "plan.dxf").wstring();
  const std::wstring newPath = (folder / "user" / "plan-b.dxf").wstring();

  const pid_t writer = fork();
  if (writer == 0) _exit(WriteRevisions(count, oldPath, newPath) ? 0 : 1);
  int status = 1;
  waitpid(writer, &status, 0);
  if (writer < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "compare_bench: the two revisions could not be written\n");
    fs::remove_all(folder);
    return 1;
  }

  VnFileCompareManager manager;
  const bool compared = manager.CompareFiles(oldPath, newPath);
  const VnFileCompareManager::PhaseSeconds& seconds = manager.LastPhaseSeconds();
  std::printf("-FCMP on two drawings of %d entities: %s, %zu differences logged\n", count,
              compared ? "compared" : "FAILED", manager.Log().Records().size());
  std::printf(
      "processor time: reading both %.3f s, comparing and marking up %.3f s, saving both "
      "%.3f s; "
      "peak memory %ld MB\n",
      seconds.reading, seconds.comparing, seconds.saving, PeakMegabytes());
  if (seconds.reading > 0) {
    std::printf("comparing / reading = %.2f (target below 1)\n",
                seconds.comparing / seconds.reading);
  }
  fs::remove_all(folder);
  return compared ? 0 : 1;
}
