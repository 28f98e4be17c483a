// PLINE: one lightweight polyline of straight and arc segments with widths, in the
// X-Y plane of the user system at the start point's elevation.
#include <cmath>
#include <string>

#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/drawing/polyline_path.h"
#include "cmd/drawing/user_system.h"
#include "qx_db_polylines.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

enum class Step { Go, Finish };

// Bulges beyond this describe arcs too close to a full circle to draw.
constexpr double kLargestBulge = 1e6;

class PolylineSession {
 public:
  PolylineSession(Vec3 start, const api::CoordinateSystem& user)
      : user_(user), elevation_(start.z), path_(flat(start)) {
    startWidth_ = endWidth_ = realVariable(L"PLINEWID", 0);
  }

  void run() {
    qxutPrintf(L"\nCurrent line-width is %s", distanceText(startWidth_).c_str());
    while ((arcMode_ ? arcStep() : lineStep()) == Step::Go) {
    }
    finish();
  }

 private:
  Vec3 last3() const { return {path_.last().x, path_.last().y, elevation_}; }

  Step lineStep() {
    bool canClose = path_.segmentCount() >= 2;
    Vec3 point;
    Answer answer = askPoint(
        canClose ? L"\nSpecify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: "
                 : L"\nSpecify next point or [Arc/Halfwidth/Length/Undo/Width]: ",
        last3(), point,
        {0, canClose
                ? L"Arc Close Halfwidth Length Undo Width _ Arc Close Halfwidth Length Undo Width"
                : L"Arc Halfwidth Length Undo Width _ Arc Halfwidth Length Undo Width"});
    if (answer.stop() || answer.enter()) return Step::Finish;
    if (answer.value()) {
      addSegment(flat(point), 0);
    } else if (answer.is(L"Arc")) {
      arcMode_ = true;
    } else if (answer.is(L"Close")) {
      path_.closeWithLine(startWidth_, endWidth_);
      return Step::Finish;
    } else if (answer.is(L"Length")) {
      double length = 0;
      if (!askDistance(L"\nSpecify length of line: ", last3(), length,
                       {QXED_NO_NULL | QXED_NO_NEGATIVE})
               .value()) {
        return Step::Finish;
      }
      addSegment(path_.last() + path_.tangent() * length, 0);
    } else {
      return commonOption(answer);
    }
    return Step::Go;
  }

  Step arcStep() {
    bool canClose = path_.segmentCount() >= 1;
    Vec3 point;
    Answer answer = askPoint(
        canClose ? L"\nSpecify end point of arc or\n[Angle/CEnter/CLose/Direction/Halfwidth/Line/"
                   L"Radius/Second pt/Undo/Width]: "
                 : L"\nSpecify end point of arc or\n[Angle/CEnter/Direction/Halfwidth/Line/Radius/"
                   L"Second pt/Undo/Width]: ",
        last3(), point,
        {0, canClose ? L"Angle CEnter CLose Direction Halfwidth Line Radius Second Undo Width _ "
                       L"Angle CEnter CLose Direction Halfwidth Line Radius Second Undo Width"
                     : L"Angle CEnter Direction Halfwidth Line Radius Second Undo Width _ "
                       L"Angle CEnter Direction Halfwidth Line Radius Second Undo Width"});
    if (answer.stop() || answer.enter()) return Step::Finish;
    if (answer.value()) {
      // A point straight behind would need a whole circle: no arc reaches it.
      double bulge = bulgeFromTangent(path_.tangent(), path_.last(), flat(point));
      if (std::fabs(bulge) > kLargestBulge) {
        qxutPrintf(L"\nNo arc fits the points given.");
      } else {
        addSegment(flat(point), bulge);
      }
    } else if (answer.is(L"Line")) {
      arcMode_ = false;
    } else if (answer.is(L"CLose")) {
      path_.closeWithArc(startWidth_, endWidth_);
      return Step::Finish;
    } else if (answer.is(L"Angle")) {
      return arcByAngle();
    } else if (answer.is(L"CEnter")) {
      return arcByCenter();
    } else if (answer.is(L"Direction")) {
      return arcByDirection();
    } else if (answer.is(L"Radius")) {
      return arcByRadius();
    } else if (answer.is(L"Second")) {
      return arcBySecondPoint();
    } else {
      return commonOption(answer);
    }
    return Step::Go;
  }

  Step arcByAngle() {
    double included = 0;
    Vec3 end;
    if (!askSignedAngle(L"\nSpecify included angle: ", included).value() ||
        !askPoint(L"\nSpecify end point of arc: ", last3(), end, {QXED_NO_NULL}).value()) {
      return Step::Finish;
    }
    addSegment(flat(end), bulgeOfSweep(included));
    return Step::Go;
  }

  Step arcByCenter() {
    Vec3 center, toward;
    if (!askPoint(L"\nSpecify center point of arc: ", last3(), center, {QXED_NO_NULL}).value()) {
      return Step::Finish;
    }
    Answer answer = askPoint(L"\nSpecify end point of arc or [Angle/Length]: ", center, toward,
                             {QXED_NO_NULL, L"Angle Length _ Angle Length"});
    if (answer.stop()) return Step::Finish;
    std::optional<PlaneArc> arc;
    if (answer.is(L"Angle")) {
      double included = 0;
      if (!askSignedAngle(L"\nSpecify included angle: ", included).value()) return Step::Finish;
      arc = arcFromStartCenterAngle(path_.last(), flat(center), included);
    } else if (answer.is(L"Length")) {
      double chord = 0;
      if (!askDistance(L"\nSpecify length of chord: ", last3(), chord, {QXED_NO_NULL}).value()) {
        return Step::Finish;
      }
      arc = arcFromStartCenterChord(path_.last(), flat(center), chord);
    } else {
      arc = arcFromStartCenterToward(path_.last(), flat(center), flat(toward));
    }
    return addDirectedArc(arc);
  }

  Step arcByDirection() {
    double direction = 0;
    Vec3 end;
    if (!askOrientation(L"\nSpecify the tangent direction for the start point of arc: ", last3(),
                        direction, {QXED_NO_NULL})
             .value() ||
        !askPoint(L"\nSpecify end point of the arc: ", last3(), end, {QXED_NO_NULL}).value()) {
      return Step::Finish;
    }
    addSegment(flat(end), bulgeFromTangent({std::cos(direction), std::sin(direction)}, path_.last(),
                                           flat(end)));
    return Step::Go;
  }

  Step arcByRadius() {
    double radius = 0;
    Vec3 end;
    if (!askDistance(L"\nSpecify radius of arc: ", last3(), radius, {QXED_NO_NULL | QXED_NO_ZERO})
             .value() ||
        !askPoint(L"\nSpecify end point of arc: ", last3(), end, {QXED_NO_NULL}).value()) {
      return Step::Finish;
    }
    return addDirectedArc(arcFromStartEndRadius(path_.last(), flat(end), radius));
  }

  Step arcBySecondPoint() {
    Vec3 second, end;
    if (!askPoint(L"\nSpecify second point on arc: ", last3(), second, {QXED_NO_NULL}).value() ||
        !askPoint(L"\nSpecify end point of arc: ", second, end, {QXED_NO_NULL}).value()) {
      return Step::Finish;
    }
    return addDirectedArc(arcThroughPoints(path_.last(), flat(second), flat(end)));
  }

  Step addDirectedArc(const std::optional<PlaneArc>& arc) {
    if (!arc) {
      qxutPrintf(L"\nNo arc fits the points given.");
      return Step::Go;
    }
    DirectedArc directed = directedFrom(*arc, path_.last());
    addSegment(directed.end, bulgeOfSweep(directed.sweep));
    return Step::Go;
  }

  // Width, Halfwidth and Undo, offered in both modes.
  Step commonOption(const Answer& answer) {
    if (answer.is(L"Undo")) {
      if (!path_.undo()) qxutPrintf(L"\nAll segments already undone.");
      return Step::Go;
    }
    bool half = answer.is(L"Halfwidth");
    if (!half && !answer.is(L"Width")) return Step::Go;
    double factor = half ? 0.5 : 1;
    const wchar_t* name = half ? L"half-width" : L"width";
    double start = startWidth_ * factor;
    std::wstring prompt =
        std::wstring(L"\nSpecify starting ") + name + L" <" + distanceText(start) + L">: ";
    if (askDistance(prompt.c_str(), last3(), start, {QXED_NO_NEGATIVE}).stop()) {
      return Step::Finish;
    }
    double end = start;
    prompt = std::wstring(L"\nSpecify ending ") + name + L" <" + distanceText(end) + L">: ";
    if (askDistance(prompt.c_str(), last3(), end, {QXED_NO_NEGATIVE}).stop()) {
      return Step::Finish;
    }
    startWidth_ = start / factor;
    endWidth_ = end / factor;
    setRealVariable(L"PLINEWID", endWidth_);
    return Step::Go;
  }

  void addSegment(Vec2 to, double bulge) {
    path_.addArc(to, bulge, startWidth_, endWidth_);
    // The next segment starts as wide as this one ended.
    startWidth_ = endWidth_;
    rememberLastPoint(last3());
  }

  void finish() {
    if (path_.segmentCount() == 0) return;
    api::CoordinateSystem object = api::objectSystem(user_.zAxis);
    auto* polyline = new QxDbPolyline(static_cast<unsigned int>(path_.vertices().size()));
    if (!isWorldZ(user_.zAxis)) polyline->setNormal(toGeVector(user_.zAxis));
    double width = path_.constantWidth();
    double elevation = 0;
    unsigned int index = 0;
    for (const PathVertex& vertex : path_.vertices()) {
      Vec3 seen = object.fromWorld(user_.toWorld({vertex.point.x, vertex.point.y, elevation_}));
      elevation = seen.z;
      bool lastOpen = !path_.closed() && index + 1 == path_.vertices().size();
      double startWidth = width >= 0 ? -1 : lastOpen ? 0 : vertex.startWidth;
      double endWidth = width >= 0 ? -1 : lastOpen ? 0 : vertex.endWidth;
      polyline->addVertexAt(index++, QxGePoint2d(seen.x, seen.y), lastOpen ? 0 : vertex.bulge,
                            startWidth, endWidth);
    }
    if (width >= 0) polyline->setConstantWidth(width);
    if (elevation != 0) polyline->setElevation(elevation);
    polyline->setClosed(path_.closed());
    if (!appendToCurrentSpace(polyline)) {
      qxutPrintf(L"\nThe polyline could not be added to the drawing.");
    }
  }

  api::CoordinateSystem user_;
  double elevation_;
  PolylinePath path_;
  double startWidth_ = 0;
  double endWidth_ = 0;
  bool arcMode_ = false;
};

}  // namespace

void polylineCommand() {
  api::CoordinateSystem user = currentUserSystem();
  Vec3 start;
  if (!askPoint(L"\nSpecify start point: ", std::nullopt, start, {QXED_NO_NULL}).value()) return;
  rememberLastPoint(start);
  PolylineSession(start, user).run();
}

}  // namespace korva::cmd::drawing
