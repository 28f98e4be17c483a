// The base point and second point of COPY and MOVE, or a displacement typed at once.
#pragma once

#include <optional>

#include "cmd/drawing/command_input.h"
#include "geom/vec.h"

namespace korva::cmd::drawing {

// A displacement in the user system.
struct Displacement {
  geom::Vec3 vector;
};

enum class BaseChoice { Point, Displacement, Multiple, Stop };

struct BaseAnswer {
  BaseChoice choice = BaseChoice::Stop;
  geom::Vec3 point;
};

// "Specify base point or [Displacement...] <Displacement>: "; with allowMultiple the
// Multiple keyword is offered too.
BaseAnswer askBasePoint(bool allowMultiple);
// "Specify displacement <0,0,0>: "; nothing when the user stopped.
std::optional<Displacement> askDisplacement();
// The second point from base: Enter takes the base point itself as the displacement
// when firstTime, and ends (nothing) later on; nothing when the user stopped.
std::optional<Displacement> askSecondPoint(geom::Vec3 base, bool firstTime);

// The translation by a displacement of the user system, as a matrix of world
// coordinates for qxedXformSS.
void translationMatrix(const Displacement& displacement, double matrix[4][4]);

}  // namespace korva::cmd::drawing
