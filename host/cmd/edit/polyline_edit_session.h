// The options of PEDIT, applied to one polyline or, with Multiple, to several at once;
// each option is one step that Undo takes back.
#pragma once

#include <cstdint>
#include <vector>

#include "cmd/edit/polyline_store.h"

namespace korva::cmd::edit {

struct PolylineName {
  std::int64_t parts[2] = {0, 0};
};

class PolylineEditSession {
 public:
  PolylineEditSession(std::vector<PolylineName> targets, bool multiple)
      : targets_(std::move(targets)), multiple_(multiple) {}

  // Asks for options until Enter or cancel.
  void run();

 private:
  enum class Outcome { Changed, Unchanged, Stop };

  Outcome apply(const std::wstring& option);
  Outcome close(bool closing);
  Outcome join();
  Outcome width();
  Outcome decurve();
  Outcome linetypeGeneration();
  Outcome reverse();
  void undo();

  // Joins what touches the polyline, erasing what joined; the segments added.
  int joinInto(PolylineName& target, const std::vector<PolylineName>& candidates, double fuzz,
               JoinType type, std::vector<bool>& consumed);
  // Rewrites each planar target's chain through `change`.
  Outcome rewrite(bool controlOnly, Chain (*change)(const Chain&, double), double value);

  std::vector<PolylineName> targets_;
  bool multiple_;
  // The targets before each step still to be undone.
  std::vector<std::vector<PolylineName>> history_;
};

}  // namespace korva::cmd::edit
