// Reading a resource source into a ResourceModule, and its lookups.
#include "ui/resource_module.h"

#include <fstream>
#include <sstream>

#include "ui/resource_script_lexer.h"
#include "ui/resource_script_parser.h"

namespace korva::ui {

bool ResourceModule::read(const std::filesystem::path& source, std::string& error) {
  std::ifstream in(source, std::ios::binary);
  if (!in) {
    error = source.string() + ": can't be read";
    return false;
  }
  std::ostringstream bytes;
  bytes << in.rdbuf();
  std::vector<ResourceToken> tokens;
  ResourceModule read;
  if (!tokenizeResourceScript(bytes.str(), tokens, error) ||
      !parseResourceScript(tokens, read, error)) {
    error = source.string() + ": " + error;
    return false;
  }
  strings = std::move(read.strings);
  dialogs = std::move(read.dialogs);
  menus = std::move(read.menus);
  icons = std::move(read.icons);
  source_ = source;
  return true;
}

const wchar_t* ResourceModule::string(unsigned id) const {
  auto found = strings.find(id);
  return found == strings.end() ? nullptr : found->second.c_str();
}

const DialogTemplate* ResourceModule::dialog(unsigned id) const {
  auto found = dialogs.find(id);
  return found == dialogs.end() ? nullptr : &found->second;
}

const MenuTemplate* ResourceModule::menu(unsigned id) const {
  auto found = menus.find(id);
  return found == menus.end() ? nullptr : &found->second;
}

bool ResourceModule::hasIcon(unsigned id) const {
  return icons.contains(id);
}

}  // namespace korva::ui
