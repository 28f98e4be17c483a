// ERASE: the selected entities leave the drawing (their records stay, flagged, for undo).
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/selection_input.h"
#include "qx_entities.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

void eraseCommand() {
  HeldSelection selection;
  if (selection.select() != RTNORM) return;
  selection.unhighlight();
  int refused = 0;
  for (std::int32_t i = 0, count = selection.length(); i < count; ++i) {
    EntityName name;
    if (!selection.member(i, name) || qxdbEntDel(name) != RTNORM) ++refused;
  }
  if (refused == 1) qxutPrintf(L"\n1 object could not be erased: it is on a locked layer.");
  if (refused > 1) {
    qxutPrintf(L"\n%d objects could not be erased: they are on a locked layer.", refused);
  }
}

}  // namespace korva::cmd::drawing
