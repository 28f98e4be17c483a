#include "input/prompt_state.h"

#include <atomic>

#include "input/user_break.h"

namespace korva::input {
namespace {

InitGetSettings& pendingSettings() {
  static InitGetSettings settings;
  return settings;
}

std::wstring& keywordInput() {
  static std::wstring text;
  return text;
}

// Set from a signal handler, so atomic.
std::atomic<bool> breakSignalled{false};

}  // namespace

void setNextPromptSettings(int flags, std::wstring_view keywords) {
  pendingSettings() = {flags, std::wstring(keywords)};
}

InitGetSettings takeNextPromptSettings() {
  InitGetSettings settings = std::move(pendingSettings());
  pendingSettings() = {};
  return settings;
}

void setLastKeywordInput(std::wstring text) {
  keywordInput() = std::move(text);
}

const std::wstring& lastKeywordInput() {
  return keywordInput();
}

void signalUserBreak() {
  breakSignalled.store(true);
}

bool takeUserBreak() {
  return breakSignalled.exchange(false);
}

}  // namespace korva::input
