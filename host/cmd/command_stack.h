// The command stack object the system registry holds as "QXAD_REGISTERED_COMMANDS".
#pragma once

#include "qx_command.h"

namespace korva::cmd {

// The one command stack of the program; registrations land in the Processor's table.
QxEdCommandStack* commandStack();

}  // namespace korva::cmd
