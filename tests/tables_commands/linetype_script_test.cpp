// -LINETYPE driven by scripts: loading from the support path and from absolute paths,
// reloading, complex linetypes, the current linetype.
#include <string>
#include <vector>

#include "db/database.h"
#include "input/support_path.h"
#include "qx_memory.h"
#include "qx_types.h"
#include "qx_variables.h"
#include "tables_fixture.h"

namespace korva::test {
namespace {

using Values = std::vector<std::string>;

std::wstring currentLinetype() {
  ResultBuffer value{};
  qxedGetVar(L"CELTYPE", &value);
  std::wstring name = value.value.rstring;
  qxad_free(value.value.rstring);
  return name;
}

class LinetypeScriptTest : public TableCommandTest {};

TEST_F(LinetypeScriptTest, LoadsFromTheInstalledFileAsModulesScriptIt) {
  std::string said = run("_.-linetype\n_L\nDASHED2\nKORVA.lin\n\n");
  EXPECT_NE(said.find("Linetype \"DASHED2\" loaded."), std::string::npos) << said;
  db::Record* record = tableRecord("LTYPE", "DASHED2");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(values(*record, 72), Values{"65"});
  EXPECT_EQ(values(*record, 73), Values{"2"});
  EXPECT_EQ(values(*record, 40), Values{"0.4"});
  EXPECT_EQ(values(*record, 49), (Values{"0.3", "-0.1"}));
  EXPECT_EQ(values(*record, 74), (Values{"0", "0"}));
  EXPECT_EQ(values(*record, 100), (Values{"AcDbSymbolTableRecord", "AcDbLinetypeTableRecord"}));
  // The pattern follows the name and flags.
  std::vector<int> codes;
  for (const db::Group& group : record->groups()) codes.push_back(group.code);
  std::vector<int> tail(codes.end() - 10, codes.end());
  EXPECT_EQ(tail, (std::vector<int>{2, 70, 3, 72, 73, 40, 49, 74, 49, 74}));
}

TEST_F(LinetypeScriptTest, LoadsByWildcardsAndAsksBeforeReloading) {
  run("-LINETYPE\nLoad\nHIDDEN*,dot\n\n\n");
  for (const char* name : {"HIDDEN", "HIDDEN2", "HIDDENX2", "DOT"}) {
    EXPECT_NE(tableRecord("LTYPE", name), nullptr) << name;
  }
  EXPECT_EQ(tableRecord("LTYPE", "DOT2"), nullptr);

  std::string path = writeFile("mine.lin", "*DOT,Mine\nA,0,-0.5\n");
  std::string said = run("-LINETYPE\nLoad\nDOT\n" + path + "\nN\n\n");
  EXPECT_NE(said.find("Linetype \"DOT\" is already loaded. Reload it?"), std::string::npos) << said;
  EXPECT_EQ(values(*tableRecord("LTYPE", "DOT"), 49), (Values{"0.0", "-0.2"}));

  said = run("-LINETYPE\nLoad\nDOT\n" + path + "\n\n\n");  // Enter answers Yes
  EXPECT_NE(said.find("Linetype \"DOT\" reloaded."), std::string::npos) << said;
  db::Record* dot = tableRecord("LTYPE", "DOT");
  EXPECT_EQ(values(*dot, 49), (Values{"0.0", "-0.5"}));
  EXPECT_EQ(values(*dot, 3), Values{"Mine"});
  EXPECT_EQ(values(*dot, 40), Values{"0.5"});
}

TEST_F(LinetypeScriptTest, LoadsTextLinetypesFromAnAbsolutePath) {
  std::string path = writeFile("sub/site.lin",
                               ";; site lines\n"
                               "*GAS,Gas\n"
                               "A,.5,-.2,[\"GAS\",STANDARD,S=.1,A=90,X=-0.1,Y=-.05],-.25\n"
                               "*SIGN,Sign\n"
                               "A,.5,-.2,[\"S\",NOSUCHSTYLE],-.25\n"
                               "*SHAPED,Shaped\n"
                               "A,.5,-.2,[BOX,shapes.shx],-.25\n"
                               "*BROKEN,Broken\n"
                               "A,.5,-.2,[\"B\",STANDARD,W=1],-.25\n");
  std::string said = run("-LINETYPE\nLoad\n*\n" + path + "\n\n");
  db::Record* gas = tableRecord("LTYPE", "GAS");
  ASSERT_NE(gas, nullptr);
  db::Record* standard = tableRecord("STYLE", "Standard");
  ASSERT_NE(standard, nullptr);
  EXPECT_EQ(values(*gas, 73), Values{"3"});
  EXPECT_EQ(values(*gas, 74), (Values{"0", "3", "0"}));  // text, absolute rotation
  EXPECT_EQ(values(*gas, 75), Values{"0"});
  EXPECT_EQ(values(*gas, 340), Values{db::formatHandle(standard->handle())});
  EXPECT_EQ(values(*gas, 9), Values{"GAS"});
  EXPECT_EQ(values(*gas, 46), Values{"0.1"});
  EXPECT_EQ(values(*gas, 44), Values{"-0.1"});
  EXPECT_EQ(values(*gas, 45), Values{"-0.05"});
  ASSERT_EQ(values(*gas, 50).size(), 1u);
  EXPECT_NEAR(std::stod(values(*gas, 50)[0]), 1.5707963267948966, 1e-12);

  EXPECT_EQ(tableRecord("LTYPE", "SIGN"), nullptr);
  EXPECT_NE(said.find("needs the text style \"NOSUCHSTYLE\""), std::string::npos) << said;
  EXPECT_EQ(tableRecord("LTYPE", "SHAPED"), nullptr);
  EXPECT_NE(said.find("uses the shape \"BOX\""), std::string::npos) << said;
  EXPECT_NE(said.find("Bad definition of linetype \"BROKEN\" at line 9"), std::string::npos)
      << said;
}

TEST_F(LinetypeScriptTest, FindsFilesOnTheSupportPathAndSaysWhenItCannot) {
  writeFile("extra/shop.lin", "*SHOP,Shop\nA,1,-1\n");
  input::addSupportFolder((scratch_ / "extra").string());
  run("-LINETYPE\nL\nshop\nshop\n\n");  // ".lin" is added
  EXPECT_NE(tableRecord("LTYPE", "SHOP"), nullptr);

  std::string said = run("-LINETYPE\nL\nX\nnowhere.lin\nL\nNOPE\nshop\n\n");
  EXPECT_NE(said.find("Can't find the linetype file \"nowhere.lin\"."), std::string::npos) << said;
  EXPECT_NE(said.find("No linetype matching \"NOPE\""), std::string::npos) << said;
}

TEST_F(LinetypeScriptTest, SetsTheCurrentLinetypeAndLists) {
  std::string said = run("-LINETYPE\nSet\nCENTER\n\n");
  EXPECT_NE(said.find("Linetype \"CENTER\" is not loaded."), std::string::npos) << said;
  EXPECT_EQ(currentLinetype(), L"ByLayer");

  run("-LINETYPE\nL\nCENTER\n\nS\ncenter\n\n");
  EXPECT_EQ(currentLinetype(), L"CENTER");

  said = run("-LINETYPE\n?\nC*\n\n\n");
  EXPECT_NE(said.find("CENTER"), std::string::npos) << said;
  EXPECT_NE(said.find("Continuous"), std::string::npos) << said;
  EXPECT_EQ(said.find("ByBlock"), std::string::npos) << said;

  said = run("-LINETYPE\n?\nPHANTOM*\nKORVA\n\n");
  EXPECT_NE(said.find("PHANTOMX2"), std::string::npos) << said;
  EXPECT_EQ(tableRecord("LTYPE", "PHANTOM"), nullptr);  // listing doesn't load
}

}  // namespace
}  // namespace korva::test
