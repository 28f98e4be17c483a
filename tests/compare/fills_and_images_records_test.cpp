// Verdicts on hatches, raster images and OLE frames, written as records: only polyline
// loops count, two images pass only when their fades differ, and links by their source.
#include "compare/file_compare_utils.h"
#include "linked_ole_data.h"
#include "more_fixture.h"

namespace korva::test {
namespace {

class FillsAndImagesTest : public MoreEntitiesTest {
 protected:
  int compare(QxDbObjectId oldId, QxDbObjectId newId) {
    const int verdict = utils_.CompareEntities(oldId, newId);
    EXPECT_EQ(qxdbOpenObjectCount(), 0u);
    return verdict;
  }
  // A polyline loop (its second corner at x) and an edge loop of one line (its end at
  // edgeEnd).
  QxDbObjectId hatch(const std::string& x, const std::string& edgeEnd) {
    return add("HATCH",
               groups("100 AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 2|"
                      "92 3|72 0|73 1|93 3|10 0|20 0|10 " +
                      x +
                      "|20 0|10 4|20 2|97 0|"
                      "92 0|93 1|72 1|10 1|20 1|11 " +
                      edgeEnd +
                      "|21 1|97 0|"
                      "75 1|76 1|98 0"));
  }
  QxDbObjectId image(const std::string& fade) {
    return add("IMAGE", groups("100 AcDbRasterImage|90 0|10 1|20 1|30 0|11 0.01|21 0|31 0|12 "
                               "0|22 0.01|32 0|13 200|23 100|70 1|280 0|281 50|282 50|283 " +
                               fade));
  }
  VnFileCompareUtils utils_;
};

TEST_F(FillsAndImagesTest, OnlyPolylineLoopsOfAHatchAreCompared) {
  const QxDbObjectId fill = hatch("4", "2");
  EXPECT_EQ(compare(fill, hatch("4", "2")), kVerdictSame);
  EXPECT_EQ(compare(fill, hatch("4", "3")), kVerdictSame);
  EXPECT_EQ(compare(fill, hatch("5", "2")), kVerdictModified);
}

TEST_F(FillsAndImagesTest, ImagesPassOnlyWhenTheirFadesDiffer) {
  const QxDbObjectId picture = image("0");
  EXPECT_EQ(compare(picture, image("0")), kVerdictModified);
  EXPECT_EQ(compare(picture, image("20")), kVerdictSame);
}

TEST_F(FillsAndImagesTest, LinkedFramesAreComparedByTheirSource) {
  auto frame = [this](int type, const std::string& path, const std::string& item) {
    return add("OLE2FRAME", oleFrameGroups(type, linkedOleData(path, u"", item)));
  };
  const QxDbObjectId link = frame(1, "C:\\plans\\rooms.xls", "Sheet1!R1C1:R9C4");
  EXPECT_EQ(compare(link, frame(1, "C:\\plans\\rooms.xls", "Sheet1!R1C1:R9C4")), kVerdictSame);
  EXPECT_EQ(compare(link, frame(1, "C:\\plans\\rooms.xls", "Sheet2!R1C1:R9C4")), kVerdictModified);
  EXPECT_EQ(compare(link, frame(1, "C:\\old\\rooms.xls", "Sheet1!R1C1:R9C4")), kVerdictModified);
  // Embedded frames don't look at the data.
  const QxDbObjectId embedded = frame(2, "C:\\plans\\rooms.xls", "Sheet1");
  EXPECT_EQ(compare(embedded, frame(2, "C:\\old\\rooms.xls", "Sheet2")), kVerdictSame);
}

}  // namespace
}  // namespace korva::test
