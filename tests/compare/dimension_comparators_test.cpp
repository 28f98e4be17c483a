// Verdicts on dimensions: their own points first, then the shared text and style checks.
#include "compare/file_compare_utils.h"
#include "compare_drawing.h"

namespace korva::test {
namespace {

class DimensionComparatorsTest : public CompareDrawingTest {
 protected:
  int compare(QxDbObjectId oldId, QxDbObjectId newId) {
    const int verdict = utils_.CompareEntities(oldId, newId);
    EXPECT_EQ(qxdbOpenObjectCount(), 0u);
    return verdict;
  }
  // A rotated dimension from (0,0) to (10,0) with its line at height y.
  static QxDbObjectId rotated(double y, const wchar_t* text, const wchar_t* style = L"Standard") {
    const double line[3] = {10, y, 0};
    const double textAt[3] = {5, y, 0};
    const double first[3] = {0, 0, 0};
    const double second[3] = {10, 0, 0};
    return make(qxutBuildList(RTDXF0, L"DIMENSION", 100, L"AcDbEntity", 100, L"AcDbDimension", 10,
                              line, 11, textAt, 70, 0, 1, text, 3, style, 100,
                              L"AcDbAlignedDimension", 13, first, 14, second, 50, 0.0, 100,
                              L"AcDbRotatedDimension", RTNONE));
  }
  // A dimension style of that overall scale, added to the drawing.
  static void addStyle(const wchar_t* name, double scale) {
    QxDbDimStyleTable* styles = nullptr;
    ASSERT_EQ(s_pServices->workingDatabase()->getSymbolTable(styles, QxDb::kForWrite), Qxad::eOk);
    auto* style = new QxDbDimStyleTableRecord;
    style->setName(name);
    EXPECT_EQ(style->setDimscale(scale), Qxad::eOk);
    EXPECT_EQ(styles->add(style), Qxad::eOk);
    style->close();
    styles->close();
  }
  VnFileCompareUtils utils_;
};

TEST_F(DimensionComparatorsTest, PointsAndTextOverridesDecide) {
  const QxDbObjectId dimension = rotated(5, L"");
  EXPECT_EQ(compare(dimension, rotated(5, L"")), kVerdictSame);
  EXPECT_EQ(compare(dimension, rotated(7, L"")), kVerdictModified);
  EXPECT_EQ(compare(dimension, rotated(5, L"<> mm")), kVerdictModified);
}

TEST_F(DimensionComparatorsTest, StylesCountByTheirOverallScale) {
  addStyle(L"PLAN", 1.0);
  addStyle(L"DETAIL", 10.0);
  const QxDbObjectId dimension = rotated(5, L"");
  EXPECT_EQ(compare(dimension, rotated(5, L"", L"PLAN")), kVerdictSame);
  EXPECT_EQ(compare(dimension, rotated(5, L"", L"DETAIL")), kVerdictModified);
}

}  // namespace
}  // namespace korva::test
