#include "frame/command_var_guard.h"

#include <cwchar>

namespace {
constexpr const wchar_t* kGuardedVariables[3] = {L"CMDECHO", L"BLIPMODE", L"EXPERT"};
}

CommandVarGuard::~CommandVarGuard() {
  restore();
}

void CommandVarGuard::save() {
  for (int index = 0; index < 3; ++index) qxedGetVar(kGuardedVariables[index], &saved_[index]);
  scratch_.type = RTSHORT;
  scratch_.value.rint = 0;
  for (const wchar_t* name : kGuardedVariables) qxedSetVar(name, &scratch_);
  holding_ = true;
}

void CommandVarGuard::restore() {
  if (!holding_) return;
  for (int index = 0; index < 3; ++index) qxedSetVar(kGuardedVariables[index], &saved_[index]);
  holding_ = false;
}
