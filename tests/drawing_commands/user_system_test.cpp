// User systems: made from axes, made current and taken back, kept by name, taken
// from entities; and how angles of the user plane read in an entity's object system.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "cmd/drawing/entity_ucs.h"
#include "cmd/drawing/planar_entities.h"
#include "cmd/drawing/ucs_state.h"
#include "drawing_fixture.h"
#include "qx_util.h"

namespace korva::cmd::drawing {
namespace {

using geom::Vec3;

constexpr double kPi = std::numbers::pi;
constexpr double kTolerance = 1e-12;

void expectNear(Vec3 actual, Vec3 expected) {
  EXPECT_NEAR(actual.x, expected.x, kTolerance);
  EXPECT_NEAR(actual.y, expected.y, kTolerance);
  EXPECT_NEAR(actual.z, expected.z, kTolerance);
}

TEST(SystemFromAxes, SquaresTheYAxisAndRefusesParallelDirections) {
  std::optional<UserSystem> system = systemFromAxes({1, 2, 3}, {2, 0, 0}, {1, 1, 0});
  ASSERT_TRUE(system.has_value());
  expectNear(system->xAxis, {1, 0, 0});
  expectNear(system->yAxis, {0, 1, 0});
  expectNear(system->zAxis(), {0, 0, 1});
  EXPECT_FALSE(systemFromAxes({}, {1, 0, 0}, {-3, 0, 0}).has_value());
  EXPECT_FALSE(systemFromAxes({}, {0, 0, 0}, {0, 1, 0}).has_value());
}

TEST(ObjectAngle, MeasuresUserAnglesFromTheObjectSystemsXAxis) {
  // Turned 30 degrees about Z: the object system of Z is the world's.
  api::CoordinateSystem turned;
  turned.xAxis = {std::cos(kPi / 6), std::sin(kPi / 6), 0};
  turned.yAxis = {-std::sin(kPi / 6), std::cos(kPi / 6), 0};
  EXPECT_NEAR(objectAngle(turned, 0), kPi / 6, kTolerance);
  EXPECT_NEAR(objectAngle(turned, kPi / 2), 2 * kPi / 3, kTolerance);

  // Looking from -X: the arbitrary-axis rule puts the object X at -Y, so the user X
  // (world Z) is the object's Y.
  api::CoordinateSystem side;
  side.xAxis = {0, 0, 1};
  side.yAxis = {0, 1, 0};
  side.zAxis = {-1, 0, 0};
  EXPECT_NEAR(objectAngle(side, 0), kPi / 2, kTolerance);
}

TEST(TidyAngle, WrapsAndSnapsRoundingErrorsOnly) {
  EXPECT_NEAR(tidyAngle(-kPi / 2), 1.5 * kPi, kTolerance);
  EXPECT_EQ(tidyAngle(kPi / 2 - 1e-15), kPi / 2);
  EXPECT_EQ(tidyAngle(2 * kPi), 0);
  EXPECT_EQ(tidyAngle(0.123), 0.123);
}

class UserSystemTest : public DrawingTest {};

TEST_F(UserSystemTest, MakeCurrentWritesTheVariablesAndPreviousTakesItBack) {
  UserSystem moved = *systemFromAxes({5, 5, 0}, {0, 1, 0}, {-1, 0, 0});
  makeCurrent(moved);
  UserSystem current = currentSystem();
  expectNear(current.origin, {5, 5, 0});
  expectNear(current.xAxis, {0, 1, 0});
  EXPECT_EQ(displayName(current), L"*NO NAME*");

  makeCurrent(UserSystem{});
  EXPECT_EQ(displayName(currentSystem()), L"*WORLD*");
  ASSERT_TRUE(restorePrevious());
  expectNear(currentSystem().origin, {5, 5, 0});
  ASSERT_TRUE(restorePrevious());
  EXPECT_TRUE(currentSystem().isWorld());
  EXPECT_FALSE(restorePrevious());
}

TEST_F(UserSystemTest, NamedSystemsAreSavedReplacedFoundAndDeleted) {
  UserSystem saved = *systemFromAxes({1, 0, 0}, {0, 0, 1}, {0, 1, 0});
  saved.name = L"Side";
  ASSERT_TRUE(saveNamedSystem(saved));
  saved.origin = {2, 0, 0};
  ASSERT_TRUE(saveNamedSystem(saved));  // same name: replaced, not added
  UserSystem other;
  other.name = L"Plan";
  ASSERT_TRUE(saveNamedSystem(other));

  std::optional<UserSystem> found = findNamedSystem(L"SIDE");
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->name, L"Side");
  expectNear(found->origin, {2, 0, 0});
  expectNear(found->zAxis(), {-1, 0, 0});
  EXPECT_EQ(namedSystemsMatching(L"*").size(), 2u);

  EXPECT_EQ(deleteNamedSystems(L"s*"), 1);
  EXPECT_FALSE(findNamedSystem(L"Side").has_value());
  EXPECT_TRUE(findNamedSystem(L"Plan").has_value());
}

TEST_F(UserSystemTest, EntitiesGiveTheirOwnSystems) {
  const double from[3] = {0, 0, 0}, to[3] = {0, 10, 0};
  EntityName line;
  make(qxutBuildList(RTDXF0, L"LINE", 10, from, 11, to, RTNONE), line);
  // Picked near its far end, a line's system starts there and looks back along it.
  std::optional<UserSystem> system = systemOfEntity(line, {0, 9, 0});
  ASSERT_TRUE(system.has_value());
  expectNear(system->origin, {0, 10, 0});
  expectNear(system->xAxis, {0, -1, 0});
  expectNear(system->zAxis(), {0, 0, 1});

  const double at[3] = {3, 4, 0};
  EntityName text;
  make(qxutBuildList(RTDXF0, L"TEXT", 10, at, 40, 2.5, 1, L"abc", 50, 30.0, RTNONE), text);
  system = systemOfEntity(text, {0, 0, 0});
  ASSERT_TRUE(system.has_value());
  expectNear(system->origin, {3, 4, 0});
  expectNear(system->xAxis, {std::cos(kPi / 6), std::sin(kPi / 6), 0});

  // An arc facing down: Z follows the extrusion, X points to the end nearer the pick.
  const double center[3] = {0, 0, 0}, down[3] = {0, 0, -1};
  EntityName arc;
  make(qxutBuildList(RTDXF0, L"ARC", 10, center, 40, 2.0, 50, 0.0, 51, 90.0, 210, down, RTNONE),
       arc);
  system = systemOfEntity(arc, {0.1, 2, 0});
  ASSERT_TRUE(system.has_value());
  expectNear(system->zAxis(), {0, 0, -1});
  // The object X of -Z is world -X; 90 degrees on from it about -Z is world +Y.
  expectNear(system->xAxis, {0, 1, 0});

  const double a[3] = {0, 0, 0}, b[3] = {1, 0, 0}, c[3] = {2, 0, 0};
  EntityName spline;
  make(qxutBuildList(RTDXF0, L"SPLINE", 70, 8, 71, 2, 72, 6, 73, 3, 40, 0.0, 40, 0.0, 40, 0.0, 40,
                     1.0, 40, 1.0, 40, 1.0, 10, a, 10, b, 10, c, RTNONE),
       spline);
  EXPECT_FALSE(systemOfEntity(spline, {0, 0, 0}).has_value());
}

}  // namespace
}  // namespace korva::cmd::drawing
