// The square a pick looks in, and which entities show in it.
#pragma once

#include <span>
#include <string>
#include <unordered_set>

#include "api/entity_outline.h"
#include "db/database.h"
#include "geom/affine.h"
#include "geom/selection_region.h"

namespace korva::input {

class PickArea {
 public:
  // The pick box around a point of the current user system: half-size = PICKBOX pixels
  // in drawing units (VIEWSIZE over the screen's height).
  PickArea(db::Database& database, const double ucsPoint[3]);

  // Outlines geometry whose coordinates blockToWorld takes to the world.
  api::EntityOutliner outliner(const geom::Affine3& blockToWorld) const;
  // Whether the entity, drawn by an outliner of blockToWorld, shows in the box: a curve
  // through it, a text whose box holds the point, a block reference with any of that in
  // its block or its attributes.
  bool hits(api::EntityOutliner& outliner, const geom::Affine3& blockToWorld,
            const db::Record& record, std::span<db::Record* const> followers, int depth = 0) const;
  // On a layer that is off or frozen.
  bool onHiddenLayer(const db::Record& record) const;
  // An entity of a block definition that its reference doesn't show for its layer.
  bool hiddenInReference(const db::Record& record) const;

 private:
  bool referenceHits(const geom::Affine3& blockToWorld, const db::Record& reference,
                     std::span<db::Record* const> followers, int depth) const;

  db::Database& database_;
  geom::Affine3 worldToUcs_;
  geom::Vec2 center_;
  geom::SelectionRegion region_;
  std::unordered_set<std::string> hiddenLayers_;  // upper case
};

// The map from world coordinates to the current user system.
geom::Affine3 worldToCurrentUcs(const db::Database& database);

// From the block's coordinates to those of the space holding the reference, for one
// cell of a reference array.
geom::Affine3 blockPlacement(db::Database& database, const db::Record& reference, int row,
                             int column);
// Rows and columns of a reference array; 1 and 1 for a plain reference.
int referenceRows(const db::Record& reference);
int referenceColumns(const db::Record& reference);

// Records that belong to the entity before them: attributes, vertices, the end marker.
bool isSubEntity(const db::Record& record);
// Entities of a block definition that a reference shows.
bool shownInReferences(const db::Record& record);

// Whether a record of ENTITIES lies in the current space (model or paper).
bool inCurrentSpace(const db::Database& database, const db::Record& record);

}  // namespace korva::input
