// PEDIT: picks one polyline (a line or arc picked may become one) or, with Multiple,
// selects several, then edits them option by option.
#include <string>
#include <vector>

#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/edit/edit_commands.h"
#include "cmd/edit/edit_selection.h"
#include "cmd/edit/polyline_conversion.h"
#include "cmd/edit/polyline_edit_session.h"
#include "qx_entities.h"
#include "qx_input.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_variables.h"

namespace korva::cmd::edit {

namespace {

using drawing::Answer;

// Lines and arcs can become polylines.
bool convertible(const EntityName name) {
  ResultBuffer* list = qxdbEntGet(name);
  bool result = false;
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 0 && node->value.rstring) {
      std::wstring type = node->value.rstring;
      result = type == L"LINE" || type == L"ARC";
      break;
    }
  }
  qxutRelRb(list);
  return result;
}

// With PEDITACCEPT 0 the user says whether lines and arcs become polylines.
bool acceptConversion(const wchar_t* prompt) {
  if (drawing::shortVariable(L"PEDITACCEPT", 0) != 0) return true;
  Answer answer = drawing::askKeyword(prompt, {0, L"Yes No _ Yes No"});
  return answer.enter() || answer.is(L"Yes");
}

// Whether the picked entity is a polyline to edit, or has become one.
bool acceptPick(PolylineName& picked) {
  if (!isEditable(picked.parts)) {
    qxutPrintf(L"\nObject is on a locked layer.");
    return false;
  }
  if (polylineKindOf(picked.parts) != PolylineKind::None) return true;
  if (!convertible(picked.parts)) {
    qxutPrintf(L"\nObject selected is not a polyline and cannot be made into one.");
    return false;
  }
  qxutPrintf(L"\nObject selected is not a polyline");
  if (!acceptConversion(L"\nDo you want to turn it into one? <Y> ")) return false;
  if (convertToPolyline(picked.parts)) return true;
  qxutPrintf(L"\nThe object could not be made into a polyline.");
  return false;
}

// The one polyline of the single mode, or the choice of Multiple.
enum class Pick { Polyline, Multiple, Stop };

Pick pickPolyline(PolylineName& picked) {
  for (;;) {
    double point[3];
    qxedInitGet(0, L"Multiple _ Multiple");
    int status = qxedEntSel(L"\nSelect polyline or [Multiple]: ", picked.parts, point);
    if (status == RTKWORD) return Pick::Multiple;
    if (status != RTNORM) {
      // A pick that hits nothing asks again.
      ResultBuffer error{};
      bool missed = status == RTERROR && qxedGetVar(L"ERRNO", &error) == RTNORM &&
                    error.type == RTSHORT && error.value.rint == 7;
      if (missed) continue;
      return Pick::Stop;
    }
    if (acceptPick(picked)) return Pick::Polyline;
  }
}

// What of the selection Multiple edits; false when nothing is left.
bool selectedPolylines(const EditSelection& selection, std::vector<PolylineName>& targets) {
  selection.unhighlight();
  std::vector<PolylineName> others;
  int locked = 0;
  for (std::int32_t i = 0, count = selection.length(); i < count; ++i) {
    PolylineName name;
    if (!selection.member(i, name.parts)) continue;
    if (!isEditable(name.parts)) {
      ++locked;
      continue;
    }
    if (polylineKindOf(name.parts) != PolylineKind::None) {
      targets.push_back(name);
    } else if (convertible(name.parts)) {
      others.push_back(name);
    }
  }
  if (locked == 1) qxutPrintf(L"\n1 was on a locked layer.");
  if (locked > 1) qxutPrintf(L"\n%d were on a locked layer.", locked);
  if (!others.empty() &&
      acceptConversion(L"\nConvert Lines and Arcs to polylines [Yes/No]? <Y>: ")) {
    for (PolylineName& name : others) {
      if (convertToPolyline(name.parts)) targets.push_back(name);
    }
  }
  return !targets.empty();
}

}  // namespace

void polylineEditCommand() {
  // Entities selected before the command: one is the polyline, several are Multiple.
  EditSelection selection;
  bool preselected = selection.takePickFirst();
  PolylineName picked;
  Pick pick = Pick::Multiple;
  if (preselected && selection.length() == 1) {
    selection.member(0, picked.parts);
    selection.unhighlight();
    pick = acceptPick(picked) ? Pick::Polyline : Pick::Stop;
  } else if (!preselected) {
    pick = pickPolyline(picked);
  }
  if (pick == Pick::Stop) return;
  if (pick == Pick::Polyline) {
    PolylineEditSession({picked}, false).run();
    return;
  }
  if (!preselected && selection.select(false, false) != RTNORM) return;
  std::vector<PolylineName> targets;
  if (selectedPolylines(selection, targets)) {
    PolylineEditSession(std::move(targets), true).run();
  }
}

}  // namespace korva::cmd::edit
