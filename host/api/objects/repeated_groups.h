// Records whose parts repeat a group code (boundary loops, vertex lists, row heights):
// read in order, and written by occurrence.
#pragma once

#include <string_view>
#include <vector>

#include "db/database.h"
#include "geom/vec.h"

namespace korva::api {

// The groups of one subclass part in order, or of the whole record when subclass is
// empty; extended data is left out.
std::vector<db::Group> partGroups(const db::Record& record, std::string_view subclass);

// Counts the groups with the code in the part.
int countGroups(const db::Record& record, int code, std::string_view subclass);

// Replaces the X, Y and Z of the occurrence-th point with this code in the part; false
// when there is no such point.
bool setRepeatedPoint(db::Record& record, int code, int occurrence, const double point[3],
                      std::string_view subclass);

// Adds a point (X, Y, Z groups) behind the last point with its code in the part, or at
// the end of the part when it has none.
void appendRepeatedPoint(db::Record& record, int code, const double point[3],
                         std::string_view subclass);

// Replaces every point with this code in the part by `points`, written where the first
// of the old ones stood (or at the end of the part), with or without Z groups.
void replaceRepeatedPoints(db::Record& record, int code, const std::vector<geom::Vec3>& points,
                           bool withZ, std::string_view subclass);

}  // namespace korva::api
