#pragma once

#include <vector>

#include "program_item.h"
#include "run_plan.h"

// The flat result of a compile. Constant expressions end as one value item and run without
// any call; everything else runs as a straight loop over the plan.
class CompiledProgram {
 public:
  CompiledProgram() { reset(); }

  std::vector<ProgramItem>& items() { return items_; }
  const std::vector<ProgramItem>& items() const { return items_; }

  // Back to the program of an empty text: one value item 0.
  void reset();
  // Prepares the run once the items are final.
  void seal() { plan_.build(items_); }
  void unseal() { plan_.clear(); }

  double evaluate() {
    ProgramItem& last = items_.back();
    if (last.isValue) return last.value;
    plan_.run();
    return last.value;
  }
  std::size_t stepCount() const { return plan_.stepCount(); }

 private:
  std::vector<ProgramItem> items_;
  RunPlan plan_;
};
