// A nested reference that the outer reference's scaling would skew is broken up by
// explode: its attributes come out as the texts they show, not lost with it.
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>

#include "entities_fixture.h"
#include "qx_db_block_reference.h"

namespace korva::test {
namespace {

// Groups written as "code value|code value|...", after the common entity part.
std::vector<db::OwnedGroup> parsed(std::string_view text) {
  std::vector<db::OwnedGroup> groups = {{100, "AcDbEntity"}, {8, "0"}};
  while (!text.empty()) {
    size_t bar = std::min(text.find('|'), text.size());
    std::string_view item = text.substr(0, bar);
    size_t space = item.find(' ');
    groups.push_back(
        {std::stoi(std::string(item.substr(0, space))), std::string(item.substr(space + 1))});
    text.remove_prefix(std::min(bar + 1, text.size()));
  }
  return groups;
}

std::vector<db::OwnedGroup> attribute(const char* type, double x, double y, const char* value,
                                      const char* tag, int flags) {
  bool definition = std::string_view(type) == "ATTDEF";
  return parsed("100 AcDbText|10 " + std::to_string(x) + "|20 " + std::to_string(y) +
                "|30 0|40 0.5|1 " + value + "|100 " +
                (definition ? "AcDbAttributeDefinition" : "AcDbAttribute") + "|2 " + tag + "|70 " +
                std::to_string(flags) + "|74 2");
}

class SkewedNestingTest : public EntitiesTest {
 protected:
  // The pieces of the reference's explode, the test's to keep.
  std::vector<std::unique_ptr<QxDbEntity>> explodeReference(QxDbObjectId id) {
    QxDbObject* object = nullptr;
    EXPECT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForRead), Qxad::eOk);
    if (!object) return {};
    std::vector<QxDbEntity*> made;
    EXPECT_EQ(explodeInto(QxDbBlockReference::cast(object), made), Qxad::eOk);
    object->close();
    return {made.begin(), made.end()};
  }
  static std::array<double, 3> point(const QxDbEntity& piece, int code) {
    std::array<double, 3> value{NAN, NAN, NAN};
    api::groupPoint(api::recordOf(piece), code, value.data());
    return value;
  }
};

TEST_F(SkewedNestingTest, BrokenUpReferenceShowsItsAttributesAsTexts) {
  addBlock("TAG");
  add("LINE", parsed("100 AcDbLine|10 0|20 0|30 0|11 1|21 0|31 0"), "TAG");
  // The definition its attribute stands for, and a constant one the block shows.
  add("ATTDEF", attribute("ATTDEF", 0, 0.5, "", "NO", 0), "TAG");
  add("ATTDEF", attribute("ATTDEF", 0, 1, "X", "KIND", 2), "TAG");
  addBlock("CARD");
  add("INSERT", parsed("100 AcDbBlockReference|66 1|2 TAG|10 0|20 0|30 0|50 45"), "CARD");
  add("ATTRIB", attribute("ATTRIB", 1, 1, "7", "NO", 0), "CARD");
  add("ATTRIB", attribute("ATTRIB", 2, 0, "H", "HIDDEN", 1), "CARD");
  add("SEQEND", parsed(""), "CARD");
  std::vector<std::unique_ptr<QxDbEntity>> pieces = explodeReference(
      add("INSERT", parsed("100 AcDbBlockReference|2 CARD|10 10|20 0|30 0|41 2|42 1")));

  // (x, y) in CARD goes to (10 + 2x, y); TAG stands turned 45 degrees in CARD.
  ASSERT_EQ(pieces.size(), 4u);
  const char* types[4] = {"LINE", "TEXT", "TEXT", "TEXT"};
  const char* values[4] = {"", "X", "7", "H"};
  const double c = std::sqrt(0.5);
  const double positions[4][2] = {{10, 0}, {10 - 2 * c, c}, {12, 1}, {14, 0}};
  for (size_t i = 0; i < pieces.size(); ++i) {
    SCOPED_TRACE(i);
    db::Record& record = api::recordOf(*pieces[i]);
    ASSERT_EQ(record.type(), types[i]);
    EXPECT_NEAR(point(*pieces[i], 10)[0], positions[i][0], 1e-9);
    EXPECT_NEAR(point(*pieces[i], 10)[1], positions[i][1], 1e-9);
    if (i == 0) continue;
    EXPECT_EQ(api::groupText(record, 1).value_or("?"), values[i]);
    // The vertical alignment stays; the attribute's own groups go.
    EXPECT_EQ(api::groupInteger(record, 73, 0), 2);
    EXPECT_FALSE(api::groupText(record, 2).has_value());
  }
  // Stretched twice along X, the texts are twice as wide.
  EXPECT_NEAR(api::groupReal(api::recordOf(*pieces[2]), 41, 1), 2, 1e-9);
  // The invisible attribute stays invisible.
  EXPECT_EQ(pieces[2]->visibility(), 0);
  EXPECT_EQ(pieces[3]->visibility(), 1);
}

TEST_F(SkewedNestingTest, StretchedReferenceExplodesItsHatchWithEllipticEdges) {
  addBlock("DISC");
  add("HATCH",
      parsed("100 AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 1|93 1"
             "|72 2|10 1|20 1|40 1|50 0|51 360|73 1|97 0|75 0|76 1|98 0"),
      "DISC");
  std::vector<std::unique_ptr<QxDbEntity>> pieces = explodeReference(
      add("INSERT", parsed("100 AcDbBlockReference|2 DISC|10 0|20 0|30 0|41 3|42 1")));
  ASSERT_EQ(pieces.size(), 1u);
  // The circle about (1, 1) becomes a whole ellipse about (3, 1), three wide.
  db::Record& hatch = api::recordOf(*pieces[0]);
  EXPECT_EQ(api::groupInteger(hatch, 72, 0), 3);
  double center[3], major[3];
  ASSERT_TRUE(api::groupPoint(hatch, 10, center, {}, 1));
  ASSERT_TRUE(api::groupPoint(hatch, 11, major));
  EXPECT_NEAR(center[0], 3, 1e-12);
  EXPECT_NEAR(center[1], 1, 1e-12);
  EXPECT_NEAR(std::hypot(major[0], major[1]), 3, 1e-12);
  EXPECT_NEAR(api::groupReal(hatch, 40, 0), 1.0 / 3, 1e-12);
  EXPECT_NEAR(api::groupReal(hatch, 51, 0) - api::groupReal(hatch, 50, 0), 360, 1e-12);
}

TEST_F(SkewedNestingTest, StretchedReferenceBreaksUpWhatCantKeepItsKind) {
  // An L-shaped multiline half a unit either side of (0,0) (10,0) (10,10), and a radius
  // dimension whose picture is a radius line and a quarter of its circle.
  addBlock("FIG");
  add("MLINE",
      parsed("100 AcDbMline|2 STANDARD|40 1|70 1|71 1|72 3|73 2|10 0|20 0|30 0|210 0|220 0"
             "|230 1|11 0|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 1|41 0.5|75 0|74 1|41 -0.5"
             "|75 0|11 10|21 0|31 0|12 0|22 1|32 0|13 -0.7071067811865476|23 0.7071067811865476"
             "|33 0|74 1|41 0.7071067811865476|75 0|74 1|41 -0.7071067811865476|75 0|11 10|21 10"
             "|31 0|12 0|22 1|32 0|13 -1|23 0|33 0|74 1|41 0.5|75 0|74 1|41 -0.5|75 0"),
      "FIG");
  addBlock("*D2");
  add("LINE", parsed("100 AcDbLine|10 0|20 0|30 0|11 2|21 0|31 0"), "*D2");
  add("ARC", parsed("100 AcDbCircle|10 0|20 0|30 0|40 2|100 AcDbArc|50 0|51 90"), "*D2");
  add("DIMENSION",
      parsed("100 AcDbDimension|2 *D2|10 0|20 0|30 0|11 1|21 1|31 0|70 36"
             "|100 AcDbRadialDimension|15 2|25 0|35 0|40 0"),
      "FIG");
  std::vector<std::unique_ptr<QxDbEntity>> pieces = explodeReference(
      add("INSERT", parsed("100 AcDbBlockReference|2 FIG|10 0|20 0|30 0|41 2|42 1|43 1")));

  // The multiline's element lines, stretched: (9.5, 0.5) goes to (19, 0.5).
  ASSERT_EQ(pieces.size(), 6u);
  const char* types[6] = {"LINE", "LINE", "LINE", "LINE", "LINE", "ELLIPSE"};
  for (size_t i = 0; i < pieces.size(); ++i)
    EXPECT_EQ(api::recordOf(*pieces[i]).type(), types[i]) << i;
  EXPECT_NEAR(point(*pieces[0], 10)[1], 0.5, 1e-9);
  EXPECT_NEAR(point(*pieces[0], 11)[0], 19, 1e-9);
  EXPECT_NEAR(point(*pieces[2], 11)[0], 19, 1e-9);
  EXPECT_NEAR(point(*pieces[2], 11)[1], 10, 1e-9);
  // The dimension's picture: its radius line twice as long.
  EXPECT_NEAR(point(*pieces[4], 11)[0], 4, 1e-9);
}

}  // namespace
}  // namespace korva::test
