// Colours: an index of the 256-colour palette, by layer, by block, or a true colour.
#pragma once

#include <cstdint>

class QxCmEntityColor {
 public:
  enum ColorMethod : std::uint8_t {
    kByLayer = 0xC0,
    kByBlock = 0xC1,
    kByColor = 0xC2,  // a true colour
    kByACI = 0xC3,    // an index of the palette
    kForeground = 0xC5,
    kNone = 0xC8,
  };
  // The red, green and blue of a palette index (1..255; 0 and 256 give white).
  static std::uint32_t lookUpRGB(std::uint8_t colorIndex);
  // The palette index closest to a colour.
  static std::uint8_t lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
};

class QxCmColor {
 public:
  QxCmColor() = default;  // by layer
  QxCmEntityColor::ColorMethod colorMethod() const { return method_; }
  void setColorMethod(QxCmEntityColor::ColorMethod method);
  // 256 by layer, 0 by block, 1..255 an index; a true colour gives its nearest index.
  std::int16_t colorIndex() const;
  void setColorIndex(std::int16_t index);
  void setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
  std::uint8_t red() const { return static_cast<std::uint8_t>(rgb_ >> 16); }
  std::uint8_t green() const { return static_cast<std::uint8_t>(rgb_ >> 8); }
  std::uint8_t blue() const { return static_cast<std::uint8_t>(rgb_); }
  // The colour as DXF's 420 group holds it (0x00RRGGBB); for an index its palette colour.
  std::uint32_t trueColor() const;
  bool isByLayer() const { return method_ == QxCmEntityColor::kByLayer; }
  bool isByBlock() const { return method_ == QxCmEntityColor::kByBlock; }
  bool operator==(const QxCmColor&) const = default;

 private:
  QxCmEntityColor::ColorMethod method_ = QxCmEntityColor::kByLayer;
  std::int16_t index_ = 256;
  std::uint32_t rgb_ = 0;
};
