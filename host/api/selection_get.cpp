// qxedSSGet: sets made from the drawing; the prompting modes are in selection_prompt*.
#include <cwctype>
#include <string>

#include "db/value_text.h"
#include "document.h"
#include "qx_selection.h"
#include "selection_filter.h"
#include "selection_prompt.h"
#include "selection_scan.h"
#include "selection_sets.h"

namespace korva::api {

namespace {

enum class Mode {
  Database,      // X
  CurrentSpace,  // A
  PickFirst,     // I
  Previous,      // P
  Last,          // L
  Window,        // W
  Crossing,      // C
  WindowPolygon,
  CrossingPolygon,
  Fence,
  Prompting,  // asks the user
  Unknown,
};

Mode parseMode(const wchar_t* text) {
  if (!text) return Mode::Prompting;
  std::wstring mode(text);
  for (wchar_t& c : mode) c = static_cast<wchar_t>(std::towupper(c));
  // A leading underscore asks for the language-independent form; it is the same here.
  if (!mode.empty() && mode.front() == L'_') mode.erase(0, 1);
  if (mode == L"X") return Mode::Database;
  if (mode == L"A") return Mode::CurrentSpace;
  if (mode == L"I") return Mode::PickFirst;
  if (mode == L"P") return Mode::Previous;
  if (mode == L"L") return Mode::Last;
  if (mode == L"W") return Mode::Window;
  if (mode == L"C") return Mode::Crossing;
  if (mode == L"WP") return Mode::WindowPolygon;
  if (mode == L"CP") return Mode::CrossingPolygon;
  if (mode == L"F") return Mode::Fence;
  // Own prompts, single picks, locked-layer rejection, callbacks and their
  // combinations all ask the user.
  if (mode.empty() || mode.front() == L':' || mode.front() == L'-') return Mode::Prompting;
  return Mode::Unknown;
}

RegionMethod regionMethod(Mode mode) {
  switch (mode) {
    case Mode::Window:
      return RegionMethod::Window;
    case Mode::Crossing:
      return RegionMethod::Crossing;
    case Mode::WindowPolygon:
      return RegionMethod::WindowPolygon;
    case Mode::CrossingPolygon:
      return RegionMethod::CrossingPolygon;
    default:
      return RegionMethod::Fence;
  }
}

bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && db::sameName(text.substr(0, prefix.size()), prefix);
}

std::vector<db::Handle> selectDatabase(db::Database& database, const SelectionFilter& filter) {
  std::vector<db::Handle> found;
  auto scan = [&](const std::vector<db::Record*>& records) {
    for (const db::Record* record : records) {
      if (record->isErased() || isSubEntity(record->type())) continue;
      if (filter.matches(*record)) found.push_back(record->handle());
    }
  };
  // Model space and the active layout, then the other layouts; never block definitions.
  if (std::vector<db::Record*>* records = database.entities()) scan(*records);
  if (db::Section* blocks = database.section(db::SectionKind::Blocks)) {
    for (db::BlockDefinition& block : blocks->blocks) {
      if (block.begin && !block.begin->isErased() &&
          startsWithIgnoringCase(block.name(), "*Paper_Space")) {
        scan(block.entities);
      }
    }
  }
  return found;
}

// The members of a kept list that are still live entities and pass the filter.
std::vector<db::Handle> selectKept(db::Database& database, const std::vector<db::Handle>& kept,
                                   const SelectionFilter& filter) {
  std::vector<db::Handle> found;
  for (db::Handle handle : kept) {
    const db::Record* record = database.lookup(handle);
    if (record && !record->isErased() && filter.matches(*record)) found.push_back(handle);
  }
  return found;
}

bool readPoints(const void* list, std::vector<geom::Vec2>& points) {
  for (auto* node = static_cast<const ResultBuffer*>(list); node; node = node->next) {
    if (node->type == RTNONE) break;
    if (node->type != RTPOINT && node->type != RT3DPOINT) return false;
    points.push_back({node->value.rpoint[0], node->value.rpoint[1]});
  }
  return true;
}

}  // namespace

}  // namespace korva::api

int qxedSSGet(const wchar_t* mode, const void* first, const void* second,
              const ResultBuffer* filterList, SelectionSet set) {
  using namespace korva::api;
  using korva::db::Handle;
  using korva::db::Record;
  if (!set) return RTERROR;
  Mode selected = parseMode(mode);
  if (selected == Mode::Unknown) return RTERROR;
  if (selected == Mode::Prompting) return selectByPrompting(mode, first, second, filterList, set);
  Document* document = DocumentList::instance().current();
  if (!document) return RTERROR;
  korva::db::Database& database = document->database();
  std::optional<SelectionFilter> filter =
      SelectionFilter::compile(filterList, database.hasUtf8Text(), database.codePage());
  if (!filter) return RTERROR;
  SelectionState& state = document->selection();

  std::vector<Handle> found;
  switch (selected) {
    case Mode::Database:
      found = selectDatabase(database, *filter);
      break;
    case Mode::CurrentSpace: {
      LayerStates layers(database);
      forEachInCurrentSpace(database, [&](const Record& record, auto) {
        if (!layers.frozen(record) && filter->matches(record)) found.push_back(record.handle());
      });
      break;
    }
    case Mode::PickFirst:
      if (state.pickFirst.empty()) return RTERROR;
      found = selectKept(database, state.pickFirst, *filter);
      break;
    case Mode::Previous:
      found = selectKept(database, state.previous, *filter);
      break;
    case Mode::Last: {
      const Record* last = nullptr;
      forEachInCurrentSpace(database, [&](const Record& record, auto) { last = &record; });
      if (last && filter->matches(*last)) found.push_back(last->handle());
      break;
    }
    case Mode::Window:
    case Mode::Crossing:
    case Mode::WindowPolygon:
    case Mode::CrossingPolygon:
    case Mode::Fence: {
      std::vector<korva::geom::Vec2> points;
      if (selected == Mode::Window || selected == Mode::Crossing) {
        if (!first || !second) return RTERROR;
        auto* a = static_cast<const double*>(first);
        auto* b = static_cast<const double*>(second);
        points = {{a[0], a[1]}, {b[0], b[1]}};
      } else if (!first || !readPoints(first, points)) {
        return RTERROR;
      }
      size_t needed = selected == Mode::WindowPolygon || selected == Mode::CrossingPolygon ? 3 : 2;
      if (points.size() < needed) return RTERROR;
      found = findInRegion(database, regionMethod(selected), points,
                           [&](const Record& record) { return filter->matches(record); });
      break;
    }
    case Mode::Prompting:
    case Mode::Unknown:
      return RTERROR;
  }
  if (found.empty()) return RTERROR;
  state.previous = found;
  return openSelectionSet(*document, std::move(found), set) ? RTNORM : RTERROR;
}
