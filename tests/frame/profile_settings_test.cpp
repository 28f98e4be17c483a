// Tool settings under the current profile: the key path, values written and read back,
// and nothing touched when the profile can't be read.
#include <gtest/gtest.h>

#include "api/system_variables.h"
#include "frame/host_interface.h"
#include "frame/profile_settings.h"

namespace {

class NamedProfile : public korva::api::ProfileVariableStore {
 public:
  std::optional<std::string> read(std::string_view name) const override {
    if (name == "CPROFILE") return "Drafting";
    return std::nullopt;
  }
  void write(std::string_view, const std::string&) override {}
};

class ProfileSettingsTest : public ::testing::Test {
 protected:
  void SetUp() override { korva::api::setProfileVariableStore(&profile_); }
  void TearDown() override {
    ProfileSettings::setProfileNameSource(nullptr);
    korva::api::setProfileVariableStore(nullptr);
    QxSettings::deleteKey(QxSettings::Hive::CurrentUser, kProductRoot);
  }
  static constexpr const wchar_t* kProductRoot = L"Software\\Korva\\Korva\\R1";
  NamedProfile profile_;
};

TEST_F(ProfileSettingsTest, TheKeyLiesUnderTheCurrentProfile) {
  EXPECT_EQ(ProfileSettings::keyPath(L"LayWalk"),
            L"Software\\Korva\\Korva\\R1\\Profiles\\Drafting\\UserInterfaceSettings\\LayWalk");
}

TEST_F(ProfileSettingsTest, ValuesComeBackAsWritten) {
  ASSERT_TRUE(ProfileSettings::writeNumber(L"LayWalk", L"RestoreOnExit", 1));
  ASSERT_TRUE(ProfileSettings::writeString(L"LayWalk", L"Filter0", L"Walls*"));
  std::uint32_t restore = 0;
  EXPECT_TRUE(ProfileSettings::readNumber(L"LayWalk", L"RestoreOnExit", restore));
  EXPECT_EQ(restore, 1u);
  std::wstring filter;
  EXPECT_TRUE(ProfileSettings::readString(L"LayWalk", L"Filter0", filter));
  EXPECT_EQ(filter, L"Walls*");

  // The store holds them where the path says.
  QxSettings::Key key = QxSettings::Key::open(
      QxSettings::Hive::CurrentUser,
      L"Software\\Korva\\Korva\\R1\\Profiles\\Drafting\\UserInterfaceSettings\\LayWalk", false);
  std::uint32_t stored = 0;
  EXPECT_TRUE(key.readNumber(L"RestoreOnExit", stored));
  EXPECT_EQ(stored, 1u);
}

TEST_F(ProfileSettingsTest, AValueThatIsntThereLeavesTheTarget) {
  int color = 7;
  EXPECT_FALSE(ProfileSettings::readNumber(L"FileCompare", L"OldSameColor", color));
  EXPECT_EQ(color, 7);
  ProfileSettings::writeString(L"FileCompare", L"OldSameColor", L"not a number");
  EXPECT_FALSE(ProfileSettings::readNumber(L"FileCompare", L"OldSameColor", color));
  EXPECT_EQ(color, 7);
}

TEST_F(ProfileSettingsTest, WithoutAProfileNothingIsReadOrWritten) {
  ASSERT_TRUE(ProfileSettings::writeNumber(L"LayerTools", L"LockFlag", 1));
  ProfileSettings::setProfileNameSource([](std::wstring&) { return false; });
  EXPECT_EQ(ProfileSettings::keyPath(L"LayerTools"), std::nullopt);
  std::uint32_t flag = 5;
  EXPECT_FALSE(ProfileSettings::readNumber(L"LayerTools", L"LockFlag", flag));
  EXPECT_EQ(flag, 5u);
  EXPECT_FALSE(ProfileSettings::writeNumber(L"LayerTools", L"FreezeFlag", 1));
}

}  // namespace
