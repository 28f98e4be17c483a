// The settings stores: keys and values, the environment store, the application
// profile; what one run writes the next run reads; broken files.
#include <gtest/gtest.h>

#include <filesystem>

#include "qx_settings.h"
#include "qx_types.h"
#include "ui/settings_stores.h"
#include "ui_fixture.h"

namespace korva::test {
namespace {

namespace fs = std::filesystem;
using QxSettings::Hive;
using QxSettings::Key;

constexpr const wchar_t* kLayWalk =
    L"Software\\Korva\\Korva\\R1\\Profiles\\<<Unnamed Profile>>\\UserInterfaceSettings\\LayWalk";

class SettingsStoreTest : public UiServicesTest {
 protected:
  // What the next run of korva sees: the stores read again from their files.
  void nextRun() { ui::setSettingsFolder(scratch_ / "profile"); }
  fs::path userFile() const { return scratch_ / "profile" / "settings" / "user.txt"; }

  std::wstring readString(const Key& key, const wchar_t* name) {
    wchar_t buffer[64];
    return key.readString(name, buffer, std::size(buffer)) ? buffer : L"(none)";
  }
  std::vector<std::wstring> valueNames(const Key& key) {
    std::vector<std::wstring> names;
    wchar_t buffer[64];
    for (std::size_t index = 0; key.valueName(index, buffer, std::size(buffer)); ++index) {
      names.push_back(buffer);
    }
    return names;
  }
};

TEST_F(SettingsStoreTest, ValuesWrittenInOneRunAreReadInTheNext) {
  {
    Key key = Key::create(Hive::CurrentUser, kLayWalk);
    ASSERT_TRUE(key.isOpen());
    EXPECT_TRUE(key.writeNumber(L"RestoreOnExit", 1));
    EXPECT_TRUE(key.writeNumber(L"Largest", 4294967295u));
    EXPECT_TRUE(key.writeString(L"Filter", L"A*, \"B\"\\C\nD"));
    EXPECT_TRUE(key.writeString(L"Filter1", L""));
  }
  nextRun();
  Key key = Key::open(Hive::CurrentUser, kLayWalk, false);
  ASSERT_TRUE(key.isOpen());
  std::uint32_t number = 0;
  EXPECT_TRUE(key.readNumber(L"restoreonexit", number));
  EXPECT_EQ(number, 1u);
  EXPECT_TRUE(key.readNumber(L"Largest", number));
  EXPECT_EQ(number, 4294967295u);
  EXPECT_EQ(readString(key, L"FILTER"), L"A*, \"B\"\\C\nD");
  EXPECT_EQ(readString(key, L"Filter1"), L"");
  EXPECT_EQ(valueNames(key),
            (std::vector<std::wstring>{L"RestoreOnExit", L"Largest", L"Filter", L"Filter1"}));
  // The parents were made with the key; the machine's file was never asked for.
  EXPECT_TRUE(Key::open(Hive::CurrentUser, L"Software\\Korva", false).isOpen());
  EXPECT_FALSE(fs::exists(scratch_ / "profile" / "settings" / "machine.txt"));
  EXPECT_FALSE(Key::open(Hive::LocalMachine, kLayWalk, false).isOpen());
}

TEST_F(SettingsStoreTest, ReadingWhatIsNotThereFailsQuietly) {
  EXPECT_FALSE(Key::open(Hive::CurrentUser, L"Software\\Nothing", false).isOpen());
  Key key = Key::create(Hive::CurrentUser, L"Software\\Korva\\Test");
  ASSERT_TRUE(key.writeNumber(L"Count", 3));
  std::uint32_t number = 99;
  EXPECT_FALSE(key.readNumber(L"Missing", number));
  wchar_t buffer[8] = L"kept";
  EXPECT_FALSE(key.readString(L"Count", buffer, std::size(buffer)));  // a number, not text
  EXPECT_STREQ(buffer, L"kept");
  EXPECT_EQ(number, 99u);
  ASSERT_TRUE(key.writeString(L"Long", L"longer than eight"));
  EXPECT_FALSE(key.readString(L"Long", buffer, std::size(buffer)));
  EXPECT_FALSE(key.deleteValue(L"Missing"));

  Key closed;
  EXPECT_FALSE(closed.readNumber(L"Count", number));
  EXPECT_FALSE(closed.writeNumber(L"Count", 1));
  // A key opened for reading refuses writes.
  Key readOnly = Key::open(Hive::CurrentUser, L"Software\\Korva\\Test", false);
  EXPECT_FALSE(readOnly.writeNumber(L"Count", 4));
  EXPECT_TRUE(readOnly.readNumber(L"Count", number));
  EXPECT_EQ(number, 3u);
}

TEST_F(SettingsStoreTest, ValuesKeepTheirPlaceWhenRewrittenAndDeleted) {
  Key key = Key::create(Hive::CurrentUser, L"\\Software\\Korva\\Order\\");
  key.writeNumber(L"First", 1);
  key.writeNumber(L"Second", 2);
  key.writeNumber(L"Third", 3);
  key.writeString(L"first", L"now text");  // same name, other case: replaced in place
  EXPECT_TRUE(key.deleteValue(L"Second"));
  nextRun();
  Key again = Key::open(Hive::CurrentUser, L"Software\\Korva\\Order", true);
  EXPECT_EQ(valueNames(again), (std::vector<std::wstring>{L"First", L"Third"}));
  EXPECT_EQ(readString(again, L"First"), L"now text");
}

TEST_F(SettingsStoreTest, DeletingAKeyTakesItsSubkeys) {
  Key::create(Hive::CurrentUser, L"Software\\Korva\\Tools\\A").writeNumber(L"x", 1);
  Key::create(Hive::CurrentUser, L"Software\\Korva\\Tools\\B");
  Key::create(Hive::CurrentUser, L"Software\\Korva\\ToolsOther");
  Key open = Key::open(Hive::CurrentUser, L"Software\\Korva\\Tools\\A", true);
  EXPECT_TRUE(QxSettings::deleteKey(Hive::CurrentUser, L"Software\\Korva\\Tools"));
  EXPECT_FALSE(QxSettings::deleteKey(Hive::CurrentUser, L"Software\\Korva\\Tools"));
  nextRun();
  EXPECT_FALSE(Key::open(Hive::CurrentUser, L"Software\\Korva\\Tools\\B", false).isOpen());
  EXPECT_TRUE(Key::open(Hive::CurrentUser, L"Software\\Korva\\ToolsOther", false).isOpen());
  // A key deleted while open takes no more values.
  EXPECT_FALSE(open.writeNumber(L"x", 2));
}

TEST_F(SettingsStoreTest, MachineKeysAreWrittenOnlyWhenAsked) {
  Key key = Key::create(Hive::LocalMachine, L"Software\\Korva\\Korva\\R1\\Applications");
  ASSERT_TRUE(key.writeString(L"Spreadsheet", L"/opt/sheet/bin/sheet --calc"));
  EXPECT_EQ(readFile(scratch_ / "profile" / "settings" / "machine.txt"),
            "# korva settings: machine-wide keys. Rewritten by korva at each change.\n"
            "\n[Software]\n"
            "\n[Software\\Korva]\n"
            "\n[Software\\Korva\\Korva]\n"
            "\n[Software\\Korva\\Korva\\R1]\n"
            "\n[Software\\Korva\\Korva\\R1\\Applications]\n"
            "Spreadsheet = string \"/opt/sheet/bin/sheet --calc\"\n");
  EXPECT_FALSE(fs::exists(userFile()));
}

TEST_F(SettingsStoreTest, BrokenLinesAreLeftOutWithOneWarning) {
  writeFile("profile/settings/user.txt",
            "# edited by hand\n"
            "[Software\\Korva\\Good]\n"
            "Kept = number 5\n"
            "Bad = number five\n"
            "Huge = number 4294967296\n"
            "Text = string \"unclosed\n"
            "Dup = number 1\n"
            "dup = number 2\n"
            "[Software\\Korva\\Broken\n"
            "Lost = number 7\n"
            "[Software\\Korva\\Later]\n"
            "\"Quoted = name\" = string \"a\\tb\"\n");
  ::testing::internal::CaptureStderr();
  Key good = Key::open(Hive::CurrentUser, L"Software\\Korva\\Good", true);
  const std::string warning = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(warning, "korva: warning: " + userFile().string() +
                         " line 4: 'five' is not a 32-bit number; 6 lines left out, the rest "
                         "is used\n");
  ASSERT_TRUE(good.isOpen());
  EXPECT_EQ(valueNames(good), (std::vector<std::wstring>{L"Kept", L"Dup"}));
  EXPECT_FALSE(Key::open(Hive::CurrentUser, L"Software\\Korva\\Broken", false).isOpen());
  Key later = Key::open(Hive::CurrentUser, L"Software\\Korva\\Later", false);
  EXPECT_EQ(readString(later, L"Quoted = name"), L"a\tb");

  // The next change rewrites the file without the broken lines; the next run reads it
  // without a warning.
  ASSERT_TRUE(good.writeNumber(L"Added", 6));
  nextRun();
  ::testing::internal::CaptureStderr();
  EXPECT_TRUE(Key::open(Hive::CurrentUser, L"Software\\Korva\\Later", false).isOpen());
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(
      readString(Key::open(Hive::CurrentUser, L"Software\\Korva\\Later", false), L"Quoted = name"),
      L"a\tb");
}

TEST_F(SettingsStoreTest, SavingLeavesNoTemporaryFiles) {
  Key key = Key::create(Hive::CurrentUser, L"Software\\Korva\\Files");
  for (std::uint32_t value = 0; value < 3; ++value) key.writeNumber(L"Value", value);
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(userFile().parent_path())) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(names, std::vector<std::string>{"user.txt"});
}

TEST_F(SettingsStoreTest, AFileThatCantBeWrittenIsReported) {
  // The profile folder is a file: nothing can be saved beneath it.
  writeFile("blocked", "");
  ui::setSettingsFolder(scratch_ / "blocked");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(qxedSetEnv(L"Name", L"value"), RTERROR);
  EXPECT_FALSE(Key::create(Hive::CurrentUser, L"Software\\X").isOpen());
  const std::string errors = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(errors.find("korva: warning: can't write"), std::string::npos) << errors;
}

TEST_F(SettingsStoreTest, EnvironmentStoreKeepsNamedStrings) {
  EXPECT_EQ(qxedSetEnv(L"strLongitude", L"24.94"), RTNORM);
  EXPECT_EQ(qxedSetEnv(L"strApl", L"255"), RTNORM);
  EXPECT_EQ(qxedSetEnv(L"STRAPL", L"128"), RTNORM);
  nextRun();
  wchar_t buffer[8] = L"kept";
  EXPECT_EQ(qxedGetEnv(L"strapl", buffer, std::size(buffer)), RTNORM);
  EXPECT_STREQ(buffer, L"128");
  EXPECT_EQ(qxedGetEnv(L"strLatitude", buffer, std::size(buffer)), RTERROR);
  EXPECT_STREQ(buffer, L"128");
  EXPECT_EQ(qxedGetEnv(L"strLongitude", buffer, 5), RTERROR);  // "24.94" needs six
  EXPECT_EQ(qxedGetEnv(L"strLongitude", buffer, 6), RTNORM);
  EXPECT_EQ(readFile(scratch_ / "profile" / "environment.txt"),
            "# korva settings: environment store. Rewritten by korva at each change.\n"
            "strLongitude = string \"24.94\"\n"
            "strApl = string \"128\"\n");
  EXPECT_EQ(qxedSetEnv(nullptr, L"x"), RTERROR);
  EXPECT_EQ(qxedSetEnv(L"", L"x"), RTERROR);
}

TEST_F(SettingsStoreTest, ApplicationProfileKeepsIntegers) {
  EXPECT_EQ(qxuiGetProfileInt(L"LayWalk", L"Width", 300), 300);
  EXPECT_TRUE(qxuiWriteProfileInt(L"LayWalk", L"Width", 420));
  EXPECT_TRUE(qxuiWriteProfileInt(L"LayWalk", L"Offset", -12));
  EXPECT_TRUE(qxuiWriteProfileInt(L"Compare", L"Width", 7));
  nextRun();
  EXPECT_EQ(qxuiGetProfileInt(L"laywalk", L"WIDTH", 0), 420);
  EXPECT_EQ(qxuiGetProfileInt(L"LayWalk", L"Offset", 0), -12);
  EXPECT_EQ(qxuiGetProfileInt(L"Compare", L"Width", 0), 7);
  EXPECT_EQ(qxuiGetProfileInt(L"Compare", L"Height", -1), -1);
  EXPECT_FALSE(qxuiWriteProfileInt(L"", L"Width", 1));
}

}  // namespace
}  // namespace korva::test
