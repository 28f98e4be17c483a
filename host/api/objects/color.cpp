// Colours and the 256-colour palette.
#include <array>
#include <cstdlib>

#include "qx_color.h"

namespace {

// The standard palette: indexes 1-9 by name, 10-249 in hue bands of 10 (five shades,
// each full and half saturated), 250-255 greys.
std::array<uint32_t, 256> makePalette() {
  std::array<uint32_t, 256> palette{};
  const uint32_t named[] = {0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                            0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
  for (int i = 0; i <= 9; ++i) palette[i] = named[i];
  const double shade[] = {1.0, 0.65, 0.5, 0.3, 0.15};
  for (int index = 10; index < 250; ++index) {
    int hueStep = (index - 10) / 10;  // 24 hues, 15 degrees apart
    int variant = (index - 10) % 10;
    double value = shade[variant / 2];
    double saturation = variant % 2 == 0 ? 1.0 : 0.5;
    double hue = hueStep * 15.0 / 60.0;
    int sector = static_cast<int>(hue) % 6;
    double fraction = hue - static_cast<int>(hue);
    double p = value * (1 - saturation);
    double q = value * (1 - saturation * fraction);
    double t = value * (1 - saturation * (1 - fraction));
    double r = 0, g = 0, b = 0;
    switch (sector) {
      case 0: r = value, g = t, b = p; break;
      case 1: r = q, g = value, b = p; break;
      case 2: r = p, g = value, b = t; break;
      case 3: r = p, g = q, b = value; break;
      case 4: r = t, g = p, b = value; break;
      default: r = value, g = p, b = q; break;
    }
    auto channel = [](double c) { return static_cast<uint32_t>(c * 255.0 + 0.5); };
    palette[index] = (channel(r) << 16) | (channel(g) << 8) | channel(b);
  }
  const uint32_t greys[] = {0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};
  for (int i = 0; i < 6; ++i) palette[250 + i] = greys[i];
  return palette;
}

const std::array<uint32_t, 256>& palette() {
  static const std::array<uint32_t, 256> table = makePalette();
  return table;
}

}  // namespace

uint32_t QxCmEntityColor::lookUpRGB(uint8_t colorIndex) {
  if (colorIndex == 0) return 0xFFFFFF;
  return palette()[colorIndex];
}

uint8_t QxCmEntityColor::lookUpACI(uint8_t red, uint8_t green, uint8_t blue) {
  uint8_t best = 7;
  long bestDistance = -1;
  for (int index = 1; index < 256; ++index) {
    uint32_t rgb = palette()[index];
    long dr = static_cast<long>((rgb >> 16) & 0xFF) - red;
    long dg = static_cast<long>((rgb >> 8) & 0xFF) - green;
    long db = static_cast<long>(rgb & 0xFF) - blue;
    long distance = dr * dr + dg * dg + db * db;
    if (bestDistance < 0 || distance < bestDistance) {
      bestDistance = distance;
      best = static_cast<uint8_t>(index);
    }
  }
  return best;
}

void QxCmColor::setColorMethod(QxCmEntityColor::ColorMethod method) {
  method_ = method;
  if (method == QxCmEntityColor::kByLayer) index_ = 256;
  if (method == QxCmEntityColor::kByBlock) index_ = 0;
  if (method == QxCmEntityColor::kForeground) index_ = 7;
}

int16_t QxCmColor::colorIndex() const {
  if (method_ == QxCmEntityColor::kByColor) {
    return QxCmEntityColor::lookUpACI(red(), green(), blue());
  }
  return index_;
}

void QxCmColor::setColorIndex(int16_t index) {
  index_ = index;
  method_ = index == 256 ? QxCmEntityColor::kByLayer
            : index == 0 ? QxCmEntityColor::kByBlock
                         : QxCmEntityColor::kByACI;
  rgb_ = 0;
}

void QxCmColor::setRGB(uint8_t red, uint8_t green, uint8_t blue) {
  method_ = QxCmEntityColor::kByColor;
  rgb_ = (static_cast<uint32_t>(red) << 16) | (static_cast<uint32_t>(green) << 8) | blue;
}

uint32_t QxCmColor::trueColor() const {
  if (method_ == QxCmEntityColor::kByColor) return rgb_;
  if (index_ >= 1 && index_ <= 255) return QxCmEntityColor::lookUpRGB(static_cast<uint8_t>(index_));
  return 0xFFFFFF;
}
