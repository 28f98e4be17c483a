// The journal's memory grows with what it keeps, not faster.
#include <malloc.h>

#include "undo_fixture.h"

namespace korva::test {
namespace {

using Kind = db::ChangeJournal::GroupKind;

size_t heapInUse() {
  return mallinfo2().uordblks;
}

// Heap taken by `count` one-group edits of small records, per edit.
size_t bytesPerEdit(db::Database& database, db::Record& record, int count) {
  const size_t before = heapInUse();
  for (int edit = 0; edit < count; ++edit) {
    database.journal().beginGroup(Kind::Command, "MOVE");
    record.setValue(10, std::to_string(edit));
    database.journal().endGroup();
  }
  return (heapInUse() - before) / static_cast<size_t>(count);
}

TEST_F(ReadDrawing, TenThousandSmallEditsTakeMemoryInProportion) {
  const size_t perEditSmall = bytesPerEdit(database(), line(0), 1000);
  const size_t perEditLarge = bytesPerEdit(database(), line(1), 10000);
  // A kept line is its groups and a few words of bookkeeping: well under 2 KiB.
  EXPECT_LT(perEditLarge, 2048u);
  EXPECT_LT(perEditLarge, perEditSmall * 2);
  RecordProperty("bytes_per_edit", static_cast<int>(perEditLarge));

  // Every edit is still there to be taken back.
  for (int step = 0; step < 11000; ++step) ASSERT_TRUE(journal().undoStep());
  EXPECT_TRUE(journal().empty());
  EXPECT_FALSE(line(0).isModified());
  EXPECT_FALSE(line(1).isModified());
}

TEST_F(ReadDrawing, RepeatedEditsOfOneRecordInOneStepKeepOneState) {
  journal().beginGroup(Kind::Command, "STRETCH");
  line(0).setValue(10, "0.5");
  const size_t before = heapInUse();
  for (int edit = 0; edit < 10000; ++edit) line(0).setValue(10, std::to_string(edit % 10));
  EXPECT_LT(heapInUse() - before, 1024u);
  journal().endGroup();
  journal().undoStep();
  EXPECT_FALSE(line(0).isModified());
}

}  // namespace
}  // namespace korva::test
