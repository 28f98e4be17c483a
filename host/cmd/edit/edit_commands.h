// The editing host commands. Each talks to the user only through the prompt functions,
// qxutPrintf and qxedSSGet, so that scripts and scripted commands drive them exactly as
// they drive a module's commands.
#pragma once

namespace korva::cmd::edit {

void polylineEditCommand();
void explodeCommand();
void rectangleCommand();

}  // namespace korva::cmd::edit
