// The input sources: script text, script files, the terminal, scripted command tokens.
#include <cerrno>
#include <cstring>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "input/answer_queue.h"
#include "input/input_source.h"
#include "input/script_reader.h"

namespace korva::input {
namespace {

class ScriptSource : public InputSource {
 public:
  ScriptSource(std::string text, std::string name)
      : reader_([text = std::move(text), given = false]() mutable -> std::optional<std::string> {
          if (given) return std::nullopt;
          given = true;
          return std::move(text);
        }),
        name_(std::move(name)) {}

  std::optional<Answer> next(bool blanksAllowed) override {
    std::optional<std::wstring> text = reader_.next(blanksAllowed);
    if (!text) return std::nullopt;
    return Answer::ofText(std::move(*text));
  }
  std::string name() const override { return name_; }

 private:
  ScriptReader reader_;
  std::string name_;
};

class TerminalSource : public InputSource {
 public:
  TerminalSource()
      : reader_([]() -> std::optional<std::string> {
          std::string line;
          if (!std::getline(std::cin, line)) return std::nullopt;
          if (!std::cin.eof()) line += '\n';
          return line;
        }) {}

  std::optional<Answer> next(bool blanksAllowed) override {
    std::optional<std::wstring> text = reader_.next(blanksAllowed);
    if (!text) return std::nullopt;
    return Answer::ofText(std::move(*text));
  }
  bool isTerminal() const override { return true; }

 private:
  ScriptReader reader_;
};

}  // namespace

std::unique_ptr<InputSource> makeScriptSource(std::string text, std::string name) {
  return std::make_unique<ScriptSource>(std::move(text), std::move(name));
}

std::unique_ptr<InputSource> openScriptFile(const std::string& path, std::string& error) {
  std::error_code status;
  if (std::filesystem::is_directory(path, status)) {
    error = "it is a folder";
    return nullptr;
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    error = std::strerror(errno);
    return nullptr;
  }
  std::ostringstream text;
  text << file.rdbuf();
  if (file.bad()) {
    error = "read error";
    return nullptr;
  }
  return makeScriptSource(std::move(text).str(), path);
}

std::unique_ptr<InputSource> makeTerminalSource() {
  return std::make_unique<TerminalSource>();
}

std::unique_ptr<InputSource> makeAnswerSource(std::vector<std::wstring> answers) {
  std::vector<Answer> tokens;
  for (std::wstring& answer : answers) tokens.push_back(Answer::ofText(std::move(answer)));
  return std::make_unique<AnswerQueue>(std::move(tokens), false);
}

std::unique_ptr<InputSource> makeTokenSource(std::vector<Answer> tokens) {
  return std::make_unique<AnswerQueue>(std::move(tokens), true);
}

}  // namespace korva::input
