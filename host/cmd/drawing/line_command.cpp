// LINE: a chain of segments, each its own LINE entity, made as soon as its end is
// given so that the user sees it; Undo takes the last one back.
#include <vector>

#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/drawing/user_system.h"
#include "qx_db_curves.h"
#include "qx_entities.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

// EntityName is an array type: wrapped to be kept in a vector.
struct Segment {
  EntityName name;
};

bool drawSegment(const api::CoordinateSystem& user, Vec3 from, Vec3 to, EntityName name) {
  auto* line = new QxDbLine(toGePoint(user.toWorld(from)), toGePoint(user.toWorld(to)));
  if (!isWorldZ(user.zAxis)) line->setNormal(toGeVector(user.zAxis));
  return appendToCurrentSpace(line, name);
}

}  // namespace

void lineCommand() {
  api::CoordinateSystem user = currentUserSystem();
  Vec3 first;
  if (!askPoint(L"\nSpecify first point: ", std::nullopt, first).value()) return;
  rememberLastPoint(first);
  std::vector<Vec3> points{first};
  std::vector<Segment> segments;
  for (;;) {
    bool canClose = segments.size() >= 2;
    Vec3 next;
    Answer answer = askPoint(
        canClose ? L"\nSpecify next point or [Close/Undo]: " : L"\nSpecify next point or [Undo]: ",
        points.back(), next, {0, canClose ? L"Close Undo _ Close Undo" : L"Undo _ Undo"});
    if (answer.stop() || answer.enter()) return;
    if (answer.is(L"Undo")) {
      if (segments.empty()) {
        qxutPrintf(L"\nAll segments already undone.");
        continue;
      }
      qxdbEntDel(segments.back().name);
      segments.pop_back();
      points.pop_back();
      rememberLastPoint(points.back());
      continue;
    }
    bool closing = answer.is(L"Close");
    if (closing) {
      next = points.front();
    } else if (!answer.value()) {
      continue;
    }
    Segment segment;
    if (!drawSegment(user, points.back(), next, segment.name)) {
      qxutPrintf(L"\nThe line could not be added to the drawing.");
      return;
    }
    segments.push_back(segment);
    points.push_back(next);
    rememberLastPoint(next);
    if (closing) return;
  }
}

}  // namespace korva::cmd::drawing
