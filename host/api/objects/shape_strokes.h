// What a shape draws, from its definition in a shape file's source (.shp): the byte
// codes walked with the pen from the origin, in the file's own units.
//
// Codes: 0 end; 1, 2 pen down, up; 3 n, 4 n divide, multiply lengths by n; 5, 6 push,
// pop the location; 7 n a subshape (two bytes in a *UNIFONT file); 8 dx,dy and 9 a list
// of them ended by 0,0; 10 r,(-)0SC an arc of C octants (0: a circle) from octant S,
// clockwise when negative; 11 start offset, end offset, radius high, low, (-)0SC a
// fractional arc whose ends are offset from the octant boundaries in 256ths of an
// octant, along the direction it runs; 12 dx,dy,bulge and 13 a list of them ended by
// 0,0, the bulge in 127ths of half the chord; 14 the next command is for vertical text
// only and is passed over. Any other byte is a vector: length in its high nibble,
// direction in its low one (16 directions, 0 east, 4 north).
#pragma once

#include <string_view>
#include <vector>

#include "geom/vec.h"

namespace korva::api {

struct ShapeStroke {
  bool arc = false;
  geom::Vec2 start, end;  // a line
  // An arc, counterclockwise from `from` to `to` (radians, to > from).
  geom::Vec2 center;
  double radius = 0, from = 0, to = 0;
};

// The codes of the shape numbered `number`, signed as written; empty when the source
// has no such shape.
std::vector<int> shapeCodes(std::string_view source, int number);

// The strokes the shape draws with the pen down. Subshapes are followed (not more than
// a few deep), unknown subshapes draw nothing.
std::vector<ShapeStroke> shapeStrokes(std::string_view source, int number);

// How many units of the file one unit of a shape's size stands for: the height above the
// baseline of a font file (*0 or *UNIFONT header), 1 for plain shape files.
double shapeUnitsPerSize(std::string_view source);

}  // namespace korva::api
