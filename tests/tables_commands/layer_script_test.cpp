// -LAYER driven by scripts, as module commands script it.
#include <string>

#include "cmd/tables/layer_records.h"
#include "qx_types.h"
#include "qx_variables.h"
#include "tables_fixture.h"

namespace korva::test {
namespace {

using cmd::findLayer;
using cmd::LayerState;

LayerState layer(const wchar_t* name) {
  std::optional<LayerState> found = findLayer(name);
  EXPECT_TRUE(found.has_value()) << "no layer " << std::string(name, name + wcslen(name));
  return found.value_or(LayerState{});
}

void setExpert(int value) {
  ResultBuffer node{};
  node.type = RTSHORT;
  node.value.rint = static_cast<std::int16_t>(value);
  qxedSetVar(L"EXPERT", &node);
}

class LayerScriptTest : public TableCommandTest {
 protected:
  void SetUp() override {
    TableCommandTest::SetUp();
    setExpert(0);
    run("-LAYER\nNew\nWalls,Doors,Text\n\n");
  }
};

TEST_F(LayerScriptTest, MakesSetsAndCreatesLayers) {
  EXPECT_EQ(layer(L"Walls").color, 7);
  EXPECT_EQ(layer(L"Doors").linetype, L"Continuous");
  EXPECT_EQ(cmd::currentLayerName(), L"0");

  std::string said = run("-LAYER\nMake\nHatch\nSet\nwalls\nNew\nDoors,Bad*Name\n\n");
  EXPECT_TRUE(findLayer(L"Hatch").has_value());
  EXPECT_EQ(cmd::currentLayerName(), L"Walls");  // the layer's own spelling
  EXPECT_NE(said.find("Layer \"Doors\" exists already."), std::string::npos) << said;
  EXPECT_NE(said.find("Invalid layer name \"Bad*Name\"."), std::string::npos) << said;

  said = run("-LAYER\nSet\nNowhere\n\n");
  EXPECT_NE(said.find("Cannot find layer \"Nowhere\"."), std::string::npos) << said;
  EXPECT_EQ(cmd::currentLayerName(), L"Walls");
  // Enter at the Make prompt keeps the current layer.
  run("-LAYER\nMake\n\n\n");
  EXPECT_EQ(cmd::currentLayerName(), L"Walls");
}

TEST_F(LayerScriptTest, TurnsOffTheCurrentLayerOnlyWhenTheUserAgrees) {
  std::string said = run("-LAYER\nOFF\n*\n\n\n");  // Enter answers No
  EXPECT_NE(said.find("Really turn off the current layer \"0\"?"), std::string::npos) << said;
  EXPECT_FALSE(layer(L"0").off);
  EXPECT_TRUE(layer(L"Walls").off);
  EXPECT_TRUE(layer(L"Text").off);

  // The sequence layer tools script: "_OFF" "*" "_Y".
  run("_.-LAYER\n_OFF\n*\n_Y\n\n");
  EXPECT_TRUE(layer(L"0").off);
  EXPECT_EQ(layer(L"0").color, 7);  // off is a negative colour; the colour stays

  run("-LAYER\n_ON\nW*,text\n\n");
  EXPECT_FALSE(layer(L"Walls").off);
  EXPECT_FALSE(layer(L"Text").off);
  EXPECT_TRUE(layer(L"Doors").off);

  // An expert isn't asked.
  run("-LAYER\nON\n*\n\n");
  setExpert(1);
  said = run("-LAYER\nOFF\n0\n\n");
  EXPECT_EQ(said.find("Really"), std::string::npos) << said;
  EXPECT_TRUE(layer(L"0").off);
}

TEST_F(LayerScriptTest, FreezesThawsLocksAndUnlocks) {
  std::string said = run("-LAYER\nFreeze\n*\n\n");
  EXPECT_NE(said.find("The current layer \"0\" can't be frozen."), std::string::npos) << said;
  EXPECT_FALSE(layer(L"0").frozen);
  EXPECT_TRUE(layer(L"Doors").frozen);
  said = run("-LAYER\nSet\nDoors\n\n");
  EXPECT_NE(said.find("is frozen and can't be made current"), std::string::npos) << said;
  EXPECT_EQ(cmd::currentLayerName(), L"0");

  // The sequence that makes a layer current whatever its state.
  run("_.-LAYER\n_T\nDoors\n_M\nDoors\n_S\nDoors\n\n");
  EXPECT_FALSE(layer(L"Doors").frozen);
  EXPECT_TRUE(layer(L"Walls").frozen);
  EXPECT_EQ(cmd::currentLayerName(), L"Doors");

  run("_.-LAYER\n_LO\n*\n\n-LAYER\nU\nd*\n\n");
  EXPECT_TRUE(layer(L"0").locked);
  EXPECT_TRUE(layer(L"Walls").locked);
  EXPECT_FALSE(layer(L"Doors").locked);
  EXPECT_TRUE(layer(L"Walls").frozen);  // locking doesn't touch the other flags

  said = run("-LAYER\nLOck\nNoSuch*\n\n");
  EXPECT_NE(said.find("No layer matches \"NoSuch*\"."), std::string::npos) << said;
}

TEST_F(LayerScriptTest, ColoursLayersByNumberNameAndTrueColour) {
  run("-LAYER\nColor\nred\nWalls,Doors\nC\n42\n\n\n");
  EXPECT_EQ(layer(L"Walls").color, 1);
  EXPECT_EQ(layer(L"Doors").color, 1);
  EXPECT_EQ(layer(L"0").color, 42);  // Enter names the current layer

  run("-LAYER\nOFF\nText\nColor\nTruecolor\n255,128,0\nText\n\n");
  LayerState text = layer(L"Text");
  ASSERT_TRUE(text.trueColor.has_value());
  EXPECT_EQ(*text.trueColor, 0xFF8000u);
  EXPECT_TRUE(text.off);  // a new colour keeps the layer off

  // An index colour drops the true colour again.
  run("-LAYER\nC\n3\nText\n\n");
  EXPECT_FALSE(layer(L"Text").trueColor.has_value());
  EXPECT_EQ(layer(L"Text").color, 3);

  std::string said = run("-LAYER\nC\n256\nC\nT\n300,0,0\n\n");
  EXPECT_NE(said.find("Invalid color \"256\"."), std::string::npos) << said;
  EXPECT_NE(said.find("Invalid true color \"300,0,0\"."), std::string::npos) << said;
}

TEST_F(LayerScriptTest, GivesLoadedLinetypesOnly) {
  std::string said = run("-LAYER\nLtype\nDASHED\nWalls\n\n");
  EXPECT_NE(said.find("Linetype \"DASHED\" is not loaded"), std::string::npos) << said;
  EXPECT_EQ(layer(L"Walls").linetype, L"Continuous");

  run("-LINETYPE\nLoad\nDASHED\n\n\n");
  run("-LAYER\nL\ndashed\nWalls,Text\n\n");
  EXPECT_EQ(layer(L"Walls").linetype, L"DASHED");
  EXPECT_EQ(layer(L"Text").linetype, L"DASHED");
  EXPECT_EQ(layer(L"Doors").linetype, L"Continuous");
}

TEST_F(LayerScriptTest, ListsLayersWithTheirState) {
  run("-LAYER\nFreeze\nDoors\nLOck\nText\nC\n5\nText\n\n");
  std::string said = run("-LAYER\n?\nD*,Text\n\n");
  EXPECT_NE(said.find("Doors      On  Frozen Unlocked     7 (white)"), std::string::npos) << said;
  EXPECT_NE(said.find("Text       On  Thawed Locked       5 (blue)"), std::string::npos) << said;
  EXPECT_EQ(said.find("Walls"), std::string::npos) << said;
  EXPECT_NE(said.find("Current layer: \"0\""), std::string::npos) << said;
}

}  // namespace
}  // namespace korva::test
