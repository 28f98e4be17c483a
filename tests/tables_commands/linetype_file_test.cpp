// Reading linetype files: plain and complex definitions, comments, broken lines, and
// the file korva installs.
#include <gtest/gtest.h>

#include <fstream>
#include <numbers>
#include <sstream>

#include "cmd/tables/linetype_file.h"

namespace korva::cmd {
namespace {

TEST(LinetypeFile, ReadsPlainDefinitionsAroundCommentsAndBlankLines) {
  LinetypeFile file = parseLinetypeFile(
      "\xEF\xBB\xBF;; shop linetypes\r\n"
      "\r\n"
      "*DASHES,Dashes, long ones __  __\r\n"
      "A,.5,-.25\r\n"
      "; a comment between definitions\n"
      "*dots\n"
      "A, 0 , -0.1 ,+0.2,-1e-1\n");
  ASSERT_TRUE(file.problems.empty()) << file.problems[0].message;
  ASSERT_EQ(file.definitions.size(), 2u);
  const LinetypeDefinition& dashes = file.definitions[0];
  EXPECT_EQ(dashes.name, "DASHES");
  EXPECT_EQ(dashes.description, "Dashes, long ones __  __");
  EXPECT_EQ(dashes.line, 3u);
  ASSERT_EQ(dashes.elements.size(), 2u);
  EXPECT_DOUBLE_EQ(dashes.elements[0].length, 0.5);
  EXPECT_DOUBLE_EQ(dashes.elements[1].length, -0.25);
  EXPECT_DOUBLE_EQ(dashes.patternLength(), 0.75);
  EXPECT_FALSE(dashes.isComplex());

  const LinetypeDefinition& dots = file.definitions[1];
  EXPECT_EQ(dots.description, "");
  ASSERT_EQ(dots.elements.size(), 4u);
  EXPECT_DOUBLE_EQ(dots.elements[0].length, 0.0);
  EXPECT_DOUBLE_EQ(dots.elements[2].length, 0.2);
  EXPECT_DOUBLE_EQ(dots.patternLength(), 0.4);
  // Names compare without regard to case; the first of two definitions wins.
  EXPECT_EQ(file.find("DOTS"), &dots);
  EXPECT_EQ(file.find("dashes"), &dashes);
  EXPECT_EQ(file.find("MISSING"), nullptr);
}

TEST(LinetypeFile, ReadsEmbeddedTextsAndShapes) {
  LinetypeFile file = parseLinetypeFile(
      "*GAS,Gas ---GAS---\n"
      "A,.5,-.2,[\"G, A\",Standard,S=.1,R=90,X=-0.1,Y=-.05],-.25\n"
      "*ARROWS,Arrows\n"
      "A,1,-.3,[ARROW,signs.shx,A=1.5r,s=2,x=.1],-.3,[ARROW,signs.shx,R=100g],-.1\n");
  ASSERT_TRUE(file.problems.empty()) << file.problems[0].message;
  const LinetypeDefinition* gas = file.find("GAS");
  ASSERT_NE(gas, nullptr);
  EXPECT_TRUE(gas->isComplex());
  ASSERT_EQ(gas->elements.size(), 3u);
  EXPECT_FALSE(gas->elements[0].embedded);
  ASSERT_TRUE(gas->elements[1].embedded);
  const LinetypeEmbedded& text = *gas->elements[1].embedded;
  EXPECT_TRUE(text.isText);
  EXPECT_EQ(text.text, "G, A");  // a comma inside quotes is part of the text
  EXPECT_EQ(text.styleOrFile, "Standard");
  EXPECT_DOUBLE_EQ(text.scale, 0.1);
  EXPECT_DOUBLE_EQ(text.rotation, std::numbers::pi / 2);
  EXPECT_FALSE(text.absoluteRotation);
  EXPECT_DOUBLE_EQ(text.offsetX, -0.1);
  EXPECT_DOUBLE_EQ(text.offsetY, -0.05);
  EXPECT_DOUBLE_EQ(gas->patternLength(), 0.95);

  const LinetypeDefinition* arrows = file.find("ARROWS");
  ASSERT_NE(arrows, nullptr);
  ASSERT_EQ(arrows->elements.size(), 4u);
  const LinetypeEmbedded& first = *arrows->elements[1].embedded;
  EXPECT_FALSE(first.isText);
  EXPECT_EQ(first.text, "ARROW");
  EXPECT_EQ(first.styleOrFile, "signs.shx");
  EXPECT_TRUE(first.absoluteRotation);
  EXPECT_DOUBLE_EQ(first.rotation, 1.5);
  EXPECT_DOUBLE_EQ(first.scale, 2.0);
  EXPECT_DOUBLE_EQ(first.offsetX, 0.1);
  EXPECT_DOUBLE_EQ(arrows->elements[2].embedded->rotation, std::numbers::pi / 2);
}

TEST(LinetypeFile, ReportsBrokenDefinitionsAndKeepsTheRest) {
  struct Case {
    const char* broken;
    const char* mentions;
    size_t line;  // the broken definition's header is line 4
  };
  const Case cases[] = {
      {"*NOPATTERN,header only\n", "no pattern line", 4},
      {"A,.5,-.5\n", "without a header", 4},
      {"*,nameless\nA,.5,-.5\n", "without a linetype name", 4},
      {"*BADNUMBER\nA,.5,-x\n", "expected a length", 5},
      {"*BADALIGN\nB,.5,-.5\n", "alignment A", 5},
      {"*GAPFIRST\nA,-.5,.5\n", "start with a dash", 5},
      {"*ONEDASH\nA,.5\n", "start with a dash", 5},
      {"*OPEN\nA,.5,-.2,[\"T\",Standard,S=.1,-.2\n", "unbalanced", 5},
      {"*LEADING\nA,[\"T\",Standard],.5,-.2\n", "must follow", 5},
      {"*KEY\nA,.5,-.2,[\"T\",Standard,Q=1],-.2\n", "unknown or malformed", 5},
      {"*NOSTYLE\nA,.5,-.2,[\"T\"],-.2\n", "needs a text or shape", 5},
  };
  for (const Case& each : cases) {
    std::string text =
        std::string(";; before\n*GOOD1\nA,1,-1\n") + each.broken + "*GOOD2\nA,2,-2\n";
    LinetypeFile file = parseLinetypeFile(text);
    SCOPED_TRACE(each.broken);
    ASSERT_EQ(file.problems.size(), 1u);
    EXPECT_NE(file.problems[0].message.find(each.mentions), std::string::npos)
        << file.problems[0].message;
    EXPECT_EQ(file.problems[0].line, each.line);
    ASSERT_EQ(file.definitions.size(), 2u);
    EXPECT_EQ(file.definitions[1].name, "GOOD2");
  }
  LinetypeFile spoiled = parseLinetypeFile("*SPOILED\nA,.5,-y\n");
  ASSERT_EQ(spoiled.problems.size(), 1u);
  EXPECT_EQ(spoiled.problems[0].linetype, "SPOILED");
}

TEST(LinetypeFile, InstalledFileHoldsTheFamiliesInProportion) {
  std::ifstream stream(KORVA_SUPPORT_SOURCE "/KORVA.lin", std::ios::binary);
  std::stringstream text;
  text << stream.rdbuf();
  LinetypeFile file = parseLinetypeFile(text.str());
  EXPECT_TRUE(file.problems.empty());
  for (const char* family : {"DASHED", "HIDDEN", "CENTER", "PHANTOM", "DOT", "DASHDOT"}) {
    std::string name = family;
    const LinetypeDefinition* base = file.find(name);
    const LinetypeDefinition* half = file.find(name + "2");
    const LinetypeDefinition* twice = file.find(name + "X2");
    ASSERT_TRUE(base && half && twice) << name;
    EXPECT_DOUBLE_EQ(half->patternLength() * 2, base->patternLength()) << name;
    EXPECT_DOUBLE_EQ(twice->patternLength(), base->patternLength() * 2) << name;
  }
  const LinetypeDefinition* water = file.find("WATER_LINE");
  ASSERT_NE(water, nullptr);
  EXPECT_TRUE(water->isComplex());
}

}  // namespace
}  // namespace korva::cmd
