// Window, crossing, polygons and fences against the exact outline of each kind.
#include <functional>

#include "db/value_text.h"
#include "qx_memory.h"
#include "qx_selection.h"
#include "selection_fixture.h"

namespace korva::testing {
namespace {

class RegionTest : public SelectionTest {
 public:
  using SelectionTest::add;
  using SelectionTest::arc;
  using SelectionTest::circle;
  using SelectionTest::database;
  using SelectionTest::lightPolyline;
  using SelectionTest::line;
  using SelectionTest::text;
};

// One rectangle and whether the entity is taken by a window and by a crossing through it.
struct BoxExpectation {
  double x1, y1, x2, y2;
  bool window;
  bool crossing;
};

struct RegionCase {
  const char* name;
  std::function<db::Record*(RegionTest&)> make;
  std::vector<BoxExpectation> boxes;
};

void PrintTo(const RegionCase& c, std::ostream* out) {
  *out << c.name;
}

class WindowCrossingTest : public RegionTest, public ::testing::WithParamInterface<RegionCase> {};

TEST_P(WindowCrossingTest, TakesWhatLiesInsideOrCrosses) {
  const RegionCase& c = GetParam();
  db::Record* made = c.make(*this);
  ASSERT_NE(made, nullptr);
  for (const BoxExpectation& b : c.boxes) {
    SCOPED_TRACE(::testing::Message()
                 << "box " << b.x1 << "," << b.y1 << " " << b.x2 << "," << b.y2);
    const size_t inWindow = b.window ? 1u : 0u, inCrossing = b.crossing ? 1u : 0u;
    EXPECT_EQ(window(L"W", b.x1, b.y1, b.x2, b.y2).count(made->handle()), inWindow) << "window";
    EXPECT_EQ(window(L"C", b.x1, b.y1, b.x2, b.y2).count(made->handle()), inCrossing) << "crossing";
    // The same rectangle as a polygon must agree.
    const double p[4][3] = {{b.x1, b.y1, 0}, {b.x2, b.y1, 0}, {b.x2, b.y2, 0}, {b.x1, b.y2, 0}};
    ResultBuffer* polygon =
        qxutBuildList(RTPOINT, p[0], RTPOINT, p[1], RTPOINT, p[2], RTPOINT, p[3], RTNONE);
    EXPECT_EQ(select(L"WP", polygon).count(made->handle()), inWindow) << "window polygon";
    EXPECT_EQ(select(L"CP", polygon).count(made->handle()), inCrossing) << "crossing polygon";
    qxutRelRb(polygon);
  }
}

// Block B holds a unit circle at its origin.
void unitCircleBlock(RegionTest& t) {
  t.add("CIRCLE", "8 0|10 0|20 0|30 0|40 1", t.database().addBlock("B"));
}

db::Record* insert(RegionTest& t, const char* name, double x, double y, double scale,
                   double rotation, double extrusionZ = 1) {
  const std::string s = db::formatReal(scale);
  return t.add("INSERT", "8 0|2 " + std::string(name) + "|10 " + db::formatReal(x) + "|20 " +
                             db::formatReal(y) + "|30 0|41 " + s + "|42 " + s + "|43 " + s +
                             "|50 " + db::formatReal(rotation) + "|210 0|220 0|230 " +
                             db::formatReal(extrusionZ));
}

db::Record* ellipse(RegionTest& t, double end) {
  return t.add("ELLIPSE",
               "8 0|10 0|20 0|30 0|11 4|21 0|31 0|40 0.5|41 0|42 " + db::formatReal(end));
}

constexpr double kPi = 3.141592653589793;

INSTANTIATE_TEST_SUITE_P(
    Curves, WindowCrossingTest,
    ::testing::Values(
        RegionCase{"LineInside",
                   [](RegionTest& t) { return t.line(1, 1, 4, 4); },
                   {{0, 0, 5, 5, true, true}}},
        RegionCase{"LineThroughEdge",
                   [](RegionTest& t) { return t.line(1, 1, 8, 1); },
                   {{0, 0, 5, 5, false, true}}},
        RegionCase{"LineOutside",
                   [](RegionTest& t) { return t.line(6, 6, 8, 8); },
                   {{0, 0, 5, 5, false, false}}},
        RegionCase{"ArcUpperHalf",
                   [](RegionTest& t) { return t.arc(2.5, 0, 2.5, 0, 180); },
                   {{-0.5, -0.5, 5.5, 2, false, true},  // bulges out of the window
                    {-0.5, -0.5, 5.5, 3, true, true},
                    {-0.5, -3, 5.5, -0.5, false, false}}},  // the lower half is missing
        RegionCase{"CircleAcrossEdge",
                   [](RegionTest& t) { return t.circle(5, 2.5, 1); },
                   {{0, 0, 5, 5, false, true}}},
        RegionCase{"CircleAroundWindow",
                   [](RegionTest& t) { return t.circle(2.5, 2.5, 10); },
                   {{0, 0, 5, 5, false, false}}},
        RegionCase{"CircleInside",
                   [](RegionTest& t) { return t.circle(2.5, 2.5, 2); },
                   {{0, 0, 5, 5, true, true}}},
        RegionCase{"BulgeTurnsBelowChord",
                   [](RegionTest& t) { return t.lightPolyline({{0, 0}, {4, 0}}, {1}, false); },
                   {{-1, -1, 5, 5, false, true}}},
        RegionCase{"NegativeBulgeTurnsAbove",
                   [](RegionTest& t) { return t.lightPolyline({{0, 0}, {4, 0}}, {-1}, false); },
                   {{-1, -1, 5, 5, true, true}}},
        RegionCase{"OldPolylineBulge",
                   [](RegionTest& t) {
                     db::Record* head = t.add("POLYLINE", "8 0|66 1|10 0|20 0|30 0|70 0");
                     t.add("VERTEX", "8 0|10 0|20 0|30 0|42 1");
                     t.add("VERTEX", "8 0|10 4|20 0|30 0");
                     t.add("SEQEND", "8 0");
                     return head;
                   },
                   {{-1, -1, 5, 5, false, true}}},
        RegionCase{"Ellipse",
                   [](RegionTest& t) { return ellipse(t, 2 * kPi); },
                   {{-5, -1.5, 5, 1.5, false, true}, {-5, -2.1, 5, 2.1, true, true}}},
        RegionCase{"HalfEllipse",
                   [](RegionTest& t) { return ellipse(t, kPi); },
                   {{-5, -0.5, 5, 2.1, true, true}}},
        // The curve, not its control polygon, which reaches up to 10.
        RegionCase{"Spline",
                   [](RegionTest& t) {
                     return t.add("SPLINE",
                                  "8 0|70 8|71 2|72 6|73 3|40 0|40 0|40 0|40 1|40 1|40 1|10 0|20 "
                                  "0|30 0|10 5|20 10|30 0|10 10|20 0|30 0");
                   },
                   {{-1, -1, 11, 5.2, true, true}, {-1, -1, 11, 4.8, false, true}}},
        RegionCase{"FitSplineThroughFitPoint",
                   [](RegionTest& t) {
                     return t.add("SPLINE",
                                  "8 0|70 8|71 3|74 3|11 0|21 0|31 0|11 5|21 5|31 0|11 10|21 "
                                  "0|31 0");
                   },
                   {{-1, -1, 11, 4.5, false, true}}},
        RegionCase{"XlineNeverInsideWindow",
                   [](RegionTest& t) {
                     return t.add("XLINE", "8 0|10 0|20 0|30 0|11 0.7071|21 0.7071|31 0");
                   },
                   {{-1, -1, 1, 1, false, true}}},
        RegionCase{"RayPointsAway",
                   [](RegionTest& t) {
                     return t.add("RAY", "8 0|10 0|20 0|30 0|11 -1|21 0|31 0");
                   },
                   {{1, -1, 3, 1, false, false}}}));

INSTANTIATE_TEST_SUITE_P(
    PointsFacesHatches, WindowCrossingTest,
    ::testing::Values(
        RegionCase{"PointInside",
                   [](RegionTest& t) { return t.add("POINT", "8 0|10 1|20 1|30 0"); },
                   {{0, 0, 2, 2, true, true}}},
        RegionCase{"SolidAcrossEdge",
                   [](RegionTest& t) {
                     return t.add(
                         "SOLID",
                         "8 0|10 0|20 0|30 0|11 2|21 0|31 0|12 0|22 2|32 0|13 2|23 2|33 0");
                   },
                   {{1, 1, 3, 3, false, true}}},
        RegionCase{"HatchBoundary",
                   [](RegionTest& t) {
                     return t.add("HATCH",
                                  "8 0|10 0|20 0|30 0|2 SOLID|70 1|71 0|91 1|92 3|72 0|73 1|93 "
                                  "4|10 0|20 0|10 4|20 0|10 4|20 4|10 0|20 4|97 0|75 0|76 1|98 0");
                   },
                   {{3, 3, 6, 6, false, true}}},
        RegionCase{"HatchArcEdge",
                   [](RegionTest& t) {
                     return t.add("HATCH",
                                  "8 0|10 0|20 0|30 0|2 SOLID|70 1|71 0|91 1|92 1|93 2|72 1|10 "
                                  "-2|20 0|11 2|21 0|72 2|10 0|20 0|40 2|50 0|51 180|73 1|97 "
                                  "0|75 0|76 1|98 0");
                   },
                   {{-3, -1, 3, 1.5, false, true}}}));

INSTANTIATE_TEST_SUITE_P(
    Texts, WindowCrossingTest,
    ::testing::Values(
        // Four capital Ws are far wider than 0.6 of the height each.
        RegionCase{"Text",
                   [](RegionTest& t) { return t.text(0, 0, 1, "WWWW"); },
                   {{-0.5, -0.5, 4, 1.5, false, true}, {-0.5, -0.5, 6, 1.5, true, true}}},
        RegionCase{"TextRotatedUp",
                   [](RegionTest& t) { return t.text(0, 0, 1, "WWWW", 90); },
                   {{-1.5, -0.5, 0.5, 6, true, true}, {-1.5, -0.5, 0.5, 4, false, true}}},
        RegionCase{"CenteredTextSpansBothSides",
                   [](RegionTest& t) {
                     return t.add("TEXT", "8 0|10 0|20 0|30 0|40 1|1 WWWW|72 1|11 0|21 0|31 0");
                   },
                   {{0, -0.5, 6, 1.5, false, true}}},
        // Hangs below its top left corner, two lines tall.
        RegionCase{"Paragraph",
                   [](RegionTest& t) {
                     return t.add("MTEXT", "8 0|10 0|20 0|30 0|40 1|71 1|1 ABC\\PDEF");
                   },
                   {{-0.5, -3, 5, 0.5, true, true}, {-0.5, -2, 5, 0.5, false, true}}}));

INSTANTIATE_TEST_SUITE_P(
    BlocksAndDimensions, WindowCrossingTest,
    ::testing::Values(
        RegionCase{"ScaledInsert",
                   [](RegionTest& t) {
                     unitCircleBlock(t);
                     return insert(t, "B", 10, 10, 2, 0);
                   },
                   {{8.5, 8.5, 11.5, 11.5, false, true}, {7.9, 7.9, 12.1, 12.1, true, true}}},
        RegionCase{"NestedRotatedInsert",
                   [](RegionTest& t) {
                     unitCircleBlock(t);
                     t.add("INSERT", "8 0|2 B|10 5|20 0|30 0", t.database().addBlock("Outer"));
                     return insert(t, "Outer", 0, 0, 1, 90);
                   },
                   {{-1.5, 3.5, 1.5, 6.5, true, true},
                    {3.5, -1.5, 6.5, 1.5, false, false}}},  // where it would be unrotated
        RegionCase{"InsertSeenFromBelow",
                   [](RegionTest& t) {
                     unitCircleBlock(t);
                     return insert(t, "B", 3, 0, 1, 0, -1);
                   },
                   {{-4.5, -1.5, -1.5, 1.5, true, true}}},
        RegionCase{"CircleSeenFromBelow",
                   [](RegionTest& t) {
                     return t.add("CIRCLE", "8 0|10 5|20 0|30 0|40 1|210 0|220 0|230 -1");
                   },
                   {{-6.5, -1.5, -3.5, 1.5, true, true}}},
        RegionCase{"DimensionThroughItsBlock",
                   [](RegionTest& t) {
                     t.add("LINE", "8 0|10 0|20 0|30 0|11 10|21 0|31 0",
                           t.database().addBlock("*D1"));
                     return t.add("DIMENSION", "8 0|2 *D1|10 10|20 0|30 0|70 32");
                   },
                   {{-1, -1, 5, 1, false, true}}}));

TEST_F(SelectionTest, ConcavePolygonSeparatesWindowFromCrossing) {
  // A U shape: the line's ends are in both arms, its middle crosses the notch.
  db::Record* across = line(1, 3, 5, 3);
  db::Record* inArm = line(0.5, 1, 0.5, 3);
  const double p[8][3] = {{0, 0, 0}, {6, 0, 0}, {6, 4, 0}, {4, 4, 0},
                          {4, 2, 0}, {2, 2, 0}, {2, 4, 0}, {0, 4, 0}};
  ResultBuffer* polygon =
      qxutBuildList(RTPOINT, p[0], RTPOINT, p[1], RTPOINT, p[2], RTPOINT, p[3], RTPOINT, p[4],
                    RTPOINT, p[5], RTPOINT, p[6], RTPOINT, p[7], RTNONE);
  EXPECT_EQ(select(L"WP", polygon), handles({inArm}));
  EXPECT_EQ(select(L"CP", polygon), handles({across, inArm}));
  qxutRelRb(polygon);
}

TEST_F(SelectionTest, FenceTakesWhatItCrosses) {
  db::Record* crossed = line(0, 0, 0, 10);
  db::Record* arcCrossed = arc(5, 5, 2, 0, 180);  // its top at (5, 7)
  line(20, 0, 20, 10);
  circle(5, 5, 0.5);  // inside the arc, never touched
  const double a[3] = {-1, 7, 0}, b[3] = {10, 7, 0};
  ResultBuffer* fence = qxutBuildList(RT3DPOINT, a, RT3DPOINT, b, RTNONE);
  EXPECT_EQ(select(L"F", fence), handles({crossed, arcCrossed}));
  qxutRelRb(fence);
  ResultBuffer* single = qxutBuildList(RT3DPOINT, a, RTNONE);
  int status = 0;
  select(L"F", single, nullptr, nullptr, &status);
  EXPECT_EQ(status, RTERROR);
  qxutRelRb(single);
}

TEST_F(SelectionTest, WindowIsInTheCurrentUserSystem) {
  // User X along world Y, user Y along world -X.
  database().setHeaderVariable("$UCSXDIR", {{10, "0.0"}, {20, "1.0"}, {30, "0.0"}});
  database().setHeaderVariable("$UCSYDIR", {{10, "-1.0"}, {20, "0.0"}, {30, "0.0"}});
  db::Record* userInside = line(-1, 1, -1, 2);  // user (1, 1) to (2, 1)
  db::Record* worldInside = line(1, 1, 2, 2);   // user y negative
  EXPECT_EQ(window(L"W", 0, 0, 3, 3), handles({userInside}));
  EXPECT_EQ(window(L"C", 0, -3, 3, 0), handles({worldInside}));
}

TEST_F(SelectionTest, EntitiesOnFrozenLayersAreNotPicked) {
  db::Table* layers = database().table("LAYER");
  ASSERT_NE(layers, nullptr);
  database().addTableEntry(
      *layers, "LAYER",
      groups("100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Frozen|70 1|62 7|6 Continuous"));
  db::Record* visible = line(1, 1, 2, 2);
  db::Record* frozen = line(1, 1, 2, 2, "FROZEN");
  EXPECT_EQ(window(L"W", 0, 0, 3, 3), handles({visible}));
  EXPECT_EQ(select(L"X"), handles({visible, frozen}));  // "X" reads the database
}

}  // namespace
}  // namespace korva::testing
