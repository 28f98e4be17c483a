// The drawing host commands. Each talks to the user only through the prompt
// functions, qxutPrintf and qxedSSGet, so that scripts and scripted commands drive
// them exactly as they drive a module's commands.
#pragma once

namespace korva::cmd::drawing {

void lineCommand();
void circleCommand();
void arcCommand();
void polylineCommand();
void pointCommand();
void textCommand();
void eraseCommand();
void copyCommand();
void moveCommand();
void ucsCommand();
void zoomCommand();
void redrawCommand();
void redrawAllCommand();
void regenCommand();
void listCommand();
void areaCommand();
void idCommand();
void distCommand();
void setvarCommand();

}  // namespace korva::cmd::drawing
