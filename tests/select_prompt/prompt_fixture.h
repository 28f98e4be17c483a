// Selection prompts driven by answers given in order, with the transcript captured.
#pragma once

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "input/answer.h"
#include "selection_fixture.h"

namespace korva::testing {

input::Answer typed(const wchar_t* text);
input::Answer point(double x, double y);
input::Answer entity(const api::Document& document, const db::Record& record);
input::Answer set(const SelectionSet selection);

// Whether the transcript holds the text; the failure shows the transcript.
::testing::AssertionResult mentions(const std::wstring& transcript, const std::wstring& text);

// Two lines, a = (0,0)-(2,2) and b = (5,0)-(7,2), and c, a circle at (20,20) of radius 1.
class PromptTest : public SelectionTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The answers are read in order; when they run out the prompt is cancelled.
  void give(std::vector<input::Answer> answers);
  // give() then qxedSSGet in a prompting mode; the members, the set freed.
  std::set<db::Handle> prompt(const wchar_t* mode, std::vector<input::Answer> answers,
                              int* status = nullptr, const void* first = nullptr,
                              const void* second = nullptr, const ResultBuffer* filter = nullptr);
  // A layer; flags 1 frozen, 4 locked; a negative colour is off.
  void layer(const std::string& name, int flags, int colour = 7);
  std::wstring transcript() const;

  db::Record* a = nullptr;
  db::Record* b = nullptr;
  db::Record* c = nullptr;

 private:
  std::ostringstream transcript_;
};

}  // namespace korva::testing
