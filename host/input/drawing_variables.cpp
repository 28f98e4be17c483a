#include "input/drawing_variables.h"

#include <optional>

#include "api/document.h"
#include "api/system_variables.h"

namespace korva::input {
namespace {

std::optional<api::VariableValue> read(std::string_view name) {
  return api::getVariable(api::currentDatabase(), name);
}

}  // namespace

int integerVariable(std::string_view name, int fallback) {
  std::optional<api::VariableValue> value = read(name);
  return value ? static_cast<int>(value->number[0]) : fallback;
}

double realVariable(std::string_view name, double fallback) {
  std::optional<api::VariableValue> value = read(name);
  return value ? value->number[0] : fallback;
}

bool pointVariable(std::string_view name, double result[3]) {
  std::optional<api::VariableValue> value = read(name);
  if (!value) return false;
  for (int axis = 0; axis < 3; ++axis) result[axis] = value->number[axis];
  return true;
}

void setIntegerVariable(std::string_view name, int value) {
  api::VariableValue variable;
  variable.type = api::VariableType::Short;
  variable.number[0] = value;
  api::setVariable(api::currentDatabase(), name, variable, true);
}

void setPointVariable(std::string_view name, const double point[3]) {
  api::VariableValue variable;
  variable.type = api::VariableType::Point3;
  for (int axis = 0; axis < 3; ++axis) variable.number[axis] = point[axis];
  api::setVariable(api::currentDatabase(), name, variable, true);
}

double directionOfTypedAngle(double typed) {
  const double base = realVariable("ANGBASE", 0.0);
  return integerVariable("ANGDIR", 0) == 1 ? base - typed : base + typed;
}

}  // namespace korva::input
