// The cells of a QxDbTable, read from the table's part in order: each cell's groups
// start at its type (171), row by row. A text cell holds its string in 2-group chunks
// ended by a 1 group, or, as newer files write it, in 303-group chunks ended by a 302.
#include "db/handle.h"
#include "db/value_text.h"
#include "entity_members.h"
#include "qx_db_table.h"
#include "qx_memory.h"
#include "repeated_groups.h"

namespace m = korva::api::members;

namespace {

constexpr std::string_view kTable = "AcDbTable";

struct Cell {
  size_t begin = 0, end = 0;  // in the part's groups
};

std::vector<Cell> cellsOf(const std::vector<korva::db::Group>& part) {
  std::vector<Cell> cells;
  for (size_t i = 0; i < part.size(); ++i) {
    if (part[i].code != 171) continue;
    if (!cells.empty()) cells.back().end = i;
    cells.push_back({i, part.size()});
  }
  return cells;
}

// The cell's groups, or nothing for a cell out of range.
std::optional<std::vector<korva::db::Group>> cellGroups(const QxDbTable* table, int row,
                                                        int column) {
  if (row < 0 || column < 0 || row >= table->numRows() || column >= table->numColumns())
    return std::nullopt;
  std::vector<korva::db::Group> part =
      korva::api::partGroups(m::record(table), m::part(table, kTable));
  std::vector<Cell> cells = cellsOf(part);
  size_t index = static_cast<size_t>(row) * static_cast<size_t>(table->numColumns()) +
                 static_cast<size_t>(column);
  if (index >= cells.size()) return std::nullopt;
  return std::vector<korva::db::Group>(part.begin() + static_cast<long>(cells[index].begin),
                                       part.begin() + static_cast<long>(cells[index].end));
}

}  // namespace

QxDbTable::CellType QxDbTable::cellType(int row, int column) const {
  std::optional<std::vector<korva::db::Group>> cell = cellGroups(this, row, column);
  if (!cell) return kUnknownCell;
  long long type = korva::db::parseInteger(cell->front().value).value_or(0);
  return type == 1 ? kTextCell : type == 2 ? kBlockCell : kUnknownCell;
}

wchar_t* QxDbTable::textString(int row, int column) const {
  std::optional<std::vector<korva::db::Group>> cell = cellGroups(this, row, column);
  if (!cell || korva::db::parseInteger(cell->front().value).value_or(0) == 2) return nullptr;
  std::string chunks, text, formattedChunks, formatted;
  bool ended = false, formattedEnded = false;
  for (const korva::db::Group& group : *cell) {
    if (group.code == 2 && !ended) chunks += group.value;
    if (group.code == 1 && !ended) {
      text = chunks + std::string(group.value);
      ended = true;
    }
    if (group.code == 303 && !formattedEnded) formattedChunks += group.value;
    if (group.code == 302 && !formattedEnded) {
      formatted = formattedChunks + std::string(group.value);
      formattedEnded = true;
    }
  }
  return qxutNewString(m::wide(this, ended ? text : formatted).c_str());
}

QxDbObjectId QxDbTable::blockTableRecordId(int row, int column) const {
  std::optional<std::vector<korva::db::Group>> cell = cellGroups(this, row, column);
  korva::db::Database* database = korva::api::databaseOf(*this);
  if (!cell || !database || korva::db::parseInteger(cell->front().value).value_or(0) != 2)
    return QxDbObjectId::kNull;
  for (const korva::db::Group& group : *cell) {
    if (group.code != 340) continue;
    korva::db::Record* block = database->lookup(korva::db::parseHandle(group.value).value_or(0));
    if (block && block->type() == "BLOCK_RECORD") return korva::api::idOf(*database, *block);
  }
  return QxDbObjectId::kNull;
}
