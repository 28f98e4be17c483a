// Writing the cells of a QxDbTable: each writer changes the cell's groups in place and
// then redraws the table's picture (table_picture.h).
#include "db/handle.h"
#include "db/value_text.h"
#include "entity_members.h"
#include "qx_db_table.h"
#include "table_grid.h"
#include "table_picture.h"

namespace m = korva::api::members;

namespace {

using Groups = std::vector<korva::db::OwnedGroup>;

// Replaces the groups of one cell with what `edit` makes of them, then redraws.
template <typename Edit>
Qxad::ErrorStatus editCell(QxDbTable* table, int row, int column, Edit edit) {
  if (Qxad::ErrorStatus status = table->assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::db::Record& record = m::record(table);
  korva::db::Database* database = korva::api::databaseOf(*table);
  Groups groups = record.ownedGroups();
  korva::api::TableGrid grid = korva::api::readTableGrid(database, groups);
  const korva::api::TableCell* cell = grid.cell(row, column);
  if (!cell) return Qxad::eInvalidIndex;
  Groups cellGroups(groups.begin() + static_cast<long>(cell->begin),
                    groups.begin() + static_cast<long>(cell->end));
  if (Qxad::ErrorStatus status = edit(*cell, cellGroups); status != Qxad::eOk) return status;
  Groups changed(groups.begin(), groups.begin() + static_cast<long>(cell->begin));
  changed.insert(changed.end(), cellGroups.begin(), cellGroups.end());
  changed.insert(changed.end(), groups.begin() + static_cast<long>(cell->end), groups.end());
  record.assign(std::move(changed));
  m::changed(table);
  if (database) korva::api::redrawTablePicture(*database, record);
  return Qxad::eOk;
}

// Sets the first group with the code, or adds it at the end of the cell.
void setCellValue(Groups& cell, int code, std::string value) {
  for (korva::db::OwnedGroup& group : cell) {
    if (group.code == code) {
      group.value = std::move(value);
      return;
    }
  }
  cell.push_back({code, std::move(value)});
}

// Replaces a text held as chunks of `chunkCode` ended by one `endCode`, where it
// stands; false when the cell holds no such text.
bool replaceChunkedText(Groups& cell, int chunkCode, int endCode, std::string_view text) {
  size_t first = cell.size(), last = cell.size();
  for (size_t i = 0; i < cell.size(); ++i) {
    if (cell[i].code == chunkCode && first == cell.size()) first = i;
    if (cell[i].code == endCode) {
      last = i;
      break;
    }
  }
  if (last == cell.size()) return false;
  if (first > last) first = last;
  std::vector<std::string> chunks = korva::api::textChunks(text);
  Groups pieces;
  for (size_t i = 0; i < chunks.size(); ++i)
    pieces.push_back({i + 1 < chunks.size() ? chunkCode : endCode, chunks[i]});
  cell.erase(cell.begin() + static_cast<long>(first), cell.begin() + static_cast<long>(last) + 1);
  cell.insert(cell.begin() + static_cast<long>(first), pieces.begin(), pieces.end());
  return true;
}

}  // namespace

double QxDbTable::textHeight(int row, int column) const {
  korva::api::TableGrid grid =
      korva::api::readTableGrid(korva::api::databaseOf(*this), m::record(this).ownedGroups());
  const korva::api::TableCell* cell = grid.cell(row, column);
  return cell ? cell->textHeight : 0;
}

QxDbTable::CellAlignment QxDbTable::alignment(int row, int column) const {
  korva::api::TableGrid grid =
      korva::api::readTableGrid(korva::api::databaseOf(*this), m::record(this).ownedGroups());
  const korva::api::TableCell* cell = grid.cell(row, column);
  return static_cast<CellAlignment>(cell ? cell->alignment : kTopCenter);
}

Qxad::ErrorStatus QxDbTable::setTextString(int row, int column, const wchar_t* text) {
  if (!text) return Qxad::eInvalidInput;
  std::string value = m::drawing(this, text);
  return editCell(this, row, column, [&](const korva::api::TableCell& cell, Groups& groups) {
    if (cell.type == kBlockCell) return Qxad::eNotApplicable;
    // Older files keep the text in 2 and 1 groups, newer ones in the cell's value (303
    // and 302); both are kept in step.
    bool plain = replaceChunkedText(groups, 2, 1, value);
    bool formatted = replaceChunkedText(groups, 303, 302, value);
    if (!plain && !formatted) {
      std::vector<std::string> chunks = korva::api::textChunks(value);
      for (size_t i = 0; i < chunks.size(); ++i)
        groups.push_back({i + 1 < chunks.size() ? 2 : 1, chunks[i]});
    }
    return Qxad::eOk;
  });
}

Qxad::ErrorStatus QxDbTable::setTextHeight(int row, int column, double height) {
  if (!(height > 0)) return Qxad::eInvalidInput;
  return editCell(this, row, column, [&](const korva::api::TableCell&, Groups& groups) {
    setCellValue(groups, 140, korva::db::formatReal(height));
    return Qxad::eOk;
  });
}

Qxad::ErrorStatus QxDbTable::setAlignment(int row, int column, CellAlignment alignment) {
  if (alignment < kTopLeft || alignment > kBottomRight) return Qxad::eInvalidInput;
  return editCell(this, row, column, [&](const korva::api::TableCell&, Groups& groups) {
    setCellValue(groups, 170, std::to_string(static_cast<int>(alignment)));
    return Qxad::eOk;
  });
}

Qxad::ErrorStatus QxDbTable::setBlockTableRecordId(int row, int column, QxDbObjectId blockId,
                                                   bool autoFit) {
  korva::db::Database* database = korva::api::databaseOf(*this);
  korva::db::Database* owner = nullptr;
  korva::db::Record* block = database ? korva::api::recordOf(blockId, &owner) : nullptr;
  if (!block || owner != database || block->type() != "BLOCK_RECORD" || block->isErased())
    return Qxad::eInvalidInput;
  // Layouts draw spaces, not pictures.
  std::string_view name = korva::api::groupText(*block, 2).value_or("");
  if (name.size() > 1 && name.front() == '*' &&
      (name[1] == 'M' || name[1] == 'm' || name[1] == 'P' || name[1] == 'p'))
    return Qxad::eInvalidInput;
  return editCell(this, row, column, [&](const korva::api::TableCell& cell, Groups& groups) {
    if (cell.type != kBlockCell) return Qxad::eNotApplicable;
    setCellValue(groups, 340, korva::db::formatHandle(block->handle()));
    setCellValue(groups, 174, autoFit ? "1" : "0");
    return Qxad::eOk;
  });
}

Qxad::ErrorStatus QxDbTable::recomputeTableBlock() {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::db::Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  if (!korva::api::redrawTablePicture(*database, m::record(this))) return Qxad::eInvalidInput;
  m::changed(this);
  return Qxad::eOk;
}
