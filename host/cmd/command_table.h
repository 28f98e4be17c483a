// The table of registered commands, by group, global name and local name.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cmd/processor.h"

namespace korva::cmd {

class CommandTable {
 public:
  // false when the group already holds the global name.
  bool add(CommandDefinition definition);
  bool remove(std::wstring_view group, std::wstring_view globalName);
  // The number of commands removed.
  size_t removeGroup(std::wstring_view group);

  // The newest definition of the name: by global name when global is set, else by local
  // name and then by global name. builtInOnly reaches host commands only.
  const CommandDefinition* find(std::wstring_view name, bool global, bool builtInOnly) const;
  std::vector<const CommandDefinition*> all() const;

 private:
  std::vector<std::unique_ptr<CommandDefinition>> commands_;
};

std::wstring upperCase(std::wstring_view text);

}  // namespace korva::cmd
