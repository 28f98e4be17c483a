// ARC: three points; start, center and end (or included angle or chord length);
// start, end and center (or included angle, start direction or radius); all in the
// X-Y plane of the user system at the start point's elevation.
#include "cmd/drawing/arc_construction.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/planar_entities.h"
#include "cmd/drawing/user_system.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

// Why an arc was not made: the user stopped (nothing to say) or the data make none.
struct ArcResult {
  std::optional<PlaneArc> arc;
  bool stopped = false;
};

ArcResult stopped() {
  return {std::nullopt, true};
}

ArcResult finishFromStartAndCenter(Vec3 start, Vec3 center) {
  Vec3 end;
  Answer answer = askPoint(L"\nSpecify end point of arc or [Angle/chord Length]: ", center, end,
                           {QXED_NO_NULL, L"Angle Length _ Angle Length"});
  if (answer.stop()) return stopped();
  if (answer.is(L"Angle")) {
    double included = 0;
    if (!askSignedAngle(L"\nSpecify included angle: ", included).value()) return stopped();
    return {arcFromStartCenterAngle(flat(start), flat(center), included)};
  }
  if (answer.is(L"Length")) {
    double chord = 0;
    if (!askDistance(L"\nSpecify length of chord: ", start, chord, {QXED_NO_NULL | QXED_NO_ZERO})
             .value()) {
      return stopped();
    }
    return {arcFromStartCenterChord(flat(start), flat(center), chord)};
  }
  return {arcFromStartCenterToward(flat(start), flat(center), flat(end))};
}

ArcResult finishFromStartAndEnd(Vec3 start, Vec3 end) {
  Vec3 center;
  Answer answer =
      askPoint(L"\nSpecify center point of arc or [Angle/Direction/Radius]: ", end, center,
               {QXED_NO_NULL, L"Angle Direction Radius _ Angle Direction Radius"});
  if (answer.stop()) return stopped();
  if (answer.is(L"Angle")) {
    double included = 0;
    if (!askSignedAngle(L"\nSpecify included angle: ", included).value()) return stopped();
    return {arcFromStartEndAngle(flat(start), flat(end), included)};
  }
  if (answer.is(L"Direction")) {
    double direction = 0;
    if (!askOrientation(L"\nSpecify tangent direction for the start point of arc: ", start,
                        direction, {QXED_NO_NULL})
             .value()) {
      return stopped();
    }
    return {arcFromStartEndDirection(flat(start), flat(end), direction)};
  }
  if (answer.is(L"Radius")) {
    double radius = 0;
    if (!askDistance(L"\nSpecify radius of arc: ", end, radius, {QXED_NO_NULL | QXED_NO_ZERO})
             .value()) {
      return stopped();
    }
    return {arcFromStartEndRadius(flat(start), flat(end), radius)};
  }
  return {arcFromStartCenterToward(flat(start), flat(center), flat(end))};
}

ArcResult askArc(Vec3& start) {
  Answer first = askPoint(L"\nSpecify start point of arc or [Center]: ", std::nullopt, start,
                          {QXED_NO_NULL, L"Center _ Center"});
  if (first.stop()) return stopped();
  if (first.is(L"Center")) {
    Vec3 center;
    if (!askPoint(L"\nSpecify center point of arc: ", std::nullopt, center, {QXED_NO_NULL})
             .value() ||
        !askPoint(L"\nSpecify start point of arc: ", center, start, {QXED_NO_NULL}).value()) {
      return stopped();
    }
    return finishFromStartAndCenter(start, center);
  }
  Vec3 second;
  Answer answer = askPoint(L"\nSpecify second point of arc or [Center/End]: ", start, second,
                           {QXED_NO_NULL, L"Center End _ Center End"});
  if (answer.stop()) return stopped();
  if (answer.is(L"Center")) {
    Vec3 center;
    if (!askPoint(L"\nSpecify center point of arc: ", start, center, {QXED_NO_NULL}).value()) {
      return stopped();
    }
    return finishFromStartAndCenter(start, center);
  }
  if (answer.is(L"End")) {
    Vec3 end;
    if (!askPoint(L"\nSpecify end point of arc: ", start, end, {QXED_NO_NULL}).value()) {
      return stopped();
    }
    return finishFromStartAndEnd(start, end);
  }
  Vec3 end;
  if (!askPoint(L"\nSpecify end point of arc: ", second, end, {QXED_NO_NULL}).value()) {
    return stopped();
  }
  return {arcThroughPoints(flat(start), flat(second), flat(end))};
}

}  // namespace

void arcCommand() {
  api::CoordinateSystem user = currentUserSystem();
  Vec3 start;
  ArcResult result = askArc(start);
  if (result.stopped) return;
  if (!result.arc) {
    qxutPrintf(L"\nNo arc passes through the points given.");
    return;
  }
  if (!addArc(user, *result.arc, start.z)) {
    qxutPrintf(L"\nThe arc could not be added to the drawing.");
  }
}

}  // namespace korva::cmd::drawing
