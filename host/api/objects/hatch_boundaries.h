// A hatch's boundary loops and pattern lines as its record holds them, read in file
// order: the codes repeat from loop to loop, so they can't be looked up one by one.
#pragma once

#include <string_view>
#include <vector>

#include "db/database.h"
#include "geom/vec.h"

namespace korva::api {

struct HatchEdge {
  int kind = 1;  // 1 line, 2 circular arc, 3 elliptic arc, 4 spline
  // Lines.
  geom::Vec2 start, end;
  // Arcs: angles in degrees as stored. A clockwise arc stores the complements (360 -
  // angle) of its start and end; see the angle helpers below.
  geom::Vec2 center;
  double radius = 0;
  geom::Vec2 majorAxis;  // from the center to the end of the major axis
  double ratio = 1;      // minor to major
  double startAngle = 0, endAngle = 360;
  bool counterclockwise = true;
  // Splines.
  int degree = 3;
  bool periodic = false;
  std::vector<double> knots;
  std::vector<geom::Vec2> control;
  std::vector<double> weights;  // empty unless rational
  std::vector<geom::Vec2> fit;
};

struct HatchLoop {
  long long type = 0;  // bits: 1 external, 2 polyline, 4 derived, 8 text box, 16 outermost
  bool isPolyline() const { return (type & 2) != 0; }
  // Polyline loops.
  std::vector<geom::Vec2> vertices;
  std::vector<double> bulges;  // one per vertex
  // Edge loops.
  std::vector<HatchEdge> edges;
  // Handles of the objects the loop was made from.
  std::vector<std::string_view> sources;
};

struct HatchPatternLine {
  double angle = 0;  // degrees
  geom::Vec2 base, offset;
  std::vector<double> dashes;
};

struct HatchBoundaries {
  std::vector<HatchLoop> loops;
  std::vector<HatchPatternLine> patternLines;
};

// Reads the groups of the hatch part (the AcDbHatch groups, or a whole record without
// subclass markers). Reading stops at the first group out of place, keeping what was
// read up to there. The views point into the record: read again after a change.
HatchBoundaries readHatchBoundaries(const std::vector<db::Group>& hatchPart);

// The arc's angles in radians as drawn, counterclockwise from `from` to `to` (to > from,
// at most one turn further), whichever way the edge runs.
void edgeSpan(const HatchEdge& edge, double& from, double& to);

}  // namespace korva::api
