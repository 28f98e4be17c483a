#include "cmd/select/select_command.h"

#include <optional>

#include "api/document.h"
#include "api/selection_prompt.h"
#include "api/system_variables.h"

namespace korva::cmd {

namespace {

// Live members of the pick-first set when PICKFIRST allows it; the set is used up.
std::vector<db::Handle> takePickFirst(api::Document& document) {
  api::SelectionState& state = document.selection();
  std::vector<db::Handle> members;
  std::optional<api::VariableValue> enabled = api::getVariable(&document.database(), "PICKFIRST");
  if (enabled && enabled->number[0] == 1) {
    for (db::Handle handle : state.pickFirst) {
      const db::Record* record = document.database().lookup(handle);
      if (record && !record->isErased()) members.push_back(handle);
    }
  }
  state.pickFirst.clear();
  return members;
}

}  // namespace

// Starts from the pick-first set, so that removing from it ("_R _ALL") empties it.
// The result replaces the previous set when something is selected or the user asked to
// remove (even from nothing); Enter alone leaves the previous set as it was.
void selectCommand() {
  api::Document* document = api::DocumentList::instance().current();
  if (!document) return;
  std::vector<db::Handle> initial = takePickFirst(*document);
  const bool startedWithSome = !initial.empty();
  api::SelectionPromptResult result =
      api::runSelectionPrompt(*document, api::SelectionPromptOptions{}, std::move(initial));
  if (result.status != RTNORM) return;
  if (startedWithSome || result.removalRan || !result.members.empty()) {
    document->selection().previous = std::move(result.members);
  }
}

}  // namespace korva::cmd
