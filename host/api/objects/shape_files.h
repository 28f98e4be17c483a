// Shape numbers from the sources of shape files.
//
// A drawing's SHAPE names its shape (group 2) and nothing else; the number lives in the
// shape file of a text style marked as a shape file (70 bit 1). korva does not read
// compiled (.shx) files, so it looks for the source beside the compiled file's name:
// "ltypeshp.shx" is looked up as "ltypeshp.shp" along the support path, as the drawing
// spells it and then in lower case.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "db/database.h"

namespace korva::api {

// The number of a shape in the text of a .shp file: each definition opens with
// "*number,bytes,NAME", the number decimal or, written with a leading 0, hexadecimal.
// Names compare without regard to case. 0 when the text has no such shape.
int shapeNumberInSource(std::string_view source, std::string_view name);

// The number of the named shape in the first shape file of the drawing's styles whose
// source can be read and holds it; 0 otherwise.
int shapeNumberOf(db::Database& database, std::string_view name);

// The source that defines the named shape, as shapeNumberOf finds it, with the number.
struct ShapeSource {
  std::string text;
  int number = 0;
};
std::optional<ShapeSource> shapeSourceOf(db::Database& database, std::string_view name);

}  // namespace korva::api
