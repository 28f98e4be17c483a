// The library records of the dialog layer: which resource modules extension modules
// attached, so that their dialogs and strings are found.
#pragma once

#include <vector>

#include "qx_resources.h"

namespace korva::ui {

// The resource handles of the library records alive now, oldest first; records
// without resources are left out.
const std::vector<QxModuleHandle>& extensionResourceHandles();

}  // namespace korva::ui
