// The table commands and the listings they share.
#pragma once

#include <string>
#include <vector>

namespace korva::cmd {

void layerCommand();     // -LAYER
void linetypeCommand();  // -LINETYPE

// "?" of -LAYER: the layers whose names match the list.
void printLayerList(const std::vector<std::wstring>& patterns);
// "?" of -LINETYPE and of -LAYER's Ltype option: the drawing's linetypes.
void printLoadedLinetypes(const std::vector<std::wstring>& patterns);

}  // namespace korva::cmd
