// qxdbEntMake: records laid out by subclass, complex entities, blocks, table records.
#include <cstring>
#include <functional>

#include "list_fixture.h"

namespace korva::test {
namespace {

std::vector<std::string> markersOf(const db::Record& record) {
  std::vector<std::string> markers;
  for (const db::Group& group : record.groups()) {
    if (group.code == 100) markers.emplace_back(group.value);
  }
  return markers;
}

// The markers before the first group with `code`.
int markersBefore(const db::Record& record, int code) {
  int count = 0;
  for (const db::Group& group : record.groups()) {
    if (group.code == code) return count;
    if (group.code == 100) ++count;
  }
  return -1;
}

using EntityMakeTest = DrawingTest;

double a[3] = {1, 2, 0}, b[3] = {4, 6, 0}, c[3] = {4, 0, 0}, d[3] = {0, 5, 0};

struct KindCase {
  std::function<ResultBuffer*()> list;
  const char* markers;  // joined by blanks
  int lastCode;         // a code that must stand after all markers up to `afterMarkers`
  int afterMarkers;
};

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

TEST_F(EntityMakeTest, ListsWithoutMarkersGetTheirSubclasses) {
  const KindCase cases[] = {
      {[] { return qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, 62, 1, RTNONE); },
       "AcDbEntity AcDbLine", 11, 2},
      {[] { return qxutBuildList(RTDXF0, L"POINT", 10, a, RTNONE); }, "AcDbEntity AcDbPoint", 10,
       2},
      {[] { return qxutBuildList(RTDXF0, L"CIRCLE", 10, a, 40, 2.0, RTNONE); },
       "AcDbEntity AcDbCircle", 40, 2},
      {[] { return qxutBuildList(RTDXF0, L"ARC", 10, a, 40, 2.0, 50, 0.0, 51, 1.0, RTNONE); },
       "AcDbEntity AcDbCircle AcDbArc", 51, 3},
      {[] {
         return qxutBuildList(RTDXF0, L"ELLIPSE", 10, a, 11, c, 40, 0.5, 41, 0.0, 42, 6.28, RTNONE);
       },
       "AcDbEntity AcDbEllipse", 40, 2},
      {[] {
         return qxutBuildList(RTDXF0, L"TEXT", 10, a, 40, 2.5, 1, L"t", 72, 1, 73, 2, 11, b,
                              RTNONE);
       },
       "AcDbEntity AcDbText AcDbText", 73, 3},
      {[] { return qxutBuildList(RTDXF0, L"MTEXT", 10, a, 40, 2.5, 1, L"m", 71, 1, RTNONE); },
       "AcDbEntity AcDbMText", 1, 2},
      {[] { return qxutBuildList(RTDXF0, L"SOLID", 10, a, 11, b, 12, c, 13, d, RTNONE); },
       "AcDbEntity AcDbTrace", 13, 2},
      {[] { return qxutBuildList(RTDXF0, L"TRACE", 10, a, 11, b, 12, c, 13, d, RTNONE); },
       "AcDbEntity AcDbTrace", 13, 2},
      {[] { return qxutBuildList(RTDXF0, L"3DFACE", 10, a, 11, b, 12, c, 13, d, 70, 15, RTNONE); },
       "AcDbEntity AcDbFace", 70, 2},
      {[] { return qxutBuildList(RTDXF0, L"RAY", 10, a, 11, c, RTNONE); }, "AcDbEntity AcDbRay", 11,
       2},
      {[] { return qxutBuildList(RTDXF0, L"XLINE", 10, a, 11, c, RTNONE); }, "AcDbEntity AcDbXline",
       11, 2},
      {[] { return qxutBuildList(RTDXF0, L"LWPOLYLINE", 70, 1, 10, a, 10, b, 10, c, RTNONE); },
       "AcDbEntity AcDbPolyline", 90, 2},
  };
  for (const KindCase& each : cases) {
    ResultBuffer* list = each.list();
    const std::wstring kind = list->value.rstring;
    make(list);
    db::Record& record = last();
    SCOPED_TRACE(record.type());
    EXPECT_EQ(std::wstring(record.type().begin(), record.type().end()), kind);
    EXPECT_EQ(joined(markersOf(record)), each.markers);
    EXPECT_EQ(markersBefore(record, each.lastCode), each.afterMarkers);
    EXPECT_EQ(markersBefore(record, 8), 1);  // layer under AcDbEntity
  }
  EXPECT_EQ(saveAndAudit(database(), "make_kinds.dxf"), "");
}

TEST_F(EntityMakeTest, ListWithMarkersIsTakenAsGiven) {
  make(qxutBuildList(RTDXF0, L"3DFACE", 100, L"AcDbEntity", 100, L"AcDbFace", 10, a, 11, b, 12, c,
                     13, d, 62, 3, 70, 15, RTNONE));
  db::Record& record = last();
  EXPECT_EQ(markersOf(record), (std::vector<std::string>{"AcDbEntity", "AcDbFace"}));
  EXPECT_EQ(record.find(8).value_or(""), "0");  // the current layer is added
  EXPECT_EQ(record.find(62).value_or(""), "3");
}

TEST_F(EntityMakeTest, MissingRequiredValuesOrUnknownKindsFail) {
  List circle(qxutBuildList(RTDXF0, L"CIRCLE", 10, a, RTNONE));
  EXPECT_EQ(qxdbEntMake(circle), RTERROR);
  List unknown(qxutBuildList(RTDXF0, L"WIDGET", 10, a, RTNONE));
  EXPECT_EQ(qxdbEntMake(unknown), RTERROR);
  List noType(qxutBuildList(10, a, RTNONE));
  EXPECT_EQ(qxdbEntMake(noType), RTERROR);
  List insert(qxutBuildList(RTDXF0, L"INSERT", 2, L"NOBLOCK", 10, a, RTNONE));
  EXPECT_EQ(qxdbEntMake(insert), RTERROR);
  EntityName none;
  EXPECT_EQ(qxdbEntLast(none), RTERROR);
}

TEST_F(EntityMakeTest, LayerDefaultsToCurrentAndIsCreated) {
  database().setHeaderVariable("$CLAYER", {{8, "Current"}});
  ASSERT_EQ(qxdbTblSearch(L"LAYER", L"Current", 0), nullptr);
  make(qxutBuildList(RTDXF0, L"POINT", 10, a, RTNONE));
  EXPECT_EQ(last().find(8).value_or(""), "Current");
  List layer(qxdbTblSearch(L"LAYER", L"CURRENT", 0));
  EXPECT_NE(layer.head, nullptr);
}

TEST_F(EntityMakeTest, MeshPolylineIsHeldUntilSeqend) {
  make(qxutBuildList(RTDXF0, L"POLYLINE", 66, 1, 10, a, 70, 16, 71, 2, 72, 2, RTNONE));
  double corners[4][3] = {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 1}};
  for (double* corner : corners) make(qxutBuildList(RTDXF0, L"VERTEX", 10, corner, 70, 64, RTNONE));
  EntityName none;
  EXPECT_EQ(qxdbEntLast(none), RTERROR);  // nothing entered the drawing yet
  make(qxutBuildList(RTDXF0, L"SEQEND", RTNONE));

  db::Record& head = last();
  EXPECT_EQ(markersOf(head), (std::vector<std::string>{"AcDbEntity", "AcDbPolygonMesh"}));
  EntityName walk;
  api::nameOf(document(), head, walk);
  std::vector<std::string> kinds;
  while (qxdbEntNext(walk, walk) == RTNORM) {
    db::Record* record = api::recordOf(walk);
    kinds.emplace_back(record->type());
    EXPECT_EQ(record->owner(), head.handle());
    if (record->type() == "VERTEX") {
      EXPECT_EQ(markersOf(*record),
                (std::vector<std::string>{"AcDbEntity", "AcDbVertex", "AcDbPolygonMeshVertex"}));
    }
  }
  EXPECT_EQ(kinds, (std::vector<std::string>{"VERTEX", "VERTEX", "VERTEX", "VERTEX", "SEQEND"}));
  EXPECT_EQ(saveAndAudit(database(), "make_mesh.dxf"), "");
}

TEST_F(EntityMakeTest, NullListDropsHalfMadeEntity) {
  make(qxutBuildList(RTDXF0, L"POLYLINE", 70, 8, RTNONE));
  make(qxutBuildList(RTDXF0, L"VERTEX", 10, a, 70, 32, RTNONE));
  List line(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE));
  EXPECT_EQ(qxdbEntMake(line), RTERROR);  // a plain entity can't interrupt a sequence
  EXPECT_EQ(qxdbEntMake(nullptr), RTNORM);
  List seqend(qxutBuildList(RTDXF0, L"SEQEND", RTNONE));
  EXPECT_EQ(qxdbEntMake(seqend), RTERROR);
  EXPECT_EQ(qxdbEntMake(line), RTNORM);
  EXPECT_EQ(last().type(), "LINE");
}

TEST_F(EntityMakeTest, BlockDefinitionAndReferenceWithAttributes) {
  make(qxutBuildList(RTDXF0, L"BLOCK", 2, L"Door", 70, 2, 10, a, RTNONE));
  make(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE));
  make(qxutBuildList(RTDXF0, L"ATTDEF", 10, a, 40, 1.0, 1, L"", 2, L"TAG", 3, L"Tag?", 70, 0,
                     RTNONE));
  EXPECT_EQ(qxdbTblSearch(L"BLOCK", L"Door", 0), nullptr);  // held until ENDBLK
  EntityName blockName;
  List end(qxutBuildList(RTDXF0, L"ENDBLK", RTNONE));
  ASSERT_EQ(qxdbEntMakeX(end, blockName), RTNORM);
  EXPECT_EQ(api::recordOf(blockName)->type(), "BLOCK");

  List block(qxdbTblSearch(L"BLOCK", L"door", 0));
  ASSERT_NE(block.head, nullptr);
  EXPECT_EQ(block.find(70)->value.rint, 2);
  EntityName first;
  std::memcpy(first, block.find(-2)->value.rlname, sizeof first);
  EXPECT_EQ(api::recordOf(first)->type(), "LINE");
  db::Record* attdef = api::recordOf(first);
  ASSERT_EQ(qxdbEntNext(first, first), RTNORM);
  attdef = api::recordOf(first);
  EXPECT_EQ(markersOf(*attdef),
            (std::vector<std::string>{"AcDbEntity", "AcDbText", "AcDbAttributeDefinition"}));
  EXPECT_EQ(qxdbEntNext(first, first), RTERROR);  // the block ends

  make(qxutBuildList(RTDXF0, L"INSERT", 2, L"Door", 66, 1, 10, b, RTNONE));
  make(qxutBuildList(RTDXF0, L"ATTRIB", 10, b, 40, 1.0, 1, L"value", 2, L"TAG", 70, 0, 74, 2,
                     RTNONE));
  make(qxutBuildList(RTDXF0, L"SEQEND", RTNONE));
  db::Record& insert = last();
  EXPECT_EQ(insert.type(), "INSERT");
  EntityName walk;
  api::nameOf(document(), insert, walk);
  ASSERT_EQ(qxdbEntNext(walk, walk), RTNORM);
  db::Record* attrib = api::recordOf(walk);
  EXPECT_EQ(attrib->type(), "ATTRIB");
  EXPECT_EQ(markersBefore(*attrib, 74), 3);  // vertical alignment under AcDbAttribute
  EXPECT_EQ(saveAndAudit(database(), "make_block.dxf"), "");
}

TEST_F(EntityMakeTest, TableRecordsByTypeName) {
  make(qxutBuildList(RTDXF0, L"LAYER", 2, L"Hidden", 70, 0, 62, -3, RTNONE));
  List layer(qxdbTblSearch(L"LAYER", L"HIDDEN", 0));
  ASSERT_NE(layer.head, nullptr);
  EXPECT_EQ(layer.find(62)->value.rint, -3);
  EXPECT_EQ(layer.string(6), L"Continuous");
  List again(qxutBuildList(RTDXF0, L"LAYER", 2, L"hidden", RTNONE));
  EXPECT_EQ(qxdbEntMake(again), RTERROR);

  // A style copied from another's search list under a new name.
  List standard(qxdbTblSearch(L"STYLE", L"Standard", 0));
  setString(standard, 2, L"Copy");
  EXPECT_EQ(qxdbEntMake(standard), RTNORM);
  List copy(qxdbTblSearch(L"STYLE", L"Copy", 0));
  ASSERT_NE(copy.head, nullptr);
  EXPECT_EQ(copy.string(3), L"txt");

  make(qxutBuildList(RTDXF0, L"LTYPE", 2, L"DASHED2", 3, L"__ __", 72, 65, 73, 2, 40, 0.75, 49, 0.5,
                     74, 0, 49, -0.25, 74, 0, RTNONE));
  make(qxutBuildList(RTDXF0, L"DIMSTYLE", 2, L"Mine", 70, 0, 40, 2.0, RTNONE));
  make(qxutBuildList(RTDXF0, L"APPID", 2, L"MYAPP", RTNONE));
  EXPECT_EQ(qxdbRegApp(L"myapp"), RTERROR);
  EXPECT_EQ(saveAndAudit(database(), "make_tables.dxf"), "");
}

TEST_F(EntityMakeTest, PaperSpaceWhenLayoutIsCurrent) {
  database().setHeaderVariable("$TILEMODE", {{70, "0"}});
  database().setHeaderVariable("$CVPORT", {{70, "1"}});
  make(qxutBuildList(RTDXF0, L"CIRCLE", 10, a, 40, 1.0, RTNONE));
  db::Record& circle = last();
  EXPECT_EQ(circle.find(67).value_or(""), "1");
  EXPECT_EQ(circle.owner(), database().tableEntry("BLOCK_RECORD", "*Paper_Space")->handle());
  EXPECT_EQ(saveAndAudit(database(), "make_paper.dxf"), "");
}

TEST_F(EntityMakeTest, ExtendedDataNeedsRegisteredApplication) {
  List unregistered(
      qxutBuildList(RTDXF0, L"POINT", 10, a, -3, 1001, L"NEWAPP", 1000, L"x", RTNONE));
  EXPECT_EQ(qxdbEntMake(unregistered), RTERROR);
  ASSERT_EQ(qxdbRegApp(L"NEWAPP"), RTNORM);
  EXPECT_EQ(qxdbEntMake(unregistered), RTNORM);
  EXPECT_EQ(last().find(1000).value_or(""), "x");
  EXPECT_EQ(saveAndAudit(database(), "make_xdata.dxf"), "");
}

}  // namespace
}  // namespace korva::test
