// The fifteen small commands: measuring, hatch and elevation clean-up, linetype and
// group edits, and starting outside programs. Each is a command handler registered in
// the command table (command_table.cpp).
#pragma once

void cmdArcSum();
void cmdAreaSum();
void cmdLineSum();
void cmdDelHatch();
void cmdZValTo0();
void cmdMpEdit();
void cmdDeselect();
void cmdExcel();
void cmdWord();
void cmdBrowser();
void cmdCon2Dash();
void cmdChgLtSca();
void cmdQlAttach();
void cmdGroupUnname();
void cmdUngroup();
