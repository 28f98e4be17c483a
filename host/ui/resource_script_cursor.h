// Walks the tokens of a resource source for the statement readers: expectations with
// messages naming the line, numbers and defined names, strings.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "ui/resource_script_lexer.h"

namespace korva::ui {

class ResourceScriptCursor {
 public:
  using Kind = ResourceToken::Kind;

  ResourceScriptCursor(const std::vector<ResourceToken>& tokens, std::string& error);

  bool atEnd() const { return at_ >= tokens_.size(); }
  // At the end: an END token on the last line, so that messages still name a line.
  const ResourceToken& current() const;
  void advance() { ++at_; }
  int line() const { return current().line; }

  // The current token is this word (case ignored).
  bool isWord(const char* keyword) const;
  // Consumes the current token when it is of that kind or that word.
  bool take(Kind kind);
  bool takeWord(const char* keyword);
  // Consumes a token of that kind, else fails with "expected WHAT, found ...".
  bool expect(Kind kind, const char* what);

  // Records the first fault ("line N: message") and returns false.
  bool fail(const std::string& message);
  bool failAt(int line, const std::string& message);

  // A number, or a name given by #define (or predefined, like IDOK).
  bool number(long long& value, const char* what);
  // One string, or several written side by side, joined.
  bool text(std::wstring& value, const char* what);
  // The memory words of old scripts (DISCARDABLE, MOVEABLE ...) mean nothing now.
  void skipMemoryOptions();

  // "#define NAME VALUE"; a name defined twice must keep its value.
  bool define(const ResourceToken& directive);
  bool isDefinedName(const std::wstring& name) const { return names_.contains(name); }

 private:
  const std::vector<ResourceToken>& tokens_;
  std::string& error_;
  size_t at_ = 0;
  ResourceToken endOfText_;
  std::map<std::wstring, long long> names_;
};

}  // namespace korva::ui
