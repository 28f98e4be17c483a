// The current drawing's layers as -LAYER reads and changes them, through the flat
// layer's table searches and entity lists.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korva::cmd {

struct LayerState {
  std::wstring name;
  int color = 7;                           // palette index, 1..255
  std::optional<std::uint32_t> trueColor;  // 0xRRGGBB
  std::wstring linetype;
  bool off = false;     // a negative colour
  bool frozen = false;  // flag 1
  bool locked = false;  // flag 4
};

// All layers in table order.
std::vector<LayerState> allLayers();
std::optional<LayerState> findLayer(const std::wstring& name);
std::wstring currentLayerName();

// A new layer with colour 7 and linetype Continuous; false when it can't be made.
bool createLayer(const std::wstring& name);

// Changes a layer: the function edits a copy of its state, which is then written to
// the layer's record. false when the layer is missing or the record refused.
bool changeLayer(const std::wstring& name, const std::function<void(LayerState&)>& change);

}  // namespace korva::cmd
