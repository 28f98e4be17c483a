// The settings stores and the folder they live in.
#include "ui/settings_stores.h"

namespace korva::ui {
namespace {

namespace fs = std::filesystem;

struct Stores {
  fs::path folder;
  // Stores outlive a change of folder: an open QxSettings::Key points at its store.
  SettingsFile user{"per-user keys"};
  SettingsFile machine{"machine-wide keys"};
  SettingsFile environment{"environment store"};
  SettingsFile profile{"application profile"};
};

Stores& stores() {
  static Stores all;
  return all;
}

fs::path inFolder(const fs::path& relative) {
  const fs::path& folder = stores().folder;
  return folder.empty() ? fs::path() : folder / relative;
}

}  // namespace

void setSettingsFolder(const fs::path& folder) {
  Stores& all = stores();
  all.folder = folder;
  all.user.reset(inFolder("settings/user.txt"));
  all.machine.reset(inFolder("settings/machine.txt"));
  all.environment.reset(inFolder("environment.txt"));
  all.profile.reset(inFolder("profile.txt"));
}

const fs::path& settingsFolder() {
  return stores().folder;
}

SettingsFile& keyStore(QxSettings::Hive hive) {
  return hive == QxSettings::Hive::LocalMachine ? stores().machine : stores().user;
}

SettingsFile& environmentStore() {
  return stores().environment;
}

SettingsFile& applicationProfileStore() {
  return stores().profile;
}

}  // namespace korva::ui
