// LISP on korva's command line: system variables, commands, printing, and values given
// at prompts.
#include "cmd/processor.h"
#include "qx_input.h"
#include "qx_print.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

void pointCommand() {
  double point[3] = {};
  if (qxedGetPoint(nullptr, L"\nPoint: ", point) == RTNORM) {
    qxutPrintf(L"got %g,%g,%g\n", point[0], point[1], point[2]);
  }
}

void textCommand() {
  wchar_t text[64] = {};
  double real = 0;
  if (qxedGetString(0, L"\nText: ", text, 64) == RTNORM &&
      qxedGetReal(L"\nReal: ", &real) == RTNORM) {
    qxutPrintf(L"got %s and %.10f\n", text, real);
  }
}

class LispHostTest : public ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    static const bool registered = [] {
      cmd::Processor::instance().addHostCommand(L"LISPPOINT", pointCommand);
      cmd::Processor::instance().addHostCommand(L"LISPTEXT", textCommand);
      return true;
    }();
    (void)registered;
  }
};

TEST_F(LispHostTest, ValuesShowAtTheCommandPromptAndPrintingFunctionsPrint) {
  runScript(
      "(princ \"hi\")\n(prin1 \"hi\")\n(princ)\n(print 5)\n(terpri)\n(setq lst '(1 \"a\"))\n"
      "(princ lst)\n");
  EXPECT_EQ(transcript(),
            "Command: (princ \"hi\")\nhi\"hi\"\n"
            "Command: (prin1 \"hi\")\n\"hi\"\"hi\"\n"
            "Command: (princ)\n"
            "Command: (print 5)\n5 5\n"
            "Command: (terpri)\nnil\n"
            "Command: (setq lst '(1 \"a\"))\n(1 \"a\")\n"
            "Command: (princ lst)\n(1 a)(1 \"a\")\n");
}

TEST_F(LispHostTest, ErrorsAreReportedAndTheScriptGoesOn) {
  runScript("(car 5)\n(+ 1\n2)\n(setq after 1)\n");
  EXPECT_EQ(transcript(),
            "Command: (car 5)\n; error: bad argument type: consp 5\n"
            "Command: (+ 1\n2)\n3\n"
            "Command: (setq after 1)\n1\n");
}

TEST_F(LispHostTest, SystemVariablesAreReadAndSet) {
  runScript(
      "(getvar \"orthomode\")\n(setvar \"ORTHOMODE\" 1)\n(getvar \"LTSCALE\")\n"
      "(setvar \"LTSCALE\" 2)\n(getvar \"CLAYER\")\n(setvar \"INSBASE\" '(1 2 3))\n"
      "(getvar \"NOSUCHVAR\")\n(setvar \"ORTHOMODE\" 7)\n(setvar \"ORTHOMODE\" '(1))\n");
  EXPECT_EQ(transcript(),
            "Command: (getvar \"orthomode\")\n0\n"
            "Command: (setvar \"ORTHOMODE\" 1)\n1\n"
            "Command: (getvar \"LTSCALE\")\n1.0\n"
            "Command: (setvar \"LTSCALE\" 2)\n2.0\n"
            "Command: (getvar \"CLAYER\")\n\"0\"\n"
            "Command: (setvar \"INSBASE\" '(1 2 3))\n(1.0 2.0 3.0)\n"
            "Command: (getvar \"NOSUCHVAR\")\nnil\n"
            "Command: (setvar \"ORTHOMODE\" 7)\n"
            "; error: variable setting rejected: \"ORTHOMODE\" 7\n"
            "Command: (setvar \"ORTHOMODE\" '(1))\n; error: bad argument type: (1)\n");
}

TEST_F(LispHostTest, CommandPassesPointsNumbersAndTextAsTokens) {
  runScript("(command \"LISPPOINT\" '(1 2))\n(command \"LISPTEXT\" \"word\" (/ 1.0 3))\n");
  const std::string text = transcript();
  EXPECT_NE(text.find("got 1,2,0\n"), std::string::npos) << text;
  EXPECT_NE(text.find("got word and 0.3333333333\n"), std::string::npos) << text;
  runScript("(command \"LISPPOINT\" '((1)))\n");
  EXPECT_NE(newOutput().find("; error: bad argument type: ((1))\n"), std::string::npos);
}

TEST_F(LispHostTest, AtOtherPromptsTheValueIsTheAnswer) {
  runScript("LISPPOINT\n(list 3 4 5)\nLISPTEXT\n(strcat \"a\" \"b\")\n(+ 0.5 2)\n");
  const std::string text = transcript();
  EXPECT_NE(text.find("got 3,4,5\n"), std::string::npos) << text;
  EXPECT_NE(text.find("got ab and 2.5000000000\n"), std::string::npos) << text;
}

TEST_F(LispHostTest, CommandFunctionsAreCommands) {
  runScript(
      "(defun c:greet () (princ \"hello\") (terpri) (princ))\nGREET\n(defun c:value () 7)\n"
      "VALUE\n");
  const std::string text = transcript();
  EXPECT_NE(text.find("Command: GREET\nhello\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Command: VALUE\n7\n"), std::string::npos) << text;
  // A name that is a command already stays that command.
  runScript("(defun c:lisppoint () 1)\nLISPPOINT\n(list 1 1)\n");
  EXPECT_NE(newOutput().find("got 1,1,0\n"), std::string::npos);
}

}  // namespace
}  // namespace korva::test
