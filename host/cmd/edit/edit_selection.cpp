#include "cmd/edit/edit_selection.h"

#include "cmd/drawing/command_variables.h"
#include "qx_coordinates.h"
#include "qx_selection.h"

namespace korva::cmd::edit {

EditSelection::~EditSelection() {
  if (held_) qxedSSFree(set_);
}

bool EditSelection::takePickFirst() {
  // With PICKFIRST off there is no selection before the command.
  if (held_ || drawing::shortVariable(L"PICKFIRST", 1) == 0 ||
      qxedSSGet(L"_I", nullptr, nullptr, nullptr, set_) != RTNORM) {
    return false;
  }
  held_ = true;
  qxedSSSetFirst(nullptr, nullptr);
  if (length() > 0) return true;
  qxedSSFree(set_);
  held_ = false;
  return false;
}

int EditSelection::select(bool usePickFirst, bool single) {
  if (held_) return RTERROR;
  if (usePickFirst && takePickFirst()) return RTNORM;
  int status = qxedSSGet(single ? L":S" : nullptr, nullptr, nullptr, nullptr, set_);
  held_ = status == RTNORM;
  if (held_ && length() == 0) return RTERROR;
  return status;
}

std::int32_t EditSelection::length() const {
  std::int32_t count = 0;
  if (!held_ || qxedSSLength(set_, &count) != RTNORM) return 0;
  return count;
}

bool EditSelection::member(std::int32_t index, EntityName name) const {
  return held_ && qxedSSName(set_, index, name) == RTNORM;
}

void EditSelection::unhighlight() const {
  for (std::int32_t i = 0, count = length(); i < count; ++i) {
    EntityName name;
    if (member(i, name)) qxedRedraw(name, 4);
  }
}

}  // namespace korva::cmd::edit
