// The comparison options: defaults, the per-value rules of loading from the profile,
// the colour setters, and that only saving makes the key.
#include <gtest/gtest.h>

#include "api/system_variables.h"
#include "compare/file_compare_options.h"
#include "frame/host_interface.h"
#include "frame/profile_settings.h"

namespace {

class NamedProfile : public korva::api::ProfileVariableStore {
 public:
  std::optional<std::string> read(std::string_view name) const override {
    if (name == "CPROFILE") return "Compare";
    return std::nullopt;
  }
  void write(std::string_view, const std::string&) override {}
};

class CompareOptionsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    korva::api::setProfileVariableStore(&profile_);
    QxSettings::deleteKey(QxSettings::Hive::CurrentUser, kProductRoot);
  }
  void TearDown() override {
    ProfileSettings::setProfileNameSource(nullptr);
    korva::api::setProfileVariableStore(nullptr);
    QxSettings::deleteKey(QxSettings::Hive::CurrentUser, kProductRoot);
  }
  static void store(const wchar_t* name, std::uint32_t value) {
    ASSERT_TRUE(ProfileSettings::writeNumber(L"FileCompare", name, value));
  }
  static bool keyExists() {
    const auto path = ProfileSettings::keyPath(L"FileCompare");
    return path &&
           QxSettings::Key::open(QxSettings::Hive::CurrentUser, path->c_str(), false).isOpen();
  }
  static constexpr const wchar_t* kProductRoot = L"Software\\Korva\\Korva\\R1";
  NamedProfile profile_;
};

void ExpectDefaults(const VnFileCompareOptions& options) {
  EXPECT_EQ(options.GetOldDifferentColor(), 1);
  EXPECT_EQ(options.GetOldModifiedColor(), 6);
  EXPECT_EQ(options.GetOldSameColor(), 8);
  EXPECT_EQ(options.GetNewDifferentColor(), 3);
  EXPECT_EQ(options.GetNewModifiedColor(), 2);
  EXPECT_EQ(options.GetNewSameColor(), 9);
  EXPECT_EQ(options.GetOldDifferentVisible(), 1);
  EXPECT_EQ(options.GetOldModifiedVisible(), 1);
  EXPECT_EQ(options.GetOldSameVisible(), 1);
  EXPECT_EQ(options.GetNewDifferentVisible(), 1);
  EXPECT_EQ(options.GetNewModifiedVisible(), 1);
  EXPECT_EQ(options.GetNewSameVisible(), 1);
  EXPECT_EQ(options.GetCompareFlag(), 127);
}

TEST_F(CompareOptionsTest, WithoutAKeyLoadGivesTheDefaultsAndMakesNothing) {
  VnFileCompareOptions options;
  options.SetOldSameColor(40);
  options.SetCompareFlag(3);
  options.Load();
  ExpectDefaults(options);
  EXPECT_FALSE(keyExists());
}

TEST_F(CompareOptionsTest, SavedValuesComeBack) {
  VnFileCompareOptions saved;
  saved.SetOldDifferentColor(0);
  saved.SetNewSameColor(256);
  saved.SetOldModifiedVisible(0);
  saved.SetNewDifferentVisible(0);
  saved.SetCompareFlag(64);
  saved.Save();
  EXPECT_TRUE(keyExists());

  VnFileCompareOptions loaded;
  loaded.Load();
  EXPECT_EQ(loaded.GetOldDifferentColor(), 0);
  EXPECT_EQ(loaded.GetNewSameColor(), 256);
  EXPECT_EQ(loaded.GetOldModifiedVisible(), 0);
  EXPECT_EQ(loaded.GetNewDifferentVisible(), 0);
  EXPECT_EQ(loaded.GetCompareFlag(), 64);
  EXPECT_EQ(loaded.GetOldSameColor(), 8);
}

TEST_F(CompareOptionsTest, EachStoredValueIsCheckedByItsOwnRule) {
  store(L"CompareFlag", 128);
  store(L"OldDifferentColor", 257);
  store(L"OldModifiedColor", 0);
  store(L"NewModifiedColor", 0xFFFFFFFFu);  // -1 as a signed number: still refused
  store(L"OldDifferentVisible", 300);
  store(L"NewModifiedVisible", 300);
  store(L"NewSameVisible", 0);
  VnFileCompareOptions options;
  options.Load();
  EXPECT_EQ(options.GetCompareFlag(), 127);
  EXPECT_EQ(options.GetOldDifferentColor(), 1);
  EXPECT_EQ(options.GetOldModifiedColor(), 0);
  EXPECT_EQ(options.GetNewModifiedColor(), 2);
  EXPECT_EQ(options.GetOldDifferentVisible(), 300);
  // This one visibility value passes the colour rule, unlike the other five.
  EXPECT_EQ(options.GetNewModifiedVisible(), 1);
  EXPECT_EQ(options.GetNewSameVisible(), 0);

  store(L"CompareFlag", 127);
  store(L"NewModifiedVisible", 256);
  options.Load();
  EXPECT_EQ(options.GetCompareFlag(), 127);
  EXPECT_EQ(options.GetNewModifiedVisible(), 256);
}

TEST_F(CompareOptionsTest, ColourSettersRefuseIndicesAbove256) {
  VnFileCompareOptions options;
  options.SetOldDifferentColor(257);
  options.SetNewModifiedColor(-1);
  options.SetOldSameColor(256);
  options.SetNewSameColor(0);
  EXPECT_EQ(options.GetOldDifferentColor(), 1);
  EXPECT_EQ(options.GetNewModifiedColor(), 2);
  EXPECT_EQ(options.GetOldSameColor(), 256);
  EXPECT_EQ(options.GetNewSameColor(), 0);
  // Visibility and the flag are stored as given.
  options.SetOldSameVisible(300);
  options.SetCompareFlag(4096);
  EXPECT_EQ(options.GetOldSameVisible(), 300);
  EXPECT_EQ(options.GetCompareFlag(), 4096);
  options.SetDefaults();
  ExpectDefaults(options);
}

TEST_F(CompareOptionsTest, WithoutAProfileNothingIsReadOrWritten) {
  store(L"OldSameColor", 30);
  ProfileSettings::setProfileNameSource([](std::wstring&) { return false; });
  VnFileCompareOptions options;
  options.SetOldSameColor(12);
  options.Load();
  // The object keeps what it has, not even the defaults come back.
  EXPECT_EQ(options.GetOldSameColor(), 12);
  options.Save();
  ProfileSettings::setProfileNameSource(nullptr);
  options.Load();
  EXPECT_EQ(options.GetOldSameColor(), 30);
}

}  // namespace
