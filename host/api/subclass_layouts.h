// Where the groups of each kind of record go between its subclass markers (100), so
// that records made from lists without markers are laid out as DXF readers expect.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korva::api {

struct SubclassPart {
  std::string marker;
  std::vector<int> codes;  // empty for the last part: it takes every code left over
  bool takesRest = false;
};

struct SubclassLayout {
  bool isEntity = false;            // starts with AcDbEntity and takes its common groups
  std::vector<SubclassPart> parts;  // after AcDbEntity or AcDbSymbolTableRecord
  std::vector<int> required;        // codes a new record of this kind must have
};

// The layout of a kind (type name in upper case); flags are the record's group 70,
// which tells the forms of POLYLINE and VERTEX apart. Null for kinds it doesn't know.
const SubclassLayout* subclassLayoutOf(std::string_view type, int flags);

// Groups every entity keeps under AcDbEntity: space, layer, linetype, colour, ...
bool isEntityCommonCode(int code);

// The part of a layout that holds `code`: an index into parts, or -1 for AcDbEntity.
int partOfCode(const SubclassLayout& layout, int code);

}  // namespace korva::api
