// Lists made from records: entity lists and the shorter lists of table searches.
#pragma once

#include "db/database.h"
#include "db/record.h"
#include "qx_types.h"

namespace korva::api {

// The entity list of any record of `database`, a document's or a side database. With
// `withExtendedData`, -3 and the extended data of the applications that match
// `applications` (RTSTR wildcard patterns) follow.
ResultBuffer* entityListOf(db::Database& database, db::Record& record,
                           const ResultBuffer* applications, bool withExtendedData);

// A table search's list: -1, 0, then the record's own values without handle, owner
// and subclass markers. `blockBegin` is the BLOCK record for the BLOCK table.
ResultBuffer* tableListOf(db::Database& database, db::Record& record);

}  // namespace korva::api
