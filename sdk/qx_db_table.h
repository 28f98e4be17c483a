// A table: rows and columns of cells, drawn through an anonymous block like a block
// reference. Cell contents are kept whole and not interpreted.
#pragma once

#include "qx_db_block_reference.h"
#include "qx_ge.h"

class QxDbTable : public QxDbBlockReference {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbTable)
  QxDbTable();

  int numRows() const;
  int numColumns() const;
  double rowHeight(int row) const;       // 0 out of range
  double columnWidth(int column) const;  // 0 out of range
  double width() const;                  // the columns' widths added up
  double height() const;                 // the rows' heights added up
  QxGeVector3d direction() const;        // the table's X axis in world coordinates

  // Cells count row by row from 0. A text cell's string (the caller frees it with
  // qxad_free), or null for a block cell or a cell out of range.
  enum CellType : int { kUnknownCell = 0, kTextCell = 1, kBlockCell = 2 };
  CellType cellType(int row, int column) const;
  wchar_t* textString(int row, int column) const;
  // The block table record a block cell shows; null otherwise.
  QxDbObjectId blockTableRecordId(int row, int column) const;

  // Moves the table and its picture; sizes scale along. Only shape-keeping maps
  // (eNotApplicable otherwise).
  Qxad::ErrorStatus transformBy(const QxGeMatrix3d& matrix) override;
};
