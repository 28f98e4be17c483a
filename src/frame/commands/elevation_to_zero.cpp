// ZVALTO0: moves entities to elevation 0, by setting the Z of their points and their
// elevation to 0. With nothing selected it flattens the whole drawing.
#include <cwchar>
#include <string>

#include "frame/commands/small_command_ids.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"

namespace {

// Multileaders keep their own plane; flattening their points would tear them apart.
// Drawings name the record MULTILEADER, its class MLEADER.
bool IsMultileader(const wchar_t* type) {
  return std::wcscmp(type, L"MLEADER") == 0 || std::wcscmp(type, L"MULTILEADER") == 0;
}

// Zeroes the list's elevation and the Z of its points; false for a list left alone.
bool Flatten(ResultBuffer* list) {
  const ResultBuffer* typeNode = list;
  while (typeNode && typeNode->type != 0) typeNode = typeNode->next;
  if (!typeNode || !typeNode->value.rstring || IsMultileader(typeNode->value.rstring)) {
    return false;
  }
  const bool lightweight = std::wcscmp(typeNode->value.rstring, L"LWPOLYLINE") == 0;
  const bool polyline = std::wcscmp(typeNode->value.rstring, L"POLYLINE") == 0;
  for (ResultBuffer* node = list; node; node = node->next) {
    if (lightweight && node->type == 38) node->value.rreal = 0;
    if (polyline && node->type == 30) node->value.rreal = 0;
    if (node->type >= 10 && node->type <= 19) node->value.rpoint[2] = 0;
  }
  return true;
}

}  // namespace

void cmdZValTo0() {
  ResourceScope resources;
  qxutPrintf(L"\n%s", LoadResourceString(small_commands::kFlattenSelectHint).c_str());
  SelectionSet set;
  int selected = qxedSSGet(nullptr, nullptr, nullptr, nullptr, set);
  if (selected == RTCAN) return;
  if (selected != RTNORM) selected = qxedSSGet(L"X", nullptr, nullptr, nullptr, set);

  int flattened = 0;
  if (selected == RTNORM) {
    std::int32_t count = 0;
    qxedSSLength(set, &count);
    for (std::int32_t index = 0; index < count; ++index) {
      EntityName name;
      if (qxedSSName(set, index, name) != RTNORM) continue;
      ResultBuffer* list = qxdbEntGet(name);
      if (list && Flatten(list) && qxdbEntMod(list) == RTNORM) ++flattened;
      qxutRelRb(list);
    }
    qxedSSFree(set);
  }
  qxutPrintf(LoadResourceString(small_commands::kFlattenedFormat).c_str(), flattened);
  qxedRetVoid();
}
