// LISP functions a module defines: calls reach it as message 5, with its function number
// and arguments, and whatever it sets with qxedRet* is the call's value.
#include "lisp/interpreter.h"
#include "lisp/printer.h"
#include "qx_lisp.h"
#include "rt/modules.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

class ModuleFunctionTest : public ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    std::string error;
    ASSERT_TRUE(rt::loadModule("test_recorder", error)) << error;
    newOutput();
  }
  // The printed value, or "error: MESSAGE".
  static std::wstring evaluate(std::wstring_view text) {
    lisp::Outcome outcome = lisp::Interpreter::instance().run(text);
    return outcome.value ? lisp::printed(*outcome.value) : L"error: " + outcome.error;
  }
};

TEST_F(ModuleFunctionTest, EachWayOfGivingBackAValue) {
  EXPECT_EQ(evaluate(L"(rec-int)"), L"42");
  EXPECT_EQ(evaluate(L"(rec-real)"), L"2.5");
  EXPECT_EQ(evaluate(L"(rec-str)"), L"\"text \\\"quoted\\\"\"");
  EXPECT_EQ(evaluate(L"(rec-point)"), L"(1.5 2.5 3.5)");
  EXPECT_EQ(evaluate(L"(rec-nil)"), L"nil");
  EXPECT_EQ(evaluate(L"(rec-t)"), L"T");
  EXPECT_EQ(evaluate(L"(rec-none)"), L"nil");
  EXPECT_EQ(evaluate(L"(REC-VAL 7)"), L"7");
  EXPECT_EQ(evaluate(L"(rec-val '(1 \"a\" (2.5)))"), L"(1 \"a\" (2.5))");
  EXPECT_EQ(evaluate(L"(rec-val)"), L"nil");
  lisp::Outcome nothing = lisp::Interpreter::instance().run(L"(rec-void)");
  ASSERT_TRUE(nothing.value);
  EXPECT_EQ(nothing.value->kind, lisp::Value::Kind::Void);
  EXPECT_TRUE(nothing.value->isNil());
}

TEST_F(ModuleFunctionTest, ArgumentsOfEveryTypeTravelThereAndBack) {
  // 5003 short, 5010 long, 5001 real, 5005 string, 5002 and 5009 points, 5016/5017 a list,
  // 5019 nil, 5021 T.
  EXPECT_EQ(evaluate(L"(rec-types 1 100000 2.5 \"s\" '(1 2) '(1 2 3) '(a (1)) nil T)"), L"nil");
  EXPECT_EQ(newOutput(),
            "[recorder 5]\n"
            "5003 5010 5001 5005 5002 5009 5016 5005 5016 5003 5017 5017 5019 5021 \n");
  EXPECT_EQ(evaluate(L"(rec-echo 1 100000 2.5 \"s\\n\" '(1 2) '(1 2 3) '(\"a\" (1 \"b\")) T)"),
            L"(1 100000 2.5 \"s\\n\" (1.0 2.0) (1.0 2.0 3.0) (\"a\" (1 \"b\")) T)");
  EXPECT_EQ(evaluate(L"(rec-echo)"), L"nil");
}

TEST_F(ModuleFunctionTest, EntityNamesAndSelectionSetsComeBackAsGiven) {
  lisp::Interpreter& interpreter = lisp::Interpreter::instance();
  const std::int64_t entity[2] = {0x2A, 1};
  const std::int64_t set[2] = {3, 0};
  interpreter.setVariable(L"E", lisp::Value::ofEntity(entity));
  interpreter.setVariable(L"S", lisp::Value::ofSelectionSet(set));
  EXPECT_EQ(evaluate(L"(rec-name e)"), L"<Entity name: 7ff10000002a>");
  EXPECT_EQ(evaluate(L"(rec-name s)"), L"<Selection set: 3>");
  EXPECT_EQ(evaluate(L"(= (rec-name e) e)"), L"T");
}

TEST_F(ModuleFunctionTest, FailingCallsEndTheEvaluationWithTheirReason) {
  EXPECT_EQ(evaluate(L"(progn (rec-fail) (setq never 1))"),
            L"error: the recorder was asked to fail");
  EXPECT_EQ(evaluate(L"never"), L"nil");
  EXPECT_EQ(evaluate(L"(rec-throw)"), L"error: REC-THROW failed: thrown by the recorder");
  ASSERT_EQ(rt::recordedCrashes().size(), 1u);
  EXPECT_EQ(rt::recordedCrashes()[0], L"thrown by the recorder");
  // The module is still usable afterwards.
  EXPECT_EQ(evaluate(L"(rec-int)"), L"42");
}

TEST_F(ModuleFunctionTest, OnlyModulesDefineFunctionsAndValuesShowAtTheCommandPrompt) {
  EXPECT_EQ(qxedDefunEx(L"rec-stray", L"rec-stray", 99), RTERROR);  // the test isn't a module
  runScript("(rec-int)\n");
  EXPECT_EQ(newOutput(), "Command: (rec-int)\n[recorder 5]\n42\n");
  EXPECT_EQ(qxedGetFunCode(), RTERROR);  // no call under way
  EXPECT_EQ(qxedGetArgs(), nullptr);
}

TEST_F(ModuleFunctionTest, FunctionsGoAwayWithTheirModule) {
  EXPECT_EQ(evaluate(L"(rec-int)"), L"42");
  std::string error;
  ASSERT_TRUE(rt::unloadModule("test_recorder", error));
  EXPECT_EQ(evaluate(L"(rec-int)"), L"error: no function definition: REC-INT");
}

TEST_F(ModuleFunctionTest, UndefiningNeedsTheFunctionsNumber) {
  EXPECT_EQ(qxedUndef(L"rec-int", 5), RTERROR);
  EXPECT_EQ(qxedUndef(L"no-such-function", 1), RTERROR);
  EXPECT_EQ(qxedUndef(L"REC-INT", 1), RTNORM);
  EXPECT_EQ(evaluate(L"(rec-int)"), L"error: no function definition: REC-INT");
  EXPECT_EQ(evaluate(L"(rec-real)"), L"2.5");
}

TEST_F(ModuleFunctionTest, ACommandFunctionRunsAtTheCommandPrompt) {
  runScript("RECLISP\n(c:reclisp)\n");
  EXPECT_EQ(newOutput(),
            "Command: RECLISP\n[recorder 5]\n[recorder] lisp command\n"
            "Command: (c:reclisp)\n[recorder 5]\n[recorder] lisp command\n");
  std::string error;
  ASSERT_TRUE(rt::unloadModule("test_recorder", error));
  runScript("RECLISP\n");
  EXPECT_NE(newOutput().find("Unknown command"), std::string::npos);
}

TEST_F(ModuleFunctionTest, AFailureOutsideACallIsPrintedAtOnce) {
  EXPECT_EQ(qxdbFail(L"on its own"), RTNORM);
  EXPECT_EQ(newOutput(), "; error: on its own\n");
  EXPECT_EQ(qxedRetInt(5), RTNORM);  // a command's value goes nowhere
}

}  // namespace
}  // namespace korva::test
