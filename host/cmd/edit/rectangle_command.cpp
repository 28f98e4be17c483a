// RECTANG: a closed lightweight polyline in the X-Y plane of the user system, with the
// corner, elevation, thickness and width settings kept for the rest of the session.
#include <cmath>
#include <numbers>
#include <string>

#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/drawing/user_system.h"
#include "cmd/edit/edit_commands.h"
#include "cmd/edit/rectangle_outline.h"
#include "qx_db_polylines.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::edit {

namespace {

using drawing::Answer;
using drawing::distanceText;
using geom::Vec3;

struct RectangleSettings {
  RectangleCorners corners;
  double chamferFirst = 0;
  double chamferSecond = 0;
  double filletRadius = 0;
  double elevation = 0;
  double thickness = 0;
  double width = 0;
  double rotation = 0;  // radians from east
  double length = 10;   // of the Dimensions and Area options
  double breadth = 10;
  double area = 100;
};

RectangleSettings& settings() {
  static RectangleSettings kept;
  return kept;
}

void showModes() {
  const RectangleSettings& s = settings();
  std::wstring line;
  if (s.corners.kind == RectangleCorners::Kind::Chamfer)
    line += L"  Chamfer=" + distanceText(s.chamferFirst) + L" x " + distanceText(s.chamferSecond);
  if (s.elevation != 0) line += L"  Elevation=" + distanceText(s.elevation);
  if (s.corners.kind == RectangleCorners::Kind::Fillet)
    line += L"  Fillet=" + distanceText(s.filletRadius);
  if (s.thickness != 0) line += L"  Thickness=" + distanceText(s.thickness);
  if (s.width != 0) line += L"  Width=" + distanceText(s.width);
  if (!line.empty()) qxutPrintf(L"\nCurrent rectangle modes:%s", line.c_str());
}

// A length setting with its current value as the default; false when cancelled.
bool askSetting(const std::wstring& question, double& value, int flags = QXED_NO_NEGATIVE) {
  std::wstring prompt = L"\n" + question + L" <" + distanceText(value) + L">: ";
  double answer = value;
  Answer given = drawing::askDistance(prompt.c_str(), std::nullopt, answer, {flags});
  if (given.stop()) return false;
  if (given.value()) value = answer;
  return true;
}

bool firstCornerOption(const Answer& answer) {
  RectangleSettings& s = settings();
  if (answer.is(L"Chamfer")) {
    if (!askSetting(L"Specify first chamfer distance for rectangles", s.chamferFirst)) return false;
    // The second distance offers the first as its default.
    s.chamferSecond = s.chamferFirst;
    if (!askSetting(L"Specify second chamfer distance for rectangles", s.chamferSecond))
      return false;
    bool on = s.chamferFirst > 0 && s.chamferSecond > 0;
    s.corners = {on ? RectangleCorners::Kind::Chamfer : RectangleCorners::Kind::Sharp,
                 s.chamferFirst, s.chamferSecond};
  } else if (answer.is(L"Fillet")) {
    if (!askSetting(L"Specify fillet radius for rectangles", s.filletRadius)) return false;
    bool on = s.filletRadius > 0;
    s.corners = {on ? RectangleCorners::Kind::Fillet : RectangleCorners::Kind::Sharp,
                 s.filletRadius, s.filletRadius};
  } else if (answer.is(L"Elevation")) {
    return askSetting(L"Specify the elevation for rectangles", s.elevation, 0);
  } else if (answer.is(L"Thickness")) {
    return askSetting(L"Specify thickness for rectangles", s.thickness, 0);
  } else if (answer.is(L"Width")) {
    return askSetting(L"Specify line width for rectangles", s.width);
  }
  return true;
}

void drawRectangle(Vec3 first, Vec2 opposite) {
  const RectangleSettings& s = settings();
  std::vector<Vec2> corners = rectangleCorners({first.x, first.y}, opposite, s.rotation);
  auto side = [&](size_t a, size_t b) {
    return std::hypot(corners[b].x - corners[a].x, corners[b].y - corners[a].y);
  };
  // A rectangle without area has no outline to draw.
  if (side(0, 1) <= kSamePoint || side(1, 2) <= kSamePoint) return;
  Chain outline = rectangleOutline(corners, s.corners);
  api::CoordinateSystem user = drawing::currentUserSystem();
  api::CoordinateSystem object = api::objectSystem(user.zAxis);
  double z = first.z + s.elevation;
  auto* polyline = new QxDbPolyline(static_cast<unsigned int>(outline.vertices.size()));
  if (!drawing::isWorldZ(user.zAxis)) polyline->setNormal(drawing::toGeVector(user.zAxis));
  double elevation = 0;
  unsigned int index = 0;
  for (const ChainVertex& vertex : outline.vertices) {
    Vec3 seen = object.fromWorld(user.toWorld({vertex.point.x, vertex.point.y, z}));
    elevation = seen.z;
    polyline->addVertexAt(index++, QxGePoint2d(seen.x, seen.y), vertex.bulge);
  }
  polyline->setClosed(true);
  if (s.width != 0) polyline->setConstantWidth(s.width);
  if (elevation != 0) polyline->setElevation(elevation);
  if (s.thickness != 0) polyline->setThickness(s.thickness);
  if (!drawing::appendToCurrentSpace(polyline))
    qxutPrintf(L"\nThe rectangle could not be added to the drawing.");
  drawing::rememberLastPoint({opposite.x, opposite.y, first.z});
}

// Turns the rectangle's sides by the Rotation option; false when cancelled.
bool askRotation(Vec3 first) {
  RectangleSettings& s = settings();
  std::wstring prompt =
      L"\nSpecify rotation angle or [Pick points] <" + drawing::angleText(s.rotation) + L">: ";
  double angle = s.rotation;
  Answer answer = drawing::askOrientation(prompt.c_str(), first, angle, {0, L"Pick _ Pick"});
  if (answer.stop()) return false;
  if (answer.is(L"Pick")) {
    Vec3 a, b;
    if (!drawing::askPoint(L"\nSpecify first point: ", std::nullopt, a, {QXED_NO_NULL}).value() ||
        !drawing::askPoint(L"\nSpecify second point: ", a, b, {QXED_NO_NULL}).value()) {
      return false;
    }
    angle = std::atan2(b.y - a.y, b.x - a.x);
  }
  if (answer.value() || answer.is(L"Pick")) s.rotation = angle;
  return true;
}

// The Area option: the other side follows from the area.
void drawByArea(Vec3 first) {
  RectangleSettings& s = settings();
  if (!askSetting(L"Enter area of rectangle in current units", s.area,
                  QXED_NO_NEGATIVE | QXED_NO_ZERO)) {
    return;
  }
  Answer basis =
      drawing::askKeyword(L"\nCalculate rectangle dimensions based on [Length/Width] <Length>: ",
                          {0, L"Length Width _ Length Width"});
  if (basis.stop()) return;
  bool byWidth = basis.is(L"Width");
  double& given = byWidth ? s.breadth : s.length;
  if (!askSetting(byWidth ? L"Enter rectangle width" : L"Enter rectangle length", given,
                  QXED_NO_NEGATIVE | QXED_NO_ZERO)) {
    return;
  }
  (byWidth ? s.length : s.breadth) = s.area / given;
  double c = std::cos(s.rotation), n = std::sin(s.rotation);
  drawRectangle(first,
                {first.x + s.length * c - s.breadth * n, first.y + s.length * n + s.breadth * c});
}

}  // namespace

void rectangleCommand() {
  showModes();
  Vec3 first;
  for (;;) {
    Answer answer = drawing::askPoint(
        L"\nSpecify first corner point or [Chamfer/Elevation/Fillet/Thickness/Width]: ",
        std::nullopt, first,
        {0,
         L"Chamfer Elevation Fillet Thickness Width _ Chamfer Elevation Fillet Thickness "
         L"Width"});
    if (answer.value()) break;
    if (answer.stop() || answer.enter() || !firstCornerOption(answer)) return;
  }
  drawing::rememberLastPoint(first);
  RectangleSettings& s = settings();
  bool sized = false;  // the Dimensions option fixed the size; the point picks the side
  for (;;) {
    Vec3 other;
    Answer answer = drawing::askCorner(
        L"\nSpecify other corner point or [Area/Dimensions/Rotation]: ", first, other,
        {QXED_NO_NULL, L"Area Dimensions Rotation _ Area Dimensions Rotation"});
    if (answer.stop()) return;
    if (answer.value()) {
      Vec2 opposite{other.x, other.y};
      if (sized) {
        // The picked point's side of each axis of the turned rectangle.
        double c = std::cos(s.rotation), n = std::sin(s.rotation);
        double dx = other.x - first.x, dy = other.y - first.y;
        double u = (dx * c + dy * n) < 0 ? -s.length : s.length;
        double v = (-dx * n + dy * c) < 0 ? -s.breadth : s.breadth;
        opposite = {first.x + u * c - v * n, first.y + u * n + v * c};
      }
      drawRectangle(first, opposite);
      return;
    }
    if (answer.is(L"Area")) {
      drawByArea(first);
      return;
    }
    if (answer.is(L"Rotation") && !askRotation(first)) return;
    if (answer.is(L"Dimensions")) {
      if (!askSetting(L"Specify length for rectangles", s.length,
                      QXED_NO_NEGATIVE | QXED_NO_ZERO) ||
          !askSetting(L"Specify width for rectangles", s.breadth,
                      QXED_NO_NEGATIVE | QXED_NO_ZERO)) {
        return;
      }
      sized = true;
    }
  }
}

}  // namespace korva::cmd::edit
