// Polylines read into chains and written back, and lines and arcs made into
// polylines: the drawing side of PEDIT.
#pragma once

#include <optional>

#include "cmd/edit/polyline_chain.h"
#include "geom/vec.h"
#include "qx_types.h"

namespace korva::cmd::edit {

using geom::Vec3;

enum class PolylineKind { Light, Old2d, Old3d, None };

PolylineKind polylineKindOf(const EntityName name);

// A planar polyline: its path in its object system, the normal and the elevation.
struct PlanarPolyline {
  PolylineKind kind = PolylineKind::None;
  Chain chain;
  Vec3 normal{0, 0, 1};
  double elevation = 0;
};

// An LWPOLYLINE or a two-dimensional POLYLINE. With controlOnly the vertices a fit or
// spline curve added are passed over.
std::optional<PlanarPolyline> readPolyline(const EntityName name, bool controlOnly = false);

// A line, arc or planar polyline as a chain in the plane of the base polyline; nothing
// when it lies elsewhere.
std::optional<Chain> readPiece(const EntityName name, const PlanarPolyline& base);

// Writes the chain into the polyline: vertices, bulges, widths and the closed flag. A
// two-dimensional POLYLINE whose vertex count changes is made anew, and `name` then
// names the new one; straightenFit also drops its fit or spline flags. False when the
// drawing refused the change.
bool writePolyline(EntityName name, const Chain& chain, bool straightenFit = false);

// Erases `name` and makes it name `made` instead; when the old one can't go, the new
// one goes and the answer is false.
bool replaceEntity(EntityName name, const EntityName made);

// False when the entity can't be changed (it stands on a locked layer).
bool isEditable(const EntityName name);

// Opens or closes any polyline, three-dimensional ones included.
bool setPolylineClosed(const EntityName name, bool closed);
bool isPolylineClosed(const EntityName name);
bool linetypeGeneration(const EntityName name);
bool setLinetypeGeneration(const EntityName name, bool on);

}  // namespace korva::cmd::edit
