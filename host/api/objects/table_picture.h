// A table's picture: the anonymous block its reference part names, drawn anew from the
// record whenever a cell changes, so that the block, the written file and the box agree
// with the cells.
//
// The table's top left corner stands at its position, X along its direction, rows
// downward. Every edge between two different cells and around the table is a line; a
// text cell is a paragraph text attached as the cell aligns, inset by the margins and
// wrapped at the column's width less the margins; a block cell is a reference to its
// block at its scale (fitted into the inset cell when it fits automatically), its box
// aligned as the cell aligns. The pieces are on layer 0 and take their colour from the
// table (by block).
#pragma once

#include "db/database.h"

namespace korva::api {

// Replaces the block's entities (erased, so that undo brings them back); makes a new
// "*T" block when the record names none that exists. False when the record is no
// table of the database.
bool redrawTablePicture(db::Database& database, db::Record& table);

}  // namespace korva::api
