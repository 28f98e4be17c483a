// SELECT: makes a selection for the commands that follow to take as the previous set.
#pragma once

namespace korva::cmd {

void selectCommand();

}  // namespace korva::cmd
