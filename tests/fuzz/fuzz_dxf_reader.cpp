// libFuzzer entry: any bytes as a DXF file.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz_body.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string problem = korva::fuzz::checkInput({reinterpret_cast<const char*>(data), size});
  if (!problem.empty()) {
    std::fprintf(stderr, "fuzz_dxf_reader: %s\n", problem.c_str());
    std::abort();
  }
  return 0;
}
