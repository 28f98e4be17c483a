#include "cmd/drawing/drawing_commands.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"

namespace korva::cmd {

void registerDrawingCommands() {
  using namespace drawing;
  Processor& processor = Processor::instance();
  processor.addHostCommand(L"LINE", lineCommand);
  processor.addHostCommand(L"CIRCLE", circleCommand);
  processor.addHostCommand(L"ARC", arcCommand);
  processor.addHostCommand(L"PLINE", polylineCommand);
  processor.addHostCommand(L"POINT", pointCommand);
  processor.addHostCommand(L"-TEXT", textCommand);
  processor.addHostCommand(L"ERASE", eraseCommand, QXRX_CMD_USEPICKSET);
  processor.addHostCommand(L"COPY", copyCommand, QXRX_CMD_USEPICKSET);
  processor.addHostCommand(L"MOVE", moveCommand, QXRX_CMD_USEPICKSET);
  processor.addHostCommand(L"LIST", listCommand, QXRX_CMD_USEPICKSET);
  processor.addHostCommand(L"UCS", ucsCommand);
  processor.addHostCommand(L"ZOOM", zoomCommand, QXRX_CMD_TRANSPARENT);
  processor.addHostCommand(L"REDRAW", redrawCommand, QXRX_CMD_TRANSPARENT);
  processor.addHostCommand(L"REDRAWALL", redrawAllCommand, QXRX_CMD_TRANSPARENT);
  processor.addHostCommand(L"REGEN", regenCommand);
  processor.addHostCommand(L"AREA", areaCommand);
  processor.addHostCommand(L"ID", idCommand, QXRX_CMD_TRANSPARENT);
  processor.addHostCommand(L"DIST", distCommand, QXRX_CMD_TRANSPARENT);
  processor.addHostCommand(L"SETVAR", setvarCommand, QXRX_CMD_TRANSPARENT);
}

}  // namespace korva::cmd
