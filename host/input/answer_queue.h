// Answers given in advance, handed out in order.
#pragma once

#include <deque>
#include <vector>

#include "input/input_source.h"

namespace korva::input {

class AnswerQueue : public InputSource {
 public:
  // scripted: the tokens of a scripted command (see InputSource::isScriptedCommand).
  AnswerQueue(std::vector<Answer> answers, bool scripted)
      : answers_(answers.begin(), answers.end()), scripted_(scripted) {}
  std::optional<Answer> next(bool) override {
    if (answers_.empty()) return std::nullopt;
    Answer answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
  }
  bool isScriptedCommand() const override { return scripted_; }
  bool empty() const { return answers_.empty(); }

 private:
  std::deque<Answer> answers_;
  bool scripted_;
};

}  // namespace korva::input
