// The command shape's variable guard: CMDECHO, BLIPMODE and EXPERT are saved and set to
// 0 while a command scripts host commands (silent, no blips, no confirmations), and
// set back afterwards.
#pragma once

#include "frame/host_interface.h"

class CommandVarGuard {
 public:
  CommandVarGuard() = default;
  // Restores when save() wasn't followed by restore(), as on an exception.
  ~CommandVarGuard();
  CommandVarGuard(const CommandVarGuard&) = delete;
  CommandVarGuard& operator=(const CommandVarGuard&) = delete;

  // Reads the three, in this order, then sets each to 0.
  void save();
  // Sets the three back from what save() read, in the same order.
  void restore();

 private:
  ResultBuffer saved_[3]{};
  ResultBuffer scratch_{};
  bool holding_ = false;
};
