// A complete drawing made from nothing.
#pragma once

#include <memory>

#include "db/database.h"

namespace korva::dxf {

// Layer "0"; linetypes ByBlock, ByLayer, Continuous; text and dimension style
// "Standard"; application "ACAD"; model space and one layout; the named objects
// dictionary with groups, layouts, materials, the scale list and the rest that other
// CAD programs expect. Saves as AC1032.
std::unique_ptr<db::Database> createNewDrawing();

}  // namespace korva::dxf
