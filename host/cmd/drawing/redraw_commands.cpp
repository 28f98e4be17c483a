// REDRAW, REDRAWALL and REGEN: korva has no screen to refresh, so they take no input
// and change nothing; scripts that call them run on.
#include "cmd/drawing/drawing_commands.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

void redrawCommand() {}

void redrawAllCommand() {}

void regenCommand() {
  qxutPrintf(L"\nRegenerating model.");
}

}  // namespace korva::cmd::drawing
