// qxedSSGet's prompting modes: the pick-first rule, the mode's options, and the callbacks
// that commands install for them.
#include <optional>

#include "cmd/processor.h"
#include "qx_command.h"
#include "selection_prompt.h"
#include "selection_prompt_mode.h"
#include "selection_sets.h"
#include "system_variables.h"

namespace korva::api {

namespace {

QxSelectionCallback& keywordCallback() {
  static QxSelectionCallback callback = nullptr;
  return callback;
}

QxSelectionCallback& otherCallback() {
  static QxSelectionCallback callback = nullptr;
  return callback;
}

bool pickFirstEnabled(db::Database& database) {
  std::optional<VariableValue> value = getVariable(&database, "PICKFIRST");
  return value && value->number[0] == 1;
}

// The pick-first set goes to a command that takes it, once, without a prompt.
std::optional<std::vector<db::Handle>> takePickFirst(Document& document,
                                                     const SelectionFilter& filter) {
  const cmd::CommandDefinition* command = cmd::Processor::instance().activeCommand();
  if (!command || !(command->flags & QXRX_CMD_USEPICKSET)) return std::nullopt;
  SelectionState& state = document.selection();
  if (state.pickFirst.empty() || !pickFirstEnabled(document.database())) return std::nullopt;
  std::vector<db::Handle> members;
  for (db::Handle handle : state.pickFirst) {
    const db::Record* record = document.database().lookup(handle);
    if (record && !record->isErased() && filter.matches(*record)) members.push_back(handle);
  }
  state.pickFirst.clear();
  if (members.empty()) return std::nullopt;
  return members;
}

}  // namespace

int selectByPrompting(const wchar_t* modeText, const void* first, const void* second,
                      const ResultBuffer* filterList, SelectionSet set) {
  std::optional<PromptMode> mode = parsePromptMode(modeText);
  if (!mode) return RTERROR;
  Document* document = DocumentList::instance().current();
  if (!document) return RTERROR;
  db::Database& database = document->database();
  std::optional<SelectionFilter> filter =
      SelectionFilter::compile(filterList, database.hasUtf8Text(), database.codePage());
  if (!filter) return RTERROR;

  std::vector<db::Handle> members;
  std::optional<std::vector<db::Handle>> pickFirst;
  if (mode->takesPickFirst()) pickFirst = takePickFirst(*document, *filter);
  if (pickFirst) {
    members = std::move(*pickFirst);
  } else {
    SelectionPromptOptions options;
    if (mode->ownPrompts && first) {
      auto* prompts = static_cast<const wchar_t* const*>(first);
      if (prompts[0]) options.addPrompt = prompts[0];
      if (prompts[1]) options.removePrompt = prompts[1];
    }
    options.single = mode->single;
    options.rejectLocked = mode->rejectLocked;
    options.filter = filter->passesAll() ? nullptr : &*filter;
    if (mode->keywords) {
      if (second) {
        options.keywordText = static_cast<const wchar_t*>(second);
        options.keywords = input::KeywordList(options.keywordText);
      }
      options.keywordCallback = keywordCallback();
      options.returnOnKeyword = mode->returnOnKeyword;
    }
    if (mode->otherInput) options.otherCallback = otherCallback();
    SelectionPromptResult result = runSelectionPrompt(*document, options);
    if (result.status != RTNORM) return result.status;
    members = std::move(result.members);
  }
  if (members.empty()) return RTERROR;
  document->selection().previous = members;
  return openSelectionSet(*document, std::move(members), set) ? RTNORM : RTERROR;
}

}  // namespace korva::api

int qxedSSSetKwordCallbackPtr(QxSelectionCallback callback) {
  korva::api::keywordCallback() = callback;
  return RTNORM;
}

int qxedSSGetKwordCallbackPtr(QxSelectionCallback* callback) {
  if (!callback) return RTERROR;
  *callback = korva::api::keywordCallback();
  return RTNORM;
}

int qxedSSSetOtherCallbackPtr(QxSelectionCallback callback) {
  korva::api::otherCallback() = callback;
  return RTNORM;
}

int qxedSSGetOtherCallbackPtr(QxSelectionCallback* callback) {
  if (!callback) return RTERROR;
  *callback = korva::api::otherCallback();
  return RTNORM;
}
