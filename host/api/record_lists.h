// Lists made from records: entity lists and the shorter lists of table searches.
#pragma once

#include "db/record.h"
#include "qx_types.h"

namespace korva::api {

class Document;

// The entity list of any record. With `withExtendedData`, -3 and the extended data of
// the applications that match `applications` (RTSTR wildcard patterns) follow.
ResultBuffer* entityListOf(Document& document, db::Record& record, const ResultBuffer* applications,
                           bool withExtendedData);

// A table search's list: -1, 0, then the record's own values without handle, owner
// and subclass markers. `blockBegin` is the BLOCK record for the BLOCK table.
ResultBuffer* tableListOf(Document& document, db::Record& record);

}  // namespace korva::api
