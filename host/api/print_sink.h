// Where qxutPrintf's text goes: standard output as UTF-8 unless a sink is installed,
// e.g. by the command processor to keep the transcript.
#pragma once

#include <functional>
#include <string_view>

namespace korva::api {

using PrintSink = std::function<void(std::wstring_view)>;

// Installs sink and returns the previous one; an empty sink brings standard output
// back.
PrintSink setPrintSink(PrintSink sink);

// Hands text to the current sink.
void printText(std::wstring_view text);

}  // namespace korva::api
