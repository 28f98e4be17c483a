// The "?" listings of -LAYER and -LINETYPE.
#include <algorithm>
#include <memory>

#include "cmd/tables/layer_colors.h"
#include "cmd/tables/layer_records.h"
#include "cmd/tables/name_list.h"
#include "cmd/tables/table_commands.h"
#include "qx_entities.h"
#include "qx_memory.h"
#include "qx_print.h"

namespace korva::cmd {
namespace {

std::wstring padded(std::wstring text, size_t width) {
  if (text.size() < width) text.append(width - text.size(), L' ');
  return text + L" ";
}

}  // namespace

void printLayerList(const std::vector<std::wstring>& patterns) {
  std::vector<LayerState> layers = allLayers();
  size_t nameWidth = 10;
  for (const LayerState& layer : layers) nameWidth = std::max(nameWidth, layer.name.size());
  std::wstring heading = L"\n\n" + padded(L"Layer name", nameWidth) + padded(L"State", 23) +
                         padded(L"Color", 13) + L"Linetype";
  qxutPrintf(L"%s", heading.c_str());
  int shown = 0;
  for (const LayerState& layer : layers) {
    if (!matchesNameList(layer.name, patterns)) continue;
    std::wstring line = L"\n" + padded(layer.name, nameWidth) +
                        padded(layer.off ? L"Off" : L"On", 3) +
                        padded(layer.frozen ? L"Frozen" : L"Thawed", 6) +
                        padded(layer.locked ? L"Locked" : L"Unlocked", 12) +
                        padded(describeColor(layer.color, layer.trueColor), 13) + layer.linetype;
    qxutPrintf(L"%s", line.c_str());
    ++shown;
  }
  if (shown == 0) qxutPrintf(L"\nNo matching layer names found.");
  qxutPrintf(L"\n\nCurrent layer: \"%s\"", currentLayerName().c_str());
}

void printLoadedLinetypes(const std::vector<std::wstring>& patterns) {
  struct Release {
    void operator()(ResultBuffer* list) const { qxutRelRb(list); }
  };
  qxutPrintf(L"\n\nLinetype name          Description");
  int shown = 0;
  for (std::unique_ptr<ResultBuffer, Release> list(qxdbTblNext(L"LTYPE", 1)); list;
       list.reset(qxdbTblNext(L"LTYPE", 0))) {
    std::wstring name;
    std::wstring description;
    for (ResultBuffer* node = list.get(); node; node = node->next) {
      if (node->type == 2) name = node->value.rstring;
      if (node->type == 3) description = node->value.rstring;
    }
    if (!matchesNameList(name, patterns)) continue;
    std::wstring line = L"\n" + padded(name, 22) + description;
    qxutPrintf(L"%s", line.c_str());
    ++shown;
  }
  if (shown == 0) qxutPrintf(L"\nNo matching linetypes found.");
}

}  // namespace korva::cmd
