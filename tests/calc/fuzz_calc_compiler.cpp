#include <cstddef>
#include <cstdint>

#include "fuzz_body.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  compileFuzzInput(data, size);
  return 0;
}
