// Verdicts on texts and mtext: strings are exact and case-sensitive, styles are
// compared by name.
#include "compare/file_compare_utils.h"
#include "compare_drawing.h"

namespace korva::test {
namespace {

class TextComparatorsTest : public CompareDrawingTest {
 protected:
  int compare(QxDbObjectId oldId, QxDbObjectId newId) {
    const int verdict = utils_.CompareEntities(oldId, newId);
    EXPECT_EQ(qxdbOpenObjectCount(), 0u);
    return verdict;
  }
  QxDbObjectId text(const wchar_t* value, double height = 2.5, const wchar_t* layer = L"0") {
    return make(
        qxutBuildList(RTDXF0, L"TEXT", 8, layer, 10, origin_, 40, height, 1, value, RTNONE));
  }
  QxDbObjectId mtext(const wchar_t* contents, double width = 40) {
    return make(qxutBuildList(RTDXF0, L"MTEXT", 100, L"AcDbEntity", 100, L"AcDbMText", 10, origin_,
                              40, 2.5, 41, width, 1, contents, RTNONE));
  }
  const double origin_[3] = {5, 5, 0};
  VnFileCompareUtils utils_;
};

TEST_F(TextComparatorsTest, TextStringsAreCaseSensitiveWhileLayersAreNot) {
  const QxDbObjectId door = text(L"Door", 2.5, L"Doors");
  EXPECT_EQ(compare(door, text(L"Door", 2.5, L"DOORS")), kVerdictSame);
  EXPECT_EQ(compare(door, text(L"DOOR", 2.5, L"Doors")), kVerdictModified);
  EXPECT_EQ(compare(door, text(L"Door", 3.5, L"Doors")), kVerdictModified);
}

TEST_F(TextComparatorsTest, MTextComparesContentsAndWrappingWidth) {
  const QxDbObjectId note = mtext(L"Two\\Plines");
  EXPECT_EQ(compare(note, mtext(L"Two\\Plines")), kVerdictSame);
  EXPECT_EQ(compare(note, mtext(L"Two\\Plines!")), kVerdictModified);
  EXPECT_EQ(compare(note, mtext(L"Two\\Plines", 60)), kVerdictModified);
  EXPECT_EQ(compare(note, text(L"Two lines")), kVerdictDifferent);
}

}  // namespace
}  // namespace korva::test
