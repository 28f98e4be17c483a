// A table's record read as a grid: placement, row heights, column widths and the
// cells with what each shows, with the positions of each cell's groups in the record so
// that writers can change one cell in place.
//
// A cell's groups run from its type (171) to the next cell's type or the end of the
// table's part. Sizes, alignment and style a cell doesn't set itself come from the
// table style (342): its margins (40, 41) and its first cell style (7, 140, 170); without
// a style the defaults are a text height of 0.18, margins of 0.06 and top-center
// alignment.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "db/database.h"
#include "geom/vec.h"

namespace korva::api {

struct TableCell {
  int type = 0;               // 1 text, 2 block
  size_t begin = 0, end = 0;  // the cell's groups in the record's group list
  int columnSpan = 1, rowSpan = 1;
  bool covered = false;  // inside another cell's span: draws nothing of its own
  std::string text;      // as the drawing spells it
  double textHeight = 0;
  int alignment = 2;  // 1 to 9 as paragraph texts attach: top, middle, bottom rows
  std::string textStyle;
  db::Handle block = db::kNoHandle;
  double blockScale = 1;
  bool autoFit = false;
};

struct TableGrid {
  geom::Vec3 position, direction{1, 0, 0}, normal{0, 0, 1};
  std::vector<double> rowHeights, columnWidths;
  std::vector<TableCell> cells;  // row by row; fewer than rows times columns when short
  double horizontalMargin = 0.06, verticalMargin = 0.06;
  size_t partBegin = 0, partEnd = 0;  // the table's part (after its marker)

  const TableCell* cell(int row, int column) const;
  TableCell* cell(int row, int column);
};

// A long text in pieces of at most 250 bytes, not cut inside a UTF-8 character: the
// chunks files hold text in (all but the last in one code, the last in another).
std::vector<std::string> textChunks(std::string_view text);

// The groups of the record are read from `groups`, which the caller may then edit by
// the positions the grid gives.
TableGrid readTableGrid(const db::Database* database, const std::vector<db::OwnedGroup>& groups);

}  // namespace korva::api
