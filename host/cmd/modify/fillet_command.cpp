// FILLET: two lines or arcs joined by an arc of FILLETRAD tangent to both, or, with
// radius 0, extended or trimmed to a sharp corner. TRIMMODE 0 leaves the two as they
// are. The Polyline option rounds every straight corner of a lightweight polyline.
#include <optional>
#include <string>
#include <vector>

#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/modify/entity_paths.h"
#include "cmd/modify/modify_commands.h"
#include "cmd/modify/modify_input.h"
#include "geom/corner_fillet.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::modify {

// The plane geometry the commands cut, offset and round with.
using namespace geom;

namespace {

using drawing::askDistance;
using drawing::askKeyword;

struct Picked {
  HeldName name;
  Vec2 pick;
};

bool askRadius() {
  double radius = drawing::realVariable(L"FILLETRAD", 0);
  std::wstring prompt = L"\nSpecify fillet radius <" + drawing::distanceText(radius) + L">: ";
  Answer answer = askDistance(prompt.c_str(), std::nullopt, radius, {QXED_NO_NEGATIVE});
  if (answer.stop()) return false;
  if (answer.value()) drawing::setRealVariable(L"FILLETRAD", radius);
  return true;
}

bool askTrimMode() {
  bool trim = drawing::shortVariable(L"TRIMMODE", 1) == 1;
  Answer answer = askKeyword(trim ? L"\nEnter Trim mode option [Trim/No trim] <Trim>: "
                                  : L"\nEnter Trim mode option [Trim/No trim] <No trim>: ",
                             {0, L"Trim No _ Trim No"});
  if (answer.stop()) return false;
  if (!answer.enter()) drawing::setShortVariable(L"TRIMMODE", answer.is(L"Trim") ? 1 : 0);
  return true;
}

// A line or an arc: the kinds FILLET joins.
std::optional<EntityPath> filletable(const HeldName& name) {
  std::optional<EntityPath> shape = readEntityPath(name.data());
  if (!shape || (shape->kind != CurveKind::Line && shape->kind != CurveKind::Arc)) {
    return std::nullopt;
  }
  return shape;
}

void filletTwo(const Picked& first, const Picked& second) {
  if (first.name == second.name) {
    qxutPrintf(L"\nCannot fillet an object with itself.");
    return;
  }
  std::optional<EntityPath> firstShape = filletable(first.name);
  std::optional<EntityPath> secondShape = filletable(second.name);
  if (!firstShape || !secondShape) {
    qxutPrintf(L"\nCannot fillet that object: only lines and arcs.");
    return;
  }
  double radius = drawing::realVariable(L"FILLETRAD", 0);
  Fillet fillet = filletPieces(firstShape->path.pieces.front(), first.pick,
                               secondShape->path.pieces.front(), second.pick, radius);
  if (fillet.fault == FilletFault::NoCorner) {
    qxutPrintf(L"\nThe objects do not meet and cannot be filleted.");
    return;
  }
  if (fillet.fault == FilletFault::RadiusTooLarge) {
    qxutPrintf(L"\nRadius is too large.");
    return;
  }
  if (drawing::shortVariable(L"TRIMMODE", 1) == 1) {
    bool done = rewriteEntity(first.name.data(), *firstShape, PlanePath{{fillet.first}, false});
    done =
        rewriteEntity(second.name.data(), *secondShape, PlanePath{{fillet.second}, false}) && done;
    if (!done) qxutPrintf(L"\nAn object on a locked layer was not changed.");
  }
  if (fillet.arc) {
    EntityPath arcShape;
    arcShape.kind = CurveKind::Arc;
    arcShape.elevation = firstShape->elevation;
    EntityName made;
    addEntityLike(first.name.data(), arcShape, PlanePath{{*fillet.arc}, false}, made);
  }
}

void filletPolylineCorners(const HeldName& name) {
  std::optional<EntityPath> shape = readEntityPath(name.data());
  if (!shape || shape->kind != CurveKind::LightPolyline) {
    qxutPrintf(L"\nCannot fillet that object: not a lightweight polyline.");
    return;
  }
  const PlanePath& path = shape->path;
  std::vector<Vec2> points;
  std::vector<double> bulges;
  for (const Piece& piece : path.pieces) {
    points.push_back(piece.start);
    bulges.push_back(bulgeOf(piece));
  }
  if (!path.closed) {
    points.push_back(path.pieces.back().end);
    bulges.push_back(0);
  }
  PolylineFillet rounded =
      filletPolyline(points, bulges, path.closed, drawing::realVariable(L"FILLETRAD", 0));
  if (rounded.rounded > 0) {
    PlanePath changed;
    changed.closed = path.closed;
    size_t count = rounded.points.size();
    size_t segments = path.closed ? count : count - 1;
    for (size_t i = 0; i < segments; ++i) {
      changed.pieces.push_back(
          bulgePiece(rounded.points[i], rounded.points[(i + 1) % count], rounded.bulges[i]));
    }
    if (!rewriteEntity(name.data(), *shape, changed)) {
      qxutPrintf(L"\nThe polyline could not be changed.");
      return;
    }
  }
  qxutPrintf(L"\n%d %s filleted", rounded.rounded,
             rounded.rounded == 1 ? L"line was" : L"lines were");
  if (rounded.tooShort > 0) {
    qxutPrintf(L"\n%d %s too short", rounded.tooShort, rounded.tooShort == 1 ? L"was" : L"were");
  }
}

// What one round of prompts came to.
enum class Round { Done, Multiple, End };

Round filletOnce() {
  Picked first{};
  for (;;) {
    EntityName name;
    Answer answer = pickEntity(L"\nSelect first object or [Polyline/Radius/Trim/Multiple]: ",
                               L"Polyline Radius Trim Multiple _ Polyline Radius Trim Multiple",
                               name, first.pick);
    if (answer.stop() || answer.enter()) return Round::End;
    if (answer.is(L"Radius")) {
      if (!askRadius()) return Round::End;
    } else if (answer.is(L"Trim")) {
      if (!askTrimMode()) return Round::End;
    } else if (answer.is(L"Multiple")) {
      return Round::Multiple;
    } else if (answer.is(L"Polyline")) {
      Vec2 pick;
      Answer polyline = pickEntity(L"\nSelect 2D polyline: ", nullptr, name, pick);
      if (polyline.value()) filletPolylineCorners(held(name));
      return polyline.value() ? Round::Done : Round::End;
    } else if (answer.value()) {
      first.name = held(name);
      break;
    }
  }
  for (;;) {
    EntityName name;
    Picked second{};
    Answer answer =
        pickEntity(L"\nSelect second object or [Radius]: ", L"Radius _ Radius", name, second.pick);
    if (answer.stop() || answer.enter()) return Round::End;
    if (answer.is(L"Radius")) {
      if (!askRadius()) return Round::End;
      continue;
    }
    if (answer.value()) {
      second.name = held(name);
      filletTwo(first, second);
      return Round::Done;
    }
  }
}

}  // namespace

void filletCommand() {
  bool trim = drawing::shortVariable(L"TRIMMODE", 1) == 1;
  qxutPrintf(L"\nCurrent settings: Mode = %s, Radius = %s", trim ? L"TRIM" : L"NOTRIM",
             drawing::distanceText(drawing::realVariable(L"FILLETRAD", 0)).c_str());
  bool multiple = false;
  for (;;) {
    Round round = filletOnce();
    if (round == Round::End) return;
    if (round == Round::Multiple) {
      multiple = true;
    } else if (!multiple) {
      return;
    }
  }
}

}  // namespace korva::cmd::modify
