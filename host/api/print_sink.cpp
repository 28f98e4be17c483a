#include "print_sink.h"

#include <cstdio>
#include <string>
#include <utility>

#include "utf8.h"

namespace korva::api {
namespace {

PrintSink& installedSink() {
  static PrintSink sink;
  return sink;
}

void writeStandardOutput(std::wstring_view text) {
  const std::string bytes = toUtf8(text);
  std::fwrite(bytes.data(), 1, bytes.size(), stdout);
  std::fflush(stdout);
}

}  // namespace

PrintSink setPrintSink(PrintSink sink) {
  return std::exchange(installedSink(), std::move(sink));
}

void printText(std::wstring_view text) {
  const PrintSink& sink = installedSink();
  if (sink) {
    sink(text);
  } else {
    writeStandardOutput(text);
  }
}

}  // namespace korva::api
