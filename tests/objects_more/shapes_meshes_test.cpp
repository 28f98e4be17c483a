// Solids, traces, faces, shapes, multilines, tables and meshes over hand-written
// records, through both layers.
#include <cmath>
#include <numbers>

#include "more_fixture.h"
#include "qx_db_meshes.h"
#include "qx_db_mline.h"
#include "qx_db_quadrilaterals.h"
#include "qx_db_shape.h"
#include "qx_db_table.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

constexpr double kPi = std::numbers::pi;
using ShapesTest = MoreEntitiesTest;

TEST_F(ShapesTest, SolidCornersLieInTheObjectSystem) {
  // Normal -Z: object X is world -X. Three corners: the fourth repeats the third.
  QxDbObjectId id = add(
      "SOLID",
      groups("100 AcDbTrace|39 2|10 1|20 1|30 3|11 4|21 1|31 3|12 1|22 5|32 3|210 0|220 0|230 -1"));
  QxDbSolid* solid = open<QxDbSolid>(id, QxDb::kForWrite);
  ASSERT_TRUE(solid);
  QxGePoint3d point;
  ASSERT_EQ(solid->getPointAt(1, point), Qxad::eOk);
  EXPECT_POINT_NEAR(point, -4, 1, -3, 1e-15);
  ASSERT_EQ(solid->getPointAt(3, point), Qxad::eOk);
  EXPECT_POINT_NEAR(point, -1, 5, -3, 1e-15);
  EXPECT_EQ(solid->getPointAt(4, point), Qxad::eInvalidIndex);
  EXPECT_DOUBLE_EQ(solid->thickness(), 2);
  // The thickness runs along the normal, down from -3 to -5.
  QxDbExtents extents;
  ASSERT_EQ(solid->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.minPoint(), -4, 1, -5, 1e-15);
  EXPECT_POINT_NEAR(extents.maxPoint(), -1, 5, -3, 1e-15);

  // Moving the third corner leaves the fourth where it was.
  EXPECT_EQ(solid->setPointAt(2, QxGePoint3d(-2, 6, -3)), Qxad::eOk);
  EXPECT_EQ(solid->setThickness(0), Qxad::eOk);
  solid->close();
  EXPECT_POINT_NEAR(listPoint(id, 12).value_or(QxGePoint3d()), 2, 6, 3, 1e-15);
  EXPECT_POINT_NEAR(listPoint(id, 13).value_or(QxGePoint3d()), 1, 5, 3, 1e-15);

  modifyPoint(id, 10, QxGePoint3d(0, 0, 3));
  solid = open<QxDbSolid>(id);
  ASSERT_TRUE(solid);
  ASSERT_EQ(solid->getPointAt(0, point), Qxad::eOk);
  EXPECT_POINT_NEAR(point, 0, 0, -3, 1e-15);
  EXPECT_EQ(solid->thickness(), 0);
  solid->close();
}

TEST_F(ShapesTest, TraceAndFace) {
  QxDbObjectId traceId = add(
      "TRACE", groups("100 AcDbTrace|10 0|20 0|30 0|11 2|21 0|31 0|12 0|22 1|32 0|13 2|23 1|33 0"));
  QxDbTrace* trace = open<QxDbTrace>(traceId, QxDb::kForWrite);
  ASSERT_TRUE(trace);
  EXPECT_EQ(trace->setPointAt(3, QxGePoint3d(3, 2, 0)), Qxad::eOk);
  EXPECT_EQ(trace->setThickness(1.5), Qxad::eOk);
  trace->close();
  EXPECT_POINT_NEAR(listPoint(traceId, 13).value_or(QxGePoint3d()), 3, 2, 0, 0);
  EXPECT_EQ(listReal(traceId, 39), 1.5);

  QxDbObjectId faceId =
      add("3DFACE",
          groups("100 AcDbFace|10 0|20 0|30 0|11 1|21 0|31 1|12 1|22 1|32 2|13 0|23 1|33 -1|70 5"));
  QxDbFace* face = open<QxDbFace>(faceId, QxDb::kForWrite);
  ASSERT_TRUE(face);
  bool visible[4];
  for (std::uint16_t i = 0; i < 4; ++i) ASSERT_EQ(face->isEdgeVisibleAt(i, visible[i]), Qxad::eOk);
  EXPECT_FALSE(visible[0]);
  EXPECT_TRUE(visible[1]);
  EXPECT_FALSE(visible[2]);
  EXPECT_TRUE(visible[3]);
  EXPECT_EQ(face->makeEdgeVisibleAt(0), Qxad::eOk);
  EXPECT_EQ(face->makeEdgeInvisibleAt(3), Qxad::eOk);
  EXPECT_EQ(face->makeEdgeInvisibleAt(4), Qxad::eInvalidIndex);
  EXPECT_EQ(face->setVertexAt(1, QxGePoint3d(2, 0, 1)), Qxad::eOk);
  QxDbExtents extents;
  ASSERT_EQ(face->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.minPoint(), 0, 0, -1, 0);
  EXPECT_POINT_NEAR(extents.maxPoint(), 2, 1, 2, 0);
  face->close();
  EXPECT_EQ(listInteger(faceId, 70), 12);
  EXPECT_POINT_NEAR(listPoint(faceId, 11).value_or(QxGePoint3d()), 2, 0, 1, 0);

  modifyInteger(faceId, 70, 2);
  face = open<QxDbFace>(faceId);
  ASSERT_TRUE(face);
  face->isEdgeVisibleAt(1, visible[1]);
  face->isEdgeVisibleAt(3, visible[3]);
  EXPECT_FALSE(visible[1]);
  EXPECT_TRUE(visible[3]);
  face->close();
}

TEST_F(ShapesTest, ShapeMembers) {
  QxDbObjectId id =
      add("SHAPE", groups("100 AcDbShape|39 0.5|10 3|20 4|30 0|40 2.5|2 BOX|50 30|41 0.8|51 15"));
  QxDbShape* shape = open<QxDbShape>(id, QxDb::kForWrite);
  ASSERT_TRUE(shape);
  wchar_t* name = shape->name();
  EXPECT_STREQ(name, L"BOX");
  qxad_free(name);
  EXPECT_POINT_NEAR(shape->position(), 3, 4, 0, 0);
  EXPECT_DOUBLE_EQ(shape->size(), 2.5);
  EXPECT_DOUBLE_EQ(shape->rotation(), kPi / 6);
  EXPECT_DOUBLE_EQ(shape->widthFactor(), 0.8);
  EXPECT_DOUBLE_EQ(shape->oblique(), kPi / 12);
  EXPECT_DOUBLE_EQ(shape->thickness(), 0.5);
  EXPECT_EQ(shape->shapeNumber(), 0);
  EXPECT_EQ(shape->setRotation(kPi / 2), Qxad::eOk);
  EXPECT_EQ(shape->setName(L"ARROW"), Qxad::eOk);
  shape->close();
  EXPECT_NEAR(listReal(id, 50).value_or(0), 90, 1e-12);
  EXPECT_EQ(listText(id, 2), L"ARROW");

  modifyReal(id, 41, 1.25);
  shape = open<QxDbShape>(id);
  ASSERT_TRUE(shape);
  EXPECT_DOUBLE_EQ(shape->widthFactor(), 1.25);
  shape->close();
}

TEST_F(ShapesTest, MultilineVerticesAndOffsets) {
  // Two elements at +1 and -1 along each miter; the last vertex's miter is tilted.
  std::string text =
      "100 AcDbMline|2 STANDARD|40 2|70 1|71 1|72 3|73 2|10 0|20 0|30 0|210 0|220 0|230 1";
  auto vertex = [&](std::string x, std::string y, std::string mx, std::string my) {
    text += "|11 " + x + "|21 " + y + "|31 0|12 1|22 0|32 0|13 " + mx + "|23 " + my + "|33 0";
    text += "|74 2|41 1|41 0|75 0|74 2|41 -1|41 0|75 0";
  };
  vertex("0", "0", "0", "1");
  vertex("10", "0", "0", "1");
  vertex("20", "0", "0.6", "0.8");
  QxDbObjectId id = add("MLINE", groups(text));
  QxDbMline* mline = open<QxDbMline>(id, QxDb::kForWrite);
  ASSERT_TRUE(mline);
  EXPECT_EQ(mline->numVertices(), 3);
  EXPECT_POINT_NEAR(mline->vertexAt(1), 10, 0, 0, 0);
  EXPECT_EQ(mline->justification(), QxMline::kZero);
  EXPECT_DOUBLE_EQ(mline->scale(), 2);
  EXPECT_FALSE(mline->closedMline());
  EXPECT_TRUE(mline->style().isNull());
  QxDbExtents extents;
  ASSERT_EQ(mline->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.minPoint(), 0, -1, 0, 1e-12);
  EXPECT_POINT_NEAR(extents.maxPoint(), 20.6, 1, 0, 1e-12);
  EXPECT_EQ(mline->moveVertexAt(0, QxGePoint3d(-5, 0, 0)), Qxad::eOk);
  EXPECT_EQ(mline->moveVertexAt(3, QxGePoint3d()), Qxad::eInvalidIndex);
  mline->close();
  EXPECT_POINT_NEAR(listPoint(id, 11).value_or(QxGePoint3d()), -5, 0, 0, 0);
  EXPECT_POINT_NEAR(listPoint(id, 10).value_or(QxGePoint3d()), -5, 0, 0, 0);

  modifyPoint(id, 11, QxGePoint3d(20, 3, 0), 2);
  mline = open<QxDbMline>(id);
  ASSERT_TRUE(mline);
  EXPECT_POINT_NEAR(mline->vertexAt(2), 20, 3, 0, 0);
  mline->close();
}

TEST_F(ShapesTest, TableSizes) {
  QxDbObjectId id =
      add("ACAD_TABLE",
          groups("100 AcDbBlockReference|2 *T1|10 5|20 5|30 0|100 AcDbTable|280 0|11 0|21 1|31 "
                 "0|90 22|91 2|92 3|141 1.5|141 2|142 4|142 5|142 6|171 1|91 0|92 0|141 9"));
  QxDbTable* table = open<QxDbTable>(id);
  ASSERT_TRUE(table);
  EXPECT_EQ(table->numRows(), 2);
  EXPECT_EQ(table->numColumns(), 3);
  EXPECT_DOUBLE_EQ(table->height(), 3.5);
  EXPECT_DOUBLE_EQ(table->width(), 15);
  EXPECT_EQ(table->rowHeight(2), 0);
  EXPECT_TRUE(table->direction().isEqualTo(QxGeVector3d(0, 1, 0)));
  EXPECT_POINT_NEAR(table->position(), 5, 5, 0, 0);
  table->close();
}

TEST_F(ShapesTest, MeshesCountTheirVertexRecords) {
  QxDbObjectId polyface =
      add("POLYLINE", groups("100 AcDbPolyFaceMesh|66 1|10 0|20 0|30 0|70 64|71 3|72 1"));
  auto vertex = [&](const char* subclass, double x, double y, double z, int flags) {
    add("VERTEX",
        groups("100 AcDbVertex|100 " + std::string(subclass) + "|10 " + std::to_string(x) + "|20 " +
               std::to_string(y) + "|30 " + std::to_string(z) + "|70 " + std::to_string(flags)));
  };
  vertex("AcDbPolyFaceMeshVertex", 0, 0, 0, 192);
  vertex("AcDbPolyFaceMeshVertex", 4, 0, 1, 192);
  vertex("AcDbPolyFaceMeshVertex", 0, 3, -2, 192);
  vertex("AcDbFaceRecord", 0, 0, 0, 128);
  add("SEQEND", {});
  QxDbObjectId mesh =
      add("POLYLINE", groups("100 AcDbPolygonMesh|66 1|10 0|20 0|30 0|70 17|71 2|72 2|75 6"));
  for (int i = 0; i < 4; ++i) vertex("AcDbPolygonMeshVertex", 10 + i % 2, i / 2, i, 64);
  add("SEQEND", {});

  QxDbPolyFaceMesh* faces = open<QxDbPolyFaceMesh>(polyface);
  ASSERT_TRUE(faces);
  EXPECT_EQ(faces->numVertices(), 3);
  EXPECT_EQ(faces->numFaces(), 1);
  QxDbExtents extents;
  ASSERT_EQ(faces->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.minPoint(), 0, 0, -2, 0);
  EXPECT_POINT_NEAR(extents.maxPoint(), 4, 3, 1, 0);
  faces->close();

  QxDbPolygonMesh* grid = open<QxDbPolygonMesh>(mesh);
  ASSERT_TRUE(grid);
  EXPECT_EQ(grid->numVertices(), 4);
  EXPECT_EQ(grid->mSize(), 2);
  EXPECT_EQ(grid->nSize(), 2);
  EXPECT_TRUE(grid->isMClosed());
  EXPECT_FALSE(grid->isNClosed());
  EXPECT_EQ(grid->polyMeshType(), QxDbPolygonMesh::kCubicSurfaceMesh);
  ASSERT_EQ(grid->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.maxPoint(), 11, 1, 3, 0);
  grid->close();
}

}  // namespace
}  // namespace korva::test
