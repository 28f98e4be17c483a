// AREA: the area and perimeter of a polygon given point by point, or of one entity
// (Object, or Entity as older scripts say). Sets AREA and PERIMETER.
#include <cmath>
#include <vector>

#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/curve_area.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/user_system.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

void report(double area, double length, const wchar_t* lengthName) {
  qxutPrintf(L"\nArea = %s, %s = %s", distanceText(area).c_str(), lengthName,
             distanceText(length).c_str());
  hostSetReal("AREA", area);
  hostSetReal("PERIMETER", length);
}

// An entity without an area ends the command with AREA at 0 rather than asking again:
// a scripted AREA would otherwise wait for input its caller never gives.
void measureObject() {
  EntityName name;
  Vec3 pick;
  if (!askEntity(L"\nSelect objects: ", name, pick).value()) return;
  std::optional<Measured> measured = measureEntity(name);
  if (!measured) {
    qxutPrintf(L"\nSelected object has no area.");
    hostSetReal("AREA", 0);
    hostSetReal("PERIMETER", 0);
    return;
  }
  const wchar_t* lengthName = measured->outline == Measured::Outline::Circle ? L"Circumference"
                              : measured->outline == Measured::Outline::Open ? L"Length"
                                                                             : L"Perimeter";
  report(measured->area, measured->length, lengthName);
}

// Points of the user system; the area is that of their projection on its X-Y plane.
void measurePolygon(Vec3 first) {
  std::vector<Vec3> points{first};
  for (;;) {
    Vec3 next;
    Answer answer = askPoint(points.size() < 3 ? L"\nSpecify next point or [Undo]: "
                                               : L"\nSpecify next point or [Undo] <Total>: ",
                             points.back(), next, {0, L"Undo _ Undo"});
    if (answer.stop()) return;
    if (answer.is(L"Undo")) {
      if (points.size() > 1) points.pop_back();
      continue;
    }
    if (answer.enter()) break;
    points.push_back(next);
  }
  double twiceArea = 0, perimeter = 0;
  for (size_t i = 0; i < points.size(); ++i) {
    Vec3 a = points[i], b = points[(i + 1) % points.size()];
    twiceArea += a.x * b.y - b.x * a.y;
    perimeter += geom::length(b - a);
  }
  report(std::fabs(twiceArea) / 2, perimeter, L"Perimeter");
}

}  // namespace

void areaCommand() {
  Vec3 first;
  Answer answer = askPoint(L"\nSpecify first corner point or [Object] <Object>: ", std::nullopt,
                           first, {0, L"Object Entity _ Object Entity"});
  if (answer.stop()) return;
  if (answer.value()) {
    measurePolygon(first);
  } else {
    measureObject();
  }
}

}  // namespace korva::cmd::drawing
