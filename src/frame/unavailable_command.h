// Handlers of the commands this build doesn't hold yet. Each prints one line that says
// so, naming its command; the command's own handler replaces it when it is built.
#pragma once

#include <cstddef>

// Prints "<NAME> is not available in this build yet." from the resource module.
void printNotAvailable(const wchar_t* commandName);

// A command's name as a template argument, so that each row gets a handler of its own.
template <std::size_t Length>
struct CommandNameLiteral {
  constexpr CommandNameLiteral(const wchar_t (&name)[Length]) {
    for (std::size_t index = 0; index < Length; ++index) text[index] = name[index];
  }
  wchar_t text[Length]{};
};

template <CommandNameLiteral Name>
void notBuilt() {
  printNotAvailable(Name.text);
}
