// OFFSET: copies of curves at a distance, or through a point, on the side the user
// points at. OFFSETDIST remembers the distance (negative for Through), OFFSETGAPTYPE
// says how polylines close the gaps at their outer corners.
#include <optional>
#include <string>
#include <vector>

#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/modify/entity_paths.h"
#include "cmd/modify/modify_commands.h"
#include "cmd/modify/modify_input.h"
#include "qx_db_entity.h"
#include "qx_entities.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::modify {

// The plane geometry the commands cut, offset and round with.
using namespace geom;

namespace {

using drawing::askDistance;
using drawing::askKeyword;
using drawing::askPoint;
using geom::Vec3;

// The Erase and Layer choices last for the session.
struct OffsetChoices {
  bool eraseSource = false;
  bool currentLayer = false;
};
OffsetChoices& choices() {
  static OffsetChoices kept;
  return kept;
}

struct OffsetDone {
  HeldName made;
  HeldName source;
  bool erasedSource = false;
};

enum class Next { SameObject, NextObject, Exit };

class OffsetSession {
 public:
  bool askDistanceOrThrough() {
    for (;;) {
      double remembered = drawing::realVariable(L"OFFSETDIST", -1);
      std::wstring prompt =
          L"\nSpecify offset distance or [Through/Erase/Layer] <" +
          (remembered < 0 ? std::wstring(L"Through") : drawing::distanceText(remembered)) + L">: ";
      double value = 0;
      Answer answer = askDistance(
          prompt.c_str(), std::nullopt, value,
          {QXED_NO_ZERO | QXED_NO_NEGATIVE, L"Through Erase Layer _ Through Erase Layer"});
      if (answer.stop()) return false;
      if (answer.enter()) {
        through_ = remembered < 0;
        distance_ = remembered;
        return true;
      }
      if (answer.value()) {
        distance_ = value;
        drawing::setRealVariable(L"OFFSETDIST", value);
        return true;
      }
      if (answer.is(L"Through")) {
        through_ = true;
        drawing::setRealVariable(L"OFFSETDIST", -1);
        return true;
      }
      if (answer.is(L"Erase") && !askErase()) return false;
      if (answer.is(L"Layer") && !askLayer()) return false;
    }
  }

  void run() {
    for (;;) {
      EntityName name;
      Vec2 pick;
      Answer answer = pickEntity(L"\nSelect object to offset or [Exit/Undo] <Exit>: ",
                                 L"Exit Undo _ Exit Undo", name, pick);
      if (answer.stop() || answer.enter() || answer.is(L"Exit")) return;
      if (answer.is(L"Undo")) {
        undoLast();
        continue;
      }
      std::optional<EntityPath> shape = readEntityPath(name);
      if (!shape) {
        qxutPrintf(L"\nCannot offset that object.");
        continue;
      }
      if (askSides(name, *shape) == Next::Exit) return;
    }
  }

 private:
  bool askErase() {
    Answer answer = askKeyword(choices().eraseSource
                                   ? L"\nErase source object after offsetting? [Yes/No] <Yes>: "
                                   : L"\nErase source object after offsetting? [Yes/No] <No>: ",
                               {0, L"Yes No _ Yes No"});
    if (answer.stop()) return false;
    if (!answer.enter()) choices().eraseSource = answer.is(L"Yes");
    return true;
  }

  bool askLayer() {
    Answer answer =
        askKeyword(choices().currentLayer
                       ? L"\nEnter layer option for offset objects [Current/Source] <Current>: "
                       : L"\nEnter layer option for offset objects [Current/Source] <Source>: ",
                   {0, L"Current Source _ Current Source"});
    if (answer.stop()) return false;
    if (!answer.enter()) choices().currentLayer = answer.is(L"Current");
    return true;
  }

  Next askSides(const EntityName name, const EntityPath& shape) {
    bool multiple = false;
    for (;;) {
      const wchar_t* prompt =
          multiple
              ? (through_ ? L"\nSpecify through point or [Exit/Undo] <next object>: "
                          : L"\nSpecify point on side to offset or [Exit/Undo] <next object>: ")
              : (through_ ? L"\nSpecify through point or [Exit/Multiple/Undo] <Exit>: "
                          : L"\nSpecify point on side to offset or [Exit/Multiple/Undo] <Exit>: ");
      Vec3 point;
      Answer answer = askPoint(
          prompt, std::nullopt, point,
          {0, multiple ? L"Exit Undo _ Exit Undo" : L"Exit Multiple Undo _ Exit Multiple Undo"});
      if (answer.stop() || answer.is(L"Exit")) return Next::Exit;
      if (answer.enter()) return multiple ? Next::NextObject : Next::Exit;
      if (answer.is(L"Multiple")) {
        multiple = true;
      } else if (answer.is(L"Undo")) {
        undoLast();
      } else if (answer.value()) {
        double user[3] = {point.x, point.y, point.z};
        bool erased = offsetOnce(name, shape, worldPlanePoint(user));
        if (erased || !multiple) return Next::NextObject;
      }
    }
  }

  // True when the source was erased.
  bool offsetOnce(const EntityName name, const EntityPath& shape, Vec2 side) {
    int whichSide = sideOf(shape.path, side);
    double distance = through_ ? nearestPlace(shape.path, side).distance : distance_;
    // A point on the object gives no side, and a zero distance no copy.
    if (whichSide == 0 || distance <= kSamePoint) return false;
    auto gap = static_cast<GapType>(drawing::shortVariable(L"OFFSETGAPTYPE", 0));
    std::optional<PlanePath> moved = offsetPath(shape.path, whichSide * distance, gap);
    EntityName made;
    if (!moved || !addEntityLike(name, shape, *moved, made)) return false;
    if (choices().currentLayer) putOnCurrentLayer(made);
    OffsetDone done{held(made), held(name), false};
    if (choices().eraseSource) done.erasedSource = qxdbEntDel(name) == RTNORM;
    done_.push_back(done);
    return done.erasedSource;
  }

  static void putOnCurrentLayer(const EntityName name) {
    QxDbObjectId id;
    QxDbEntity* entity = nullptr;
    if (qxdbGetObjectId(id, name) != Qxad::eOk ||
        qxdbOpenQxDbEntity(entity, id, QxDb::kForWrite) != Qxad::eOk) {
      return;
    }
    std::wstring layer = drawing::stringVariable(L"CLAYER");
    if (!layer.empty()) entity->setLayer(layer.c_str());
    entity->close();
  }

  void undoLast() {
    if (done_.empty()) {
      qxutPrintf(L"\nNothing to undo.");
      return;
    }
    OffsetDone last = done_.back();
    done_.pop_back();
    qxdbEntDel(last.made.data());
    // Deleting an erased entity again brings it back.
    if (last.erasedSource) qxdbEntDel(last.source.data());
  }

  bool through_ = false;
  double distance_ = -1;
  std::vector<OffsetDone> done_;
};

}  // namespace

void offsetCommand() {
  qxutPrintf(L"\nCurrent settings: Erase source=%s  Layer=%s  OFFSETGAPTYPE=%d",
             choices().eraseSource ? L"Yes" : L"No",
             choices().currentLayer ? L"Current" : L"Source",
             drawing::shortVariable(L"OFFSETGAPTYPE", 0));
  OffsetSession session;
  if (!session.askDistanceOrThrough()) return;
  session.run();
}

}  // namespace korva::cmd::modify
