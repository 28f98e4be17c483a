// Binary DXF: the sentinel, and conversion to and from the text form.
#pragma once

#include <string>
#include <string_view>

namespace korva::dxf {

// The 22 bytes every binary DXF file starts with, as the format fixes them.
inline constexpr std::string_view kBinarySentinel{
    "\x41\x75\x74\x6F\x43\x41\x44\x20\x42\x69\x6E\x61\x72\x79\x20\x44\x58\x46\x0D\x0A\x1A\x00", 22};

inline bool isBinaryDxf(std::string_view data) { return data.starts_with(kBinarySentinel); }

// Binary to text: each group becomes a code line and a value line ("\n" ends),
// reals in their shortest exact spelling. False with a message on broken input.
bool binaryToText(std::string_view data, std::string& text, std::string& error);

// One group's value in binary form, appended to out. `oneByteCodes` is R12's layout.
void appendBinaryGroup(std::string& out, int code, std::string_view value, bool oneByteCodes);

}  // namespace korva::dxf
