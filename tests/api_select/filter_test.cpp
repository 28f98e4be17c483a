// Filters over "X": every operator, nesting, relational tests, wildcards, case rules,
// defaults of absent groups, extended data, and malformed lists.
#include <functional>
#include <map>
#include <sstream>

#include "qx_memory.h"
#include "qx_selection.h"
#include "selection_fixture.h"

namespace korva::testing {
namespace {

struct FilterCase {
  const char* name;
  std::function<ResultBuffer*()> filter;
  const char*
      expected;  // labels joined by commas; "" means nothing found; "error" a malformed list
};

void PrintTo(const FilterCase& c, std::ostream* out) {
  *out << c.name;
}

class FilterTest : public SelectionTest, public ::testing::WithParamInterface<FilterCase> {
 protected:
  void SetUp() override {
    SelectionTest::SetUp();
    labels_["line"] = add(
        "LINE", "8 Walls|62 1|10 0.0|20 0.0|30 0.0|11 10.0|21 0.0|31 0.0|1001 KORVA_APP|1000 x");
    labels_["circle"] =
        add("CIRCLE", "8 walls|10 5.0|20 5.0|30 0.0|40 2.0|1001 OTHER|1001 KORVA_APP");
    labels_["arc"] = add("ARC", "8 Doors|62 3|10 -5.0|20 -5.0|30 0.0|40 4.0|50 0.0|51 90.0");
    labels_["text"] = add("TEXT", "8 Notes|10 20.0|20 20.0|30 0.0|40 2.5|1 Hello");
    labels_["pline"] = add(
        "LWPOLYLINE", "8 Walls|62 5|90 3|70 129|10 30.0|20 30.0|10 40.0|20 30.0|10 40.0|20 40.0");
    labels_["paper"] = add("LINE", "67 1|8 WALLS|10 0.0|20 0.0|30 0.0|11 1.0|21 1.0|31 0.0");
  }

  std::string labelsOf(const std::set<db::Handle>& found) {
    std::string out;
    for (const auto& [label, record] : labels_) {
      if (!found.count(record->handle())) continue;
      if (!out.empty()) out += ",";
      out += label;
    }
    return out;
  }

  std::string sorted(std::string list) {
    std::set<std::string> parts;
    std::stringstream in(list);
    for (std::string part; std::getline(in, part, ',');) parts.insert(part);
    std::string out;
    for (const std::string& part : parts) out += (out.empty() ? "" : ",") + part;
    return out;
  }

  std::map<std::string, db::Record*> labels_;
};

TEST_P(FilterTest, SelectsExactlyTheMatchingEntities) {
  const FilterCase& c = GetParam();
  ResultBuffer* filter = c.filter();
  ASSERT_NE(filter, nullptr);
  int status = 0;
  std::set<db::Handle> found = select(L"X", nullptr, nullptr, filter, &status);
  qxutRelRb(filter);
  std::string expected = c.expected;
  if (expected == "error" || expected.empty()) {
    EXPECT_EQ(status, RTERROR);
    EXPECT_TRUE(found.empty());
    return;
  }
  EXPECT_EQ(status, RTNORM);
  EXPECT_EQ(labelsOf(found), sorted(expected));
}

// qxutBuildList ends at a 0 type, so a group 0 node is made by hand.
ResultBuffer* typeByGroupZero(const wchar_t* type) {
  ResultBuffer* node = qxutNewRb(0);
  node->value.rstring = qxutNewString(type);
  return node;
}

const double kFour[3] = {4, 4, 0};
const double kOrigin[3] = {0, 0, 0};
const double kCircleCenter[3] = {5, 5, 0};

INSTANTIATE_TEST_SUITE_P(
    TypesAndNames, FilterTest,
    ::testing::Values(
        FilterCase{"TypeByValueType", [] { return qxutBuildList(RTDXF0, L"LINE", RTNONE); },
                   "line,paper"},
        FilterCase{"TypeByGroupZeroIgnoresCase", [] { return typeByGroupZero(L"line"); },
                   "line,paper"},
        FilterCase{"TypeWildcardAlternatives",
                   [] { return qxutBuildList(RTDXF0, L"L*,C*", RTNONE); },
                   "line,paper,circle,pline"},
        FilterCase{"LayerIgnoresCase", [] { return qxutBuildList(8, L"WALLS", RTNONE); },
                   "line,circle,pline,paper"},
        FilterCase{"LayerWildcard", [] { return qxutBuildList(8, L"w?lls", RTNONE); },
                   "line,circle,pline,paper"},
        FilterCase{"TextContentKeepsCase", [] { return qxutBuildList(1, L"hello", RTNONE); }, ""},
        FilterCase{"TextContentWildcard", [] { return qxutBuildList(1, L"H*o", RTNONE); }, "text"},
        FilterCase{"AbsentColourIsByLayer", [] { return qxutBuildList(62, 256, RTNONE); },
                   "circle,text,paper"},
        FilterCase{"AbsentSpaceFlagIsModel",
                   [] { return qxutBuildList(RTDXF0, L"LINE", 67, 0, RTNONE); }, "line"},
        FilterCase{"PaperSpaceFlag", [] { return qxutBuildList(67, 1, RTNONE); }, "paper"},
        FilterCase{"ApplicationData", [] { return qxutBuildList(-3, 1001, L"korva_app", RTNONE); },
                   "line,circle"},
        FilterCase{"EveryApplicationMustBePresent",
                   [] { return qxutBuildList(-3, 1001, L"KORVA_APP", 1001, L"OTHER", RTNONE); },
                   "circle"},
        FilterCase{"ApplicationWildcard", [] { return qxutBuildList(-3, 1001, L"OTH*", RTNONE); },
                   "circle"}));

INSTANTIATE_TEST_SUITE_P(
    Brackets, FilterTest,
    ::testing::Values(
        FilterCase{"Or",
                   [] {
                     return qxutBuildList(-4, L"<OR", RTDXF0, L"ARC", RTDXF0, L"TEXT", -4, L"OR>",
                                          RTNONE);
                   },
                   "arc,text"},
        FilterCase{"LowerCaseOr",
                   [] {
                     return qxutBuildList(-4, L"<or", RTDXF0, L"ARC", RTDXF0, L"TEXT", -4, L"or>",
                                          RTNONE);
                   },
                   "arc,text"},
        FilterCase{"Not",
                   [] { return qxutBuildList(-4, L"<NOT", RTDXF0, L"LINE", -4, L"NOT>", RTNONE); },
                   "circle,arc,text,pline"},
        FilterCase{
            "Xor",
            [] { return qxutBuildList(-4, L"<XOR", 8, L"Walls", 62, 1, -4, L"XOR>", RTNONE); },
            "circle,pline,paper"},
        FilterCase{"NestedAndOrNot",
                   [] {
                     return qxutBuildList(-4, L"<OR", -4, L"<AND", RTDXF0, L"CIRCLE", -4, L">", 40,
                                          1.0, -4, L"AND>", -4, L"<AND", RTDXF0, L"ARC", -4,
                                          L"<NOT", 62, 3, -4, L"NOT>", -4, L"AND>", -4, L"OR>",
                                          RTNONE);
                   },
                   "circle"},
        FilterCase{"NotOfAbsentGroup",
                   [] {
                     return qxutBuildList(RTDXF0, L"*LINE", -4, L"<NOT", 1, L"", -4, L"NOT>",
                                          RTNONE);
                   },
                   "line,pline,paper"}));

INSTANTIATE_TEST_SUITE_P(
    Relational, FilterTest,
    ::testing::Values(
        FilterCase{"RealGreaterEqualKeepsBoundary",
                   [] { return qxutBuildList(-4, L">=", 40, 2.5, RTNONE); }, "arc,text"},
        FilterCase{"RealGreater", [] { return qxutBuildList(-4, L">", 40, 2.5, RTNONE); }, "arc"},
        FilterCase{"IntLess", [] { return qxutBuildList(-4, L"<", 62, 3, RTNONE); }, "line"},
        FilterCase{"IntLessEqual", [] { return qxutBuildList(-4, L"<=", 62, 3, RTNONE); },
                   "line,arc"},
        FilterCase{"NotEqualSpellings",
                   [] {
                     return qxutBuildList(-4, L"!=", 62, 256, -4, L"/=", 62, 5, -4, L"<>", 62, 3,
                                          RTNONE);
                   },
                   "line"},
        FilterCase{"AnyBit", [] { return qxutBuildList(-4, L"&", 70, 1, RTNONE); }, "pline"},
        FilterCase{"AllBits", [] { return qxutBuildList(-4, L"&=", 70, 129, RTNONE); }, "pline"},
        FilterCase{"AllBitsMissingOne", [] { return qxutBuildList(-4, L"&=", 70, 3, RTNONE); }, ""},
        FilterCase{"AnyValue", [] { return qxutBuildList(-4, L"*", 62, 0, RTNONE); },
                   "line,circle,arc,text,pline,paper"},
        FilterCase{"PointPerCoordinate",
                   [] { return qxutBuildList(-4, L">,>,*", 10, kFour, RTNONE); },
                   "circle,text,pline"},
        FilterCase{"PointBelow", [] { return qxutBuildList(-4, L"<,<,*", 10, kOrigin, RTNONE); },
                   "arc"},
        FilterCase{"PointEqual", [] { return qxutBuildList(10, kCircleCenter, RTNONE); },
                   "circle"}));

INSTANTIATE_TEST_SUITE_P(
    Malformed, FilterTest,
    ::testing::Values(
        FilterCase{"UnclosedOr", [] { return qxutBuildList(-4, L"<OR", RTDXF0, L"ARC", RTNONE); },
                   "error"},
        FilterCase{"CloserAlone", [] { return qxutBuildList(RTDXF0, L"ARC", -4, L"OR>", RTNONE); },
                   "error"},
        FilterCase{"MismatchedCloser",
                   [] { return qxutBuildList(-4, L"<AND", RTDXF0, L"ARC", -4, L"OR>", RTNONE); },
                   "error"},
        FilterCase{
            "NotOfTwo",
            [] { return qxutBuildList(-4, L"<NOT", RTDXF0, L"ARC", 8, L"0", -4, L"NOT>", RTNONE); },
            "error"},
        FilterCase{"XorOfOne",
                   [] { return qxutBuildList(-4, L"<XOR", RTDXF0, L"ARC", -4, L"XOR>", RTNONE); },
                   "error"},
        FilterCase{"EmptyAnd", [] { return qxutBuildList(-4, L"<AND", -4, L"AND>", RTNONE); },
                   "error"},
        FilterCase{"RelationWithoutTest", [] { return qxutBuildList(-4, L">", RTNONE); }, "error"},
        FilterCase{"OrderOnText", [] { return qxutBuildList(-4, L"<", 8, L"A", RTNONE); }, "error"},
        FilterCase{"UnknownOperator", [] { return qxutBuildList(-4, L"<NAND", RTNONE); },
                   "error"}));

}  // namespace
}  // namespace korva::testing
