// The CAL command and its LISP entry: a calculator of plain numbers on the command line.
#pragma once

#include "frame/host_interface.h"

// The command: asks for an expression and prints its value in decimal units.
void cmdCal();
// The LISP entry of "C:CAL" and "CAL": a number passes through, a string is computed,
// whole results come back as integers.
int calLispFunction(ResultBuffer* arguments);
