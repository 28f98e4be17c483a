// DXF groups of an object and ResultBuffer chains, in both directions, for any
// database (side databases too, which the flat layer's document lists don't cover).
#pragma once

#include <optional>
#include <vector>

#include "api/list_values.h"
#include "db/database.h"
#include "qx_types.h"

namespace korva::api {

// A chain of the groups: points joined (X, Y and Z groups), text in wide form, object
// references as entity names of the database. Null for no groups or no memory.
ResultBuffer* chainOfGroups(const db::Database* database, const std::vector<db::Group>& groups);

// The chain's nodes as list items (text in the database's encoding, references as
// handles); nothing when a node isn't a DXF group or names a record of another database.
std::optional<std::vector<ListItem>> itemsOfChain(const db::Database* database,
                                                  const ResultBuffer* chain);

}  // namespace korva::api
