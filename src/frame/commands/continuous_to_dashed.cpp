// CON2DASH: toggles the selected entities between a continuous and a dashed line: an
// entity drawn continuous, by itself or by its layer, becomes DASHED2, and any other
// becomes CONTINUOUS. The linetype is loaded from KORVA.lin when the drawing lacks it.
#include <cwchar>
#include <string>

#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/list_helpers.h"
#include "frame/scoped_int_var.h"

namespace {

constexpr const wchar_t* kDashedLinetype = L"DASHED2";
constexpr const wchar_t* kContinuousLinetype = L"CONTINUOUS";

// Linetype names compare without regard to case: drawings say "Continuous" and "ByLayer".
bool SameName(const wchar_t* first, const wchar_t* second) {
  return wcscasecmp(first, second) == 0;
}

void LoadDashedLinetype() {
  ResultBuffer* record = qxdbTblSearch(L"LTYPE", kDashedLinetype, 0);
  if (record) {
    qxutRelRb(record);
    return;
  }
  qxedCommand(RTSTR, L"_.-linetype", RTSTR, L"_L", RTSTR, kDashedLinetype, RTSTR, L"KORVA.lin",
              RTSTR, L"", 0);
}

// The linetype the entity is drawn with: its own, or its layer's when it has none or
// follows the layer.
std::wstring DrawnLinetype(const ResultBuffer* list) {
  const ResultBuffer* own = FindGroupCode(list, 6);
  std::wstring linetype = own && own->value.rstring ? own->value.rstring : L"BYLAYER";
  if (!SameName(linetype.c_str(), L"BYLAYER")) return linetype;
  const ResultBuffer* layerName = FindGroupCode(list, 8);
  if (!layerName || !layerName->value.rstring) return linetype;
  ResultBuffer* layer = qxdbTblSearch(L"LAYER", layerName->value.rstring, 0);
  const ResultBuffer* layerLinetype = FindGroupCode(layer, 6);
  if (layerLinetype && layerLinetype->value.rstring) linetype = layerLinetype->value.rstring;
  qxutRelRb(layer);
  return linetype;
}

void ToggleLinetype(const EntityName name) {
  ResultBuffer* list = qxdbEntGet(name);
  if (!list) return;
  const bool continuous = SameName(DrawnLinetype(list).c_str(), kContinuousLinetype);
  const wchar_t* replacement = continuous ? kDashedLinetype : kContinuousLinetype;
  if (FindGroupCode(list, 6)) {
    SetGroupString(list, 6, replacement);
  } else {
    AppendResultBuffer(list, qxutBuildList(6, replacement, RTNONE));
  }
  qxdbEntMod(list);
  qxutRelRb(list);
  qxedRedraw(name, 4);
  qxdbEntUpd(name);
}

}  // namespace

void cmdCon2Dash() {
  ScopedIntVar commandEcho(L"CMDECHO");
  commandEcho.Clear();
  LoadDashedLinetype();
  // Every kind of entity can be selected: a linetype fits texts and blocks as well.
  SelectionSet set;
  if (qxedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) return;
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName name;
    if (qxedSSName(set, index, name) == RTNORM) ToggleLinetype(name);
  }
  qxedSSFree(set);
}
