// The platform layer: opening addresses, finding and starting programs. Stand-in
// programs (shell scripts) record what they were given.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "api/utf8.h"
#include "qx_settings.h"
#include "qx_ui_services.h"
#include "ui_fixture.h"

namespace korva::test {
namespace {

namespace fs = std::filesystem;

class PlatformTest : public UiServicesTest {
 protected:
  void TearDown() override {
    for (const char* name :
         {"KORVA_OPENER", "KORVA_APPLICATION_QUERY", "XDG_DATA_HOME", "XDG_DATA_DIRS"}) {
      ::unsetenv(name);
    }
    UiServicesTest::TearDown();
  }

  // A shell script that writes its arguments, one a line, to record.
  fs::path recorder(const std::string& name, const fs::path& record) {
    const fs::path path = writeFile(name, "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > '" +
                                              record.string() + ".part'\nmv '" + record.string() +
                                              ".part' '" + record.string() + "'\n");
    fs::permissions(path, fs::perms::owner_all);
    return path;
  }

  // The started program runs on its own; wait a while for what it writes.
  std::string waitFor(const fs::path& record) {
    for (int tries = 0; tries < 200 && !fs::exists(record); ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return readFile(record);
  }
};

TEST_F(PlatformTest, OpensAddressesWithTheOpener) {
  const fs::path record = scratch_ / "opened.txt";
  ::setenv("KORVA_OPENER", recorder("opener.sh", record).c_str(), 1);
  EXPECT_GT(qxplOpenAddress(L"https://example.org/a b"), 32);
  EXPECT_EQ(waitFor(record), "https://example.org/a b\n");

  fs::remove(record);
  const fs::path page = writeFile("page.html", "");
  EXPECT_GT(qxplOpenAddress(api::fromUtf8("file://" + page.string()).c_str()), 32);
  EXPECT_EQ(waitFor(record), "file://" + page.string() + "\n");
}

TEST_F(PlatformTest, MissingFilesAndOpenersHaveTheirNumbers) {
  ::setenv("KORVA_OPENER", recorder("opener.sh", scratch_ / "opened.txt").c_str(), 1);
  EXPECT_EQ(qxplOpenAddress(api::fromUtf8((scratch_ / "absent.html").string()).c_str()), 2);
  EXPECT_EQ(
      qxplOpenAddress(api::fromUtf8("file:" + (scratch_ / "no/absent.html").string()).c_str()), 3);
  EXPECT_EQ(qxplOpenAddress(L""), 2);
  ::setenv("KORVA_OPENER", (scratch_ / "no-such-opener").c_str(), 1);
  EXPECT_EQ(qxplOpenAddress(L"https://example.org"), 31);
  EXPECT_FALSE(fs::exists(scratch_ / "opened.txt"));
}

TEST_F(PlatformTest, StartsProgramsWithTheirArguments) {
  const fs::path record = scratch_ / "started.txt";
  const fs::path program = recorder("program with blank.sh", record);
  const std::wstring commandLine =
      L"\"" + api::fromUtf8(program.string()) + L"\" first \"second word\"";
  EXPECT_TRUE(qxplStartProgram(commandLine.c_str()));
  EXPECT_EQ(waitFor(record), "first\nsecond word\n");
  EXPECT_FALSE(qxplStartProgram(L"/no/such/program"));
  EXPECT_FALSE(qxplStartProgram(L""));
}

TEST_F(PlatformTest, TheConfiguredApplicationComesFirst) {
  // The desktop would answer too; the machine's setting wins.
  ::setenv("KORVA_APPLICATION_QUERY", "/no/such/query", 1);
  wchar_t path[256];
  EXPECT_FALSE(qxplFindApplication(QxApplicationKind::Spreadsheet, path, std::size(path)));
  QxSettings::Key key = QxSettings::Key::create(QxSettings::Hive::LocalMachine,
                                                L"Software\\Korva\\Korva\\R1\\Applications");
  ASSERT_TRUE(key.writeString(L"Spreadsheet", L"/opt/sheet/bin/sheet"));
  EXPECT_TRUE(qxplFindApplication(QxApplicationKind::Spreadsheet, path, std::size(path)));
  EXPECT_STREQ(path, L"/opt/sheet/bin/sheet");
  EXPECT_FALSE(qxplFindApplication(QxApplicationKind::WordProcessor, path, std::size(path)));
  EXPECT_FALSE(qxplFindApplication(QxApplicationKind::Spreadsheet, path, 5));  // doesn't fit
}

TEST_F(PlatformTest, TheDesktopDefaultIsTheExecLineOfItsEntry) {
  // The query answers as xdg-mime does: the name of a desktop file.
  const fs::path query = writeFile("query.sh",
                                   "#!/bin/sh\ncase \"$3\" in\n"
                                   "  *spreadsheet) echo sheet.desktop ;;\n"
                                   "  *text) echo words.desktop ;;\n"
                                   "esac\n");
  fs::permissions(query, fs::perms::owner_all);
  ::setenv("KORVA_APPLICATION_QUERY", query.c_str(), 1);
  ::setenv("XDG_DATA_HOME", (scratch_ / "home").c_str(), 1);
  const std::string dataFolders =
      (scratch_ / "empty").string() + ":" + (scratch_ / "system").string();
  ::setenv("XDG_DATA_DIRS", dataFolders.c_str(), 1);
  writeFile("home/applications/sheet.desktop",
            "[Desktop Action New]\nExec=wrong --new\n"
            "[Desktop Entry]\nName=Sheet\nExec=/opt/sheet/bin/sheet --calc %U\n");
  writeFile("system/applications/words.desktop",
            "[Desktop Entry]\nExec=\"/opt/words/bin/words\" --writer %f 100%%\n");
  wchar_t path[256];
  EXPECT_TRUE(qxplFindApplication(QxApplicationKind::Spreadsheet, path, std::size(path)));
  EXPECT_STREQ(path, L"/opt/sheet/bin/sheet --calc");
  EXPECT_TRUE(qxplFindApplication(QxApplicationKind::WordProcessor, path, std::size(path)));
  EXPECT_STREQ(path, L"\"/opt/words/bin/words\" --writer  100%");
  // A desktop file that isn't there gives nothing.
  fs::remove(scratch_ / "system/applications/words.desktop");
  EXPECT_FALSE(qxplFindApplication(QxApplicationKind::WordProcessor, path, std::size(path)));
}

}  // namespace
}  // namespace korva::test
