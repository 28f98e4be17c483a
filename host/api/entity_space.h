// Moving an entity between model space and the active layout's paper space, as a
// change of its group 67 asks.
#pragma once

#include <vector>

#include "db/database.h"

namespace korva::api {

// Rewrites the groups `out` of `record` (a main entity of model space or the active
// layout) for the other space: its owner, 67 and 410. False when the entity stands in
// a layout that isn't active, or the drawing lacks the target's block record.
bool writeSpaceMove(db::Database& database, const db::Record& record, bool toPaperSpace,
                    std::vector<db::OwnedGroup>& out);

// The same for the parts of a complex entity that follow `main` (vertices, attributes
// and the end of sequence), which carry the space of their entity.
void moveFollowersToSpace(db::Database& database, const db::Record& main, bool toPaperSpace);

}  // namespace korva::api
