// CIRCLE: center and radius or diameter, three points on the circle, or the two ends
// of a diameter, in the X-Y plane of the user system.
#include <string>

#include "cmd/drawing/arc_construction.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/planar_entities.h"
#include "cmd/drawing/user_system.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

// The radius offered at the next radius prompt: the last one used this session.
double& lastRadius() {
  static double radius = 0;
  return radius;
}

std::optional<PlaneCircle> askThreePoints(double& elevation) {
  Vec3 first, second, third;
  if (!askPoint(L"\nSpecify first point on circle: ", std::nullopt, first, {QXED_NO_NULL})
           .value() ||
      !askPoint(L"\nSpecify second point on circle: ", first, second, {QXED_NO_NULL}).value() ||
      !askPoint(L"\nSpecify third point on circle: ", second, third, {QXED_NO_NULL}).value()) {
    return std::nullopt;
  }
  elevation = first.z;
  std::optional<PlaneCircle> circle = circleThroughPoints(flat(first), flat(second), flat(third));
  if (!circle) qxutPrintf(L"\nCircle does not exist.");
  return circle;
}

std::optional<PlaneCircle> askDiameterEnds(double& elevation) {
  Vec3 first, second;
  if (!askPoint(L"\nSpecify first end point of circle's diameter: ", std::nullopt, first,
                {QXED_NO_NULL})
           .value() ||
      !askPoint(L"\nSpecify second end point of circle's diameter: ", first, second, {QXED_NO_NULL})
           .value()) {
    return std::nullopt;
  }
  elevation = first.z;
  double radius = geom::length(flat(second) - flat(first)) / 2;
  if (radius == 0) {
    qxutPrintf(L"\nCircle does not exist.");
    return std::nullopt;
  }
  return PlaneCircle{(flat(first) + flat(second)) * 0.5, radius};
}

std::optional<double> askRadius(Vec3 center) {
  double fallback = lastRadius();
  std::wstring offered = fallback > 0 ? L" <" + distanceText(fallback) + L">" : L"";
  int flags = QXED_NO_ZERO | QXED_NO_NEGATIVE | (fallback > 0 ? 0 : QXED_NO_NULL);
  double radius = fallback;
  Answer answer =
      askDistance((L"\nSpecify radius of circle or [Diameter]" + offered + L": ").c_str(), center,
                  radius, {flags, L"Diameter _ Diameter"});
  if (answer.stop()) return std::nullopt;
  if (answer.is(L"Diameter")) {
    std::wstring diameterOffered = fallback > 0 ? L" <" + distanceText(2 * fallback) + L">" : L"";
    double diameter = 2 * fallback;
    Answer second = askDistance((L"\nSpecify diameter of circle" + diameterOffered + L": ").c_str(),
                                center, diameter, {flags});
    if (second.stop()) return std::nullopt;
    radius = diameter / 2;
  }
  return radius;
}

}  // namespace

void circleCommand() {
  api::CoordinateSystem user = currentUserSystem();
  Vec3 center;
  Answer answer = askPoint(L"\nSpecify center point for circle or [3P/2P]: ", std::nullopt, center,
                           {QXED_NO_NULL, L"3P 2P _ 3P 2P"});
  if (answer.stop()) return;
  std::optional<PlaneCircle> circle;
  double elevation = 0;
  if (answer.is(L"3P")) {
    circle = askThreePoints(elevation);
  } else if (answer.is(L"2P")) {
    circle = askDiameterEnds(elevation);
  } else if (answer.value()) {
    elevation = center.z;
    if (std::optional<double> radius = askRadius(center)) {
      circle = PlaneCircle{flat(center), *radius};
    }
  }
  if (!circle) return;
  lastRadius() = circle->radius;
  if (!addCircle(user, *circle, elevation)) {
    qxutPrintf(L"\nThe circle could not be added to the drawing.");
  }
}

}  // namespace korva::cmd::drawing
