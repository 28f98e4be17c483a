// The groups that hold an entity, and UNGROUP's choice among groups of equal size.
#include <string>
#include <vector>

#include "command_fixture.h"
#include "frame/commands/drawing_groups.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"

namespace {

class DrawingGroupsTest : public CommandTest {
 protected:
  QxDbObjectId makeLine(double y) {
    const double start[3] = {0, y, 0}, end[3] = {10, y, 0};
    ResultBuffer* list = qxutBuildList(RTDXF0, L"LINE", 10, start, 11, end, RTNONE);
    EXPECT_EQ(qxdbEntMake(list), RTNORM);
    qxutRelRb(list);
    EntityName name;
    QxDbObjectId id;
    EXPECT_EQ(qxdbEntLast(name), RTNORM);
    EXPECT_EQ(qxdbGetObjectId(id, name), Qxad::eOk);
    return id;
  }

  // A group of the entities, under the name; its object id.
  QxDbObjectId makeGroup(const wchar_t* name, const std::vector<QxDbObjectId>& members) {
    SelectionSet set;
    EXPECT_EQ(qxedSSAdd(nullptr, nullptr, set), RTNORM);
    for (QxDbObjectId member : members) {
      EntityName entity;
      qxdbGetHysName(entity, member);
      qxedSSAdd(entity, set, set);
    }
    EntityName group;
    EXPECT_EQ(CreateGroup(name, L"made by a test", group), RTNORM);
    EXPECT_EQ(AppendSetToGroup(set, group), RTNORM);
    qxedSSFree(set);
    QxDbObjectId id;
    qxdbGetObjectId(id, group);
    return id;
  }

  static std::wstring groupName(QxDbObjectId group) {
    QxDbDictionary* dictionary = nullptr;
    s_pServices->workingDatabase()->getGroupDictionary(dictionary);
    wchar_t* key = nullptr;
    std::wstring name;
    if (dictionary->nameAt(group, key) == Qxad::eOk) name = key;
    qxad_free(key);
    dictionary->close();
    return name;
  }

  static std::wstring handleAnswer(QxDbObjectId id) {
    wchar_t handle[17] = {};
    id.handle().getIntoAsciiBuffer(handle);
    return std::wstring(L"#") + handle;
  }
};

TEST_F(DrawingGroupsTest, HoldersAreFoundWithTheirSizesAndErasedOnesLeftOut) {
  const QxDbObjectId shared = makeLine(0), alone = makeLine(2), other = makeLine(4);
  const QxDbObjectId big = makeGroup(L"BIG", {shared, alone, other});
  const QxDbObjectId small = makeGroup(L"SMALL", {shared});

  std::vector<GroupHolding> holders = FindGroupsOfEntity(shared);
  ASSERT_EQ(holders.size(), 2u);
  EXPECT_EQ(holders[0].group, big);
  EXPECT_EQ(holders[0].entityCount, 3u);
  EXPECT_EQ(holders[1].group, small);
  EXPECT_EQ(holders[1].entityCount, 1u);

  // An erased group still stands in the dictionary but holds nothing any more.
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, big, QxDb::kForWrite), Qxad::eOk);
  ASSERT_EQ(object->erase(), Qxad::eOk);
  object->close();
  holders = FindGroupsOfEntity(shared);
  ASSERT_EQ(holders.size(), 1u);
  EXPECT_EQ(holders[0].group, small);
  EXPECT_TRUE(FindGroupsOfEntity(alone).empty());
}

TEST_F(DrawingGroupsTest, UngroupDissolvesTheFirstOfEquallyLargeGroups) {
  const QxDbObjectId shared = makeLine(0), left = makeLine(2), right = makeLine(4);
  const QxDbObjectId first = makeGroup(L"FIRST", {shared, left});
  const QxDbObjectId second = makeGroup(L"SECOND", {shared, right});
  addModuleCommand(L"UNGROUP", cmdUngroup);
  type({L"UNGROUP", handleAnswer(shared), L""});

  std::vector<GroupHolding> holders = FindGroupsOfEntity(shared);
  ASSERT_EQ(holders.size(), 1u) << transcript_.str();
  EXPECT_EQ(holders[0].group, second);
  EXPECT_TRUE(groupName(first).empty());
  EXPECT_EQ(transcript_.str().find("unfreed"), std::string::npos) << transcript_.str();
}

}  // namespace
