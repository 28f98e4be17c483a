// TRIM: cutting edges first (Enter takes every entity), then the objects to trim, each
// picked on the part that is to go. EDGEMODE 1 lets lines and arcs cut where they
// would reach if extended. Undo takes back one trim at a time.
#include <cmath>
#include <memory>
#include <optional>
#include <vector>

#include "cmd/drawing/command_variables.h"
#include "cmd/modify/entity_paths.h"
#include "cmd/modify/modify_commands.h"
#include "cmd/modify/modify_input.h"
#include "geom/trim_cuts.h"
#include "qx_entities.h"
#include "qx_input.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_selection.h"

namespace korva::cmd::modify {

// The plane geometry the commands cut, offset and round with.
using namespace geom;

namespace {

using drawing::askKeyword;

// A selection set freed when the value goes.
class OwnedSet {
 public:
  OwnedSet() = default;
  ~OwnedSet() { release(); }
  OwnedSet(const OwnedSet&) = delete;
  OwnedSet& operator=(const OwnedSet&) = delete;

  int select(const wchar_t* mode, const void* first, const void* second = nullptr) {
    release();
    int status = qxedSSGet(mode, first, second, nullptr, set_);
    held_ = status == RTNORM;
    return status;
  }
  std::vector<HeldName> members() const {
    std::vector<HeldName> names;
    std::int32_t count = 0;
    if (!held_ || qxedSSLength(set_, &count) != RTNORM) return names;
    for (std::int32_t i = 0; i < count; ++i) {
      EntityName name;
      if (qxedSSName(set_, i, name) == RTNORM) names.push_back(held(name));
    }
    return names;
  }

 private:
  void release() {
    if (held_) qxedSSFree(set_);
    held_ = false;
  }
  SelectionSet set_ = {0, 0};
  bool held_ = false;
};

struct ListRelease {
  void operator()(ResultBuffer* list) const { qxutRelRb(list); }
};
using OwnedList = std::unique_ptr<ResultBuffer, ListRelease>;

// What one trim or erase changed, to take it back.
struct TrimStep {
  std::optional<HeldName> rewritten;
  OwnedList before;  // the rewritten entity's list as it was
  std::vector<HeldName> made;
  std::vector<HeldName> erased;
};

class TrimSession {
 public:
  bool selectEdges() {
    qxutPrintf(L"\nCurrent settings: Projection=UCS, Edge=%s\nSelect cutting edges ...",
               drawing::shortVariable(L"EDGEMODE", 0) == 1 ? L"Extend" : L"None");
    const wchar_t* prompts[2] = {L"\nSelect objects or <select all>: ", L"\nRemove objects: "};
    int status = edges_.select(L":$", prompts);
    if (status == RTCAN) return false;
    allEdges_ = status != RTNORM;
    return true;
  }

  void run() {
    for (;;) {
      EntityName name;
      Vec2 pick;
      Answer answer = pickEntity(L"\nSelect object to trim or\n[Fence/Crossing/Edge/eRase/Undo]: ",
                                 L"Fence Crossing Edge eRase Undo _ Fence Crossing Edge eRase Undo",
                                 name, pick);
      if (answer.stop() || answer.enter()) return;
      if (answer.is(L"Edge")) {
        if (!askEdgeMode()) return;
      } else if (answer.is(L"eRase")) {
        eraseSome();
      } else if (answer.is(L"Undo")) {
        undoLast();
      } else if (answer.is(L"Fence")) {
        if (!trimAlongFence()) return;
      } else if (answer.is(L"Crossing")) {
        if (!trimInsideCrossing()) return;
      } else if (answer.value()) {
        trimPicked(name, pick, true);
      }
    }
  }

 private:
  bool askEdgeMode() {
    bool extend = drawing::shortVariable(L"EDGEMODE", 0) == 1;
    Answer answer = askKeyword(
        extend ? L"\nEnter an implied edge extension mode [Extend/No extend] <Extend>: "
               : L"\nEnter an implied edge extension mode [Extend/No extend] <No extend>: ",
        {0, L"Extend No _ Extend No"});
    if (answer.stop()) return false;
    if (!answer.enter()) drawing::setShortVariable(L"EDGEMODE", answer.is(L"Extend") ? 1 : 0);
    return true;
  }

  std::vector<CuttingPiece> cuttingPieces(const EntityName trimmed) {
    OwnedSet everything;
    std::vector<HeldName> names;
    if (allEdges_) {
      if (everything.select(L"_A", nullptr) == RTNORM) names = everything.members();
    } else {
      names = edges_.members();
    }
    bool extend = drawing::shortVariable(L"EDGEMODE", 0) == 1;
    std::vector<CuttingPiece> pieces;
    for (const HeldName& name : names) {
      if (name == held(trimmed)) continue;
      std::optional<EntityPath> edge = readEntityPath(name.data());
      if (!edge) continue;
      // Only single lines and arcs reach on beyond their ends.
      bool reaches = extend && (edge->kind == CurveKind::Line || edge->kind == CurveKind::Arc);
      for (const Piece& piece : edge->path.pieces) pieces.push_back({piece, reaches});
    }
    return pieces;
  }

  // False when the object could not be trimmed there.
  bool trimPicked(const EntityName name, Vec2 pick, bool tellWhy) {
    std::optional<EntityPath> shape = readEntityPath(name);
    if (!shape || shape->kind == CurveKind::OldPolyline) {
      if (tellWhy) qxutPrintf(L"\nCannot trim that object.");
      return false;
    }
    std::vector<double> cuts = cutPositions(shape->path, cuttingPieces(name));
    TrimResult result = trimAt(shape->path, cuts, nearestPlace(shape->path, pick).position());
    if (result.fault != TrimFault::None) {
      if (tellWhy && result.fault == TrimFault::NoEdge) {
        qxutPrintf(L"\nObject does not intersect an edge.");
      }
      if (tellWhy && result.fault == TrimFault::NeedsTwoCuts) {
        qxutPrintf(L"\n%s must intersect twice.",
                   shape->kind == CurveKind::Circle ? L"Circle" : L"Closed polyline");
      }
      return false;
    }
    apply(name, *shape, result.parts);
    return true;
  }

  void apply(const EntityName name, const EntityPath& shape, const std::vector<PlanePath>& parts) {
    auto step = std::make_unique<TrimStep>();
    bool rewritable = shape.kind != CurveKind::Circle && !parts.empty();
    if (rewritable) {
      step->before.reset(qxdbEntGet(name));
      if (step->before && rewriteEntity(name, shape, parts.front())) {
        step->rewritten = held(name);
      } else {
        qxutPrintf(L"\nThe object could not be trimmed.");
        return;
      }
    }
    for (size_t i = rewritable ? 1 : 0; i < parts.size(); ++i) {
      EntityName made;
      if (addEntityLike(name, shape, parts[i], made)) step->made.push_back(held(made));
    }
    if (!rewritable && qxdbEntDel(name) == RTNORM) step->erased.push_back(held(name));
    steps_.push_back(std::move(step));
  }

  void eraseSome() {
    OwnedSet chosen;
    const wchar_t* prompts[2] = {L"\nSelect objects to erase or <exit>: ", L"\nRemove objects: "};
    if (chosen.select(L":$", prompts) != RTNORM) return;
    auto step = std::make_unique<TrimStep>();
    for (const HeldName& name : chosen.members()) {
      if (qxdbEntDel(name.data()) == RTNORM) step->erased.push_back(name);
    }
    if (!step->erased.empty()) steps_.push_back(std::move(step));
  }

  // Every object the fence line crosses is trimmed where the fence crosses it.
  bool trimAlongFence() {
    double first[3], second[3];
    if (qxedGetPoint(nullptr, L"\nSpecify first fence point: ", first) != RTNORM) return false;
    if (qxedGetPoint(first, L"\nSpecify endpoint of line: ", second) != RTNORM) return false;
    Piece fence = linePiece(worldPlanePoint(first), worldPlanePoint(second));
    OwnedSet crossing;
    ResultBuffer* points = qxutBuildList(RTPOINT, first, RTPOINT, second, 0);
    int status = crossing.select(L"F", points);
    qxutRelRb(points);
    if (status != RTNORM) return true;
    for (const HeldName& name : crossing.members()) {
      std::optional<EntityPath> shape = readEntityPath(name.data());
      if (!shape) continue;
      for (const Piece& piece : shape->path.pieces) {
        std::vector<Vec2> hits = pieceIntersections(piece, fence, false);
        if (!hits.empty()) {
          trimPicked(name.data(), hits.front(), false);
          break;
        }
      }
    }
    return true;
  }

  // Every object the crossing window touches is trimmed at a point of it in the window.
  bool trimInsideCrossing() {
    double first[3], second[3];
    if (qxedGetPoint(nullptr, L"\nSpecify first corner: ", first) != RTNORM) return false;
    if (qxedGetCorner(first, L"\nSpecify opposite corner: ", second) != RTNORM) return false;
    // The window is a rectangle of the user system: its corners in the world.
    std::vector<Vec2> corners;
    for (const double* x : {first, second}) {
      for (const double* y : {first, second}) {
        double corner[3] = {x[0], y[1], first[2]};
        corners.push_back(worldPlanePoint(corner));
      }
    }
    std::swap(corners[2], corners[3]);
    OwnedSet crossing;
    if (crossing.select(L"C", first, second) != RTNORM) return true;
    for (const HeldName& name : crossing.members()) {
      std::optional<EntityPath> shape = readEntityPath(name.data());
      if (!shape) continue;
      if (std::optional<Vec2> inside = pointInWindow(shape->path, corners)) {
        trimPicked(name.data(), *inside, false);
      }
    }
    return true;
  }

  // A point of the path inside the window: an end, a middle or where it crosses an edge.
  static std::optional<Vec2> pointInWindow(const PlanePath& path,
                                           const std::vector<Vec2>& corners) {
    // Inside or on the border: no edge has the point on its right and another on its left.
    auto inside = [&](Vec2 point) {
      int left = 0, right = 0;
      for (size_t i = 0; i < corners.size(); ++i) {
        double turn = cross(corners[(i + 1) % corners.size()] - corners[i], point - corners[i]);
        if (turn > kSamePoint) ++left;
        if (turn < -kSamePoint) ++right;
      }
      return left == 0 || right == 0;
    };
    for (const Piece& piece : path.pieces) {
      std::vector<Vec2> candidates = {pointAt(piece, 0.5), piece.start, piece.end};
      for (size_t i = 0; i < corners.size(); ++i) {
        Piece edge = linePiece(corners[i], corners[(i + 1) % corners.size()]);
        for (Vec2 point : pieceIntersections(piece, edge, false)) candidates.push_back(point);
      }
      for (Vec2 point : candidates) {
        if (inside(point)) return point;
      }
    }
    return std::nullopt;
  }

  void undoLast() {
    if (steps_.empty()) {
      qxutPrintf(L"\nAll trims have been undone.");
      return;
    }
    std::unique_ptr<TrimStep> step = std::move(steps_.back());
    steps_.pop_back();
    if (step->rewritten && step->before) qxdbEntMod(step->before.get());
    for (const HeldName& made : step->made) qxdbEntDel(made.data());
    // Deleting an erased entity again brings it back.
    for (const HeldName& erased : step->erased) qxdbEntDel(erased.data());
  }

  OwnedSet edges_;
  bool allEdges_ = false;
  std::vector<std::unique_ptr<TrimStep>> steps_;
};

}  // namespace

void trimCommand() {
  TrimSession session;
  if (!session.selectEdges()) return;
  session.run();
}

}  // namespace korva::cmd::modify
