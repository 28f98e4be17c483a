#include "processor_fixture.h"

#include <deque>
#include <iostream>

#include "api/document.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "input/console.h"

namespace korva::test {
namespace {

// Plain answers, one per prompt, like a script of single tokens.
class AnswerSource : public input::InputSource {
 public:
  explicit AnswerSource(std::vector<std::wstring> answers) : answers_(answers.begin(), answers.end()) {}
  std::optional<input::Answer> next(bool) override {
    if (answers_.empty()) return std::nullopt;
    input::Answer answer = input::Answer::ofText(answers_.front());
    answers_.pop_front();
    return answer;
  }

 private:
  std::deque<std::wstring> answers_;
};

}  // namespace

std::vector<std::wstring>& events() {
  static std::vector<std::wstring> list;
  return list;
}

input::Answer text(const wchar_t* value) { return input::Answer::ofText(value); }

void ProcessorTest::SetUp() {
  events().clear();
  auto& documents = api::DocumentList::instance();
  while (documents.current()) documents.close(documents.current());
  documents.add(dxf::createNewDrawing(), "");
  input::Console::instance().setOutput(&output_);
}

void ProcessorTest::TearDown() {
  input::Console& console = input::Console::instance();
  while (console.hasInput()) console.popSource();
  console.setOutput(&std::cout);
}

void ProcessorTest::typeAnswers(std::vector<std::wstring> answers) {
  input::Console::instance().pushSource(std::make_unique<AnswerSource>(std::move(answers)));
}

void ProcessorTest::runAll() { cmd::Processor::instance().run(); }

}  // namespace korva::test
