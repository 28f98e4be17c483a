// Changes made through the flat layer, taken back through the journal.
#include "api/utf8.h"
#include "qx_entities.h"
#include "qx_memory.h"
#include "undo_fixture.h"

namespace korva::test {
namespace {

using Kind = db::ChangeJournal::GroupKind;

std::string layerOf(const EntityName name) {
  ResultBuffer* list = qxdbEntGet(name);
  std::string layer;
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 8) layer = api::toUtf8(node->value.rstring);
  }
  qxutRelRb(list);
  return layer;
}

TEST_F(CurrentDocument, MakeModifyAndEraseThroughTheFlatLayerAreTakenBackInTurn) {
  const double start[3] = {0, 0, 0};
  const double end[3] = {5, 5, 0};
  journal().beginGroup(Kind::Command, "LINE");
  ResultBuffer* made = qxutBuildList(RTDXF0, L"LINE", 8, L"Walls", 10, start, 11, end, RTNONE);
  ASSERT_EQ(qxdbEntMake(made), RTNORM);
  qxutRelRb(made);
  EntityName name;
  ASSERT_EQ(qxdbEntLast(name), RTNORM);
  journal().endGroup();
  ASSERT_NE(database().tableEntry("LAYER", "Walls"), nullptr);  // made with the entity

  journal().beginGroup(Kind::Command, "CHPROP");
  ResultBuffer* list = qxdbEntGet(name);
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 8) {
      qxad_free(node->value.rstring);
      node->value.rstring = qxutNewString(L"0");
    }
  }
  ASSERT_EQ(qxdbEntMod(list), RTNORM);
  qxutRelRb(list);
  journal().endGroup();

  journal().beginGroup(Kind::Command, "ERASE");
  ASSERT_EQ(qxdbEntDel(name), RTNORM);
  journal().endGroup();

  EXPECT_EQ(journal().undoStep(), "ERASE");
  EXPECT_EQ(layerOf(name), "0");
  EXPECT_EQ(journal().undoStep(), "CHPROP");
  EXPECT_EQ(layerOf(name), "Walls");
  EXPECT_EQ(journal().undoStep(), "LINE");
  EntityName last;
  EXPECT_NE(qxdbEntLast(last), RTNORM);
  EXPECT_EQ(database().tableEntry("LAYER", "Walls"), nullptr);
}

}  // namespace
}  // namespace korva::test
