#include <gtest/gtest.h>

#include "input/keywords.h"

namespace korva::input {
namespace {

// The global form matched, "?" for ambiguous text, "" for no match.
std::wstring matched(std::wstring_view list, std::wstring_view text) {
  std::wstring global;
  switch (KeywordList(list).match(text, global)) {
    case KeywordList::Match::Found:
      return global;
    case KeywordList::Match::Ambiguous:
      return L"?";
    case KeywordList::Match::None:
      return L"";
  }
  return L"";
}

TEST(Keywords, CapitalsAreTheShortestForm) {
  const std::wstring_view list = L"LType Color Undo";
  EXPECT_EQ(matched(list, L"lt"), L"LType");
  EXPECT_EQ(matched(list, L"LTY"), L"LType");
  EXPECT_EQ(matched(list, L"ltype"), L"LType");
  EXPECT_EQ(matched(list, L"l"), L"");  // shorter than the capitals
  EXPECT_EQ(matched(list, L"ltypes"), L"");
  EXPECT_EQ(matched(list, L"c"), L"Color");
  EXPECT_EQ(matched(list, L"u"), L"Undo");
}

TEST(Keywords, CapitalsInsideTheWordOrNoneAtAll) {
  EXPECT_EQ(matched(L"eXit", L"x"), L"eXit");
  EXPECT_EQ(matched(L"eXit", L"exit"), L"eXit");
  EXPECT_EQ(matched(L"eXit", L"ex"), L"");
  // All capitals or none: the whole word only.
  EXPECT_EQ(matched(L"ALL none", L"AL"), L"");
  EXPECT_EQ(matched(L"ALL none", L"all"), L"ALL");
  EXPECT_EQ(matched(L"ALL none", L"non"), L"");
  EXPECT_EQ(matched(L"ALL none", L"NONE"), L"none");
  // The short form named after a comma.
  EXPECT_EQ(matched(L"LTYPE,LT", L"lt"), L"LTYPE");
  EXPECT_EQ(matched(L"LTYPE,LT", L"lty"), L"LTYPE");
  EXPECT_EQ(matched(L"LTYPE,LT", L"l"), L"");
}

TEST(Keywords, LocalFormsGiveTheirGlobalForms) {
  const std::wstring_view list = L"Ja Nein _ Yes No";
  EXPECT_EQ(matched(list, L"j"), L"Yes");
  EXPECT_EQ(matched(list, L"nein"), L"No");
  // "_" asks for the global forms; local ones don't match then.
  EXPECT_EQ(matched(list, L"_yes"), L"Yes");
  EXPECT_EQ(matched(list, L"_N"), L"No");
  EXPECT_EQ(matched(list, L"_Ja"), L"");
  EXPECT_EQ(matched(list, L"y"), L"");
  // Without global forms "_" input matches the local ones.
  EXPECT_EQ(matched(L"Yes No", L"_y"), L"Yes");
}

TEST(Keywords, AmbiguousAbbreviations) {
  EXPECT_EQ(matched(L"LAyer LInetype", L"l"), L"");
  EXPECT_EQ(matched(L"Layer Linetype", L"l"), L"?");
  EXPECT_EQ(matched(L"Layer Linetype", L"li"), L"Linetype");
  // A whole keyword wins over another that it abbreviates.
  EXPECT_EQ(matched(L"Width WIDthfactor", L"width"), L"Width");
  EXPECT_EQ(matched(L"Yes No", L""), L"");
  EXPECT_EQ(matched(L"", L"Yes"), L"");
}

}  // namespace
}  // namespace korva::input
