// EXCEL and WORD: start the spreadsheet or the word processor the platform knows of.
// When there is none, nothing happens.
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"

namespace {

// The longest program path the platform's answer is taken with.
constexpr std::size_t kProgramPathChars = 1024;

void StartOfficeProgram(QxApplicationKind kind) {
  wchar_t program[kProgramPathChars] = {};
  if (!qxplFindApplication(kind, program, kProgramPathChars)) return;
  qxplStartProgram(program);
}

}  // namespace

void cmdExcel() {
  StartOfficeProgram(QxApplicationKind::Spreadsheet);
}

void cmdWord() {
  StartOfficeProgram(QxApplicationKind::WordProcessor);
}
