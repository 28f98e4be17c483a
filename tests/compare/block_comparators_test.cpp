// Verdicts on block references: placement, attributes through the master comparison,
// and the referenced block by name and content.
#include "compare/file_compare_utils.h"
#include "compare_drawing.h"

namespace korva::test {
namespace {

class BlockComparatorsTest : public CompareDrawingTest {
 protected:
  void SetUp() override {
    CompareDrawingTest::SetUp();
    defineBlock(L"Door", 10);
    defineBlock(L"Window", 10);
  }
  int compare(QxDbObjectId oldId, QxDbObjectId newId) {
    const int verdict = utils_.CompareEntities(oldId, newId);
    EXPECT_EQ(qxdbOpenObjectCount(), 0u);
    return verdict;
  }
  // A block of one line and one attribute definition.
  static void defineBlock(const wchar_t* name, double length) {
    const double origin[3] = {0, 0, 0};
    const double end[3] = {length, 0, 0};
    ResultBuffer* head = qxutBuildList(RTDXF0, L"BLOCK", 2, name, 70, 2, 10, origin, RTNONE);
    ResultBuffer* line = qxutBuildList(RTDXF0, L"LINE", 10, origin, 11, end, RTNONE);
    ResultBuffer* definition = qxutBuildList(RTDXF0, L"ATTDEF", 10, origin, 40, 1.0, 1, L"", 3,
                                             L"Mark?", 2, L"MARK", 70, 0, RTNONE);
    ResultBuffer* tail = qxutBuildList(RTDXF0, L"ENDBLK", RTNONE);
    for (ResultBuffer* list : {head, line, definition, tail}) {
      EXPECT_EQ(qxdbEntMake(list), RTNORM);
      qxutRelRb(list);
    }
  }
  // A reference with one attribute of that value, or none.
  static QxDbObjectId insert(const wchar_t* block, double scale, const wchar_t* mark) {
    const double at[3] = {5, 5, 0};
    if (!mark) {
      return make(qxutBuildList(RTDXF0, L"INSERT", 2, block, 10, at, 41, scale, 42, scale, 43,
                                scale, RTNONE));
    }
    ResultBuffer* head = qxutBuildList(RTDXF0, L"INSERT", 66, 1, 2, block, 10, at, 41, scale, 42,
                                       scale, 43, scale, RTNONE);
    ResultBuffer* attribute =
        qxutBuildList(RTDXF0, L"ATTRIB", 10, at, 40, 1.0, 1, mark, 2, L"MARK", 70, 0, RTNONE);
    return makeSequence(head, {attribute});
  }
  VnFileCompareUtils utils_;
};

TEST_F(BlockComparatorsTest, PlacementAndTheBlockDecide) {
  const QxDbObjectId door = insert(L"Door", 1, nullptr);
  EXPECT_EQ(compare(door, insert(L"Door", 1, nullptr)), kVerdictSame);
  EXPECT_EQ(compare(door, insert(L"Door", 2, nullptr)), kVerdictModified);
  // Same content under another name.
  EXPECT_EQ(compare(door, insert(L"Window", 1, nullptr)), kVerdictModified);
}

TEST_F(BlockComparatorsTest, AChangedAttributeValueModifiesTheReference) {
  const QxDbObjectId first = insert(L"Door", 1, L"D1");
  EXPECT_EQ(compare(first, insert(L"Door", 1, L"D1")), kVerdictSame);
  EXPECT_EQ(compare(first, insert(L"Door", 1, L"D2")), kVerdictModified);
  // An attribute more on one side.
  EXPECT_EQ(compare(first, insert(L"Door", 1, nullptr)), kVerdictModified);
}

}  // namespace
}  // namespace korva::test
