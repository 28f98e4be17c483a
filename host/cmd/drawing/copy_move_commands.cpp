// COPY and MOVE: the selected entities, copied or moved by a displacement given as a
// base point and a second point, or typed at once.
#include <functional>

#include "cmd/drawing/displacement_input.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/selection_input.h"
#include "qx_db_database.h"
#include "qx_print.h"
#include "qx_selection.h"

namespace korva::cmd::drawing {

namespace {

using Apply = std::function<bool(const Displacement&)>;

// Asks for the displacements and applies each: one, or as many as the user gives in
// the Multiple mode.
void runDisplacements(bool allowMultiple, const Apply& apply) {
  BaseAnswer base = askBasePoint(allowMultiple);
  bool multiple = base.choice == BaseChoice::Multiple;
  if (multiple) base = askBasePoint(false);
  if (base.choice == BaseChoice::Stop) return;
  if (base.choice == BaseChoice::Displacement) {
    if (std::optional<Displacement> displacement = askDisplacement()) apply(*displacement);
    return;
  }
  bool firstTime = true;
  do {
    std::optional<Displacement> displacement = askSecondPoint(base.point, firstTime);
    if (!displacement || !apply(*displacement)) return;
    firstTime = false;
  } while (multiple);
}

bool moveBy(const HeldSelection& selection, const Displacement& displacement) {
  double matrix[4][4];
  translationMatrix(displacement, matrix);
  if (qxedXformSS(selection.set(), matrix) == RTNORM) return true;
  qxutPrintf(L"\nThe selected objects could not be moved.");
  return false;
}

bool copyBy(const HeldSelection& selection, const Displacement& displacement) {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  if (!database) return false;
  QxDbObjectIdArray sources;
  for (std::int32_t i = 0, count = selection.length(); i < count; ++i) {
    EntityName name;
    QxDbObjectId id;
    if (selection.member(i, name) && qxdbGetObjectId(id, name) == Qxad::eOk) sources.append(id);
  }
  QxDbIdMapping mapping;
  HeldSelection copies;
  if (database->deepCloneObjects(sources, database->currentSpaceId(), mapping) != Qxad::eOk ||
      copies.makeEmpty() != RTNORM) {
    qxutPrintf(L"\nThe selected objects could not be copied.");
    return false;
  }
  for (int i = 0; i < sources.length(); ++i) {
    QxDbIdPair pair(sources[i], QxDbObjectId::kNull, false);
    EntityName copy;
    if (mapping.compute(pair) && qxdbGetHysName(copy, pair.value()) == Qxad::eOk) copies.add(copy);
  }
  return moveBy(copies, displacement);
}

}  // namespace

void moveCommand() {
  HeldSelection selection;
  if (selection.select() != RTNORM) return;
  runDisplacements(
      false, [&](const Displacement& displacement) { return moveBy(selection, displacement); });
  selection.unhighlight();
}

void copyCommand() {
  HeldSelection selection;
  if (selection.select() != RTNORM) return;
  runDisplacements(
      true, [&](const Displacement& displacement) { return copyBy(selection, displacement); });
  selection.unhighlight();
}

}  // namespace korva::cmd::drawing
