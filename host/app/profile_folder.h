// The folder of per-user settings (--profile-dir, else the XDG config folder).
#pragma once

#include <string>

namespace korva::app {

// Makes folder (or the default when empty) the profile folder, and keeps the profile
// variables in it.
void setProfileFolder(const std::string& folder);
const std::string& profileFolder();

}  // namespace korva::app
