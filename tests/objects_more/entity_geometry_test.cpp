// Boxes, transforms and explode reached through QxDbEntity* for the kinds beyond
// curves: texts, hatches, dimensions, block references, multilines, viewports and
// images, over hand-written records.
#include <cmath>
#include <numbers>

#include "api/entity_outline.h"
#include "db/handle.h"
#include "more_fixture.h"
#include "qx_db_block_reference.h"
#include "qx_db_curves.h"
#include "qx_db_dimension.h"
#include "qx_db_hatch.h"
#include "qx_db_image.h"
#include "qx_db_text.h"
#include "qx_db_viewport.h"
#include "qx_ge_curves2d.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

constexpr double kPi = std::numbers::pi;

class EntityGeometryTest : public MoreEntitiesTest {
 protected:
  QxDbExtents extentsOf(QxDbObjectId id) {
    QxDbEntity* entity = nullptr;
    QxDbExtents extents;
    EXPECT_EQ(qxdbOpenQxDbEntity(entity, id, QxDb::kForRead), Qxad::eOk);
    if (!entity) return extents;
    EXPECT_EQ(entity->getGeomExtents(extents), Qxad::eOk);
    entity->close();
    return extents;
  }
  Qxad::ErrorStatus transform(QxDbObjectId id, const QxGeMatrix3d& matrix) {
    QxDbEntity* entity = nullptr;
    EXPECT_EQ(qxdbOpenQxDbEntity(entity, id, QxDb::kForWrite), Qxad::eOk);
    if (!entity) return Qxad::eNullObjectId;
    Qxad::ErrorStatus status = entity->transformBy(matrix);
    entity->close();
    return status;
  }
  std::vector<std::unique_ptr<QxDbEntity>> explode(QxDbObjectId id) {
    QxDbEntity* entity = nullptr;
    EXPECT_EQ(qxdbOpenQxDbEntity(entity, id, QxDb::kForRead), Qxad::eOk);
    QxDbVoidPtrArray pieces;
    if (entity) {
      EXPECT_EQ(entity->explode(pieces), Qxad::eOk);
      entity->close();
    }
    std::vector<std::unique_ptr<QxDbEntity>> owned;
    for (int i = 0; i < pieces.length(); ++i)
      owned.emplace_back(static_cast<QxDbEntity*>(pieces[i]));
    return owned;
  }
  db::BlockDefinition* addBlock(std::string_view name) { return database().addBlock(name); }
  void addTo(db::BlockDefinition* block, std::string_view type, std::string_view text) {
    std::vector<db::OwnedGroup> all = {{100, "AcDbEntity"}, {8, "0"}};
    for (db::OwnedGroup& group : groups(text)) all.push_back(group);
    database().addEntity(std::move(all), type, block);
  }
  std::string handleOf(QxDbObjectId id) { return db::formatHandle(id.handle().value()); }
};

#define EXPECT_BOX_NEAR(box, x0, y0, z0, x1, y1, z1, tol)       \
  do {                                                          \
    EXPECT_POINT_NEAR((box).minPoint(), (x0), (y0), (z0), tol); \
    EXPECT_POINT_NEAR((box).maxPoint(), (x1), (y1), (z1), tol); \
  } while (0)

QxGeMatrix3d quarterTurnAbout(double x, double y) {
  return QxGeMatrix3d::rotation(kPi / 2, QxGeVector3d::kZAxis, QxGePoint3d(x, y, 0));
}

TEST_F(EntityGeometryTest, TextBoxTurnsWithTheTextAndWithItsBlock) {
  QxDbObjectId text = add("TEXT", groups("100 AcDbText|10 10|20 5|30 0|40 2|1 Hello|100 AcDbText"));
  QxDbExtents before = extentsOf(text);
  // Left on the baseline: the box starts at the position and is at least the height tall.
  EXPECT_DOUBLE_EQ(before.minPoint().x, 10);
  EXPECT_LE(before.minPoint().y, 5);
  EXPECT_GE(before.maxPoint().y - 5, 2);
  EXPECT_GT(before.maxPoint().x - 10, 5);

  db::BlockDefinition* block = addBlock("WORD");
  addTo(block, "TEXT", "100 AcDbText|10 10|20 5|30 0|40 2|1 Hello|100 AcDbText");
  QxDbObjectId reference =
      add("INSERT", groups("100 AcDbBlockReference|2 WORD|10 100|20 0|30 0|50 90"));

  ASSERT_EQ(transform(text, quarterTurnAbout(10, 5)), Qxad::eOk);
  QxDbExtents after = extentsOf(text);
  double width = before.maxPoint().x - 10, top = before.maxPoint().y - 5;
  double bottom = before.minPoint().y - 5;
  EXPECT_BOX_NEAR(after, 10 - top, 5, 0, 10 - bottom, 5 + width, 0, 1e-9);
  // The block turns the same text a quarter about its base point and moves it by 100.
  EXPECT_BOX_NEAR(extentsOf(reference), 100 - 5 - top, 10, 0, 100 - 5 - bottom, 10 + width, 0,
                  1e-9);
}

TEST_F(EntityGeometryTest, ParagraphTextExplodesIntoItsLines) {
  QxDbObjectId id =
      add("MTEXT", groups("100 AcDbMText|10 0|20 10|30 0|40 2.5|71 1|1 First\\PSecond "
                          "line|7 Standard"));
  auto pieces = explode(id);
  ASSERT_EQ(pieces.size(), 2u);
  const wchar_t* expected[2] = {L"First", L"Second line"};
  for (size_t i = 0; i < 2; ++i) {
    QxDbText* text = QxDbText::cast(pieces[i].get());
    ASSERT_TRUE(text);
    EXPECT_STREQ(text->textStringConst(), expected[i]);
    EXPECT_DOUBLE_EQ(text->height(), 2.5);
    // Baselines a text height below the top, then 5/3 of it apart.
    EXPECT_POINT_NEAR(text->position(), 0, 10 - 2.5 - i * 2.5 * 5 / 3, 0, 1e-12);
  }

  // Centred on a turned paragraph: each line centred on the paragraph's axis.
  QxDbObjectId turned = add("MTEXT", groups("100 AcDbMText|10 5|20 5|30 0|40 1|71 5|11 0|21 1|31 "
                                            "0|1 ab\\PLonger line"));
  auto lines = explode(turned);
  ASSERT_EQ(lines.size(), 2u);
  for (auto& piece : lines) {
    QxDbText* text = QxDbText::cast(piece.get());
    ASSERT_TRUE(text);
    EXPECT_EQ(text->horizontalMode(), QxDb::kTextCenter);
    EXPECT_NEAR(text->rotation(), kPi / 2, 1e-12);
    EXPECT_NEAR(text->alignmentPoint().y, 5, 1e-12);
  }
  EXPECT_NEAR(QxDbText::cast(lines[0].get())->alignmentPoint().x -
                  QxDbText::cast(lines[1].get())->alignmentPoint().x,
              -5.0 / 3, 1e-12);
}

TEST_F(EntityGeometryTest, MultilineExplodesIntoElementLines) {
  // Two elements half a unit either side, three vertices, the middle one mitred.
  double s = std::sqrt(0.5);
  std::string text =
      "100 AcDbMline|2 STANDARD|40 1|70 1|71 1|72 3|73 2|10 0|20 0|30 0|210 0|220 0|230 1"
      "|11 0|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 0.5|41 0|75 0|74 2|41 -0.5|41 0|75 0"
      "|11 10|21 0|31 0|12 0|22 1|32 0|13 " +
      std::to_string(-s) + "|23 " + std::to_string(s) + "|33 0|74 2|41 " + std::to_string(0.5 / s) +
      "|41 0|75 0|74 2|41 " + std::to_string(-0.5 / s) +
      "|41 0|75 0|11 10|21 10|31 0|12 0|22 1|32 0|13 -1|23 0|33 0|74 2|41 0.5|41 0|75 0|74 2|41 "
      "-0.5|41 0|75 0";
  auto pieces = explode(add("MLINE", groups(text)));
  ASSERT_EQ(pieces.size(), 4u);
  auto ends = [&](size_t i) {
    QxDbLine* line = QxDbLine::cast(pieces[i].get());
    EXPECT_TRUE(line);
    return std::pair{line->startPoint(), line->endPoint()};
  };
  EXPECT_POINT_NEAR(ends(0).first, 0, 0.5, 0, 1e-6);
  EXPECT_POINT_NEAR(ends(0).second, 9.5, 0.5, 0, 1e-6);
  EXPECT_POINT_NEAR(ends(1).second, 10.5, -0.5, 0, 1e-6);
  EXPECT_POINT_NEAR(ends(2).first, 9.5, 0.5, 0, 1e-6);
  EXPECT_POINT_NEAR(ends(3).second, 10.5, 10, 0, 1e-6);
}

// A square with a bulged side, a clockwise arc loop and one pattern line.
constexpr const char* kHatch =
    "100 AcDbHatch|10 0|20 0|30 2|210 0|220 0|230 1|2 USER|70 0|71 0|91 2"
    "|92 3|72 1|73 1|93 4|10 0|20 0|42 0|10 4|20 0|42 0.5|10 4|20 4|42 0|10 0|20 4|42 0|97 0"
    "|92 0|93 2|72 2|10 8|20 0|40 1|50 270|51 360|73 0|72 1|10 8|20 1|11 9|21 0|97 0"
    "|75 0|76 0|52 30|41 1|77 0|78 1|53 30|43 1|44 2|45 -0.5|46 0.866|79 2|49 1|49 -0.5|98 0";

TEST_F(EntityGeometryTest, HatchTurnsWithItsLoopsAndPattern) {
  QxDbObjectId id = add("HATCH", groups(kHatch));
  QxDbExtents before = extentsOf(id);
  QxGeMatrix3d turn = QxGeMatrix3d::translation(QxGeVector3d(10, 0, 0)) * quarterTurnAbout(0, 0);
  ASSERT_EQ(transform(id, turn), Qxad::eOk);
  QxDbExtents after = extentsOf(id);
  EXPECT_BOX_NEAR(after, 10 - before.maxPoint().y, before.minPoint().x, 2, 10 - before.minPoint().y,
                  before.maxPoint().x, 2, 1e-9);

  QxDbHatch* hatch = open<QxDbHatch>(id);
  ASSERT_TRUE(hatch);
  int type = 0;
  QxGePoint2dArray vertices;
  QxGeDoubleArray bulges;
  ASSERT_EQ(hatch->getLoopAt(0, type, vertices, bulges), Qxad::eOk);
  ASSERT_EQ(vertices.length(), 4);
  EXPECT_NEAR(vertices[1].x, 10, 1e-12);
  EXPECT_NEAR(vertices[1].y, 4, 1e-12);
  EXPECT_DOUBLE_EQ(bulges[1], 0.5);
  QxGeVoidPointerArray edges;
  QxGeIntArray types;
  ASSERT_EQ(hatch->getLoopAt(1, type, edges, types), Qxad::eOk);
  // The clockwise arc ran from (8, 1) down to (9, 0); turned, from (9, 8) to (10, 9).
  const auto* arc = static_cast<const QxGeCircArc2d*>(edges[0]);
  EXPECT_TRUE(arc->isClockWise());
  EXPECT_NEAR(arc->startPoint().x, 9, 1e-9);
  EXPECT_NEAR(arc->startPoint().y, 8, 1e-9);
  EXPECT_NEAR(arc->endPoint().x, 10, 1e-9);
  EXPECT_NEAR(arc->endPoint().y, 9, 1e-9);
  for (int i = 0; i < edges.length(); ++i) delete static_cast<QxGeCurve2d*>(edges[i]);
  EXPECT_NEAR(hatch->patternAngle(), 120 * kPi / 180, 1e-12);
  double angle, baseX, baseY, offsetX, offsetY;
  QxGeDoubleArray dashes;
  ASSERT_EQ(hatch->getPatternDefinitionAt(0, angle, baseX, baseY, offsetX, offsetY, dashes),
            Qxad::eOk);
  EXPECT_NEAR(angle, 120 * kPi / 180, 1e-12);
  EXPECT_NEAR(baseX, 8, 1e-12);
  EXPECT_NEAR(baseY, 1, 1e-12);
  EXPECT_NEAR(offsetX, -0.866, 1e-12);
  EXPECT_NEAR(offsetY, -0.5, 1e-12);
  hatch->close();
}

TEST_F(EntityGeometryTest, HatchOutlineReadsPastASplineWithoutFitPoints) {
  // The loop's source count follows a spline edge that has no fit data: the second
  // loop, far away, must still be outlined.
  QxDbObjectId source = add("LINE", groups("100 AcDbLine|10 0|20 0|30 0|11 3|21 0|31 0"));
  QxDbObjectId id =
      add("HATCH",
          groups("100 AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 1|91 2|92 1|93 2"
                 "|72 1|10 3|20 0|11 0|21 0|72 4|94 3|73 0|74 0|95 8|96 4|40 0|40 0|40 0|40 0|40 1"
                 "|40 1|40 1|40 1|10 0|20 0|10 1|20 2|10 2|20 -2|10 3|20 0|97 1|330 " +
                 handleOf(source) + "|92 1|93 1|72 1|10 50|20 50|11 51|21 51|97 0|75 0|76 1|98 0"));
  api::EntityOutliner outliner(database(), geom::Affine3::identity());
  geom::PlaneShape shape = outliner.outline(*recordOf(id), {});
  EXPECT_NEAR(shape.box.max.x, 51, 1e-12);
  EXPECT_NEAR(shape.box.max.y, 51, 1e-12);
  EXPECT_NEAR(extentsOf(id).maxPoint().x, 51, 1e-12);
}

TEST_F(EntityGeometryTest, DimensionMovesAndExplodesWithItsPicture) {
  db::BlockDefinition* block = addBlock("*D7");
  addTo(block, "LINE", "100 AcDbLine|10 0|20 0|30 0|11 0|21 2|31 0");
  addTo(block, "LINE", "100 AcDbLine|10 0|20 2|30 0|11 5|21 2|31 0");
  QxDbObjectId id = add("DIMENSION", groups("100 AcDbDimension|2 *D7|10 5|20 2|30 0|11 2.5|21 2.5"
                                            "|31 0|70 33|3 Standard|100 AcDbAlignedDimension|13 0"
                                            "|23 0|33 0|14 5|24 0|34 0"));
  EXPECT_BOX_NEAR(extentsOf(id), 0, 0, 0, 5, 2, 0, 1e-12);
  ASSERT_EQ(transform(id, QxGeMatrix3d::translation(QxGeVector3d(10, 20, 0))), Qxad::eOk);
  EXPECT_BOX_NEAR(extentsOf(id), 10, 20, 0, 15, 22, 0, 1e-12);
  QxDbAlignedDimension* dimension = open<QxDbAlignedDimension>(id);
  ASSERT_TRUE(dimension);
  EXPECT_POINT_NEAR(dimension->xLine2Point(), 15, 20, 0, 1e-12);
  EXPECT_POINT_NEAR(dimension->textPosition(), 12.5, 22.5, 0, 1e-12);
  dimension->close();
  auto pieces = explode(id);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_POINT_NEAR(QxDbLine::cast(pieces[1].get())->endPoint(), 15, 22, 0, 1e-12);

  // A clone insertion point moves the picture without moving the block.
  QxDbObjectId clone = add("DIMENSION", groups("100 AcDbDimension|2 *D7|10 5|20 2|30 0|12 -1"
                                               "|22 1|32 0|70 33"));
  EXPECT_BOX_NEAR(extentsOf(clone), 9, 21, 0, 14, 23, 0, 1e-12);
}

TEST_F(EntityGeometryTest, ReferenceCarriesItsAttributesOrRefuses) {
  db::BlockDefinition* block = addBlock("TAG");
  addTo(block, "LINE", "100 AcDbLine|10 0|20 0|30 0|11 1|21 0|31 0");
  QxDbObjectId reference =
      add("INSERT", groups("100 AcDbBlockReference|66 1|2 TAG|10 3|20 3|30 0|41 1|42 2|50 30"));
  QxDbObjectId attribute = add("ATTRIB", groups("100 AcDbText|10 4|20 3|30 0|40 1|1 V|100 "
                                                "AcDbAttribute|2 T|70 0"));
  add("SEQEND", {});
  ASSERT_EQ(transform(reference, QxGeMatrix3d::translation(QxGeVector3d(0, 7, 0))), Qxad::eOk);
  EXPECT_POINT_NEAR(*listPoint(attribute, 10), 4, 10, 0, 1e-12);
  // Turning a reference whose scales differ skews its block: nothing moves.
  EXPECT_EQ(
      transform(reference, quarterTurnAbout(0, 0) * QxGeMatrix3d::scaling(QxGeScale3d(1, 3, 1))),
      Qxad::eNotApplicable);
  EXPECT_POINT_NEAR(*listPoint(attribute, 10), 4, 10, 0, 1e-12);
  EXPECT_POINT_NEAR(*listPoint(reference, 10), 3, 10, 0, 1e-12);
}

TEST_F(EntityGeometryTest, PropertiesReachVerticesOnlyWithSubentities) {
  QxDbObjectId source =
      add("LINE", groups("62 3|440 33554527|100 AcDbLine|10 0|20 0|30 0|11 1|21 0|31 0"));
  recordOf(source)->setValue(8, "WALLS");
  QxDbObjectId polyline = add("POLYLINE", groups("100 AcDb2dPolyline|66 1|10 0|20 0|30 0|70 0"));
  QxDbObjectId vertex = add("VERTEX", groups("100 AcDbVertex|100 AcDb2dVertex|10 1|20 1|30 0"));
  add("SEQEND", {});
  QxDbEntity* from = open<QxDbEntity>(source);
  QxDbEntity* to = open<QxDbEntity>(polyline, QxDb::kForWrite);
  ASSERT_TRUE(from && to);
  ASSERT_EQ(to->setPropertiesFrom(from, false), Qxad::eOk);
  EXPECT_EQ(*listText(vertex, 8), L"0");
  ASSERT_EQ(to->setPropertiesFrom(from), Qxad::eOk);
  from->close();
  to->close();
  for (QxDbObjectId id : {polyline, vertex}) {
    EXPECT_EQ(*listText(id, 8), L"WALLS");
    EXPECT_EQ(*listInteger(id, 62), 3);
    EXPECT_EQ(*listInteger(id, 440), 33554527);
  }
}

TEST_F(EntityGeometryTest, ViewportAndImageFollowTheMapsTheyCan) {
  QxDbObjectId viewport =
      add("VIEWPORT", groups("100 AcDbViewport|10 5|20 4|30 0|40 6|41 2|68 2|69 2"));
  EXPECT_BOX_NEAR(extentsOf(viewport), 2, 3, 0, 8, 5, 0, 0);
  ASSERT_EQ(transform(viewport, QxGeMatrix3d::scaling(2, QxGePoint3d(5, 0, 0))), Qxad::eOk);
  EXPECT_BOX_NEAR(extentsOf(viewport), -1, 6, 0, 11, 10, 0, 1e-12);
  EXPECT_EQ(transform(viewport, quarterTurnAbout(0, 0)), Qxad::eNotApplicable);

  QxDbObjectId image =
      add("IMAGE", groups("100 AcDbRasterImage|90 0|10 1|20 1|30 0|11 0.01|21 0|31 0|12 0|22 "
                          "0.01|32 0|13 200|23 100|70 1|280 0"));
  ASSERT_EQ(transform(image, quarterTurnAbout(1, 1)), Qxad::eOk);
  QxDbRasterImage* raster = open<QxDbRasterImage>(image);
  ASSERT_TRUE(raster);
  QxGePoint3d origin;
  QxGeVector3d u, v;
  raster->getOrientation(origin, u, v);
  EXPECT_POINT_NEAR(origin, 1, 1, 0, 1e-12);
  EXPECT_TRUE(u.isEqualTo(QxGeVector3d(0, 2, 0)));
  EXPECT_TRUE(v.isEqualTo(QxGeVector3d(-1, 0, 0)));
  raster->close();
}

}  // namespace
}  // namespace korva::test
