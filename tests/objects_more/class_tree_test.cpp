// Each record type opens as its class, in its place in the class tree.
#include "api/objects/object_state.h"
#include "more_fixture.h"
#include "qx_db_curve.h"
#include "qx_db_hatch.h"
#include "qx_db_image.h"
#include "qx_db_leader.h"
#include "qx_db_meshes.h"
#include "qx_db_mline.h"
#include "qx_db_modeler.h"
#include "qx_db_polylines.h"
#include "qx_db_quadrilaterals.h"
#include "qx_db_shape.h"
#include "qx_db_table.h"

namespace korva::test {
namespace {

using ClassTreeTest = MoreEntitiesTest;

TEST_F(ClassTreeTest, RecordTypesOpenAsTheirClasses) {
  struct Case {
    const char* type;
    std::vector<db::OwnedGroup> groups;
    const QxRxClass* expected;
    const QxRxClass* parent;
  };
  const Case cases[] = {
      {"HATCH", groups("100 AcDbHatch|2 SOLID"), QxDbHatch::desc(), QxDbEntity::desc()},
      {"LEADER", groups("100 AcDbLeader"), QxDbLeader::desc(), QxDbEntity::desc()},
      {"TOLERANCE", groups("100 AcDbFcf"), QxDbFcf::desc(), QxDbEntity::desc()},
      {"MLINE", groups("100 AcDbMline"), QxDbMline::desc(), QxDbEntity::desc()},
      {"IMAGE", groups("100 AcDbRasterImage"), QxDbRasterImage::desc(), QxDbEntity::desc()},
      {"WIPEOUT", groups("100 AcDbWipeout"), QxDbWipeout::desc(), QxDbRasterImage::desc()},
      {"OLE2FRAME", groups("100 AcDbOle2Frame"), QxDbOle2Frame::desc(), QxDbEntity::desc()},
      {"ACAD_TABLE", groups("100 AcDbBlockReference|2 *T1|100 AcDbTable"), QxDbTable::desc(),
       QxDbBlockReference::desc()},
      {"3DSOLID", groups("100 AcDbModelerGeometry"), QxDb3dSolid::desc(), QxDbEntity::desc()},
      {"REGION", groups("100 AcDbModelerGeometry"), QxDbRegion::desc(), QxDbEntity::desc()},
      {"BODY", groups("100 AcDbModelerGeometry"), QxDbBody::desc(), QxDbEntity::desc()},
      {"SHAPE", groups("100 AcDbShape"), QxDbShape::desc(), QxDbEntity::desc()},
      {"SOLID", groups("100 AcDbTrace"), QxDbSolid::desc(), QxDbEntity::desc()},
      {"TRACE", groups("100 AcDbTrace"), QxDbTrace::desc(), QxDbEntity::desc()},
      {"3DFACE", groups("100 AcDbFace"), QxDbFace::desc(), QxDbEntity::desc()},
      {"POLYLINE", groups("100 AcDbPolyFaceMesh|66 1|70 64"), QxDbPolyFaceMesh::desc(),
       QxDbEntity::desc()},
      {"POLYLINE", groups("100 AcDbPolygonMesh|66 1|70 17"), QxDbPolygonMesh::desc(),
       QxDbEntity::desc()},
      // Meshes must not take the place of the polylines that aren't meshes.
      {"POLYLINE", groups("100 AcDb3dPolyline|66 1|70 8"), QxDb3dPolyline::desc(),
       QxDbCurve::desc()},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.type);
    QxDbObject* object = nullptr;
    ASSERT_EQ(qxdbOpenQxDbObject(object, add(each.type, each.groups), QxDb::kForRead), Qxad::eOk);
    EXPECT_EQ(object->isA(), each.expected);
    EXPECT_EQ(object->isA()->myParent(), each.parent);
    EXPECT_TRUE(object->isKindOf(QxDbEntity::desc()));
    EXPECT_FALSE(object->isKindOf(QxDbCurve::desc()) && each.parent != QxDbCurve::desc());
    object->close();
  }
}

TEST_F(ClassTreeTest, SiblingsAreNotKindsOfEachOther) {
  QxDbEntity* trace = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(trace, add("TRACE", groups("100 AcDbTrace")), QxDb::kForRead),
            Qxad::eOk);
  EXPECT_FALSE(trace->isKindOf(QxDbSolid::desc()));
  EXPECT_EQ(QxDbSolid::cast(trace), nullptr);
  trace->close();

  QxDbEntity* image = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(image, add("IMAGE", groups("100 AcDbRasterImage")), QxDb::kForRead),
            Qxad::eOk);
  EXPECT_FALSE(image->isKindOf(QxDbWipeout::desc()));
  EXPECT_TRUE(image->isKindOf(QxDbRasterImage::desc()));
  image->close();

  QxDbEntity* table = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(
                table, add("ACAD_TABLE", groups("100 AcDbBlockReference|2 *T1|100 AcDbTable")),
                QxDb::kForRead),
            Qxad::eOk);
  EXPECT_TRUE(table->isKindOf(QxDbBlockReference::desc()));
  EXPECT_FALSE(table->isKindOf(QxDbMInsertBlock::desc()));
  table->close();
}

TEST_F(ClassTreeTest, NewObjectsCarryTheirRecordTypes) {
  // Made in memory, each owns a record of the type its class reads.
  QxDbEntity* made[] = {new QxDbHatch, new QxDbLeader, new QxDbFcf,  new QxDbMline, new QxDbWipeout,
                        new QxDbSolid, new QxDbTrace,  new QxDbFace, new QxDbShape};
  const char* types[] = {"HATCH", "LEADER", "TOLERANCE", "MLINE", "WIPEOUT",
                         "SOLID", "TRACE",  "3DFACE",    "SHAPE"};
  for (size_t i = 0; i < std::size(made); ++i) {
    EXPECT_EQ(api::recordOf(*made[i]).type(), types[i]);
    EXPECT_STREQ(made[i]->isA()->dxfName(), types[i]);
    delete made[i];
  }
}

}  // namespace
}  // namespace korva::test
