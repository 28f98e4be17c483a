// Extended data of records: per-application blocks after the first 1001 group.
#pragma once

#include <cstddef>
#include <vector>

#include "db/database.h"
#include "list_values.h"
#include "record_view.h"

namespace korva::api {

// What one record may hold, in bytes.
constexpr long kExtendedDataLimit = 16384;

// Bytes that the record's extended data takes.
long extendedDataSize(const RecordView& view);

// Writes the record's extended data into `out` with the applications of `fromList`
// replacing theirs: an application given without values loses its data, a new one is
// added at the end. False when the list is malformed: a value before its 1001, an
// application that isn't registered, unbalanced 1002 braces, or more than the limit.
bool mergeExtendedData(db::Database& database, const RecordView* view,
                       const std::vector<ListItem>& fromList, std::vector<db::OwnedGroup>& out);

}  // namespace korva::api
