#include <gtest/gtest.h>

#include "qx_color.h"

namespace {

TEST(Colors, PaletteHasTheNamedColours) {
  EXPECT_EQ(QxCmEntityColor::lookUpRGB(1), 0xFF0000u);
  EXPECT_EQ(QxCmEntityColor::lookUpRGB(2), 0xFFFF00u);
  EXPECT_EQ(QxCmEntityColor::lookUpRGB(5), 0x0000FFu);
  EXPECT_EQ(QxCmEntityColor::lookUpRGB(7), 0xFFFFFFu);
  EXPECT_EQ(QxCmEntityColor::lookUpRGB(10), 0xFF0000u);  // the first hue band starts red
  EXPECT_EQ(QxCmEntityColor::lookUpRGB(250), 0x333333u);
  // Every index maps back to an index of the same colour.
  for (int index = 1; index < 256; ++index) {
    uint32_t rgb = QxCmEntityColor::lookUpRGB(static_cast<uint8_t>(index));
    uint8_t back = QxCmEntityColor::lookUpACI(rgb >> 16, (rgb >> 8) & 0xFF, rgb & 0xFF);
    EXPECT_EQ(QxCmEntityColor::lookUpRGB(back), rgb) << index;
  }
}

TEST(Colors, MethodsFollowTheIndex) {
  QxCmColor color;
  EXPECT_TRUE(color.isByLayer());
  EXPECT_EQ(color.colorIndex(), 256);
  color.setColorIndex(0);
  EXPECT_TRUE(color.isByBlock());
  color.setColorIndex(3);
  EXPECT_EQ(color.colorMethod(), QxCmEntityColor::kByACI);
  EXPECT_EQ(color.trueColor(), 0x00FF00u);
  color.setRGB(250, 5, 5);
  EXPECT_EQ(color.colorMethod(), QxCmEntityColor::kByColor);
  EXPECT_EQ(color.colorIndex(), 1);  // nearest palette entry
  EXPECT_EQ(color.trueColor(), 0xFA0505u);
  color.setColorMethod(QxCmEntityColor::kByLayer);
  EXPECT_EQ(color.colorIndex(), 256);
}

}  // namespace
