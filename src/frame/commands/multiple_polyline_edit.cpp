// MPEDIT: the host's polyline editor with its Multiple option already chosen. The
// host command goes on asking the user after this handler has returned.
#include "frame/command_var_guard.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"

void cmdMpEdit() {
  CommandVarGuard variables;
  variables.save();
  qxedCommand(RTSTR, L"_.PEDIT", RTSTR, L"_M", RTNONE);
  variables.restore();
  qxedRetVoid();
}
