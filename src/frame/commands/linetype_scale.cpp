// CHGLTSCA: sets the linetype scale of the selected entities. One entity offers its own
// scale as the default, several offer the drawing's LTSCALE.
#include <string>

#include "frame/commands/small_command_ids.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/list_helpers.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"

namespace {

// An entity without group 48 is drawn at scale 1.
constexpr double kPlainScale = 1.0;

double DefaultScale(const SelectionSet set, std::int32_t count) {
  if (count == 1) {
    EntityName name;
    double scale = kPlainScale;
    if (qxedSSName(set, 0, name) == RTNORM) {
      ResultBuffer* list = qxdbEntGet(name);
      GetGroupReal(list, 48, scale);
      qxutRelRb(list);
    }
    return scale;
  }
  ResultBuffer value{};
  if (qxedGetVar(L"LTSCALE", &value) != RTNORM || value.type != RTREAL) return kPlainScale;
  return value.value.rreal;
}

// Writes the scale into the entity's list; a plain scale isn't added where there was
// none, so such entities stay exactly as they were. False when the entity can't be had.
bool ApplyScale(const EntityName name, double scale) {
  ResultBuffer* list = qxdbEntGet(name);
  if (!list) return false;
  if (FindGroupCode(list, 48)) {
    SetGroupReal(list, 48, scale);
  } else if (scale != kPlainScale) {
    AppendResultBuffer(list, qxutBuildList(48, scale, RTNONE));
  }
  qxdbEntMod(list);
  qxdbEntUpd(name);
  qxutRelRb(list);
  return true;
}

}  // namespace

void cmdChgLtSca() {
  ResourceScope resources;
  qxutPrintf(L"\n%s", LoadResourceString(small_commands::kLinetypeScaleSelectHint).c_str());
  SelectionSet set;
  if (qxedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) return;
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  double scale = DefaultScale(set, count);

  if (qxedInitGet(QXED_NO_ZERO | QXED_NO_NEGATIVE, nullptr) != RTNORM) {
    qxedSSFree(set);
    return;
  }
  const std::wstring format =
      LoadResourceString(small_commands::kLinetypeScalePromptFormat) + L": ";
  wchar_t prompt[512] = {};
  qxutSNPrintf(prompt, std::size(prompt), format.c_str(), scale);
  double answer = 0;
  const int answered = qxedGetReal(prompt, &answer);
  if (answered == RTERROR || answered == RTCAN) {
    qxedSSFree(set);
    return;
  }
  if (answered == RTNORM) scale = answer;

  for (std::int32_t index = 0; index < count; ++index) {
    EntityName name;
    // The ones done so far keep the new scale.
    if (qxedSSName(set, index, name) != RTNORM || !ApplyScale(name, scale)) break;
  }
  qxedSSFree(set);
}
