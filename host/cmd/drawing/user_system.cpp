#include "cmd/drawing/user_system.h"

#include "api/document.h"

namespace korva::cmd::drawing {

api::CoordinateSystem currentUserSystem() {
  const db::Database* database = api::currentDatabase();
  return database ? api::currentUcs(*database) : api::CoordinateSystem{};
}

api::CoordinateSystem userPlaneObjectSystem() {
  return api::objectSystem(currentUserSystem().zAxis);
}

}  // namespace korva::cmd::drawing
