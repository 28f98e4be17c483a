// A drawing made by ezdxf at test time (make_drawing.py), read by korva: the entities'
// extents agree with ezdxf's boxes within 1e-9, and the hatch loops, pattern lines,
// leader overrides and image settings read as ezdxf wrote them. Hatch outlines, as
// selection sees them, agree with the hatches' own boxes.
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <numbers>
#include <sstream>

#include "api/entity_outline.h"
#include "db/handle.h"
#include "dxf/reader.h"
#include "more_fixture.h"
#include "qx_db_hatch.h"
#include "qx_db_image.h"
#include "qx_db_leader.h"
#include "qx_db_meshes.h"
#include "qx_db_mline.h"
#include "qx_db_polylines.h"
#include "qx_db_quadrilaterals.h"
#include "qx_ge_curves2d.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

constexpr double kPi = std::numbers::pi;

class EzdxfDrawingTest : public MoreEntitiesTest {
 protected:
  void SetUp() override {
    MoreEntitiesTest::SetUp();
    std::string dxf = std::string(WORK_DIR) + "/more.dxf";
    std::string reference = std::string(WORK_DIR) + "/more_reference.txt";
    std::string command =
        std::string(KORVA_PYTHON) + " " + DRAWING_SCRIPT + " " + dxf + " " + reference;
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    dxf::ReadResult read = dxf::readFile(dxf);
    ASSERT_TRUE(read.ok()) << read.error;
    use(std::move(read.database));
    std::ifstream in(reference);
    for (std::string line; std::getline(in, line);) {
      std::istringstream words(line);
      std::string kind, name;
      words >> kind >> name;
      if (kind == "entity") {
        std::string handle;
        words >> handle;
        ids_[name] = QxDbObjectId::fromParts(database().serial(), *db::parseHandle(handle));
        continue;
      }
      std::vector<double> values;
      for (double v; words >> v;) values.push_back(v);
      facts_.push_back({kind, name, values});
    }
    ASSERT_EQ(ids_.size(), 19u);
  }

  struct Fact {
    std::string kind, name;
    std::vector<double> values;
  };
  std::vector<Fact> factsOf(const std::string& kind, const std::string& name) {
    std::vector<Fact> found;
    for (const Fact& fact : facts_) {
      if (fact.kind == kind && fact.name == name) found.push_back(fact);
    }
    return found;
  }

  std::map<std::string, QxDbObjectId> ids_;
  std::vector<Fact> facts_;
};

TEST_F(EzdxfDrawingTest, ExtentsAgreeWithEzdxf) {
  int checked = 0;
  for (const Fact& fact : facts_) {
    if (fact.kind != "extents") continue;
    SCOPED_TRACE(fact.name);
    QxDbEntity* entity = nullptr;
    ASSERT_EQ(qxdbOpenQxDbEntity(entity, ids_.at(fact.name), QxDb::kForRead), Qxad::eOk);
    QxDbExtents extents;
    // Through the entity's own class, whichever it is.
    EXPECT_EQ(entity->getGeomExtents(extents), Qxad::eOk);
    const std::vector<double>& v = fact.values;
    EXPECT_POINT_NEAR(extents.minPoint(), v[0], v[1], v[2], 1e-9);
    EXPECT_POINT_NEAR(extents.maxPoint(), v[3], v[4], v[5], 1e-9);
    entity->close();
    ++checked;
  }
  EXPECT_EQ(checked, 17);
}

TEST_F(EzdxfDrawingTest, HatchLoopsAndPatternAsWritten) {
  QxDbHatch* hatch = open<QxDbHatch>(ids_.at("hatch_polyline"));
  ASSERT_TRUE(hatch);
  ASSERT_EQ(hatch->numLoops(), 1);
  int type = 0;
  QxGePoint2dArray vertices;
  QxGeDoubleArray bulges;
  ASSERT_EQ(hatch->getLoopAt(0, type, vertices, bulges), Qxad::eOk);
  EXPECT_EQ(type, QxDbHatch::kExternal | QxDbHatch::kPolyline);
  std::vector<Fact> expected = factsOf("vertex", "hatch_polyline");
  ASSERT_EQ(vertices.length(), static_cast<int>(expected.size()));
  for (int i = 0; i < vertices.length(); ++i) {
    EXPECT_EQ(vertices[i].x, expected[i].values[1]);
    EXPECT_EQ(vertices[i].y, expected[i].values[2]);
    EXPECT_EQ(bulges[i], expected[i].values[3]);
  }
  std::vector<Fact> lines = factsOf("pattern", "hatch_polyline");
  ASSERT_EQ(hatch->numPatternDefinitions(), static_cast<int>(lines.size()));
  for (int i = 0; i < hatch->numPatternDefinitions(); ++i) {
    double angle, baseX, baseY, offsetX, offsetY;
    QxGeDoubleArray dashes;
    ASSERT_EQ(hatch->getPatternDefinitionAt(i, angle, baseX, baseY, offsetX, offsetY, dashes),
              Qxad::eOk);
    const std::vector<double>& v = lines[i].values;
    EXPECT_NEAR(angle, v[1] * kPi / 180, 1e-12);
    EXPECT_EQ(baseX, v[2]);
    EXPECT_EQ(offsetX, v[4]);
    EXPECT_EQ(offsetY, v[5]);
    EXPECT_EQ(dashes.length(), static_cast<int>(v.size()) - 6);
  }
  EXPECT_NEAR(hatch->patternAngle(), kPi / 12, 1e-12);
  EXPECT_DOUBLE_EQ(hatch->patternScale(), 0.5);
  EXPECT_TRUE(hatch->associative());
  QxDbObjectIdArray sources;
  hatch->getAssocObjIds(sources);
  hatch->close();
  ASSERT_EQ(sources.length(), 1);
  QxDbPolyline* source = open<QxDbPolyline>(sources[0]);
  ASSERT_TRUE(source);
  EXPECT_EQ(source->numVerts(), 3u);
  source->close();

  hatch = open<QxDbHatch>(ids_.at("hatch_edges"));
  ASSERT_TRUE(hatch);
  EXPECT_DOUBLE_EQ(hatch->elevation(), 1.5);
  ASSERT_EQ(hatch->numLoops(), 3);
  const std::vector<int> kinds[3] = {{1, 2, 1, 3, 1}, {2, 1}, {4, 1}};
  for (int loop = 0; loop < 3; ++loop) {
    QxGeVoidPointerArray edges;
    QxGeIntArray types;
    ASSERT_EQ(hatch->getLoopAt(loop, type, edges, types), Qxad::eOk);
    ASSERT_EQ(types.length(), static_cast<int>(kinds[loop].size()));
    for (int i = 0; i < types.length(); ++i) EXPECT_EQ(types[i], kinds[loop][i]);
    if (loop == 1) {
      // ezdxf's clockwise arc from 0 to 90 degrees, drawn from its end back to its start.
      const auto* arc = static_cast<const QxGeCircArc2d*>(edges[0]);
      EXPECT_TRUE(arc->isClockWise());
      EXPECT_NEAR(arc->startPoint().x, 3, 1e-12);
      EXPECT_NEAR(arc->startPoint().y, 3, 1e-12);
      EXPECT_NEAR(arc->endPoint().x, 4, 1e-12);
      EXPECT_NEAR(arc->endPoint().y, 2, 1e-12);
    }
    for (int i = 0; i < edges.length(); ++i) delete static_cast<QxGeCurve2d*>(edges[i]);
  }
  EXPECT_EQ(hatch->loopTypeAt(0) & QxDbHatch::kOutermost, QxDbHatch::kOutermost);
  hatch->close();

  hatch = open<QxDbHatch>(ids_.at("hatch_gradient"));
  ASSERT_TRUE(hatch);
  EXPECT_TRUE(hatch->isGradient());
  wchar_t* name = hatch->gradientName();
  EXPECT_STREQ(name, L"CYLINDER");
  qxad_free(name);
  EXPECT_NEAR(hatch->gradientAngle(), kPi / 6, 1e-12);
  EXPECT_EQ(hatch->gradientShift(), 0.25f);
  hatch->close();
}

TEST_F(EzdxfDrawingTest, LeaderAndImagesAsWritten) {
  QxDbLeader* leader = open<QxDbLeader>(ids_.at("leader"));
  ASSERT_TRUE(leader);
  EXPECT_EQ(leader->numVertices(), 3);
  EXPECT_FALSE(leader->hasArrowHead());
  EXPECT_DOUBLE_EQ(leader->dimasz(), 0.7);
  EXPECT_DOUBLE_EQ(leader->dimgap(), 0.3);
  EXPECT_EQ(leader->dimclrd().colorIndex(), 3);
  leader->close();

  QxDbRasterImage* image = open<QxDbRasterImage>(ids_.at("image"));
  ASSERT_TRUE(image);
  EXPECT_TRUE(image->imageSize().isEqualTo(QxGeVector2d(640, 360)));
  QxGePoint3d origin;
  QxGeVector3d u, v;
  image->getOrientation(origin, u, v);
  EXPECT_NEAR(u.length(), 6.4, 1e-12);
  EXPECT_NEAR(v.length(), 3.6, 1e-12);
  EXPECT_NEAR(u.angleTo(QxGeVector3d::kXAxis), kPi / 6, 1e-12);
  EXPECT_EQ(image->brightness(), 70);
  EXPECT_EQ(image->contrast(), 40);
  EXPECT_EQ(image->fade(), 10);
  EXPECT_FALSE(image->isClipped());
  image->close();

  image = open<QxDbRasterImage>(ids_.at("image_poly"));
  ASSERT_TRUE(image);
  EXPECT_TRUE(image->isClipped());
  EXPECT_EQ(image->clipBoundaryType(), QxDbRasterImage::kPoly);
  QxGePoint3dArray vertices;
  image->getVertices(vertices);
  EXPECT_EQ(vertices.length(), 3);
  image->close();

  QxDbRasterImage* wipeout = open<QxDbWipeout>(ids_.at("wipeout"));
  ASSERT_TRUE(wipeout);
  wipeout->getVertices(vertices);
  EXPECT_EQ(vertices.length(), 4);
  wipeout->close();

  QxDbMline* mline = open<QxDbMline>(ids_.at("mline"));
  ASSERT_TRUE(mline);
  EXPECT_EQ(mline->numVertices(), 4);
  EXPECT_DOUBLE_EQ(mline->scale(), 2);
  EXPECT_POINT_NEAR(mline->vertexAt(3), 14, 58, 0, 0);
  EXPECT_FALSE(mline->style().isNull());
  mline->close();
}

TEST_F(EzdxfDrawingTest, EllipticEdgesEndWhereEzdxfEndsThem) {
  // Stored angles are polar angles of the ellipse, not its parameters.
  QxDbHatch* hatch = open<QxDbHatch>(ids_.at("hatch_ellipses"));
  ASSERT_TRUE(hatch);
  std::vector<Fact> ends = factsOf("ellipse_ends", "hatch_ellipses");
  ASSERT_EQ(ends.size(), 2u);
  for (const Fact& fact : ends) {
    const std::vector<double>& v = fact.values;
    int type = 0;
    QxGeVoidPointerArray edges;
    QxGeIntArray types;
    ASSERT_EQ(hatch->getLoopAt(static_cast<int>(v[0]), type, edges, types), Qxad::eOk);
    int index = static_cast<int>(v[1]);
    ASSERT_EQ(types[index], QxDbHatch::kEllipseArc);
    const auto* arc = static_cast<const QxGeEllipArc2d*>(edges[index]);
    // ezdxf gives the ends counterclockwise; a clockwise edge starts at the far one.
    QxGePoint2d first = arc->isClockWise() ? arc->endPoint() : arc->startPoint();
    QxGePoint2d last = arc->isClockWise() ? arc->startPoint() : arc->endPoint();
    EXPECT_NEAR(first.x, v[2], 1e-9);
    EXPECT_NEAR(first.y, v[3], 1e-9);
    EXPECT_NEAR(last.x, v[4], 1e-9);
    EXPECT_NEAR(last.y, v[5], 1e-9);
    for (int i = 0; i < edges.length(); ++i) delete static_cast<QxGeCurve2d*>(edges[i]);
  }
  hatch->close();
}

TEST_F(EzdxfDrawingTest, HatchOutlinesAgreeWithTheHatchBoxes) {
  for (const char* name : {"hatch_edges", "hatch_ellipses", "hatch_fitted", "hatch_polyline"}) {
    SCOPED_TRACE(name);
    QxDbEntity* hatch = nullptr;
    ASSERT_EQ(qxdbOpenQxDbEntity(hatch, ids_.at(name), QxDb::kForRead), Qxad::eOk);
    QxDbExtents extents;
    EXPECT_EQ(hatch->getGeomExtents(extents), Qxad::eOk);
    hatch->close();
    api::EntityOutliner outliner(database(), geom::Affine3::identity());
    geom::PlaneShape shape = outliner.outline(*recordOf(ids_.at(name)), {});
    // Curves are flattened within 1e-5 of their size.
    EXPECT_NEAR(shape.box.min.x, extents.minPoint().x, 1e-3);
    EXPECT_NEAR(shape.box.min.y, extents.minPoint().y, 1e-3);
    EXPECT_NEAR(shape.box.max.x, extents.maxPoint().x, 1e-3);
    EXPECT_NEAR(shape.box.max.y, extents.maxPoint().y, 1e-3);
  }
}

}  // namespace
}  // namespace korva::test
