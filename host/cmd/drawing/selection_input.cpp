#include "cmd/drawing/selection_input.h"

#include "cmd/drawing/command_variables.h"
#include "qx_coordinates.h"
#include "qx_selection.h"

namespace korva::cmd::drawing {

HeldSelection::~HeldSelection() {
  if (held_) qxedSSFree(set_);
}

int HeldSelection::select() {
  if (held_) return RTERROR;
  // With PICKFIRST off there is no selection before the command.
  if (shortVariable(L"PICKFIRST", 1) != 0 &&
      qxedSSGet(L"_I", nullptr, nullptr, nullptr, set_) == RTNORM) {
    held_ = true;
    qxedSSSetFirst(nullptr, nullptr);
    if (length() > 0) return RTNORM;
    qxedSSFree(set_);
    held_ = false;
  }
  int status = qxedSSGet(nullptr, nullptr, nullptr, nullptr, set_);
  held_ = status == RTNORM;
  if (held_ && length() == 0) return RTERROR;
  return status;
}

int HeldSelection::makeEmpty() {
  if (held_) return RTERROR;
  int status = qxedSSAdd(nullptr, nullptr, set_);
  held_ = status == RTNORM;
  return status;
}

std::int32_t HeldSelection::length() const {
  std::int32_t count = 0;
  if (!held_ || qxedSSLength(set_, &count) != RTNORM) return 0;
  return count;
}

bool HeldSelection::member(std::int32_t index, EntityName name) const {
  return held_ && qxedSSName(set_, index, name) == RTNORM;
}

void HeldSelection::add(const EntityName name) {
  SelectionSet result;
  if (held_) qxedSSAdd(name, set_, result);
}

void HeldSelection::unhighlight() const {
  std::int32_t count = length();
  for (std::int32_t i = 0; i < count; ++i) {
    EntityName name;
    if (member(i, name)) qxedRedraw(name, 4);
  }
}

}  // namespace korva::cmd::drawing
