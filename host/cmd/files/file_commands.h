// The file commands.
#pragma once

namespace korva::cmd {

void newCommand();        // NEW
void openCommand();       // OPEN
void saveAsCommand();     // SAVE and SAVEAS
void quickSaveCommand();  // QSAVE

}  // namespace korva::cmd
