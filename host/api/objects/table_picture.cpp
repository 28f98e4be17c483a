#include "table_picture.h"

#include <cmath>
#include <numbers>
#include <string>

#include "block_pictures.h"
#include "db/handle.h"
#include "db/value_text.h"
#include "object_groups.h"
#include "qx_db_text.h"
#include "table_grid.h"

namespace korva::api {

namespace {

using geom::Affine3;
using geom::Vec2;
using geom::Vec3;

constexpr std::string_view kReference = "AcDbBlockReference";

// From the table's own axes (X along its direction, Y up its plane, origin at its top
// left corner) to the coordinates of its block.
struct TableFrame {
  Vec3 along, up, normal;  // world
  Affine3 toBlock;         // from world
  // One map from the table's axes, so that the placement's offset cancels exactly.
  Affine3 tableToBlock;

  Vec3 block(Vec2 p) const { return tableToBlock.point({p.x, p.y, 0}); }
  Vec3 blockVector(Vec3 v) const { return toBlock.vector(v); }
};

void addPoint(std::vector<db::OwnedGroup>& groups, int code, Vec3 p) {
  groups.push_back({code, db::formatReal(p.x)});
  groups.push_back({code + 10, db::formatReal(p.y)});
  groups.push_back({code + 20, db::formatReal(p.z)});
}

std::vector<db::OwnedGroup> pieceStart(std::string_view subclass) {
  return {{100, "AcDbEntity"}, {8, "0"}, {62, "0"}, {100, std::string(subclass)}};
}

std::string newBlockName(db::Database& database) {
  for (int number = 1;; ++number) {
    std::string candidate = "*T" + std::to_string(number);
    if (!database.block(candidate) && !database.tableEntry("BLOCK_RECORD", candidate))
      return candidate;
  }
}

// Where in a box of this size an alignment puts its anchor, from the top left corner.
Vec2 anchorIn(int alignment, double width, double height) {
  int column = (alignment - 1) % 3, row = (alignment - 1) / 3;
  return {width * column / 2, -height * row / 2};
}

class PictureWriter {
 public:
  PictureWriter(db::Database& database, db::BlockDefinition& block, const TableGrid& grid,
                const TableFrame& frame)
      : database_(database), block_(block), grid_(grid), frame_(frame) {
    double x = 0;
    left_.push_back(0);
    for (double width : grid.columnWidths) left_.push_back(x += width);
    double y = 0;
    top_.push_back(0);
    for (double height : grid.rowHeights) top_.push_back(y -= height);
  }

  void draw() {
    int rows = static_cast<int>(grid_.rowHeights.size());
    int columns = static_cast<int>(grid_.columnWidths.size());
    std::vector<int> owners = ownersOf(rows, columns);
    auto owner = [&](int row, int column) { return owners[row * columns + column]; };
    for (int row = 0; row <= rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        if (row == 0 || row == rows || owner(row - 1, column) != owner(row, column))
          line({left_[column], top_[row]}, {left_[column + 1], top_[row]});
      }
    }
    for (int column = 0; column <= columns; ++column) {
      for (int row = 0; row < rows; ++row) {
        if (column == 0 || column == columns || owner(row, column - 1) != owner(row, column))
          line({left_[column], top_[row]}, {left_[column], top_[row + 1]});
      }
    }
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        const TableCell* cell = grid_.cell(row, column);
        if (!cell || cell->covered) continue;
        int lastRow = std::min(rows, row + cell->rowSpan);
        int lastColumn = std::min(columns, column + cell->columnSpan);
        // The cell's box less the margins: left, top, width, height.
        double x = left_[column] + grid_.horizontalMargin;
        double y = top_[row] - grid_.verticalMargin;
        double width = left_[lastColumn] - left_[column] - 2 * grid_.horizontalMargin;
        double height = top_[row] - top_[lastRow] - 2 * grid_.verticalMargin;
        if (cell->type == 1 && !cell->text.empty()) text(*cell, {x, y}, width, height);
        if (cell->type == 2) reference(*cell, {x, y}, width, height);
      }
    }
  }

  // A cell's paragraph text, its box less the margins given by the top left corner.
  std::vector<db::OwnedGroup> textGroups(const TableCell& cell, Vec2 corner, double width,
                                         double height) const {
    Vec2 anchor = corner + anchorIn(cell.alignment, width, height);
    std::vector<db::OwnedGroup> groups = pieceStart("AcDbMText");
    addPoint(groups, 10, frame_.block(anchor));
    groups.push_back({40, db::formatReal(cell.textHeight)});
    groups.push_back({41, db::formatReal(std::max(0.0, width))});
    groups.push_back({71, std::to_string(cell.alignment)});
    groups.push_back({72, "1"});
    std::vector<std::string> chunks = textChunks(cell.text);
    for (size_t i = 0; i < chunks.size(); ++i)
      groups.push_back({i + 1 < chunks.size() ? 3 : 1, chunks[i]});
    groups.push_back({7, cell.textStyle});
    addPoint(groups, 210, blockNormal());
    addPoint(groups, 11, frame_.blockVector(frame_.along));
    return groups;
  }

 private:
  // Each place of the grid names the cell that covers it.
  std::vector<int> ownersOf(int rows, int columns) const {
    std::vector<int> owners(static_cast<size_t>(rows * columns));
    for (int i = 0; i < rows * columns; ++i) owners[i] = i;
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        const TableCell* cell = grid_.cell(row, column);
        if (!cell || cell->covered) continue;
        for (int r = row; r < std::min(rows, row + cell->rowSpan); ++r) {
          for (int c = column; c < std::min(columns, column + cell->columnSpan); ++c)
            owners[r * columns + c] = row * columns + column;
        }
      }
    }
    return owners;
  }

  void add(std::string_view type, std::vector<db::OwnedGroup> groups) {
    database_.addEntity(std::move(groups), type, &block_);
  }

  void line(Vec2 start, Vec2 end) {
    std::vector<db::OwnedGroup> groups = pieceStart("AcDbLine");
    addPoint(groups, 10, frame_.block(start));
    addPoint(groups, 11, frame_.block(end));
    addPoint(groups, 210, blockNormal());
    add("LINE", std::move(groups));
  }

  void text(const TableCell& cell, Vec2 corner, double width, double height) {
    add("MTEXT", textGroups(cell, corner, width, height));
  }

  void reference(const TableCell& cell, Vec2 corner, double width, double height) {
    db::Record* record = database_.lookup(cell.block);
    if (!record || record->type() != "BLOCK_RECORD" || record->isErased()) return;
    std::string name(groupText(*record, 2).value_or(""));
    db::BlockDefinition* shown = database_.block(name);
    if (!shown) return;
    Vec3 base = basePointOf(*shown);
    geom::SpaceBox box;
    addBlockExtents(database_, name, Affine3::identity(), box);
    double scale = cell.blockScale;
    Vec2 low{base.x, base.y}, high{base.x, base.y};
    if (!box.empty()) {
      low = {box.min.x, box.min.y};
      high = {box.max.x, box.max.y};
      double boxWidth = high.x - low.x, boxHeight = high.y - low.y;
      if (cell.autoFit && boxWidth > 0 && boxHeight > 0)
        scale = std::min(width / boxWidth, height / boxHeight);
    }
    // The block's box, scaled about its base, aligned in the cell as its text would be.
    Vec2 topLeft = Vec2{low.x - base.x, high.y - base.y} * scale;
    Vec2 size = (high - low) * scale;
    Vec2 at = corner + anchorIn(cell.alignment, width, height) -
              (topLeft + anchorIn(cell.alignment, size.x, size.y));
    Vec3 normal = blockNormal();
    Affine3 toObject = geom::objectToWorld(normal).inverse();
    Vec3 direction = toObject.vector(frame_.blockVector(frame_.along));
    std::vector<db::OwnedGroup> groups = pieceStart(kReference);
    groups.push_back({2, name});
    addPoint(groups, 10, toObject.point(frame_.block(at)));
    groups.push_back({41, db::formatReal(scale)});
    groups.push_back({42, db::formatReal(scale)});
    groups.push_back({43, db::formatReal(scale)});
    groups.push_back(
        {50, db::formatReal(std::atan2(direction.y, direction.x) * 180 / std::numbers::pi)});
    addPoint(groups, 210, normal);
    add("INSERT", std::move(groups));
  }

  Vec3 blockNormal() const { return geom::normalized(frame_.blockVector(frame_.normal)); }

  db::Database& database_;
  db::BlockDefinition& block_;
  const TableGrid& grid_;
  const TableFrame& frame_;
  std::vector<double> left_, top_;
};

// The height a paragraph text of these groups takes.
double paragraphHeight(db::Database& database, std::vector<db::OwnedGroup> groups) {
  QxDbObject* view = newDetachedView(database, "MTEXT", std::move(groups));
  const QxDbMText* text = QxDbMText::cast(view);
  double height = text ? text->actualHeight() : 0;
  delete view;
  return height;
}

// Rows grow, and never shrink, to hold their texts with the margins; the record's row
// heights (141) are written when one grew.
void fitRows(db::Database& database, db::Record& table, TableGrid& grid,
             const PictureWriter& writer) {
  int columns = static_cast<int>(grid.columnWidths.size());
  bool grown = false;
  for (size_t row = 0; row < grid.rowHeights.size(); ++row) {
    for (int column = 0; column < columns; ++column) {
      const TableCell* cell = grid.cell(static_cast<int>(row), column);
      if (!cell || cell->covered || cell->type != 1 || cell->text.empty() || cell->rowSpan != 1)
        continue;
      int lastColumn = std::min(columns, column + cell->columnSpan);
      double width = -2 * grid.horizontalMargin;
      for (int c = column; c < lastColumn; ++c) width += grid.columnWidths[c];
      double needed = paragraphHeight(database, writer.textGroups(*cell, {}, width, 0)) +
                      2 * grid.verticalMargin;
      if (needed > grid.rowHeights[row] * (1 + 1e-12)) {
        grid.rowHeights[row] = needed;
        grown = true;
      }
    }
  }
  if (!grown) return;
  std::vector<db::OwnedGroup> groups = table.ownedGroups();
  size_t row = 0;
  for (size_t i = grid.partBegin; i < grid.partEnd && row < grid.rowHeights.size(); ++i) {
    if (groups[i].code == 171) break;
    if (groups[i].code == 141) groups[i].value = db::formatReal(grid.rowHeights[row++]);
  }
  table.assign(std::move(groups));
}

}  // namespace

bool redrawTablePicture(db::Database& database, db::Record& table) {
  if (table.type() != "ACAD_TABLE") return false;
  std::string name(groupText(table, 2, kReference).value_or(""));
  db::BlockDefinition* block = name.empty() ? nullptr : database.block(name);
  if (!block) {
    // A name no block has yet is kept.
    if (name.empty() || database.tableEntry("BLOCK_RECORD", name)) name = newBlockName(database);
    block = database.addBlock(name);
    if (!block) return false;
    block->begin->setValue(70, "1");
    setGroupText(table, 2, name, kReference);
  }
  std::optional<BlockPicture> picture = pictureOf(database, table);
  if (!picture || picture->placements.size() != 1) return false;
  TableGrid grid = readTableGrid(&database, table.ownedGroups());

  TableFrame frame;
  const Affine3& placement = picture->placements[0];
  frame.toBlock = placement.inverse();
  Vec3 origin = placement.point(basePointOf(*block));
  frame.normal = geom::length(grid.normal) > 0 ? geom::normalized(grid.normal) : Vec3{0, 0, 1};
  Vec3 along = grid.direction - frame.normal * geom::dot(grid.direction, frame.normal);
  if (geom::length(along) < 1e-12) along = geom::objectToWorld(frame.normal).vector({1, 0, 0});
  frame.along = geom::normalized(along);
  frame.up = geom::cross(frame.normal, frame.along);
  frame.tableToBlock =
      frame.toBlock * Affine3::fromAxes(frame.along, frame.up, frame.normal, origin);

  for (db::Record* record : block->entities) {
    if (!record->isErased()) database.setErased(*record, true);
  }
  fitRows(database, table, grid, PictureWriter(database, *block, grid, frame));
  PictureWriter(database, *block, grid, frame).draw();
  return true;
}

}  // namespace korva::api
