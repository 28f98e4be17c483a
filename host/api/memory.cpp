// Host memory: one allocator for everything a ResultBuffer list may own.
#include <cstdlib>
#include <cwchar>

#include "qx_memory.h"

void* qxad_malloc(std::size_t size) {
  return std::malloc(size == 0 ? 1 : size);
}

void qxad_free(void* block) {
  std::free(block);
}

void* qxad_realloc(void* block, std::size_t size) {
  return std::realloc(block, size == 0 ? 1 : size);
}

wchar_t* qxutNewString(const wchar_t* text) {
  if (text == nullptr) return nullptr;
  const std::size_t chars = std::wcslen(text) + 1;
  auto* copy = static_cast<wchar_t*>(qxad_malloc(chars * sizeof(wchar_t)));
  if (copy != nullptr) std::wmemcpy(copy, text, chars);
  return copy;
}

void qxutDelBuffer(void* block) {
  qxad_free(block);
}
