#include <gtest/gtest.h>

#include "api/wildcard.h"
#include "qx_types.h"
#include "qx_util.h"

namespace {

struct WildcardCase {
  const wchar_t* text;
  const wchar_t* pattern;
  bool matches;
};

void PrintTo(const WildcardCase& c, std::ostream* out) {
  *out << testing::PrintToString(c.text) << " ~ " << testing::PrintToString(c.pattern);
}

class WildcardTest : public testing::TestWithParam<WildcardCase> {};

TEST_P(WildcardTest, Matches) {
  const WildcardCase& c = GetParam();
  EXPECT_EQ(korva::api::wildcardMatch(c.text, c.pattern), c.matches);
  EXPECT_EQ(qxutWcMatch(c.text, c.pattern), c.matches ? RTNORM : RTERROR);
}

INSTANTIATE_TEST_SUITE_P(
    Basics, WildcardTest,
    testing::Values(WildcardCase{L"", L"", true}, WildcardCase{L"A", L"", false},
                    WildcardCase{L"", L"*", true}, WildcardCase{L"LAYER1", L"LAYER1", true},
                    WildcardCase{L"layer1", L"LAYER1", false},  // case matters
                    WildcardCase{L"LAYER1", L"LAYER", false}, WildcardCase{L"LAYER1", L"L*", true},
                    WildcardCase{L"LAYER1", L"*1", true}, WildcardCase{L"LAYER1", L"*Y*", true},
                    WildcardCase{L"ABCBCD", L"*BC*CD", true},  // needs backtracking
                    WildcardCase{L"ABCBCE", L"*BC*CD", false}, WildcardCase{L"AB", L"A?", true},
                    WildcardCase{L"A", L"A?", false}, WildcardCase{L"A", L"A*", true}));

INSTANTIATE_TEST_SUITE_P(
    CharacterClasses, WildcardTest,
    testing::Values(WildcardCase{L"A7", L"@#", true}, WildcardCase{L"77", L"@#", false},
                    WildcardCase{L"A-", L"@.", true}, WildcardCase{L"AB", L"@.", false},
                    WildcardCase{L"A ", L"@.", true}, WildcardCase{L"B", L"[ABC]", true},
                    WildcardCase{L"D", L"[ABC]", false}, WildcardCase{L"q", L"[a-z]", true},
                    WildcardCase{L"Q", L"[a-z]", false}, WildcardCase{L"D", L"[~ABC]", true},
                    WildcardCase{L"B", L"[~ABC]", false}, WildcardCase{L"5", L"[0-36-9]", false},
                    WildcardCase{L"7", L"[0-36-9]", true}, WildcardCase{L"]", L"[]A]", true},
                    WildcardCase{L"-", L"[A-]", true}, WildcardCase{L"~", L"[~]", true},
                    WildcardCase{L"x", L"[~]", false},
                    WildcardCase{L"[", L"[", true}));  // an unclosed bracket is literal

INSTANTIATE_TEST_SUITE_P(
    AlternativesEscapesNegation, WildcardTest,
    testing::Values(WildcardCase{L"ARC", L"LINE,ARC", true},
                    WildcardCase{L"CIRCLE", L"LINE,ARC", false},
                    WildcardCase{L"", L"A,", true},  // an empty alternative matches ""
                    WildcardCase{L"A,B", L"A`,B", true}, WildcardCase{L"A", L"A`,B", false},
                    WildcardCase{L"*", L"`*", true}, WildcardCase{L"X", L"`*", false},
                    WildcardCase{L"a#", L"a`#", true}, WildcardCase{L"a1", L"a`#", false},
                    WildcardCase{L"B,", L"[A,B],", false},  // comma inside brackets is a member
                    WildcardCase{L",", L"[A,B]", true}, WildcardCase{L"ABC", L"~A*", false},
                    WildcardCase{L"XBC", L"~A*", true}, WildcardCase{L"~A", L"`~A", true},
                    WildcardCase{L"A~", L"A~", true},      // '~' only negates at the start
                    WildcardCase{L"A1", L"~A*,*1", true},  // negation is per alternative
                    WildcardCase{L"A2", L"~A*,*1", false},
                    WildcardCase{L"0", L"~*[~0-9]*", true},  // "only digits"
                    WildcardCase{L"0a", L"~*[~0-9]*", false}));

TEST(WcMatch, NullArgumentsFail) {
  EXPECT_EQ(qxutWcMatch(nullptr, L"*"), RTERROR);
  EXPECT_EQ(qxutWcMatch(L"A", nullptr), RTERROR);
}

}  // namespace
