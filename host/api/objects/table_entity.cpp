// QxDbTable over an ACAD_TABLE record: a block reference (AcDbBlockReference part) with
// the table's own part (AcDbTable): direction (11), rows (91), columns (92), then the
// row heights (141) and column widths (142) ahead of the cells.
#include "entity_members.h"
#include "qx_db_table.h"

namespace m = korva::api::members;

namespace {

constexpr std::string_view kTable = "AcDbTable";

}  // namespace

const QxRxClass* QxDbTable::desc() {
  static const QxRxClass record(L"QxDbTable", QxDbBlockReference::desc(), "ACAD_TABLE");
  return &record;
}

static korva::api::ObjectClassRegistration tableClass("ACAD_TABLE", [] {
  return static_cast<QxDbObject*>(new QxDbTable);
});

QxDbTable::QxDbTable() : QxDbBlockReference("ACAD_TABLE") {
  korva::db::Record& record = m::record(this);
  const double xAxis[3] = {1, 0, 0};
  korva::api::setGroupPoint(record, 11, xAxis, kTable);
  korva::api::setGroupInteger(record, 91, 0, kTable);
  korva::api::setGroupInteger(record, 92, 0, kTable);
}

int QxDbTable::numRows() const {
  return static_cast<int>(m::integer(this, 91, 0, kTable));
}

int QxDbTable::numColumns() const {
  return static_cast<int>(m::integer(this, 92, 0, kTable));
}

double QxDbTable::rowHeight(int row) const {
  if (row < 0 || row >= numRows()) return 0;
  return m::real(this, 141, 0, kTable, row);
}

double QxDbTable::columnWidth(int column) const {
  if (column < 0 || column >= numColumns()) return 0;
  return m::real(this, 142, 0, kTable, column);
}

double QxDbTable::width() const {
  double sum = 0;
  for (int column = 0; column < numColumns(); ++column) sum += columnWidth(column);
  return sum;
}

double QxDbTable::height() const {
  double sum = 0;
  for (int row = 0; row < numRows(); ++row) sum += rowHeight(row);
  return sum;
}

QxGeVector3d QxDbTable::direction() const {
  return m::toVector(m::point(this, 11, kTable, {1, 0, 0}));
}
