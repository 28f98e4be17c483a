// The file and colour dialogs of a host without a screen, answered from scripts.
#include <gtest/gtest.h>

#include <filesystem>

#include "api/utf8.h"
#include "input/support_path.h"
#include "qx_memory.h"
#include "qx_ui_services.h"
#include "ui_fixture.h"

namespace korva::test {
namespace {

namespace fs = std::filesystem;

class FilePromptTest : public UiServicesTest {
 protected:
  void SetUp() override {
    UiServicesTest::SetUp();
    previous_ = fs::current_path();
    fs::current_path(scratch_);
  }
  void TearDown() override {
    fs::current_path(previous_);
    input::clearSupportFolders();
    UiServicesTest::TearDown();
  }

  // The status, and the file chosen after a colon.
  std::string ask(const wchar_t* defaultPath, const wchar_t* extensions, int flags) {
    ResultBuffer result{};
    const int status = qxedGetFileD(L"Save the list", defaultPath, extensions, flags, &result);
    std::string text = std::to_string(status);
    if (status == RTNORM) {
      EXPECT_EQ(result.type, RTSTR);
      text += ":" + api::toUtf8(result.value.rstring);
      qxad_free(result.value.rstring);
    }
    return text;
  }

  fs::path previous_;
};

TEST_F(FilePromptTest, AddsTheFirstExtensionWhenNoneIsGiven) {
  script("report\nreport.txt\n\"two words\"\n");
  EXPECT_EQ(ask(nullptr, L"svf;scr", QXED_FILE_SAVE), "5100:report.svf");
  EXPECT_EQ(ask(nullptr, L"svf;scr", QXED_FILE_SAVE), "5100:report.txt");
  EXPECT_EQ(ask(nullptr, L"*.log", QXED_FILE_SAVE), "5100:two words.log");
  script("report\n");
  EXPECT_EQ(ask(nullptr, L"svf", QXED_FILE_SAVE | QXED_FILE_NO_EXTENSION_ADD), "5100:report");
  EXPECT_EQ(transcript(),
            "\nSave the list: report\nSave the list: report.txt\nSave the list: two words\n"
            "Save the list: report\n");
}

TEST_F(FilePromptTest, EnterTakesTheDefaultOrGivesNone) {
  script("\n\n");
  EXPECT_EQ(ask(L"out.kml", L"kml", QXED_FILE_SAVE), "5100:out.kml");
  EXPECT_EQ(ask(nullptr, L"kml", QXED_FILE_SAVE), "5000");
  EXPECT_EQ(transcript(), "\nSave the list <out.kml>: \nSave the list: \n");
  // A script that runs out cancels.
  EXPECT_EQ(ask(L"out.kml", L"kml", QXED_FILE_SAVE), "-5002");
}

TEST_F(FilePromptTest, AFileToReadMustExist) {
  writeFile("present.dat", "");
  script("absent\n~\npresent\n");
  EXPECT_EQ(ask(nullptr, L"dat", 0), "5100:present.dat");
  EXPECT_EQ(transcript(),
            "\nSave the list: absent\nFile not found: absent.dat"
            "\nSave the list: ~\nFile dialogs are not available; type the file's name."
            "\nSave the list: present\n");
}

TEST_F(FilePromptTest, ReplacingAFileIsConfirmed) {
  writeFile("old.svf", "");
  script("old\nNo\nold\n\nold\nY\n");
  EXPECT_EQ(ask(nullptr, L"svf", QXED_FILE_SAVE), "5100:old.svf");
  EXPECT_EQ(transcript(),
            "\nSave the list: old\nold.svf already exists. Replace it? [Yes/No] <No>: No"
            "\nSave the list: old\nold.svf already exists. Replace it? [Yes/No] <No>: "
            "\nSave the list: old\nold.svf already exists. Replace it? [Yes/No] <No>: Y\n");
  script("old\n");
  EXPECT_EQ(ask(nullptr, L"svf", QXED_FILE_SAVE | QXED_FILE_NO_CONFIRM), "5100:old.svf");
  // Cancelling the question cancels the dialog.
  script("old\n");
  EXPECT_EQ(ask(nullptr, L"svf", QXED_FILE_SAVE), "-5002");
}

TEST_F(FilePromptTest, AFileToWriteNeedsItsFolder) {
  fs::create_directories(scratch_ / "folder");
  script("missing/list\nfolder\nfolder/list\n");
  EXPECT_EQ(ask(nullptr, L"txt", QXED_FILE_SAVE | QXED_FILE_NO_EXTENSION_ADD), "5100:folder/list");
  EXPECT_EQ(transcript(),
            "\nSave the list: missing/list\nFolder not found: missing"
            "\nSave the list: folder\nfolder is a folder."
            "\nSave the list: folder/list\n");
}

TEST_F(FilePromptTest, RelativeNamesAreFoundOnTheSupportPath) {
  const fs::path found = writeFile("support/SYSVDLG.DAT", "");
  input::addSupportFolder((scratch_ / "support").string());
  script("SYSVDLG\n");
  EXPECT_EQ(ask(nullptr, L"DAT", QXED_FILE_SEARCH_SUPPORT), "5100:" + found.string());
}

TEST_F(FilePromptTest, TheNavigationDialogMakesAList) {
  script("plan\n");
  ResultBuffer* result = nullptr;
  ASSERT_EQ(qxedGetFileNavDialog(L"Export", nullptr, L"dxf", L"Export", QXED_FILE_SAVE, &result),
            RTNORM);
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->type, RTSTR);
  EXPECT_STREQ(result->value.rstring, L"plan.dxf");
  EXPECT_EQ(result->next, nullptr);
  qxutRelRb(result);
  script("\n");
  EXPECT_EQ(qxedGetFileNavDialog(L"Export", nullptr, L"dxf", L"Export", 0, &result), RTNONE);
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(qxedGetFileD(L"x", nullptr, L"dxf", 0, nullptr), RTERROR);
}

using ColourPromptTest = UiServicesTest;

TEST_F(ColourPromptTest, TakesNumbersAndNames) {
  int colour = 7;
  script("Red\n0\n300\nbylayer\npink\n42\n");
  EXPECT_EQ(qxedSetColorDialog(&colour, 0, 3), 1);
  EXPECT_EQ(colour, 1);
  EXPECT_EQ(qxedSetColorDialog(&colour, 0, 3), 1);
  EXPECT_EQ(colour, 42);
  EXPECT_EQ(transcript(),
            "\nEnter a colour number or name <white>: Red"
            "\nEnter a colour number or name <red>: 0"
            "\nRequires a colour number 1-255 or a colour name."
            "\nEnter a colour number or name <red>: 300"
            "\nRequires a colour number 1-255 or a colour name."
            "\nEnter a colour number or name <red>: bylayer"
            "\nRequires a colour number 1-255 or a colour name."
            "\nEnter a colour number or name <red>: pink"
            "\nRequires a colour number 1-255 or a colour name."
            "\nEnter a colour number or name <red>: 42\n");
}

TEST_F(ColourPromptTest, ByLayerAndByBlockOnlyWhenAllowed) {
  int colour = 256;
  script("BYBLOCK\n256\n\n");
  EXPECT_EQ(qxedSetColorDialog(&colour, 1, 5), 1);
  EXPECT_EQ(colour, 0);
  EXPECT_EQ(qxedSetColorDialog(&colour, 1, 5), 1);
  EXPECT_EQ(colour, 256);
  // Enter keeps the colour; so does a cancel (the script has run out).
  EXPECT_EQ(qxedSetColorDialog(&colour, 1, 5), 0);
  EXPECT_EQ(qxedSetColorDialog(&colour, 1, 5), 0);
  EXPECT_EQ(colour, 256);
  EXPECT_EQ(transcript(),
            "\nEnter a colour number or name <bylayer (blue)>: BYBLOCK"
            "\nEnter a colour number or name <byblock>: 256"
            "\nEnter a colour number or name <bylayer (blue)>: \n");
}

TEST_F(ColourPromptTest, RgbValuesComeInBlueGreenRedOrder) {
  EXPECT_EQ(qxedGetRGB(1), 0x0000FFu);  // red
  EXPECT_EQ(qxedGetRGB(3), 0x00FF00u);
  EXPECT_EQ(qxedGetRGB(5), 0xFF0000u);  // blue
  EXPECT_EQ(qxedGetRGB(8), 0x808080u);
  EXPECT_EQ(qxedGetRGB(0), 0xFFFFFFu);
  EXPECT_EQ(qxedGetRGB(256), 0xFFFFFFu);
}

}  // namespace
}  // namespace korva::test
