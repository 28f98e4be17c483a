// A drawing, a console answered from script text with its transcript kept, a scratch
// folder, and settings stores kept in that folder.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>

namespace korva::api {
class Document;
}

namespace korva::test {

class UiServicesTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Answers for the prompts to come, in the rules of script files.
  void script(std::string text);
  // What was printed since the test began.
  std::string transcript() const;
  // A file in the scratch folder with this text; its path.
  std::filesystem::path writeFile(const std::string& name, const std::string& text);
  std::string readFile(const std::filesystem::path& path) const;

  std::filesystem::path scratch_;

 private:
  api::Document* document_ = nullptr;
  std::filesystem::path previousFolder_;
  std::ostringstream transcript_;
};

}  // namespace korva::test
