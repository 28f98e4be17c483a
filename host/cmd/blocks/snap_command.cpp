// SNAP: the snap spacing (SNAPUNIT), snap on or off (SNAPMODE), its style (SNAPSTYL)
// and type (SNAPTYPE). Giving a spacing turns snap on.
#include <string>

#include "cmd/blocks/block_commands.h"
#include "cmd/blocks/drawing_aid_settings.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"

namespace korva::cmd::blocks {

namespace {

using drawing::Answer;

void setSnap(geom::Vec2 spacing) {
  setSpacingVariable(L"SNAPUNIT", spacing);
  drawing::setShortVariable(L"SNAPMODE", 1);
}

// Aspect: a horizontal and a vertical spacing.
void askAspect() {
  geom::Vec2 spacing = spacingVariable(L"SNAPUNIT");
  std::wstring horizontal =
      L"\nSpecify horizontal spacing <" + drawing::distanceText(spacing.x) + L">: ";
  if (askSpacing(horizontal, nullptr, false, 0, spacing.x).stop()) return;
  std::wstring vertical =
      L"\nSpecify vertical spacing <" + drawing::distanceText(spacing.y) + L">: ";
  if (askSpacing(vertical, nullptr, false, 0, spacing.y).stop()) return;
  setSnap(spacing);
}

void askStyle() {
  bool isometric = drawing::shortVariable(L"SNAPSTYL", 0) == 1;
  Answer style =
      drawing::askKeyword(isometric ? L"\nEnter snap grid style [Standard/Isometric] <I>: "
                                    : L"\nEnter snap grid style [Standard/Isometric] <S>: ",
                          {0, L"Standard Isometric _ Standard Isometric"});
  if (style.stop()) return;
  if (!style.enter()) isometric = style.is(L"Isometric");
  drawing::setShortVariable(L"SNAPSTYL", isometric ? 1 : 0);
  geom::Vec2 spacing = spacingVariable(L"SNAPUNIT");
  if (isometric) {
    // The isometric grid has one spacing, the vertical one.
    std::wstring prompt =
        L"\nSpecify vertical spacing <" + drawing::distanceText(spacing.y) + L">: ";
    if (askSpacing(prompt, nullptr, false, 0, spacing.y).stop()) return;
    setSnap({spacing.y, spacing.y});
    return;
  }
  std::wstring prompt =
      L"\nSpecify snap spacing or [Aspect] <" + drawing::distanceText(spacing.x) + L">: ";
  double value = spacing.x;
  Answer answer = askSpacing(prompt, L"Aspect _ Aspect", false, 0, value);
  if (answer.is(L"Aspect")) {
    askAspect();
  } else if (answer.value()) {
    setSnap({value, value});
  }
}

void askType() {
  bool polar = drawing::shortVariable(L"SNAPTYPE", 0) == 1;
  Answer type = drawing::askKeyword(polar ? L"\nEnter snap type [Polar/Grid] <Polar>: "
                                          : L"\nEnter snap type [Polar/Grid] <Grid>: ",
                                    {0, L"Polar Grid _ Polar Grid"});
  if (type.stop() || type.enter()) return;
  drawing::setShortVariable(L"SNAPTYPE", type.is(L"Polar") ? 1 : 0);
}

}  // namespace

void snapCommand() {
  geom::Vec2 spacing = spacingVariable(L"SNAPUNIT");
  std::wstring prompt = L"\nSpecify snap spacing or [ON/OFF/Aspect/Style/Type] <" +
                        drawing::distanceText(spacing.x) + L">: ";
  for (;;) {
    double value = spacing.x;
    Answer answer =
        askSpacing(prompt, L"ON OFF Aspect Style Type _ ON OFF Aspect Style Type", false, 0, value);
    if (answer.stop() || answer.enter()) return;
    if (answer.value()) return setSnap({value, value});
    if (answer.is(L"ON") || answer.is(L"OFF")) {
      drawing::setShortVariable(L"SNAPMODE", answer.is(L"ON") ? 1 : 0);
    } else if (answer.is(L"Aspect")) {
      askAspect();
    } else if (answer.is(L"Style")) {
      askStyle();
    } else if (answer.is(L"Type")) {
      askType();
    } else {
      continue;
    }
    return;
  }
}

}  // namespace korva::cmd::blocks
