// The comparison's commands. FCMP asks through its dialog and may write a log; -FCMP asks
// for the two drawings on the command line, uses the stored options and writes no log.
#pragma once

void cmdFileCompare();
void cmdFileCompareCommandLine();
