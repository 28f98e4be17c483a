#include "prompt_fixture.h"

#include <deque>
#include <iostream>

#include "api/utf8.h"
#include "input/console.h"
#include "qx_selection.h"

namespace korva::testing {

namespace {

class AnswerSource : public input::InputSource {
 public:
  explicit AnswerSource(std::vector<input::Answer> answers)
      : answers_(answers.begin(), answers.end()) {}
  std::optional<input::Answer> next(bool) override {
    if (answers_.empty()) return std::nullopt;
    input::Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

 private:
  std::deque<input::Answer> answers_;
};

}  // namespace

::testing::AssertionResult mentions(const std::wstring& transcript, const std::wstring& text) {
  if (transcript.find(text) != std::wstring::npos) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "\"" << api::toUtf8(text) << "\" is not in:\n"
                                       << api::toUtf8(transcript);
}

input::Answer typed(const wchar_t* text) {
  return input::Answer::ofText(text);
}

input::Answer point(double x, double y) {
  input::Answer answer;
  answer.kind = input::Answer::Kind::Point;
  answer.point[0] = x;
  answer.point[1] = y;
  return answer;
}

input::Answer entity(const api::Document& document, const db::Record& record) {
  input::Answer answer;
  answer.kind = input::Answer::Kind::Entity;
  api::nameOf(document, record, answer.name);
  return answer;
}

input::Answer set(const SelectionSet selection) {
  input::Answer answer;
  answer.kind = input::Answer::Kind::Set;
  answer.name[0] = selection[0];
  answer.name[1] = selection[1];
  return answer;
}

void PromptTest::SetUp() {
  SelectionTest::SetUp();
  input::Console::instance().setOutput(&transcript_);
  a = line(0, 0, 2, 2);
  b = line(5, 0, 7, 2);
  c = circle(20, 20, 1);
}

void PromptTest::TearDown() {
  input::Console& console = input::Console::instance();
  while (console.hasInput()) console.popSource();
  console.setOutput(&std::cout);
  SelectionTest::TearDown();
}

void PromptTest::give(std::vector<input::Answer> answers) {
  input::Console::instance().pushSource(std::make_unique<AnswerSource>(std::move(answers)));
}

std::set<db::Handle> PromptTest::prompt(const wchar_t* mode, std::vector<input::Answer> answers,
                                        int* status, const void* first, const void* second,
                                        const ResultBuffer* filter) {
  give(std::move(answers));
  return select(mode, first, second, filter, status);
}

void PromptTest::layer(const std::string& name, int flags, int colour) {
  database().addTableEntry(*database().table("LAYER"), "LAYER",
                           {{100, "AcDbSymbolTableRecord"},
                            {100, "AcDbLayerTableRecord"},
                            {2, name},
                            {70, std::to_string(flags)},
                            {62, std::to_string(colour)},
                            {6, "Continuous"}});
}

std::wstring PromptTest::transcript() const {
  return api::fromUtf8(transcript_.str());
}

}  // namespace korva::testing
