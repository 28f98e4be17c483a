// Selections of the editing commands: the pick-first set when there is one, the
// user's selection otherwise; the set is freed on every path.
#pragma once

#include <cstdint>
#include <vector>

#include "qx_types.h"

namespace korva::cmd::drawing {

class HeldSelection {
 public:
  HeldSelection() = default;
  ~HeldSelection();
  HeldSelection(const HeldSelection&) = delete;
  HeldSelection& operator=(const HeldSelection&) = delete;

  // RTNORM with the pick-first set (which is then cleared) or the user's selection;
  // RTCAN or RTERROR (nothing selected) otherwise.
  int select();
  // RTNORM with a new empty set to add to.
  int makeEmpty();

  bool held() const { return held_; }
  const std::int64_t* set() const { return set_; }
  std::int32_t length() const;
  bool member(std::int32_t index, EntityName name) const;
  void add(const EntityName name);
  // Shows the members plain again: commands end their selection's highlighting.
  void unhighlight() const;

 private:
  SelectionSet set_ = {0, 0};
  bool held_ = false;
};

}  // namespace korva::cmd::drawing
