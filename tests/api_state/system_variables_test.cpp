#include <cmath>
#include <cwchar>
#include <string>

#include "api/system_variables.h"
#include "document_fixture.h"
#include "qx_memory.h"
#include "qx_units.h"
#include "qx_variables.h"

namespace {

ResultBuffer shortNode(int value) {
  ResultBuffer node{};
  node.type = RTSHORT;
  node.value.rint = static_cast<int16_t>(value);
  return node;
}

ResultBuffer stringNode(const wchar_t* text) {
  ResultBuffer node{};
  node.type = RTSTR;
  node.value.rstring = const_cast<wchar_t*>(text);
  return node;
}

class SystemVariables : public CurrentDrawing {};

TEST_F(SystemVariables, DrawingVariablesLiveInTheHeader) {
  ResultBuffer node{};
  ASSERT_EQ(qxedGetVar(L"luprec", &node), RTNORM);  // names are case-insensitive
  EXPECT_EQ(node.type, RTSHORT);
  EXPECT_EQ(node.value.rint, 4);

  ResultBuffer two = shortNode(2);
  ASSERT_EQ(qxedSetVar(L"LUPREC", &two), RTNORM);
  EXPECT_EQ(database().headerValue("$LUPREC", 70), "2");

  // A variable missing from the header is added to it when set.
  ResultBuffer one = shortNode(1);
  ASSERT_EQ(qxedSetVar(L"DIMTOFL", &one), RTNORM);
  EXPECT_EQ(database().headerValue("$DIMTOFL", 70), "1");
}

TEST_F(SystemVariables, RefusesWhatAUserCannotSet) {
  ResultBuffer nine = shortNode(9);
  EXPECT_EQ(qxedSetVar(L"LUPREC", &nine), RTERROR);  // range 0..8
  ResultBuffer zero = shortNode(0);
  EXPECT_EQ(qxedSetVar(L"LUNITS", &zero), RTERROR);  // range 1..5
  ResultBuffer name = stringNode(L"other.dxf");
  EXPECT_EQ(qxedSetVar(L"DWGNAME", &name), RTERROR);  // read-only
  ResultBuffer missingLayer = stringNode(L"NO-SUCH-LAYER");
  EXPECT_EQ(qxedSetVar(L"CLAYER", &missingLayer), RTERROR);
  ResultBuffer wrongType = stringNode(L"3");
  EXPECT_EQ(qxedSetVar(L"LUPREC", &wrongType), RTERROR);
  EXPECT_EQ(qxedSetVar(L"NOTAVARIABLE", &zero), RTERROR);
  ResultBuffer node{};
  EXPECT_EQ(qxedGetVar(L"NOTAVARIABLE", &node), RTERROR);
  EXPECT_EQ(database().headerValue("$LUPREC", 70), "4");
}

TEST_F(SystemVariables, RealsTakeIntegersAndPointsTakeTheirSize) {
  ResultBuffer three = shortNode(3);
  ASSERT_EQ(qxedSetVar(L"FILLETRAD", &three), RTNORM);
  ResultBuffer node{};
  ASSERT_EQ(qxedGetVar(L"FILLETRAD", &node), RTNORM);
  EXPECT_EQ(node.type, RTREAL);
  EXPECT_DOUBLE_EQ(node.value.rreal, 3.0);

  ResultBuffer base{};
  base.type = RTPOINT;
  base.value.rpoint[0] = 5;
  base.value.rpoint[1] = 6;
  ASSERT_EQ(qxedSetVar(L"INSBASE", &base), RTNORM);
  ASSERT_EQ(qxedGetVar(L"INSBASE", &node), RTNORM);
  EXPECT_EQ(node.type, RT3DPOINT);
  EXPECT_DOUBLE_EQ(node.value.rpoint[1], 6.0);
  EXPECT_DOUBLE_EQ(node.value.rpoint[2], 0.0);
}

TEST_F(SystemVariables, StringsAreAllocatedForTheCaller) {
  ResultBuffer node{};
  ASSERT_EQ(qxedGetVar(L"CLAYER", &node), RTNORM);
  ASSERT_EQ(node.type, RTSTR);
  EXPECT_STREQ(node.value.rstring, L"0");
  qxad_free(node.value.rstring);

  ASSERT_EQ(qxedGetVar(L"DWGNAME", &node), RTNORM);
  EXPECT_STREQ(node.value.rstring, L"site.dxf");
  qxad_free(node.value.rstring);
  ASSERT_EQ(qxedGetVar(L"DWGPREFIX", &node), RTNORM);
  EXPECT_STREQ(node.value.rstring, L"/work/plans/");
  qxad_free(node.value.rstring);
}

TEST_F(SystemVariables, ViewportVariablesComeFromTheActiveViewport) {
  ResultBuffer node{};
  ASSERT_EQ(qxedGetVar(L"VIEWSIZE", &node), RTNORM);
  EXPECT_DOUBLE_EQ(node.value.rreal, 297.0);
  ASSERT_EQ(qxedGetVar(L"VIEWCTR", &node), RTNORM);
  EXPECT_DOUBLE_EQ(node.value.rpoint[0], 210.0);
  EXPECT_DOUBLE_EQ(node.value.rpoint[1], 148.5);
  ResultBuffer on = shortNode(1);
  ASSERT_EQ(qxedSetVar(L"SNAPMODE", &on), RTNORM);
  EXPECT_EQ(database().tableEntry("VPORT", "*Active")->find(75), "1");
  EXPECT_EQ(qxedSetVar(L"VIEWSIZE", &on), RTERROR);  // read-only
}

TEST_F(SystemVariables, SessionAndProfileVariablesOutliveTheDrawing) {
  ResultBuffer seven = shortNode(7);
  ASSERT_EQ(qxedSetVar(L"ERRNO", &seven), RTNORM);
  ResultBuffer off = shortNode(0);
  ASSERT_EQ(qxedSetVar(L"FILEDIA", &off), RTNORM);
  korva::api::DocumentList::instance().add(korva::dxf::createNewDrawing(), "/tmp/other.dxf");
  ResultBuffer node{};
  ASSERT_EQ(qxedGetVar(L"ERRNO", &node), RTNORM);
  EXPECT_EQ(node.value.rint, 7);
  ASSERT_EQ(qxedGetVar(L"FILEDIA", &node), RTNORM);
  EXPECT_EQ(node.value.rint, 0);
  korva::api::DocumentList::instance().close(korva::api::DocumentList::instance().current());
  ResultBuffer back = shortNode(0);
  qxedSetVar(L"ERRNO", &back);
  ResultBuffer on = shortNode(1);
  qxedSetVar(L"FILEDIA", &on);
}

TEST_F(SystemVariables, UnitFormattingFollowsTheDrawing) {
  wchar_t text[64];
  // A new drawing suppresses trailing zeros (DIMZIN 8).
  ASSERT_EQ(qxdbRToS(2.5, -1, -1, text), RTNORM);
  EXPECT_STREQ(text, L"2.5");
  ResultBuffer zero = shortNode(0);
  ASSERT_EQ(qxedSetVar(L"DIMZIN", &zero), RTNORM);
  ASSERT_EQ(qxdbRToS(2.5, -1, -1, text), RTNORM);
  EXPECT_STREQ(text, L"2.5000");
  ResultBuffer one = shortNode(1);
  ASSERT_EQ(qxedSetVar(L"LUPREC", &one), RTNORM);
  ASSERT_EQ(qxdbRToS(2.25, -1, -1, text), RTNORM);
  EXPECT_STREQ(text, L"2.3");
}

TEST(SystemVariableTable, EveryEntryIsConsistent) {
  const auto& table = korva::api::variableTable();
  for (size_t i = 0; i < table.size(); ++i) {
    const auto& entry = table[i];
    SCOPED_TRACE(std::string(entry.name));
    if (i > 0) {
      EXPECT_LT(table[i - 1].name, entry.name);  // sorted, no duplicates
    }
    bool inDrawing = entry.store == korva::api::VariableStore::Header ||
                     entry.store == korva::api::VariableStore::ActiveViewport;
    if (inDrawing) {
      EXPECT_GT(entry.code, 0);
    }
    // The default must itself be a legal value.
    if (entry.type != korva::api::VariableType::String && entry.minimum <= entry.maximum &&
        !entry.fallback.empty()) {
      double value = std::stod(std::string(entry.fallback));
      EXPECT_GE(value, entry.minimum);
      EXPECT_LE(value, entry.maximum);
    }
  }
  for (const char* name : {"CMDECHO", "BLIPMODE", "EXPERT", "PICKFIRST", "CLAYER", "UNDOCTL",
                           "TILEMODE", "CVPORT", "LASTPOINT", "OBJECTISOLATIONMODE", "DIMBLK2",
                           "LAYLOCKFADECTL", "TEMPPREFIX", "CDATE", "CPROFILE", "REGENMODE"}) {
    EXPECT_NE(korva::api::findVariable(name), nullptr) << name;
  }
}

}  // namespace
