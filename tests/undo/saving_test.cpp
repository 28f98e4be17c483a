// Saving in between: what undo can still bring back stays in the drawing, what it can't
// leaves for good.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "dxf/writer.h"
#include "undo_fixture.h"

namespace korva::test {
namespace {

TEST_F(ReadDrawing, SavingKeepsWhatUndoCanBringBackAndDropsWhatItTookBack) {
  const std::string path = (std::filesystem::temp_directory_path() /
                            ("undo_saving_" + std::to_string(::getpid()) + ".dxf"))
                               .string();
  auto save = [&] {
    EXPECT_TRUE(dxf::writeFile(database(), path).ok);
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  };
  db::Record& erased = line(0);
  journal().beginGroup(db::ChangeJournal::GroupKind::Command, "EDIT");
  database().setErased(erased, true);
  db::Record* made = database().addEntity({{100, "AcDbEntity"}, {8, "0"}}, "POINT");
  journal().endGroup();
  const db::Handle madeHandle = made->handle();
  std::string first = save();
  EXPECT_FALSE(holdsHandle(first, erased.handle()));
  EXPECT_TRUE(holdsHandle(first, madeHandle));

  EXPECT_EQ(journal().undoStep(), "EDIT");
  std::string second = save();
  EXPECT_TRUE(holdsHandle(second, erased.handle()));
  EXPECT_NE(sectionOf(second, "ENTITIES").find(erased.sourceText()), std::string_view::npos);
  EXPECT_FALSE(holdsHandle(second, madeHandle));
  EXPECT_EQ(database().lookup(madeHandle), nullptr);  // nothing can bring it back now
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace korva::test
