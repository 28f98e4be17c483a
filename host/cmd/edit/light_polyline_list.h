// Lightweight polylines read through their entity list and written in one pass, so
// that long polylines cost time in proportion to their length.
#pragma once

#include <optional>

#include "cmd/edit/polyline_chain.h"
#include "geom/vec.h"
#include "qx_types.h"

namespace korva::cmd::edit {

struct LightPolyline {
  Chain chain;
  geom::Vec3 normal{0, 0, 1};
  double elevation = 0;
  int flags = 0;
};

std::optional<LightPolyline> readLightPolyline(const EntityName name);

// Writes the vertices, bulges and widths (one constant width when all segments share
// it) and the closed flag of the chain; false when the drawing refused the list.
bool writeLightPolyline(const EntityName name, const Chain& chain);

}  // namespace korva::cmd::edit
