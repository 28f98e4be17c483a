#include "cmd/drawing/displacement_input.h"

#include <string>

#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/user_system.h"
#include "qx_input.h"

namespace korva::cmd::drawing {

BaseAnswer askBasePoint(bool allowMultiple) {
  BaseAnswer result;
  Vec3 point;
  Answer answer =
      askPoint(allowMultiple ? L"\nSpecify base point or [Displacement/Multiple] <Displacement>: "
                             : L"\nSpecify base point or [Displacement] <Displacement>: ",
               std::nullopt, point,
               {0, allowMultiple ? L"Displacement Multiple _ Displacement Multiple"
                                 : L"Displacement _ Displacement"});
  if (answer.stop()) return result;
  if (answer.is(L"Multiple")) {
    result.choice = BaseChoice::Multiple;
  } else if (answer.value()) {
    result.choice = BaseChoice::Point;
    result.point = point;
  } else {
    result.choice = BaseChoice::Displacement;
  }
  return result;
}

std::optional<Displacement> askDisplacement() {
  Vec3 vector;
  std::wstring zero = distanceText(0);
  std::wstring prompt = L"\nSpecify displacement <" + zero + L", " + zero + L", " + zero + L">: ";
  Answer answer = askPoint(prompt.c_str(), std::nullopt, vector);
  if (answer.stop()) return std::nullopt;
  return Displacement{answer.value() ? vector : Vec3{}};
}

std::optional<Displacement> askSecondPoint(Vec3 base, bool firstTime) {
  Vec3 second;
  Answer answer =
      askPoint(firstTime ? L"\nSpecify second point or <use first point as displacement>: "
                         : L"\nSpecify second point or [Exit] <Exit>: ",
               base, second, {0, firstTime ? nullptr : L"Exit _ Exit"});
  if (answer.stop() || answer.status == RTKWORD) return std::nullopt;
  if (answer.enter()) {
    if (!firstTime) return std::nullopt;
    return Displacement{base};
  }
  rememberLastPoint(second);
  return Displacement{second - base};
}

void translationMatrix(const Displacement& displacement, double matrix[4][4]) {
  Vec3 world = currentUserSystem().directionToWorld(displacement.vector);
  double offset[3] = {world.x, world.y, world.z};
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) matrix[row][column] = row == column ? 1 : 0;
    if (row < 3) matrix[row][3] = offset[row];
  }
}

}  // namespace korva::cmd::drawing
