// The rules behind the block commands' answers: names, files, where a reference
// stands in a turned user system, and the "2x" form of grid spacings.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "cmd/blocks/block_names.h"
#include "cmd/blocks/block_placement.h"
#include "cmd/blocks/block_source.h"
#include "cmd/blocks/drawing_aid_settings.h"

namespace korva::cmd::blocks {
namespace {

TEST(BlockNames, ReservedCharactersAndLeadingStarAreRefused) {
  EXPECT_TRUE(isValidBlockName(L"Door 90"));
  EXPECT_TRUE(isValidBlockName(L"vn-tmp-block"));
  for (const wchar_t* name : {L"", L" ", L"*U1", L"a/b", L"a<b", L"a?b", L"a=b", L"a,b", L"a|b"})
    EXPECT_FALSE(isValidBlockName(name)) << name;
  EXPECT_FALSE(isValidBlockName(std::wstring(256, L'a')));
}

TEST(BlockSource, PathsAndTheDrawingExtensionNameFiles) {
  EXPECT_TRUE(namesDrawingFile(L"/support/BRKLINE.DWG"));
  EXPECT_TRUE(namesDrawingFile(L"parts\\bolt"));
  EXPECT_TRUE(namesDrawingFile(L"bolt.DXF"));
  EXPECT_FALSE(namesDrawingFile(L"bolt"));
  EXPECT_FALSE(namesDrawingFile(L".dxf"));
  EXPECT_EQ(blockNameOfFile(L"/support/BRKLINE.DWG"), L"BRKLINE");
  EXPECT_EQ(blockNameOfFile(L"C:\\parts\\M8 bolt.dxf"), L"M8 bolt");
  EXPECT_EQ(blockNameOfFile(L"plain"), L"plain");
}

TEST(BlockPlacement, WorldSystemKeepsPointAndRotation) {
  Placement placement;
  placement.point = {3, 4, 0};
  placement.rotation = std::numbers::pi / 6;
  ReferenceFrame frame = referenceFrame(api::CoordinateSystem{}, placement);
  EXPECT_DOUBLE_EQ(frame.position.x, 3);
  EXPECT_DOUBLE_EQ(frame.position.y, 4);
  EXPECT_DOUBLE_EQ(frame.normal.z, 1);
  EXPECT_NEAR(frame.rotation, std::numbers::pi / 6, 1e-12);
}

TEST(BlockPlacement, TurnedSystemAddsItsTurnAndMovesThePoint) {
  // A system at 10,0 turned a quarter: its X is the world's Y.
  api::CoordinateSystem user;
  user.origin = {10, 0, 0};
  user.xAxis = {0, 1, 0};
  user.yAxis = {-1, 0, 0};
  Placement placement;
  placement.point = {2, 0, 0};
  placement.rotation = std::numbers::pi;  // with the turn: three quarters
  ReferenceFrame frame = referenceFrame(user, placement);
  EXPECT_NEAR(frame.position.x, 10, 1e-12);
  EXPECT_NEAR(frame.position.y, 2, 1e-12);
  EXPECT_NEAR(frame.rotation, 1.5 * std::numbers::pi, 1e-12);
}

TEST(BlockPlacement, UpsideDownSystemMeasuresInTheReferencesOwnPlane) {
  // Z pointing down: the reference's object system is mirrored against the world, so
  // the rotation is read in that system and the normal follows the user's Z.
  api::CoordinateSystem user;
  user.xAxis = {1, 0, 0};
  user.yAxis = {0, -1, 0};
  user.zAxis = {0, 0, -1};
  Placement placement;
  placement.rotation = std::numbers::pi / 2;
  ReferenceFrame frame = referenceFrame(user, placement);
  EXPECT_DOUBLE_EQ(frame.normal.z, -1);
  // The block's X axis points along the world's -Y; the object system of (0,0,-1)
  // has X along -X and Y along +Y, so that direction is at three quarters.
  EXPECT_NEAR(frame.rotation, 1.5 * std::numbers::pi, 1e-12);
}

TEST(TypedSpacing, LengthsAndSnapMultiples) {
  auto length = parseTypedSpacing(L"2.5");
  ASSERT_TRUE(length);
  EXPECT_FALSE(length->timesSnap);
  EXPECT_DOUBLE_EQ(length->value, 2.5);
  auto multiple = parseTypedSpacing(L" 3X ");
  ASSERT_TRUE(multiple);
  EXPECT_TRUE(multiple->timesSnap);
  EXPECT_DOUBLE_EQ(multiple->value, 3);
  EXPECT_FALSE(parseTypedSpacing(L"x"));
  EXPECT_FALSE(parseTypedSpacing(L"-2x"));
  EXPECT_FALSE(parseTypedSpacing(L"Aspect"));
}

}  // namespace
}  // namespace korva::cmd::blocks
