#include "ui_fixture.h"

#include <fstream>
#include <iostream>

#include "api/document.h"
#include "dxf/new_drawing.h"
#include "input/console.h"
#include "input/input_source.h"
#include "ui/settings_stores.h"

namespace korva::test {

namespace fs = std::filesystem;

void UiServicesTest::SetUp() {
  const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
  scratch_ = fs::temp_directory_path() / ("korva-ui-" + std::to_string(::getpid()) + "-" +
                                          info->test_suite_name() + "-" + info->name());
  fs::remove_all(scratch_);
  fs::create_directories(scratch_);
  document_ = &api::DocumentList::instance().add(dxf::createNewDrawing(), "", true);
  input::Console::instance().setOutput(&transcript_);
  previousFolder_ = ui::settingsFolder();
  ui::setSettingsFolder(scratch_ / "profile");
}

void UiServicesTest::TearDown() {
  input::Console& console = input::Console::instance();
  while (console.hasInput()) console.popSource();
  console.setOutput(&std::cout);
  api::DocumentList::instance().close(document_);
  ui::setSettingsFolder(previousFolder_);
  fs::remove_all(scratch_);
}

void UiServicesTest::script(std::string text) {
  input::Console::instance().pushSource(input::makeScriptSource(std::move(text)));
}

std::string UiServicesTest::transcript() const {
  input::Console::instance().finish();
  return transcript_.str();
}

fs::path UiServicesTest::writeFile(const std::string& name, const std::string& text) {
  const fs::path path = scratch_ / name;
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

std::string UiServicesTest::readFile(const fs::path& path) const {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace korva::test
