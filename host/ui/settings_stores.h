// korva's settings stores, each a file under the profile folder:
//   settings/user.txt     the per-user keys (QxSettings::Hive::CurrentUser)
//   settings/machine.txt  the machine-wide keys (LocalMachine); written only when a
//                         value is written there
//   environment.txt       the environment store (qxedGetEnv, qxedSetEnv)
//   profile.txt           the application profile (qxuiGetProfileInt ...)
#pragma once

#include <filesystem>

#include "qx_settings.h"
#include "ui/settings_file.h"

namespace korva::ui {

// Where the stores live from now on; what was read from the previous folder is
// forgotten. Before a folder is set (or with an empty one) the stores are kept in
// memory only.
void setSettingsFolder(const std::filesystem::path& folder);
const std::filesystem::path& settingsFolder();

SettingsFile& keyStore(QxSettings::Hive hive);
SettingsFile& environmentStore();
SettingsFile& applicationProfileStore();

}  // namespace korva::ui
