// POINT: one point entity at the point given.
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/drawing/user_system.h"
#include "qx_db_point.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

void pointCommand() {
  qxutPrintf(L"\nCurrent point modes:  PDMODE=%d  PDSIZE=%s", shortVariable(L"PDMODE"),
             distanceText(realVariable(L"PDSIZE")).c_str());
  api::CoordinateSystem user = currentUserSystem();
  Vec3 point;
  if (!askPoint(L"\nSpecify a point: ", std::nullopt, point, {QXED_NO_NULL}).value()) return;
  auto* entity = new QxDbPoint(toGePoint(user.toWorld(point)));
  if (!isWorldZ(user.zAxis)) entity->setNormal(toGeVector(user.zAxis));
  if (!appendToCurrentSpace(entity)) {
    qxutPrintf(L"\nThe point could not be added to the drawing.");
    return;
  }
  rememberLastPoint(point);
}

}  // namespace korva::cmd::drawing
