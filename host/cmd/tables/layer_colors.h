// Colours as -LAYER reads and shows them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korva::cmd {

// "1" to "255", or one of the seven named colours ("red" ... "white").
std::optional<int> parseColorIndex(std::wstring_view text);
// "r,g,b" with each part 0 to 255, as 0xRRGGBB.
std::optional<std::uint32_t> parseTrueColor(std::wstring_view text);
// "1 (red)", "42", or "255,128,0" for a true colour.
std::wstring describeColor(int index, std::optional<std::uint32_t> trueColor);

}  // namespace korva::cmd
