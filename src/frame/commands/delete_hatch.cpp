// DELHATCH: erases the selected hatches.
#include <string>

#include "frame/command_var_guard.h"
#include "frame/commands/small_command_ids.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"
#include "frame/selection_helpers.h"
#include "frame/string_helpers.h"

void cmdDelHatch() {
  ResourceScope resources;
  ResultBuffer* filter = qxutBuildList(RTDXF0, L"HATCH", RTNONE);
  SelectionSet set;
  const int selected = SelectWithOwnPrompt(small_commands::kHatchSelectPrompt, filter, set);
  if (selected != RTNORM) return;

  CommandVarGuard variables;
  variables.save();
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  int erased = 0;
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName name;
    // Hatches on locked layers refuse and are not counted.
    if (qxedSSName(set, index, name) == RTNORM && qxdbEntDel(name) == RTNORM) ++erased;
  }
  qxutPrintf(LoadResourceString(small_commands::kHatchesDeletedFormat).c_str(), erased);
  variables.restore();
  qxedSSFree(set);
  qxedRetVoid();
}
