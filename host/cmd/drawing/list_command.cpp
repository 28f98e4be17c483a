// LIST: a report of each selected entity.
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/entity_listing.h"
#include "cmd/drawing/selection_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

void listCommand() {
  HeldSelection selection;
  if (selection.select() != RTNORM) return;
  selection.unhighlight();
  for (std::int32_t i = 0, count = selection.length(); i < count; ++i) {
    EntityName name;
    if (!selection.member(i, name)) continue;
    // A blank line stands between the reports.
    if (i > 0) qxutPrintf(L"\n");
    listEntity(name);
  }
}

}  // namespace korva::cmd::drawing
