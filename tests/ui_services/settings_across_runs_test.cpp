// Settings written by one run of korva are read by the next; a broken settings file
// gives one warning and the defaults.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "ui_fixture.h"

namespace korva::test {
namespace {

namespace fs = std::filesystem;

class SettingsAcrossRunsTest : public UiServicesTest {
 protected:
  struct Run {
    int status = 0;
    std::string output;
    std::string errors;
  };

  // korva on a new drawing with one command line and the scratch profile folder.
  Run runKorva(const std::string& commandLine) {
    const fs::path errors = scratch_ / "errors.txt";
    const std::string command = std::string("'") + KORVA_PROGRAM + "' -c '" + commandLine +
                                "' --profile-dir '" + (scratch_ / "run-profile").string() +
                                "' 2> '" + errors.string() + "' < /dev/null";
    Run run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return run;
    char chunk[256];
    for (size_t count; (count = std::fread(chunk, 1, sizeof chunk, pipe)) > 0;) {
      run.output.append(chunk, count);
    }
    run.status = ::pclose(pipe);
    run.errors = readFile(errors);
    return run;
  }
};

TEST_F(SettingsAcrossRunsTest, TheNextRunReadsWhatThisOneWrote) {
  Run first = runKorva(R"((setenv "strLatitude" "60.17") (setenv "strAlti" "2"))");
  ASSERT_EQ(first.status, 0) << first.errors;
  Run second = runKorva(R"((list (getenv "STRLATITUDE") (getenv "strAlti") (getenv "strX")))");
  ASSERT_EQ(second.status, 0) << second.errors;
  EXPECT_NE(second.output.find(R"(("60.17" "2" nil))"), std::string::npos) << second.output;
  EXPECT_EQ(second.errors, "");
}

TEST_F(SettingsAcrossRunsTest, ABrokenFileGivesOneWarningAndTheRest) {
  writeFile("run-profile/environment.txt",
            "strX = string \"10\"\n"
            "strY = strin \"20\"\n"
            "strApl = string \"128\"\n");
  Run run = runKorva(R"((list (getenv "strX") (getenv "strY") (getenv "strApl")))");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_NE(run.output.find(R"(("10" nil "128"))"), std::string::npos) << run.output;
  EXPECT_EQ(run.errors, "korva: warning: " + (scratch_ / "run-profile/environment.txt").string() +
                            " line 2: expected 'number' or 'string' after '='; 1 line left out, "
                            "the rest is used\n");

  // Writing rewrites the file without the broken line: the run after is quiet.
  ASSERT_EQ(runKorva(R"((setenv "strY" "21"))").status, 0);
  Run after = runKorva(R"((getenv "strY"))");
  EXPECT_EQ(after.errors, "");
  EXPECT_NE(after.output.find("\"21\""), std::string::npos) << after.output;
}

}  // namespace
}  // namespace korva::test
