// The block commands and the drawing aids. Each talks to the user only through the
// prompt functions, so that scripts and scripted commands drive them as they drive a
// module's commands.
#pragma once

namespace korva::cmd::blocks {

void blockCommand();
void insertCommand();
void purgeCommand();
void orthoCommand();
void snapCommand();
void gridCommand();

}  // namespace korva::cmd::blocks
