// GRID: the grid spacing (GRIDUNIT), the grid on or off (GRIDMODE), the major lines
// (GRIDMAJOR) and how the grid shows (GRIDDISPLAY). korva draws no grid; the settings
// are kept for the drawing and for the commands that read them.
#include <string>

#include "cmd/blocks/block_commands.h"
#include "cmd/blocks/drawing_aid_settings.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "qx_print.h"

namespace korva::cmd::blocks {

namespace {

using drawing::Answer;

// GRIDDISPLAY bits.
constexpr int kBeyondLimits = 1;
constexpr int kAdaptive = 2;
constexpr int kSubdivide = 4;
constexpr int kFollowUcs = 8;

void setGrid(geom::Vec2 spacing) {
  setSpacingVariable(L"GRIDUNIT", spacing);
  drawing::setShortVariable(L"GRIDMODE", 1);
}

void askAspect(double snapSpacing) {
  geom::Vec2 spacing = spacingVariable(L"GRIDUNIT");
  std::wstring horizontal =
      L"\nSpecify the horizontal spacing(X) <" + drawing::distanceText(spacing.x) + L">: ";
  if (askSpacing(horizontal, nullptr, true, snapSpacing, spacing.x).stop()) return;
  std::wstring vertical =
      L"\nSpecify the vertical spacing(Y) <" + drawing::distanceText(spacing.y) + L">: ";
  if (askSpacing(vertical, nullptr, true, spacingVariable(L"SNAPUNIT").y, spacing.y).stop()) {
    return;
  }
  setGrid(spacing);
}

void askMajor() {
  int lines = drawing::shortVariable(L"GRIDMAJOR", 5);
  std::wstring prompt = L"\nSpecify number of grid divisions between major gridlines <" +
                        std::to_wstring(lines) + L">: ";
  for (;;) {
    Answer answer = drawing::askInteger(prompt.c_str(), lines, {6});
    if (!answer.value()) return;
    if (drawing::setShortVariable(L"GRIDMAJOR", lines)) return;
    lines = drawing::shortVariable(L"GRIDMAJOR", 5);
    qxutPrintf(L"\nRequires an integer between 1 and 100.");
  }
}

// One GRIDDISPLAY bit set from a Yes/No question.
bool askDisplayBit(const std::wstring& question, int bit) {
  int display = drawing::shortVariable(L"GRIDDISPLAY", kAdaptive);
  std::optional<bool> yes = askYesNo(question, (display & bit) != 0);
  if (!yes) return false;
  drawing::setShortVariable(L"GRIDDISPLAY", *yes ? display | bit : display & ~bit);
  return *yes;
}

}  // namespace

void gridCommand() {
  geom::Vec2 spacing = spacingVariable(L"GRIDUNIT");
  double snapSpacing = spacingVariable(L"SNAPUNIT").x;
  std::wstring prompt =
      L"\nSpecify grid spacing(X) or [ON/OFF/Snap/Major/aDaptive/Limits/Follow/Aspect] <" +
      drawing::distanceText(spacing.x) + L">: ";
  const wchar_t* keywords =
      L"ON OFF Snap Major aDaptive Limits Follow Aspect _ ON OFF Snap Major aDaptive Limits "
      L"Follow Aspect";
  for (;;) {
    double value = spacing.x;
    Answer answer = askSpacing(prompt, keywords, true, snapSpacing, value);
    if (answer.stop() || answer.enter()) return;
    if (answer.value()) {
      setGrid({value, value});
    } else if (answer.is(L"ON") || answer.is(L"OFF")) {
      drawing::setShortVariable(L"GRIDMODE", answer.is(L"ON") ? 1 : 0);
    } else if (answer.is(L"Snap")) {
      setGrid(spacingVariable(L"SNAPUNIT"));
    } else if (answer.is(L"Major")) {
      askMajor();
    } else if (answer.is(L"aDaptive")) {
      if (askDisplayBit(L"Turn adaptive behavior on", kAdaptive)) {
        askDisplayBit(L"Allow subdivision below grid spacing", kSubdivide);
      }
    } else if (answer.is(L"Limits")) {
      askDisplayBit(L"Display grid beyond Limits", kBeyondLimits);
    } else if (answer.is(L"Follow")) {
      askDisplayBit(L"Follow Dynamic UCS", kFollowUcs);
    } else if (answer.is(L"Aspect")) {
      askAspect(snapSpacing);
    } else {
      continue;
    }
    return;
  }
}

}  // namespace korva::cmd::blocks
