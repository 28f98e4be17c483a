// DESELECT: empties the current selection by removing everything from it.
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/scoped_int_var.h"

void cmdDeselect() {
  ScopedIntVar commandEcho(L"CMDECHO");
  commandEcho.Clear();
  qxedCommand(RTSTR, L"_.select", RTSTR, L"_r", RTSTR, L"_all", RTSTR, L"", RTNONE);
}
