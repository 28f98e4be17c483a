// The colour dialog of a host without a screen: a colour index or name asked for at the
// prompt; and the RGB values of the colour indexes.
#include <array>
#include <cwctype>
#include <string>

#include "qx_color.h"
#include "qx_input.h"
#include "qx_ui_services.h"

namespace {

constexpr int kByBlock = 0;
constexpr int kByLayer = 256;

struct ColourName {
  const wchar_t* name;
  int index;
};

constexpr std::array<ColourName, 7> kStandardColours{{{L"red", 1},
                                                      {L"yellow", 2},
                                                      {L"green", 3},
                                                      {L"cyan", 4},
                                                      {L"blue", 5},
                                                      {L"magenta", 6},
                                                      {L"white", 7}}};

std::wstring lowered(std::wstring text) {
  for (wchar_t& c : text) c = static_cast<wchar_t>(std::towlower(c));
  return text;
}

std::wstring describe(int index) {
  for (const ColourName& colour : kStandardColours) {
    if (colour.index == index) return colour.name;
  }
  return std::to_wstring(index);
}

std::wstring describeCurrent(int index, int layerColour) {
  if (index == kByLayer) return L"bylayer (" + describe(layerColour) + L")";
  if (index == kByBlock) return L"byblock";
  return describe(index);
}

// The index the answer names, or -1.
int colourOf(const std::wstring& answer, bool allowMeta) {
  const std::wstring text = lowered(answer);
  if (allowMeta && text == L"bylayer") return kByLayer;
  if (allowMeta && text == L"byblock") return kByBlock;
  for (const ColourName& colour : kStandardColours) {
    if (text == colour.name) return colour.index;
  }
  if (text.empty() || text.find_first_not_of(L"0123456789") != std::wstring::npos ||
      text.size() > 3) {
    return -1;
  }
  const int number = std::stoi(text);
  if (number >= 1 && number <= 255) return number;
  if (allowMeta && (number == kByBlock || number == kByLayer)) return number;
  return -1;
}

}  // namespace

int qxedSetColorDialog(int* colorIndex, int allowMetaColors, int currentLayerColor) {
  if (!colorIndex) return 0;
  const bool allowMeta = allowMetaColors != 0;
  const std::wstring prompt = L"\nEnter a colour number or name <" +
                              describeCurrent(*colorIndex, currentLayerColor) + L">: ";
  for (;;) {
    wchar_t answer[64];
    const int status = qxedGetString(0, prompt.c_str(), answer, std::size(answer));
    if (status != RTNORM || answer[0] == L'\0') return 0;
    const int index = colourOf(answer, allowMeta);
    if (index >= 0) {
      *colorIndex = index;
      return 1;
    }
    qxedPrompt(allowMeta ? L"\nRequires a colour number 1-255, a colour name, bylayer or byblock."
                         : L"\nRequires a colour number 1-255 or a colour name.");
  }
}

std::uint32_t qxedGetRGB(int colorIndex) {
  // By layer, by block and indexes outside the palette show as the foreground, white.
  const std::uint32_t rgb = colorIndex >= 1 && colorIndex <= 255
                                ? QxCmEntityColor::lookUpRGB(static_cast<std::uint8_t>(colorIndex))
                                : 0xFFFFFFu;
  const std::uint32_t red = (rgb >> 16) & 0xFF;
  const std::uint32_t green = (rgb >> 8) & 0xFF;
  const std::uint32_t blue = rgb & 0xFF;
  return (blue << 16) | (green << 8) | red;
}
