#include "profile_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include "api/system_variables.h"
#include "ui/settings_stores.h"

namespace korva::app {
namespace {

std::string& folderPath() {
  static std::string path;
  return path;
}

std::string defaultFolder() {
  if (const char* config = std::getenv("XDG_CONFIG_HOME"); config && *config) {
    return std::string(config) + "/korva";
  }
  if (const char* home = std::getenv("HOME"); home && *home) {
    return std::string(home) + "/.config/korva";
  }
  return ".korva";
}

// Profile variables as NAME=VALUE lines in the profile folder, written at each change so
// that the next run finds them.
class FileVariableStore : public api::ProfileVariableStore {
 public:
  explicit FileVariableStore(std::string path) : path_(std::move(path)) {
    std::ifstream in(path_);
    std::string line;
    while (std::getline(in, line)) {
      const size_t equals = line.find('=');
      if (equals != std::string::npos) values_[line.substr(0, equals)] = line.substr(equals + 1);
    }
  }
  std::optional<std::string> read(std::string_view name) const override {
    auto found = values_.find(std::string(name));
    if (found == values_.end()) return std::nullopt;
    return found->second;
  }
  void write(std::string_view name, const std::string& text) override {
    values_[std::string(name)] = text;
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), ignored);
    std::ofstream out(path_, std::ios::trunc);
    for (const auto& [key, value] : values_) out << key << '=' << value << '\n';
  }

 private:
  std::string path_;
  std::map<std::string, std::string> values_;
};

}  // namespace

void setProfileFolder(const std::string& folder) {
  folderPath() = folder.empty() ? defaultFolder() : folder;
  static std::unique_ptr<FileVariableStore> store;
  store = std::make_unique<FileVariableStore>(folderPath() + "/variables.txt");
  api::setProfileVariableStore(store.get());
  ui::setSettingsFolder(folderPath());
}

const std::string& profileFolder() {
  return folderPath();
}

}  // namespace korva::app
