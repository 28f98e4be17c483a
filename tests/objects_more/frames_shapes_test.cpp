// Boxes of tolerance frames laid out from their text and dimension variables, their
// exploded lines and texts, and boxes of shapes drawn from the strokes of a shape source
// written by the test, checked by hand and against ezdxf's shape renderer.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "api/objects/shape_strokes.h"
#include "geom/text_metrics.h"
#include "input/support_path.h"
#include "more_fixture.h"
#include "qx_db_curves.h"
#include "qx_db_leader.h"
#include "qx_db_shape.h"
#include "qx_db_text.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

class FrameTest : public MoreEntitiesTest {
 protected:
  // A frame at (10, 20) in the world plane with text height 0.5 and gap 0.1 by override.
  QxDbObjectId addFrame(const std::string& text, const std::string& direction = "11 1|21 0|31 0") {
    QxDbObjectId id = add(
        "TOLERANCE", groups("100 AcDbFcf|3 Standard|10 10|20 20|30 0|1 " + text + "|" + direction));
    QxDbFcf* frame = open<QxDbFcf>(id, QxDb::kForWrite);
    if (!frame) return id;
    EXPECT_EQ(frame->setDimtxt(0.5), Qxad::eOk);
    EXPECT_EQ(frame->setDimgap(0.1), Qxad::eOk);
    frame->close();
    return id;
  }
};

double textWidth(const char* text, double height) {
  return geom::TextMetrics::standard().measure(text).advance * height;
}

TEST_F(FrameTest, OneSymbolCellIsASquareOfTextHeightAndGaps) {
  QxDbObjectId id = addFrame("{\\Fgdt;j}");
  // Row height 0.5 + 2 * 0.1, centered on the location; the symbol one text height wide.
  EXPECT_EXTENTS_NEAR(extentsOf(id), 10, 19.65, 0, 10.7, 20.35, 0, 1e-12);

  // DIMSCALE sizes text and gap alike.
  QxDbFcf* frame = open<QxDbFcf>(id, QxDb::kForWrite);
  ASSERT_TRUE(frame);
  ASSERT_EQ(frame->setDimscale(2), Qxad::eOk);
  frame->close();
  EXPECT_EXTENTS_NEAR(extentsOf(id), 10, 19.3, 0, 11.4, 20.7, 0, 1e-12);
}

TEST_F(FrameTest, RowsStackDownAndCellsTakeTheirTextsWidth) {
  // Second row: a symbol, a text cell, an empty cell that draws nothing, a datum letter.
  QxDbObjectId id = addFrame("{\\Fgdt;j}%%v{\\Fgdt;n}0.05^J{\\Fgdt;r}%%v0.1%%v%%vAB");
  double first = 0.7 + 0.2 + 0.5 + textWidth("0.05", 0.5);
  double second = 0.7 + 0.2 + textWidth("0.1", 0.5) + 0.2 + textWidth("AB", 0.5);
  EXPECT_EXTENTS_NEAR(extentsOf(id), 10, 20.35 - 1.4, 0, 10 + std::max(first, second), 20.35, 0,
                      1e-12);

  // The flat layer writes the same group the layout reads.
  modifyText(id, 1, L"{\\Fgdt;j}");
  EXPECT_POINT_NEAR(extentsOf(id).maxPoint(), 10.7, 20.35, 0, 1e-12);
}

TEST_F(FrameTest, TurnedFrameFollowsItsDirection) {
  QxDbObjectId id = addFrame("{\\Fgdt;j}%%vA", "11 0|21 1|31 0");
  double width = 0.7 + 0.2 + textWidth("A", 0.5);
  // X of the frame runs up the world's Y; the frame's Y runs to the world's -X.
  EXPECT_EXTENTS_NEAR(extentsOf(id), 9.65, 20, 0, 10.35, 20 + width, 0, 1e-12);

  EXPECT_EQ(extentsOf(addFrame(""), Qxad::eDegenerateGeometry).isEmpty(), true);
}

TEST_F(FrameTest, ExplodeDrawsTheBoxesAndTheCellTexts) {
  QxDbObjectId id = addFrame("{\\Fgdt;j}%%vA");
  QxDbFcf* frame = open<QxDbFcf>(id);
  ASSERT_TRUE(frame);
  QxDbVoidPtrArray pieces;
  ASSERT_EQ(frame->explode(pieces), Qxad::eOk);
  QxDbExtents whole;
  frame->getGeomExtents(whole);
  frame->close();
  int lines = 0;
  std::vector<std::wstring> texts;
  QxDbExtents drawn;
  for (int i = 0; i < pieces.length(); ++i) {
    auto* entity = static_cast<QxDbEntity*>(pieces[i]);
    if (QxDbLine* line = QxDbLine::cast(entity)) {
      ++lines;
      drawn.addPoint(line->startPoint());
      drawn.addPoint(line->endPoint());
      // Every line is an edge: horizontal or vertical in the frame.
      EXPECT_TRUE(line->startPoint().x == line->endPoint().x ||
                  line->startPoint().y == line->endPoint().y);
    }
    if (QxDbMText* text = QxDbMText::cast(entity)) {
      wchar_t* contents = text->contents();
      texts.push_back(contents);
      qxad_free(contents);
      EXPECT_DOUBLE_EQ(text->textHeight(), 0.5);
      EXPECT_DOUBLE_EQ(text->location().y, 20);
    }
    delete entity;
  }
  // Two boxes side by side share the line between them.
  EXPECT_EQ(lines, 7);
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts[0], L"{\\Fgdt;j}");
  EXPECT_EQ(texts[1], L"A");
  EXPECT_POINT_NEAR(drawn.minPoint(), whole.minPoint().x, whole.minPoint().y, 0, 1e-12);
  EXPECT_POINT_NEAR(drawn.maxPoint(), whole.maxPoint().x, whole.maxPoint().y, 0, 1e-12);
}

class ShapeExtentsTest : public MoreEntitiesTest {
 protected:
  void SetUp() override {
    MoreEntitiesTest::SetUp();
    folder_ =
        std::filesystem::temp_directory_path() /
        ("korva_strokes_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
         "_" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(folder_);
    input::addSupportFolder(folder_.string());
    std::ofstream(folder_ / "marks.shp") << kSource;
    db::Table* styles = database().table("STYLE");
    ASSERT_TRUE(styles);
    database().addTableEntry(*styles, "STYLE",
                             groups("100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 "
                                    "|70 1|40 0|41 1|50 0|71 0|42 1|3 marks.shx|4 "));
  }
  void TearDown() override {
    input::clearSupportFolders();
    std::filesystem::remove_all(folder_);
    MoreEntitiesTest::TearDown();
  }
  QxDbObjectId addShape(const std::string& name, const std::string& placement,
                        const std::string& position = kAt) {
    return add("SHAPE", groups("100 AcDbShape|" + position + "|2 " + name + "|" + placement));
  }

  // A square from (1, 1) to (3, 3) after a move with the pen up; a circle of radius 2
  // about the origin; a clockwise quarter from 45 degrees; and one of every other code.
  static constexpr const char* kSource =
      "*130,10,SQUARE\n2,8,(1,1),1,020,024,028,02C,0\n"
      "*131,6,RING\n2,8,(2,0),1,10,(2,0),0\n"
      "*132,3,QUARTER\n10,(1,-012),0\n"
      "*133,60,MIXED ; everything else\n"
      "4,2,014,3,2,5,2,9,(3,0),(0,2),(0,0),1,6,\n"
      "11,(56,199,0,3,013),8,(-2,-1),12,(3,1,-60),\n"
      "13,(2,0,127),(0,-3,40),(0,0),14,8,(9,9),7,130,2,8,(1,0),1,0E2,0\n";
  static constexpr const char* kAt = "10 10|20 20|30 0";
  static constexpr const char* kOrigin = "10 0|20 0|30 0";
  std::filesystem::path folder_;
};

TEST_F(ShapeExtentsTest, StrokesArePlacedBySizeRotationWidthAndOblique) {
  const double r13 = std::sqrt(13.0), r7 = std::sqrt(7.0), h = std::sqrt(0.5);
  struct Case {
    const char *name, *placement, *position;
    double min[3], max[3];
  } cases[] = {
      // The pen-up move draws nothing.
      {"SQUARE", "40 2", kAt, {12, 22, 0}, {16, 26, 0}},
      {"square", "40 2|50 90", kAt, {4, 22, 0}, {8, 26, 0}},
      // Half width, slanted 45 degrees: (x, y) goes to (x + 2 y, 2 y) at size 2.
      {"SQUARE", "40 2|41 0.5|51 45|39 3", kAt, {13, 22, 0}, {19, 26, 3}},
      // A circle widened twice and turned 30 degrees is an ellipse of half axes 4 and 2.
      {"RING", "40 1|41 2|50 30", kAt, {10 - r13, 20 - r7, 0}, {10 + r13, 20 + r7, 0}},
      // The quarter from 45 down to -45 degrees, the pen on it at 45: the center lies at
      // (-1 / sqrt 2, -1 / sqrt 2) and the arc reaches X = 1 from it.
      {"QUARTER", "40 1", kOrigin, {0, -2 * h, 0}, {1 - h, 0, 0}},
      // In a tilted plane the box is the tilted square's.
      {"SQUARE", "40 1|210 1|220 0|230 0", kOrigin, {0, 1, 1}, {0, 3, 3}},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(std::string(row.name) + " " + row.placement);
    EXPECT_EXTENTS_NEAR(extentsOf(addShape(row.name, row.placement, row.position)), row.min[0],
                        row.min[1], row.min[2], row.max[0], row.max[1], row.max[2], 1e-12);
  }
}

TEST_F(ShapeExtentsTest, WithoutReadableShapeThereIsNoBox) {
  extentsOf(addShape("NOSUCH", "40 1"), Qxad::eNotApplicable);
  std::filesystem::remove(folder_ / "marks.shp");
  extentsOf(addShape("SQUARE", "40 1"), Qxad::eNotApplicable);
}

TEST_F(ShapeExtentsTest, EveryCodeAgreesWithEzdxfsRenderer) {
  std::string reference = (folder_ / "reference.txt").string();
  std::string command = std::string(KORVA_PYTHON) + " " + SHAPE_SCRIPT + " " +
                        (folder_ / "marks.shp").string() + " " + reference + " 130 131 132 133";
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
  std::ifstream in(reference);
  int compared = 0;
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    int number = 0;
    double minX, minY, maxX, maxY;
    words >> number >> minX >> minY >> maxX >> maxY;
    SCOPED_TRACE(number);
    const char* names[] = {"SQUARE", "RING", "QUARTER", "MIXED"};
    QxDbExtents box = extentsOf(addShape(names[number - 130], "40 1", kOrigin));
    // ezdxf draws arcs as cubic pieces, which stray up to 3e-4 of the radius.
    EXPECT_POINT_NEAR(box.minPoint(), minX, minY, 0, 5e-3);
    EXPECT_POINT_NEAR(box.maxPoint(), maxX, maxY, 0, 5e-3);
    ++compared;
  }
  EXPECT_EQ(compared, 4);
}

TEST(ShapeStrokes, VerticalOnlyCommandsAndScaleAreHonoured) {
  // 14 passes over the move of (9, 9); 4,2 doubles the vector and 3,2 halves it again.
  std::vector<api::ShapeStroke> strokes =
      api::shapeStrokes("*1,9,T\n14,8,(9,9),4,2,010,3,2,010,0\n", 1);
  ASSERT_EQ(strokes.size(), 2u);
  EXPECT_EQ(strokes[0].start.x, 0);
  EXPECT_EQ(strokes[0].end.x, 2);
  EXPECT_EQ(strokes[1].end.x, 3);
  EXPECT_EQ(strokes[1].end.y, 0);
  // A font's height above the baseline is its unit of size.
  EXPECT_EQ(api::shapeUnitsPerSize("*0,4,font\n21,7,2,0\n*65,2,A\n014,0\n"), 21);
  EXPECT_EQ(api::shapeUnitsPerSize("*65,2,A\n014,0\n"), 1);
  EXPECT_TRUE(api::shapeCodes("*65,2,A\n014,0\n", 66).empty());
}

}  // namespace
}  // namespace korva::test
