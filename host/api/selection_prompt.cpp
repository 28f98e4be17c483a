#include "selection_prompt.h"

#include <optional>
#include <unordered_set>

#include "db/database.h"
#include "input/console.h"
#include "input/entity_pick.h"
#include "input/point_input.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "selection_prompt_options.h"
#include "selection_prompt_regions.h"
#include "selection_prompt_working_set.h"
#include "selection_scan.h"
#include "selection_sets.h"

namespace korva::api {

namespace {

std::wstring plural(int count, const wchar_t* one, const wchar_t* many) {
  return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

class SelectionPrompt {
 public:
  SelectionPrompt(Document& document, const SelectionPromptOptions& options)
      : document_(document), database_(document.database()), options_(options) {}
  ~SelectionPrompt() {
    for (db::Handle handle : highlightedHere_) document_.highlighted().erase(handle);
  }

  SelectionPromptResult run(std::vector<db::Handle> initial);

 private:
  enum class Flow { Ask, Finish, Cancel };
  struct Step {
    bool removal;
    std::vector<db::Handle> changed;
  };

  Flow answer(const input::Answer& given);
  Flow answerText(const std::wstring& text);
  Flow option(SelectionOption chosen);
  Flow keyword(const std::wstring& global);
  Flow otherInput(const std::wstring& text);
  Flow pickAt(const double point[3]);
  Flow region(const AskedRegion& asked);
  // Adds or removes what one way of selecting found, and tells the user.
  Flow step(const std::vector<db::Handle>& found);
  Flow addFromList(ResultBuffer* list);
  bool selectable(db::Handle handle, bool visibleOnly) const;

  void include(db::Handle handle);
  void exclude(db::Handle handle);
  void invalid();

  Document& document_;
  db::Database& database_;
  const SelectionPromptOptions& options_;
  WorkingSet working_;
  std::vector<Step> steps_;
  std::unordered_set<db::Handle> highlightedHere_;
  bool removing_ = false;
  bool removalRan_ = false;
};

SelectionPromptResult SelectionPrompt::run(std::vector<db::Handle> initial) {
  for (db::Handle handle : initial) {
    if (!working_.contains(handle)) include(handle);
  }
  for (;;) {
    const std::wstring& prompt = removing_ ? options_.removePrompt : options_.addPrompt;
    Flow flow = answer(input::Console::instance().ask(prompt));
    if (flow == Flow::Cancel) return {RTCAN, {}, false};
    if (flow == Flow::Finish) break;
  }
  // A transparent command may have erased members meanwhile.
  std::vector<db::Handle> members = working_.members();
  std::erase_if(members, [this](db::Handle handle) { return !selectable(handle, false); });
  return {RTNORM, std::move(members), removalRan_};
}

SelectionPrompt::Flow SelectionPrompt::answer(const input::Answer& given) {
  using Kind = input::Answer::Kind;
  switch (given.kind) {
    case Kind::Cancel:
      return Flow::Cancel;
    case Kind::Point:
      return pickAt(given.point);
    case Kind::Entity:
    case Kind::EntityPick: {
      db::Record* record = recordOf(given.name);
      bool here = record && database_.lookup(record->handle()) == record;
      return step(here ? std::vector<db::Handle>{record->handle()} : std::vector<db::Handle>{});
    }
    case Kind::Set: {
      std::vector<db::Handle> members;
      if (SelectionSetData* set = findSelectionSet(given.name)) {
        if (set->documentSerial == document_.serial()) members = set->members;
      }
      return step(members);
    }
    case Kind::Text:
      return answerText(given.text);
  }
  return Flow::Ask;
}

SelectionPrompt::Flow SelectionPrompt::answerText(const std::wstring& text) {
  if (text.empty()) return Flow::Finish;
  if (text.front() == L'#') {
    EntityName name = {0, 0};
    if (input::entityFromHandleInput(text, name)) return step({static_cast<db::Handle>(name[0])});
    qxutPrintf(L"\nNo entity has the handle %s.", text.c_str() + 1);
    return Flow::Ask;
  }
  double point[3] = {0, 0, 0};
  if (input::parsePointInput(text, nullptr, point)) return pickAt(point);
  // The caller's keywords come first: they belong to what the caller asks.
  std::wstring global;
  if (options_.keywords.match(text, global) == input::KeywordList::Match::Found) {
    return keyword(global);
  }
  if (std::optional<SelectionOption> chosen = findSelectionOption(text)) return option(*chosen);
  return otherInput(text);
}

SelectionPrompt::Flow SelectionPrompt::option(SelectionOption chosen) {
  switch (chosen) {
    case SelectionOption::Window:
      return region(askRectangle(RegionMethod::Window));
    case SelectionOption::Crossing:
      return region(askRectangle(RegionMethod::Crossing));
    case SelectionOption::WPolygon:
      return region(askPointChain(RegionMethod::WindowPolygon));
    case SelectionOption::CPolygon:
      return region(askPointChain(RegionMethod::CrossingPolygon));
    case SelectionOption::Fence:
      return region(askPointChain(RegionMethod::Fence));
    case SelectionOption::All:
      return step(findAllInCurrentSpace(database_));
    case SelectionOption::Last: {
      std::optional<db::Handle> last = findLastVisible(database_);
      return step(last ? std::vector<db::Handle>{*last} : std::vector<db::Handle>{});
    }
    case SelectionOption::Previous: {
      std::vector<db::Handle> previous;
      for (db::Handle handle : document_.selection().previous) {
        if (selectable(handle, false)) previous.push_back(handle);
      }
      return step(previous);
    }
    case SelectionOption::Add:
      removing_ = false;
      return Flow::Ask;
    case SelectionOption::Remove:
      removing_ = true;
      return Flow::Ask;
    case SelectionOption::Undo: {
      if (steps_.empty()) {
        qxutPrintf(L"\nNothing to undo.");
        return Flow::Ask;
      }
      Step last = std::move(steps_.back());
      steps_.pop_back();
      for (db::Handle handle : last.changed) {
        if (last.removal) {
          include(handle);
        } else {
          exclude(handle);
        }
      }
      qxutPrintf(L"\nLast step undone, %d total", working_.size());
      return Flow::Ask;
    }
  }
  return Flow::Ask;
}

SelectionPrompt::Flow SelectionPrompt::keyword(const std::wstring& global) {
  ResultBuffer* list =
      options_.keywordCallback ? options_.keywordCallback(global.c_str()) : nullptr;
  Flow flow = addFromList(list);
  if (flow == Flow::Ask && options_.returnOnKeyword) return Flow::Finish;
  return flow;
}

SelectionPrompt::Flow SelectionPrompt::otherInput(const std::wstring& text) {
  ResultBuffer* list = options_.otherCallback ? options_.otherCallback(text.c_str()) : nullptr;
  if (!list) {
    invalid();
    return Flow::Ask;
  }
  return addFromList(list);
}

// The list a callback handed over: its sets and entities are one step; the host owns the
// list and the sets from here on.
SelectionPrompt::Flow SelectionPrompt::addFromList(ResultBuffer* list) {
  if (!list) return Flow::Ask;
  std::vector<db::Handle> found;
  bool anything = false;
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == RTPICKS) {
      anything = true;
      if (SelectionSetData* set = findSelectionSet(node->value.rssname)) {
        if (set->documentSerial == document_.serial()) {
          found.insert(found.end(), set->members.begin(), set->members.end());
        }
        closeSelectionSet(node->value.rssname);
      }
    } else if (node->type == RTENAME) {
      anything = true;
      db::Record* record = recordOf(node->value.rlname);
      if (record && database_.lookup(record->handle()) == record) found.push_back(record->handle());
    }
  }
  qxutRelRb(list);
  return anything ? step(found) : Flow::Ask;
}

SelectionPrompt::Flow SelectionPrompt::pickAt(const double point[3]) {
  EntityName name = {0, 0};
  if (input::pickEntityAt(point, name) && name[1] == static_cast<int64_t>(document_.serial()) &&
      selectable(static_cast<db::Handle>(name[0]), true)) {
    return step({static_cast<db::Handle>(name[0])});
  }
  return region(askImpliedWindow(point));
}

SelectionPrompt::Flow SelectionPrompt::region(const AskedRegion& asked) {
  if (asked.status == RTCAN) return Flow::Cancel;
  if (asked.status != RTNORM) return Flow::Ask;
  return step(findInRegion(database_, asked.method, asked.points));
}

// Live main entities only; picks also need a visible layer.
bool SelectionPrompt::selectable(db::Handle handle, bool visibleOnly) const {
  const db::Record* record = database_.lookup(handle);
  if (!record || record->isErased() || isSubEntity(record->type())) return false;
  return !visibleOnly || !LayerStates(database_).hidden(*record);
}

SelectionPrompt::Flow SelectionPrompt::step(const std::vector<db::Handle>& found) {
  std::vector<db::Handle> candidates;
  std::unordered_set<db::Handle> seen;
  for (db::Handle handle : found) {
    if (selectable(handle, false) && seen.insert(handle).second) candidates.push_back(handle);
  }
  const int count = static_cast<int>(candidates.size());
  Step done{removing_, {}};
  if (removing_) {
    for (db::Handle handle : candidates) {
      if (!working_.contains(handle)) continue;
      exclude(handle);
      done.changed.push_back(handle);
    }
    removalRan_ = true;
    qxutPrintf(L"\n%d found, %d removed, %d total", count, static_cast<int>(done.changed.size()),
               working_.size());
  } else {
    LayerStates layers(database_);
    int duplicates = 0, locked = 0, filtered = 0;
    for (db::Handle handle : candidates) {
      const db::Record& record = *database_.lookup(handle);
      if (working_.contains(handle)) {
        ++duplicates;
      } else if (options_.filter && !options_.filter->matches(record)) {
        ++filtered;
      } else if (options_.rejectLocked && layers.locked(record)) {
        ++locked;
      } else {
        include(handle);
        done.changed.push_back(handle);
      }
    }
    std::wstring line = std::to_wstring(count) + L" found";
    if (duplicates > 0) line += L" (" + std::to_wstring(duplicates) + L" duplicate)";
    line += L", " + std::to_wstring(working_.size()) + L" total";
    qxutPrintf(L"\n%s", line.c_str());
    if (locked > 0) qxutPrintf(L"\n%s on a locked layer.", plural(locked, L"was", L"were").c_str());
    if (filtered > 0) qxutPrintf(L"\n%s filtered out.", plural(filtered, L"was", L"were").c_str());
  }
  if (!done.changed.empty()) steps_.push_back(std::move(done));
  if (options_.single && working_.size() > 0) return Flow::Finish;
  return Flow::Ask;
}

void SelectionPrompt::include(db::Handle handle) {
  working_.add(handle);
  if (document_.highlighted().insert(handle).second) highlightedHere_.insert(handle);
}

void SelectionPrompt::exclude(db::Handle handle) {
  working_.remove(handle);
  if (highlightedHere_.erase(handle)) document_.highlighted().erase(handle);
}

void SelectionPrompt::invalid() {
  qxutPrintf(L"\n*Invalid selection*\nExpects a point or\n%s",
             expectedOptions(options_.keywordText).c_str());
}

}  // namespace

SelectionPromptResult runSelectionPrompt(Document& document, const SelectionPromptOptions& options,
                                         std::vector<db::Handle> initial) {
  SelectionPrompt prompt(document, options);
  return prompt.run(std::move(initial));
}

}  // namespace korva::api
