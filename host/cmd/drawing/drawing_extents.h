// How far the current space's entities reach, seen in the display system: what
// ZOOM Extents and All fit the view to.
#pragma once

#include "geom/vec.h"

namespace korva::cmd::drawing {

// The box of the outlines of every entity of the current space, in the X-Y plane of
// the display system; empty when the space holds nothing with an outline.
geom::Box2 currentSpaceExtents();

// A point of the world in the display system's X-Y plane.
geom::Vec2 toDisplay(geom::Vec3 world);

}  // namespace korva::cmd::drawing
