// The VERTEX records of an old-style polyline: those that follow it in its entity list
// up to the SEQEND.
#pragma once

#include <vector>

#include "db/database.h"

namespace korva::api {

std::vector<db::Record*> vertexRecordsOf(db::Database& database, const db::Record& polyline);

// Vertices that carry the curve: spline frame control points (flag 16) are left out.
bool isCurveVertex(const db::Record& vertex);

}  // namespace korva::api
