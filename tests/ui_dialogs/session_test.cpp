// The test dialog driven by a script through every action, right and wrong: the
// transcript, with what "show" prints, is compared with the one checked by eye.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "dialog_fixture.h"
#include "test_dialog.h"

namespace korva::testing {
namespace {

const std::filesystem::path kFolder = KORVA_UI_DIALOGS_DIR;

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST_F(DialogTest, ScriptDrivesEveryAction) {
  script(readFile(kFolder / "session.scr"));
  TestDialog dialog;
  EXPECT_EQ(dialog.DoModal(), kQxUiIdOk);
  const std::string transcript = takeTranscript();

  // Refresh with KORVA_UPDATE_EXPECTED=1, then read the new file before keeping it.
  const std::filesystem::path expected = kFolder / "session.expected";
  if (std::getenv("KORVA_UPDATE_EXPECTED") != nullptr) {
    std::ofstream(expected, std::ios::binary) << transcript;
  }
  EXPECT_EQ(transcript, readFile(expected));

  // The fields hold what OK saved.
  EXPECT_EQ(dialog.name, L"A name longe");
  EXPECT_EQ(dialog.log, 0);
  EXPECT_EQ(dialog.order, 1);
  EXPECT_EQ(dialog.unit, 1);
  EXPECT_EQ(dialog.filter, L"C*");
  EXPECT_EQ(dialog.scale, 2);
  // Controls keep their state after the dialog closed.
  EXPECT_FALSE(dialog.layers.IsCreated());
  EXPECT_EQ(dialog.layers.GetCount(), 4);
  EXPECT_EQ(dialog.layers.GetText(3), L"ROOF");
}

}  // namespace
}  // namespace korva::testing
