// Values of entity lists: incoming nodes checked and turned into drawing text, and
// nodes made from a record's groups.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"
#include "db/record.h"
#include "qx_types.h"
#include "qx_value_kind.h"

namespace korva::api {

class Document;

// One node of an incoming list, checked against its code.
struct ListItem {
  int code = 0;
  ValueKind kind = ValueKind::Unknown;
  double point[3] = {0, 0, 0};  // points; a Real in point[0]
  long long integer = 0;
  std::string text;  // strings in drawing text, binary as hex, references as handles
  db::Handle handle = db::kNoHandle;  // EntityName kinds
};

struct ParsedList {
  std::vector<ListItem> items;     // before -3
  std::vector<ListItem> extended;  // after -3: 1001 and the values of each application
  bool hasExtended = false;
};

// The list's items, or nothing when a node's type is not a group code, a string holds
// a line break, or an entity name belongs to another drawing or to no record.
std::optional<ParsedList> parseList(const ResultBuffer* list, Document& document);

// The DXF groups of an item; a point gives two groups when `twoDimensional`.
void appendGroups(const ListItem& item, bool twoDimensional, std::vector<db::OwnedGroup>& out);

// The value of a real's text, as the DXF reader reads it; quick for plain decimals.
std::optional<double> readReal(std::string_view text);

// Whether a group's text (and, for points, the texts of its Y and Z) holds the value.
bool sameReal(std::string_view text, double value);

// ---- Building lists
class ListBuilder {
 public:
  // Names and texts of the list are those of `database`, open as a document or not.
  explicit ListBuilder(const db::Database& database) : database_(database) {}
  ~ListBuilder();
  ListBuilder(const ListBuilder&) = delete;
  ListBuilder& operator=(const ListBuilder&) = delete;

  void addString(int code, std::string_view drawingText);
  void addName(int code, db::Handle handle);  // kNoHandle gives a null name
  void addReal(int code, double value);
  void addPoint(int code, const double* point);
  void addInteger(int code, ValueKind kind, long long value);
  void addBinary(int code, std::string_view hex);
  void addNone(int code);
  // Group texts of one DXF value typed by its code.
  void addGroupValue(int code, std::string_view text);
  // The list; the builder gives up its nodes. Null when memory ran out.
  ResultBuffer* release();

 private:
  ResultBuffer* append(int type);
  const db::Database& database_;
  ResultBuffer* head_ = nullptr;
  ResultBuffer* tail_ = nullptr;
  bool failed_ = false;
};

}  // namespace korva::api
