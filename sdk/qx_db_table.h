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
};
