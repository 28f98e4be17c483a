// qxdbEntMod with a changed 67: the entity moves between model space and the active
// layout, seen through both layers and after a save and a new read.
#include <cstring>
#include <filesystem>

#include "db/change_journal.h"
#include "db/handle.h"
#include "dxf/reader.h"
#include "dxf/writer.h"
#include "list_fixture.h"
#include "qx_db_entity.h"
#include "qx_selection.h"

namespace korva::test {
namespace {

class EntitySpaceTest : public DrawingTest {
 protected:
  // Sets 67 in the entity's full list and writes it back.
  int setSpace(const EntityName name, int space) {
    List list(qxdbEntGet(name));
    list.find(67)->value.rint = static_cast<int16_t>(space);
    return qxdbEntMod(list);
  }
  db::Handle spaceHandle(const char* name) {
    return database().tableEntry("BLOCK_RECORD", name)->handle();
  }
  // The owner as the object layer reports it.
  db::Handle ownerThroughObjects(const EntityName name) {
    QxDbObjectId id;
    EXPECT_EQ(qxdbGetObjectId(id, name), Qxad::eOk);
    QxDbEntity* entity = nullptr;
    EXPECT_EQ(qxdbOpenQxDbEntity(entity, id, 0, false), Qxad::eOk);
    QxDbObjectId owner = entity->ownerId();
    entity->close();
    EntityName ownerName;
    EXPECT_EQ(qxdbGetHysName(ownerName, owner), Qxad::eOk);
    return static_cast<db::Handle>(ownerName[0]);
  }
};

TEST_F(EntitySpaceTest, LineMovesToPaperSpaceAndBackThroughBothLayersAndAFile) {
  double a[3] = {0, 0, 0}, b[3] = {4, 0, 0};
  make(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE));
  EntityName line;
  ASSERT_EQ(qxdbEntLast(line), RTNORM);
  db::Record& record = *api::recordOf(line);

  ASSERT_EQ(setSpace(line, 1), RTNORM);
  List moved(qxdbEntGet(line));
  EXPECT_EQ(moved.find(67)->value.rint, 1);
  EXPECT_EQ(moved.string(410), L"Layout1");
  EXPECT_EQ(record.owner(), spaceHandle("*Paper_Space"));
  EXPECT_EQ(record.find(67).value_or(""), "1");
  EXPECT_EQ(ownerThroughObjects(line), spaceHandle("*Paper_Space"));
  // Only paper space has it now.
  ResultBuffer* paper = qxutBuildList(67, 1, RTNONE);
  SelectionSet set;
  ASSERT_EQ(qxedSSGet(L"X", nullptr, nullptr, paper, set), RTNORM);
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  EXPECT_EQ(count, 1);
  qxedSSFree(set);
  qxutRelRb(paper);

  std::string path = (std::filesystem::temp_directory_path() / "korva_space_move.dxf").string();
  ASSERT_TRUE(dxf::writeFile(database(), path).ok);
  dxf::ReadResult read = dxf::readFile(path);
  ASSERT_TRUE(read.ok()) << read.error;
  db::Record* again = read.database->lookup(record.handle());
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->owner(), read.database->tableEntry("BLOCK_RECORD", "*Paper_Space")->handle());
  EXPECT_EQ(again->find(67).value_or(""), "1");
  EXPECT_EQ(saveAndAudit(database(), "space_move.dxf"), "");

  ASSERT_EQ(setSpace(line, 0), RTNORM);
  EXPECT_EQ(record.owner(), spaceHandle("*Model_Space"));
  EXPECT_FALSE(record.find(67).has_value());
  EXPECT_EQ(ownerThroughObjects(line), spaceHandle("*Model_Space"));
  List back(qxdbEntGet(line));
  EXPECT_EQ(back.find(67)->value.rint, 0);
  EXPECT_EQ(back.string(410), L"Model");
}

TEST_F(EntitySpaceTest, PolylineVerticesFollowTheirPolyline) {
  double p[3] = {0, 0, 0}, q[3] = {3, 1, 0};
  make(qxutBuildList(RTDXF0, L"POLYLINE", 66, 1, 70, 0, RTNONE));
  make(qxutBuildList(RTDXF0, L"VERTEX", 10, p, RTNONE));
  make(qxutBuildList(RTDXF0, L"VERTEX", 10, q, RTNONE));
  make(qxutBuildList(RTDXF0, L"SEQEND", RTNONE));
  EntityName polyline;
  ASSERT_EQ(qxdbEntLast(polyline), RTNORM);
  ASSERT_EQ(setSpace(polyline, 1), RTNORM);
  // Two vertices and the end of the sequence.
  EntityName part;
  std::memcpy(part, polyline, sizeof part);
  for (int i = 0; i < 3; ++i) {
    ASSERT_EQ(qxdbEntNext(part, part), RTNORM);
    EXPECT_EQ(api::recordOf(part)->owner(), api::recordOf(polyline)->handle());
    EXPECT_EQ(api::recordOf(part)->find(67).value_or(""), "1");
  }
  EXPECT_EQ(saveAndAudit(database(), "space_move_polyline.dxf"), "");
}

TEST_F(EntitySpaceTest, MoveIsOneUndoableChangeOfGroups) {
  double a[3] = {0, 0, 0}, b[3] = {1, 1, 0};
  make(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE));
  EntityName line;
  ASSERT_EQ(qxdbEntLast(line), RTNORM);
  db::ChangeJournal& journal = database().journal();
  journal.beginGroup(db::ChangeJournal::GroupKind::Command, "CHSPACE");
  ASSERT_EQ(setSpace(line, 1), RTNORM);
  journal.endGroup();
  ASSERT_TRUE(journal.undoStep().has_value());
  EXPECT_EQ(api::recordOf(line)->owner(), spaceHandle("*Model_Space"));
  EXPECT_FALSE(api::recordOf(line)->find(67).has_value());
}

TEST_F(EntitySpaceTest, EntityOfAnInactiveLayoutIsNotMoved) {
  db::BlockDefinition* layout = database().addBlock("*Paper_Space0");
  ASSERT_NE(layout, nullptr);
  db::Record* line =
      database().addEntity(groups("100 AcDbEntity|67 1|8 0|100 AcDbLine|10 0|20 0|30 0|11 1|21 0|"
                                  "31 0"),
                           "LINE", layout);
  EntityName name;
  api::nameOf(document(), *line, name);
  EXPECT_EQ(setSpace(name, 0), RTERROR);
  EXPECT_EQ(line->owner(), layout->begin->owner());
  // Keeping its space is fine.
  EXPECT_EQ(setSpace(name, 1), RTNORM);
}

}  // namespace
}  // namespace korva::test
