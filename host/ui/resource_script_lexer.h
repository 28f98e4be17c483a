// The tokens of a resource source file: words, numbers, strings, punctuation and
// preprocessor lines, each with the line it stands on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korva::ui {

struct ResourceToken {
  enum class Kind {
    Word,    // STRINGTABLE, LTEXT, IDC_NAME, WS_GROUP ...
    Number,  // 42, -1, 0x1F (value holds it)
    String,  // "text" with its escapes resolved (text holds it)
    Comma,
    Pipe,       // "|" joining style words
    Begin,      // "{" or BEGIN
    End,        // "}" or END
    Directive,  // a "#" line: text holds the rest of the line after "#"
  };
  Kind kind = Kind::Word;
  std::wstring text;
  long long value = 0;
  int line = 0;
};

// Splits UTF-8 source text into tokens; comments are dropped. False with error
// ("line N: ...") on a fault: an unended string or comment, an unknown escape, a stray
// character, text that isn't UTF-8.
bool tokenizeResourceScript(std::string_view source, std::vector<ResourceToken>& tokens,
                            std::string& error);

// How a token reads in a message: the word, the number, the string in quotes.
std::string describeToken(const ResourceToken& token);

}  // namespace korva::ui
