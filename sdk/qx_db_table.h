// A table: rows and columns of cells, drawn through an anonymous block like a block
// reference. Cell texts are kept as written, format codes and all; writing a cell draws
// the block anew.
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

  // Cell sizes and placing that the cell sets, else its table style's: the text height,
  // and where its contents attach (as paragraph texts do, 1 top left to 9 bottom right).
  enum CellAlignment : int {
    kTopLeft = 1,
    kTopCenter,
    kTopRight,
    kMiddleLeft,
    kMiddleCenter,
    kMiddleRight,
    kBottomLeft,
    kBottomCenter,
    kBottomRight
  };
  double textHeight(int row, int column) const;  // 0 out of range
  CellAlignment alignment(int row, int column) const;

  // Writers of one cell. Each redraws the table's picture (its anonymous block) from
  // the record, so that the block, the file written and the box show the new contents.
  // A cell out of range gives eInvalidIndex; a table open for read, eNotOpenForWrite.
  // The text of a text cell (eNotApplicable for a block cell).
  Qxad::ErrorStatus setTextString(int row, int column, const wchar_t* text);
  Qxad::ErrorStatus setTextHeight(int row, int column, double height);  // > 0
  Qxad::ErrorStatus setAlignment(int row, int column, CellAlignment alignment);
  // The block a block cell shows (eNotApplicable for a text cell): a block of the same
  // drawing that is no layout (eInvalidInput otherwise). With autoFit the block is
  // scaled to fill the cell inside its margins.
  Qxad::ErrorStatus setBlockTableRecordId(int row, int column, QxDbObjectId blockId,
                                          bool autoFit = false);
  // Draws the picture anew from the record, after the record was changed through the
  // flat layer.
  Qxad::ErrorStatus recomputeTableBlock();

  // Moves the table and its picture; sizes scale along. Only shape-keeping maps
  // (eNotApplicable otherwise).
  Qxad::ErrorStatus transformBy(const QxGeMatrix3d& matrix) override;
};
