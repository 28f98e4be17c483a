// The selection of an editing command, freed on every path.
#pragma once

#include <cstdint>

#include "qx_types.h"

namespace korva::cmd::edit {

class EditSelection {
 public:
  EditSelection() = default;
  ~EditSelection();
  EditSelection(const EditSelection&) = delete;
  EditSelection& operator=(const EditSelection&) = delete;

  // The pick-first set when allowed and there is one, else the user's selection; one
  // selection step only when single. RTNORM with at least one member; RTCAN, or
  // RTERROR when nothing was selected.
  int select(bool usePickFirst, bool single);
  // Takes the pick-first set (and clears it); false when there is none with members.
  bool takePickFirst();

  std::int32_t length() const;
  bool member(std::int32_t index, EntityName name) const;
  // Shows the members plain again once the command has them.
  void unhighlight() const;

 private:
  SelectionSet set_ = {0, 0};
  bool held_ = false;
};

}  // namespace korva::cmd::edit
