// Reading and writing an object's groups: the members of every class go through these.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "api/drawing_text.h"
#include "db/database.h"

namespace korva::api {

// The n-th (from 0) group with the code, after the subclass marker when one is named.
// unmarkedIsOnePart: a record without any marker (written before R13) is one part.
std::optional<std::string_view> groupText(const db::Record& record, int code,
                                          std::string_view subclass = {}, int occurrence = 0,
                                          bool unmarkedIsOnePart = false);
double groupReal(const db::Record& record, int code, double fallback,
                 std::string_view subclass = {}, int occurrence = 0);
long long groupInteger(const db::Record& record, int code, long long fallback,
                       std::string_view subclass = {}, int occurrence = 0);
// X at code, Y at code + 10, Z at code + 20; missing coordinates are 0.
bool groupPoint(const db::Record& record, int code, double point[3], std::string_view subclass = {},
                int occurrence = 0, bool unmarkedIsOnePart = false);

// Replaces the first such group (after the marker), or adds it at the end of the
// marker's part of the record (before the next marker or the extended data).
void setGroupText(db::Record& record, int code, std::string_view text,
                  std::string_view subclass = {});
void setGroupReal(db::Record& record, int code, double value, std::string_view subclass = {});
void setGroupInteger(db::Record& record, int code, long long value, std::string_view subclass = {});
void setGroupPoint(db::Record& record, int code, const double point[3],
                   std::string_view subclass = {}, bool withZ = true);
// Removes every group with the code (after the marker).
void removeGroups(db::Record& record, int code, std::string_view subclass = {});

// Text of a database in wide form and back (UTF-8 or the drawing's code page).
inline std::wstring wideText(const db::Database* database, std::string_view text) {
  return fromDrawingText(database, text);
}
inline std::string drawingText(const db::Database* database, std::wstring_view text) {
  return toDrawingText(database, text);
}

}  // namespace korva::api
