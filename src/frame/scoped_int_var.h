// One integer variable saved for the lifetime of the object and set back at its end,
// e.g. REGENMODE around many layer changes that shouldn't each regenerate the drawing.
// With an empty name nothing is read or set.
#pragma once

#include <cstdint>

#include "frame/host_interface.h"

class ScopedIntVar {
 public:
  explicit ScopedIntVar(const wchar_t* name);
  ~ScopedIntVar();
  ScopedIntVar(const ScopedIntVar&) = delete;
  ScopedIntVar& operator=(const ScopedIntVar&) = delete;

  // Sets the variable to 0: the status of the host, RTERROR with an empty name.
  int Clear();

 private:
  const wchar_t* name_;
  std::int16_t saved_ = 0;
  bool read_ = false;
};
