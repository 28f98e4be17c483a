// A small, consistent drawing shared by the reader and writer tests.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"

namespace korva::test {

// Padded codes, "\n" line ends; every pointer resolves and $HANDSEED is above all handles.
inline constexpr std::string_view kSampleDrawing = R"(999
made by hand for the tests
  0
SECTION
  2
HEADER
  9
$ACADVER
  1
AC1015
  9
$HANDSEED
  5
40
  9
$TDUPDATE
 40
2459000.5
  9
$TDUUPDATE
 40
2459000.25
  9
$EXTMIN
 10
0.0
 20
0.0
 30
0.0
  0
ENDSEC
  0
SECTION
  2
TABLES
  0
TABLE
  2
LAYER
  5
2
330
0
100
AcDbSymbolTable
 70
1
  0
LAYER
  5
10
330
2
100
AcDbSymbolTableRecord
100
AcDbLayerTableRecord
  2
0
 70
0
 62
7
  6
Continuous
  0
ENDTAB
  0
TABLE
  2
BLOCK_RECORD
  5
1
330
0
100
AcDbSymbolTable
 70
1
  0
BLOCK_RECORD
  5
1F
330
1
100
AcDbSymbolTableRecord
100
AcDbBlockTableRecord
  2
*Model_Space
  0
ENDTAB
  0
ENDSEC
  0
SECTION
  2
BLOCKS
  0
BLOCK
  5
20
330
1F
100
AcDbEntity
  8
0
100
AcDbBlockBegin
  2
*Model_Space
 70
0
 10
0.0
 20
0.0
 30
0.0
  3
*Model_Space
  1

  0
ENDBLK
  5
21
330
1F
100
AcDbEntity
  8
0
100
AcDbBlockEnd
  0
ENDSEC
  0
SECTION
  2
ENTITIES
  0
LINE
  5
30
330
1F
100
AcDbEntity
  8
0
100
AcDbLine
 10
1.50
 20
2.0
 30
0.0
 11
10.0
 21
20.0
 31
0.0
  0
CIRCLE
  5
31
102
{ACAD_REACTORS
330
32
102
}
330
1F
100
AcDbEntity
  8
0
100
AcDbCircle
 10
0.0
 20
0.0
 30
0.0
 40
5.0
  0
ENDSEC
  0
SECTION
  2
OBJECTS
  0
DICTIONARY
  5
32
330
0
100
AcDbDictionary
281
1
  0
ENDSEC
  0
EOF
)";

inline std::string withCrlf(std::string_view text) {
  std::string out;
  for (char c : text) {
    if (c == '\n') out += '\r';
    out += c;
  }
  return out;
}

// Group codes without their leading blanks, as some programs write them.
inline std::string withUnpaddedCodes(std::string_view text) {
  std::string out;
  size_t line = 0;
  for (size_t start = 0; start < text.size(); ++line) {
    size_t end = text.find('\n', start);
    std::string_view piece = text.substr(start, end - start);
    if (line % 2 == 0) piece.remove_prefix(std::min(piece.find_first_not_of(' '), piece.size()));
    out += piece;
    out += '\n';
    start = end + 1;
  }
  return out;
}

// Every record of the drawing in file order, header variables included.
inline std::vector<const db::Record*> allRecords(const db::Database& database) {
  std::vector<const db::Record*> list;
  auto add = [&list](const db::Record* record) {
    if (record) list.push_back(record);
  };
  for (const db::Section& section : database.sections()) {
    add(section.begin);
    add(section.header);
    for (const db::Record* each : section.records) add(each);
    for (const db::Table& table : section.tables) {
      add(table.head);
      for (const db::Record* entry : table.entries) add(entry);
      add(table.end);
    }
    for (const db::BlockDefinition& block : section.blocks) {
      add(block.begin);
      for (const db::Record* entity : block.entities) add(entity);
      add(block.end);
    }
    add(section.end);
  }
  add(database.eofRecord());
  return list;
}

}  // namespace korva::test
