#include "entities_fixture.h"

#include "api/objects/object_state.h"
#include "dxf/new_drawing.h"

namespace korva::test {

void EntitiesTest::SetUp() {
  document_ = &api::DocumentList::instance().add(dxf::createNewDrawing(), "entities.dxf", true);
}

void EntitiesTest::TearDown() {
  EXPECT_EQ(qxdbOpenObjectCount(), 0u) << "an object was left open";
  api::DocumentList::instance().close(document_);
}

QxDbObjectId EntitiesTest::add(std::string_view type, std::vector<db::OwnedGroup> groups,
                               std::string_view block) {
  db::BlockDefinition* definition = block.empty() ? nullptr : database().block(block);
  db::Record* record = database().addEntity(std::move(groups), type, definition);
  return api::idOf(database(), *record);
}

void EntitiesTest::addBlock(std::string_view name) {
  database().addBlock(name);
}

Qxad::ErrorStatus explodeInto(const QxDbEntity* entity, std::vector<QxDbEntity*>& pieces) {
  QxDbVoidPtrArray made;
  Qxad::ErrorStatus status = entity->explode(made);
  for (int i = 0; i < made.length(); ++i) pieces.push_back(static_cast<QxDbEntity*>(made[i]));
  return status;
}

}  // namespace korva::test
