#pragma once

#include <cstddef>
#include <cstdint>

// Compiles the bytes as an expression and, if that succeeds, runs it. The only failure
// allowed is the compiler's parsing exception; anything else escapes and is a finding.
// Returns true if the text compiled.
bool compileFuzzInput(const std::uint8_t* data, std::size_t size);
