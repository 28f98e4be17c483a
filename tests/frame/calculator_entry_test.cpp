// The calculator's LISP entry as the host reaches it: message 5 to the loaded module
// with function number 0 or 1, arguments of every type.
#include <filesystem>
#include <optional>

#include "lisp/interpreter.h"
#include "lisp/module_functions.h"
#include "rt/modules.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

using lisp::Value;

class CalculatorEntryTest : public ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    const std::filesystem::path module =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "VnExtend.qrx";
    std::string error;
    ASSERT_TRUE(rt::loadModule(module.string(), error)) << error;
  }

  // The value the call gave back; nullopt when it failed.
  static std::optional<Value> call(int functionNumber, std::vector<Value> arguments) {
    try {
      return lisp::callModuleFunctionNumber(L"VnExtend.qrx", functionNumber, arguments);
    } catch (const lisp::EvaluationError&) {
      return std::nullopt;
    }
  }
};

TEST_F(CalculatorEntryTest, NumbersPassThroughAndWholeResultsComeBackAsIntegers) {
  for (int number : {0, 1}) {
    std::optional<Value> sum = call(number, {Value::ofString(L"2+3")});
    ASSERT_TRUE(sum);
    EXPECT_EQ(sum->kind, Value::Kind::Integer);
    EXPECT_EQ(sum->integer, 5);
  }
  std::optional<Value> third = call(0, {Value::ofString(L"1/3")});
  ASSERT_TRUE(third);
  EXPECT_EQ(third->kind, Value::Kind::Real);
  EXPECT_DOUBLE_EQ(third->real, 1.0 / 3.0);

  std::optional<Value> seven = call(1, {Value::ofInteger(7)});
  ASSERT_TRUE(seven);
  EXPECT_EQ(seven->kind, Value::Kind::Integer);
  EXPECT_EQ(seven->integer, 7);
  std::optional<Value> real = call(1, {Value::ofReal(7.5)});
  ASSERT_TRUE(real);
  EXPECT_EQ(real->kind, Value::Kind::Real);
  EXPECT_EQ(real->real, 7.5);
  // Only the first argument counts; a list is nil.
  std::optional<Value> list =
      call(0, {Value::ofList({Value::ofInteger(1), Value::ofInteger(2)}), Value::ofInteger(3)});
  ASSERT_TRUE(list);
  EXPECT_TRUE(list->isNil());
}

TEST_F(CalculatorEntryTest, TheLispEntryLowersTheCaseAndKeepsTheTruncatedPi) {
  std::optional<Value> sine = call(0, {Value::ofString(L"  SIN(PI/2) ")});
  ASSERT_TRUE(sine);
  EXPECT_EQ(sine->kind, Value::Kind::Integer);  // within 1e-10 of 1
  EXPECT_EQ(sine->integer, 1);
  std::optional<Value> pi = call(0, {Value::ofString(L"pi*1")});
  ASSERT_TRUE(pi);
  EXPECT_EQ(pi->real, 3.14159265359);
  // Beyond 32 bits a whole number can't be an integer and goes out as a real.
  std::optional<Value> large = call(0, {Value::ofString(L"2^40")});
  ASSERT_TRUE(large);
  EXPECT_EQ(large->kind, Value::Kind::Real);
  EXPECT_EQ(large->real, 1099511627776.0);
}

TEST_F(CalculatorEntryTest, HelpComputesNothingAndAFaultReachesTheHost) {
  newOutput();
  std::optional<Value> help = call(0, {Value::ofString(L"?")});
  ASSERT_TRUE(help);
  EXPECT_NE(newOutput().find("CAL computes an expression"), std::string::npos);
  EXPECT_FALSE(call(0, {Value::ofString(L"1e5")}));
  EXPECT_FALSE(call(1, {Value::ofString(L"e2")}));
}

}  // namespace
}  // namespace korva::test
