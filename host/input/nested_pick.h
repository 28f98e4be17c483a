// Picks that look inside block references.
#pragma once

#include <vector>

#include "db/database.h"
#include "geom/affine.h"

namespace korva::input {

struct NestedPick {
  db::Record* entity = nullptr;
  geom::Affine3 toWorld;                // from the entity's block to the world
  std::vector<db::Record*> containers;  // the references holding it, innermost first
};

// Descends from an entity of the current space into the block references under the
// pick point (current user system): the innermost entity hit, or an attribute itself
// when its text is hit. The entity itself when it is not a reference or nothing inside
// is hit.
NestedPick pickNested(db::Database& database, db::Record& top, const double ucsPoint[3]);

// A point on the entity in the current user system, for an entity named without a pick.
bool pointOnEntity(db::Database& database, const db::Record& record, double ucsPoint[3]);

}  // namespace korva::input
