#include "table_grid.h"

#include "db/handle.h"
#include "db/value_text.h"
#include "object_groups.h"

namespace korva::api {

namespace {

constexpr double kDefaultTextHeight = 0.18;
constexpr int kDefaultAlignment = 2;

double realOf(const db::OwnedGroup& group, double fallback) {
  return db::parseReal(group.value).value_or(fallback);
}
long long integerOf(const db::OwnedGroup& group, long long fallback) {
  return db::parseInteger(group.value).value_or(fallback);
}

// What cells take from the table style when they don't set it.
struct StyleDefaults {
  double textHeight = kDefaultTextHeight;
  int alignment = kDefaultAlignment;
  std::string textStyle = "Standard";
  double horizontalMargin = 0.06, verticalMargin = 0.06;
};

StyleDefaults defaultsOf(const db::Database* database, db::Handle styleHandle) {
  StyleDefaults defaults;
  const db::Record* style = database ? database->lookup(styleHandle) : nullptr;
  if (!style || style->type() != "TABLESTYLE") return defaults;
  defaults.textHeight = groupReal(*style, 140, defaults.textHeight);
  defaults.alignment = static_cast<int>(groupInteger(*style, 170, defaults.alignment));
  defaults.textStyle = std::string(groupText(*style, 7).value_or(defaults.textStyle));
  defaults.horizontalMargin = groupReal(*style, 40, defaults.horizontalMargin);
  defaults.verticalMargin = groupReal(*style, 41, defaults.verticalMargin);
  return defaults;
}

void readCell(const std::vector<db::OwnedGroup>& groups, const StyleDefaults& defaults,
              TableCell& cell) {
  cell.type = static_cast<int>(integerOf(groups[cell.begin], 0));
  cell.textHeight = defaults.textHeight;
  cell.alignment = defaults.alignment;
  cell.textStyle = defaults.textStyle;
  std::string chunks, formattedChunks, formatted;
  bool ended = false, formattedEnded = false;
  for (size_t i = cell.begin + 1; i < cell.end; ++i) {
    const db::OwnedGroup& group = groups[i];
    switch (group.code) {
      case 2:
        if (!ended) chunks += group.value;
        break;
      case 1:
        if (!ended) cell.text = chunks + group.value;
        ended = true;
        break;
      case 303:
        if (!formattedEnded) formattedChunks += group.value;
        break;
      case 302:
        if (!formattedEnded) formatted = formattedChunks + group.value;
        formattedEnded = true;
        break;
      case 7:
        cell.textStyle = group.value;
        break;
      case 140:
        cell.textHeight = realOf(group, cell.textHeight);
        break;
      case 170: {
        long long alignment = integerOf(group, cell.alignment);
        if (alignment >= 1 && alignment <= 9) cell.alignment = static_cast<int>(alignment);
        break;
      }
      case 174:
        cell.autoFit = integerOf(group, 0) != 0;
        break;
      case 175:
        cell.columnSpan = std::max(1, static_cast<int>(integerOf(group, 1)));
        break;
      case 176:
        cell.rowSpan = std::max(1, static_cast<int>(integerOf(group, 1)));
        break;
      case 340:
        cell.block = db::parseHandle(group.value).value_or(db::kNoHandle);
        break;
      case 144:
        cell.blockScale = realOf(group, 1);
        break;
      default:
        break;
    }
  }
  if (!ended) cell.text = formatted;
}

}  // namespace

std::vector<std::string> textChunks(std::string_view text) {
  constexpr size_t kChunk = 250;
  std::vector<std::string> chunks;
  while (text.size() > kChunk) {
    size_t cut = kChunk;
    while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80) --cut;
    if (cut == 0) cut = kChunk;
    chunks.emplace_back(text.substr(0, cut));
    text.remove_prefix(cut);
  }
  chunks.emplace_back(text);
  return chunks;
}

const TableCell* TableGrid::cell(int row, int column) const {
  int columns = static_cast<int>(columnWidths.size());
  if (row < 0 || column < 0 || row >= static_cast<int>(rowHeights.size()) || column >= columns)
    return nullptr;
  size_t index =
      static_cast<size_t>(row) * static_cast<size_t>(columns) + static_cast<size_t>(column);
  return index < cells.size() ? &cells[index] : nullptr;
}

TableCell* TableGrid::cell(int row, int column) {
  return const_cast<TableCell*>(static_cast<const TableGrid*>(this)->cell(row, column));
}

TableGrid readTableGrid(const db::Database* database, const std::vector<db::OwnedGroup>& groups) {
  TableGrid grid;
  grid.partBegin = grid.partEnd = groups.size();
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code == 100 && groups[i].value == "AcDbTable") {
      grid.partBegin = i + 1;
      break;
    }
  }
  for (size_t i = grid.partBegin; i < groups.size(); ++i) {
    if (groups[i].code == 100 || groups[i].code >= 1000) break;
    grid.partEnd = i + 1;
  }
  // The placement lives in the reference's part, before the table's.
  double point[3];
  auto vec = [](const double p[3]) { return geom::Vec3{p[0], p[1], p[2]}; };
  db::Record record("ACAD_TABLE",
                    std::vector<db::OwnedGroup>(groups.begin(), groups.begin() + grid.partEnd));
  if (groupPoint(record, 10, point, "AcDbBlockReference")) grid.position = vec(point);
  if (groupPoint(record, 210, point, "AcDbBlockReference")) grid.normal = vec(point);
  if (groupPoint(record, 11, point, "AcDbTable")) grid.direction = vec(point);

  long long rows = -1, columns = -1;
  db::Handle style = db::kNoHandle;
  size_t firstCell = grid.partEnd;
  for (size_t i = grid.partBegin; i < grid.partEnd; ++i) {
    const db::OwnedGroup& group = groups[i];
    if (group.code == 171) {
      firstCell = i;
      break;
    }
    if (group.code == 91 && rows < 0) rows = integerOf(group, 0);
    if (group.code == 92 && columns < 0) columns = integerOf(group, 0);
    if (group.code == 141) grid.rowHeights.push_back(realOf(group, 0));
    if (group.code == 142) grid.columnWidths.push_back(realOf(group, 0));
    if (group.code == 342) style = db::parseHandle(group.value).value_or(db::kNoHandle);
  }
  grid.rowHeights.resize(static_cast<size_t>(std::max(0LL, rows)), 0);
  grid.columnWidths.resize(static_cast<size_t>(std::max(0LL, columns)), 0);
  StyleDefaults defaults = defaultsOf(database, style);
  grid.horizontalMargin = defaults.horizontalMargin;
  grid.verticalMargin = defaults.verticalMargin;

  for (size_t i = firstCell; i < grid.partEnd; ++i) {
    if (groups[i].code != 171) continue;
    if (!grid.cells.empty()) grid.cells.back().end = i;
    TableCell cell;
    cell.begin = i;
    cell.end = grid.partEnd;
    grid.cells.push_back(cell);
  }
  for (TableCell& cell : grid.cells) readCell(groups, defaults, cell);

  // Spans cover the cells to the right and below.
  int columnCount = static_cast<int>(grid.columnWidths.size());
  int rowCount = static_cast<int>(grid.rowHeights.size());
  for (int row = 0; row < rowCount; ++row) {
    for (int column = 0; column < columnCount; ++column) {
      const TableCell* spanning = grid.cell(row, column);
      if (!spanning || spanning->covered) continue;
      for (int r = row; r < std::min(rowCount, row + spanning->rowSpan); ++r) {
        for (int c = column; c < std::min(columnCount, column + spanning->columnSpan); ++c) {
          TableCell* inside = grid.cell(r, c);
          if (inside && (r != row || c != column)) inside->covered = true;
        }
      }
    }
  }
  return grid;
}

}  // namespace korva::api
