// What the module keeps from its initialisation: the resource module and its own
// instance. Written on the entry point's messages, read by everything else.
#pragma once

#include "frame/host_interface.h"

namespace frame {

// The resource module, null until message 1 found it and after message 2 freed it.
QxModuleHandle resourceModule();
void setResourceModule(QxModuleHandle resources);

// The module's own instance (the handle of the module's code).
QxModuleHandle ownInstance();

}  // namespace frame
