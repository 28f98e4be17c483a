#include <string>

#include "api/document.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/edit/edit_selection.h"
#include "cmd/edit/polyline_edit_session.h"
#include "cmd/undo/undo_commands.h"
#include "db/change_journal.h"
#include "qx_entities.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::edit {

namespace {

using drawing::Answer;

bool planar(const PolylineName& target) {
  PolylineKind kind = polylineKindOf(target.parts);
  return kind == PolylineKind::Light || kind == PolylineKind::Old2d;
}

bool samePolyline(const PolylineName& a, const EntityName b) {
  return a.parts[0] == b[0] && a.parts[1] == b[1];
}

Chain withWidth(const Chain& chain, double width) {
  Chain result = chain;
  for (ChainVertex& v : result.vertices) v.startWidth = v.endWidth = width;
  return result;
}

Chain withoutCurves(const Chain& chain, double) {
  return straightened(chain);
}

Chain turnedRound(const Chain& chain, double) {
  return reversed(chain);
}

// How Multiple closes gaps, kept for the session as users expect.
JoinType& joinType() {
  static JoinType kept = JoinType::Extend;
  return kept;
}

const wchar_t* joinTypeName(JoinType type) {
  return type == JoinType::Extend ? L"Extend" : type == JoinType::Add ? L"Add" : L"Both";
}

// The fuzz distance of Multiple's Join, and on the way the join type; false when cancelled.
bool askFuzz(double& fuzz) {
  for (;;) {
    qxutPrintf(L"\nJoin Type = %s", joinTypeName(joinType()));
    std::wstring prompt =
        L"\nEnter fuzz distance or [Jointype] <" + drawing::distanceText(fuzz) + L">: ";
    Answer answer = drawing::askDistance(prompt.c_str(), std::nullopt, fuzz,
                                         {QXED_NO_NEGATIVE, L"Jointype _ Jointype"});
    if (answer.stop()) return false;
    if (!answer.is(L"Jointype")) break;
    std::wstring question =
        std::wstring(L"\nEnter Join Type [Extend/Add/Both] <") + joinTypeName(joinType()) + L">: ";
    Answer type = drawing::askKeyword(question.c_str(), {0, L"Extend Add Both _ Extend Add Both"});
    if (type.stop()) return false;
    if (type.is(L"Extend")) joinType() = JoinType::Extend;
    if (type.is(L"Add")) joinType() = JoinType::Add;
    if (type.is(L"Both")) joinType() = JoinType::Both;
  }
  // Ends that touch always join.
  if (fuzz < kSamePoint) fuzz = kSamePoint;
  return true;
}

void printAdded(int segments) {
  qxutPrintf(segments == 1 ? L"\n%d segment added to polyline" : L"\n%d segments added to polyline",
             segments);
}

}  // namespace

void PolylineEditSession::run() {
  for (;;) {
    if (targets_.empty()) return;
    bool flat = multiple_ || planar(targets_.front());
    bool closed = !multiple_ && isPolylineClosed(targets_.front().parts);
    std::wstring shown = multiple_ ? L"Close/Open" : closed ? L"Open" : L"Close";
    std::wstring keywords = multiple_ ? L"Close Open" : closed ? L"Open" : L"Close";
    if (flat) {
      shown += L"/Join/Width/Decurve/Ltype gen/Reverse";
      keywords += L" Join Width Decurve Ltype Reverse";
    }
    shown += L"/Undo";
    keywords += L" Undo";
    std::wstring prompt = L"\nEnter an option [" + shown + L"]: ";
    std::wstring list = keywords + L" _ " + keywords;
    Answer answer = drawing::askKeyword(prompt.c_str(), {0, list.c_str()});
    if (answer.status != RTKWORD) return;
    if (drawing::sameText(answer.keyword, L"Undo")) {
      undo();
      continue;
    }
    db::ChangeJournal* journal = undo::currentJournal();
    std::vector<PolylineName> before = targets_;
    if (journal) journal->beginGroup(db::ChangeJournal::GroupKind::Command, "PEDIT");
    Outcome outcome = apply(answer.keyword);
    if (journal) journal->endGroup();
    if (outcome == Outcome::Changed) history_.push_back(std::move(before));
    if (outcome == Outcome::Stop) return;
  }
}

PolylineEditSession::Outcome PolylineEditSession::apply(const std::wstring& option) {
  if (drawing::sameText(option, L"Close")) return close(true);
  if (drawing::sameText(option, L"Open")) return close(false);
  if (drawing::sameText(option, L"Join")) return join();
  if (drawing::sameText(option, L"Width")) return width();
  if (drawing::sameText(option, L"Decurve")) return decurve();
  if (drawing::sameText(option, L"Ltype")) return linetypeGeneration();
  if (drawing::sameText(option, L"Reverse")) return reverse();
  return Outcome::Unchanged;
}

PolylineEditSession::Outcome PolylineEditSession::close(bool closing) {
  bool changed = false;
  for (const PolylineName& target : targets_) {
    if (isPolylineClosed(target.parts) == closing) continue;
    if (setPolylineClosed(target.parts, closing)) changed = true;
  }
  return changed ? Outcome::Changed : Outcome::Unchanged;
}

int PolylineEditSession::joinInto(PolylineName& target, const std::vector<PolylineName>& candidates,
                                  double fuzz, JoinType type, std::vector<bool>& consumed) {
  std::optional<PlanarPolyline> base = readPolyline(target.parts);
  if (!base) return 0;
  std::vector<Chain> pieces;
  std::vector<size_t> owners;
  for (size_t i = 0; i < candidates.size(); ++i) {
    if (consumed[i] || samePolyline(target, candidates[i].parts)) continue;
    if (std::optional<Chain> piece = readPiece(candidates[i].parts, *base)) {
      pieces.push_back(std::move(*piece));
      owners.push_back(i);
    }
  }
  JoinResult joined = joinChains(base->chain, pieces, fuzz, type);
  if (joined.added <= 0 || !writePolyline(target.parts, joined.chain)) return 0;
  for (size_t i = 0; i < pieces.size(); ++i) {
    if (!joined.used[i]) continue;
    consumed[owners[i]] = true;
    qxdbEntDel(candidates[owners[i]].parts);
  }
  return joined.added;
}

PolylineEditSession::Outcome PolylineEditSession::join() {
  if (!multiple_) {
    EditSelection selection;
    int status = selection.select(false, false);
    if (status == RTCAN) return Outcome::Stop;
    std::vector<PolylineName> candidates;
    for (std::int32_t i = 0, count = selection.length(); i < count; ++i) {
      PolylineName name;
      if (selection.member(i, name.parts)) candidates.push_back(name);
    }
    selection.unhighlight();
    std::vector<bool> consumed(candidates.size(), false);
    int added = joinInto(targets_.front(), candidates, kSamePoint, JoinType::Add, consumed);
    printAdded(added);
    return added > 0 ? Outcome::Changed : Outcome::Unchanged;
  }
  double fuzz = 0;
  if (!askFuzz(fuzz)) return Outcome::Stop;
  std::vector<bool> consumed(targets_.size(), false);
  int added = 0;
  for (size_t i = 0; i < targets_.size(); ++i) {
    if (consumed[i] || !planar(targets_[i])) continue;
    // The base stays; what joined it leaves the list.
    consumed[i] = true;
    added += joinInto(targets_[i], targets_, fuzz, joinType(), consumed);
    consumed[i] = false;
  }
  std::vector<PolylineName> kept;
  for (size_t i = 0; i < targets_.size(); ++i) {
    if (!consumed[i]) kept.push_back(targets_[i]);
  }
  targets_ = std::move(kept);
  printAdded(added);
  return added > 0 ? Outcome::Changed : Outcome::Unchanged;
}

PolylineEditSession::Outcome PolylineEditSession::rewrite(bool controlOnly,
                                                          Chain (*change)(const Chain&, double),
                                                          double value) {
  bool changed = false;
  for (PolylineName& target : targets_) {
    std::optional<PlanarPolyline> polyline = readPolyline(target.parts, controlOnly);
    if (!polyline) continue;
    if (writePolyline(target.parts, change(polyline->chain, value), controlOnly)) changed = true;
  }
  return changed ? Outcome::Changed : Outcome::Unchanged;
}

PolylineEditSession::Outcome PolylineEditSession::width() {
  double value = 0;
  Answer answer = drawing::askDistance(L"\nSpecify new width for all segments: ", std::nullopt,
                                       value, {QXED_NO_NULL | QXED_NO_NEGATIVE});
  if (!answer.value()) return Outcome::Stop;
  return rewrite(false, withWidth, value);
}

PolylineEditSession::Outcome PolylineEditSession::decurve() {
  return rewrite(true, withoutCurves, 0);
}

PolylineEditSession::Outcome PolylineEditSession::reverse() {
  return rewrite(false, turnedRound, 0);
}

PolylineEditSession::Outcome PolylineEditSession::linetypeGeneration() {
  bool current = !targets_.empty() && edit::linetypeGeneration(targets_.front().parts);
  std::wstring prompt = std::wstring(L"\nEnter polyline linetype generation option [ON/OFF] <") +
                        (current ? L"On" : L"Off") + L">: ";
  Answer answer = drawing::askKeyword(prompt.c_str(), {0, L"ON OFF _ ON OFF"});
  if (answer.stop()) return Outcome::Stop;
  bool on = answer.enter() ? current : drawing::sameText(answer.keyword, L"ON");
  bool changed = false;
  for (const PolylineName& target : targets_) {
    if (!planar(target) || edit::linetypeGeneration(target.parts) == on) continue;
    if (setLinetypeGeneration(target.parts, on)) changed = true;
  }
  return changed ? Outcome::Changed : Outcome::Unchanged;
}

void PolylineEditSession::undo() {
  db::ChangeJournal* journal = undo::currentJournal();
  if (history_.empty() || !journal || !journal->undoStep()) {
    qxutPrintf(L"\nAll PEDIT operations have been undone.");
    return;
  }
  if (db::Database* database = api::currentDatabase()) database->recordChanged();
  targets_ = std::move(history_.back());
  history_.pop_back();
}

}  // namespace korva::cmd::edit
