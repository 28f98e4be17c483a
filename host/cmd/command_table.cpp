#include "cmd/command_table.h"

#include <algorithm>
#include <cwctype>

namespace korva::cmd {

std::wstring upperCase(std::wstring_view text) {
  std::wstring result(text);
  for (wchar_t& c : result) c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
  return result;
}

bool CommandTable::add(CommandDefinition definition) {
  definition.group = upperCase(definition.group);
  definition.globalName = upperCase(definition.globalName);
  definition.localName = upperCase(definition.localName);
  for (const auto& each : commands_) {
    if (each->group == definition.group && each->globalName == definition.globalName) {
      return false;
    }
  }
  commands_.push_back(std::make_unique<CommandDefinition>(std::move(definition)));
  return true;
}

bool CommandTable::remove(std::wstring_view group, std::wstring_view globalName) {
  const std::wstring groupName = upperCase(group);
  const std::wstring name = upperCase(globalName);
  auto found = std::find_if(commands_.begin(), commands_.end(), [&](const auto& each) {
    return each->group == groupName && each->globalName == name;
  });
  if (found == commands_.end()) return false;
  commands_.erase(found);
  return true;
}

size_t CommandTable::removeGroup(std::wstring_view group) {
  const std::wstring groupName = upperCase(group);
  return std::erase_if(commands_, [&](const auto& each) { return each->group == groupName; });
}

const CommandDefinition* CommandTable::find(std::wstring_view name, bool global,
                                            bool builtInOnly) const {
  const std::wstring wanted = upperCase(name);
  auto search = [&](auto nameOf) -> const CommandDefinition* {
    for (auto it = commands_.rbegin(); it != commands_.rend(); ++it) {
      if (builtInOnly && !(*it)->builtIn) continue;
      if (nameOf(**it) == wanted) return it->get();
    }
    return nullptr;
  };
  if (!global) {
    if (const CommandDefinition* local =
            search([](const CommandDefinition& each) { return each.localName; })) {
      return local;
    }
  }
  return search([](const CommandDefinition& each) { return each.globalName; });
}

std::vector<const CommandDefinition*> CommandTable::all() const {
  std::vector<const CommandDefinition*> result;
  for (const auto& each : commands_) result.push_back(each.get());
  return result;
}

}  // namespace korva::cmd
