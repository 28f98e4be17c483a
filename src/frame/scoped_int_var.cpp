#include "frame/scoped_int_var.h"

ScopedIntVar::ScopedIntVar(const wchar_t* name) : name_(name) {
  if (!name_ || !*name_) return;
  ResultBuffer value{};
  if (qxedGetVar(name_, &value) != RTNORM) return;
  if (value.type == RTSTR) {
    qxad_free(value.value.rstring);
    return;
  }
  saved_ = value.value.rint;
  read_ = true;
}

ScopedIntVar::~ScopedIntVar() {
  if (!read_) return;
  ResultBuffer value{};
  value.type = RTSHORT;
  value.value.rint = saved_;
  qxedSetVar(name_, &value);
}

int ScopedIntVar::Clear() {
  if (!name_ || !*name_) return RTERROR;
  ResultBuffer zero{};
  zero.type = RTSHORT;
  zero.value.rint = 0;
  return qxedSetVar(name_, &zero);
}
