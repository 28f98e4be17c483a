// Functions a module defines for the host's LISP, and the values they give back.
#pragma once

#include "qx_types.h"

// Defines the LISP function globalName for the calling module with its function number;
// a call of it reaches the module's entry point as message 5. RTNORM or RTERROR.
int qxedDefunEx(const wchar_t* globalName, const wchar_t* localName, int functionNumber);
int qxedUndef(const wchar_t* name, int functionNumber);
// Inside message 5: the number of the function called, and a copy of its arguments
// (the caller releases it with qxutRelRb; null when there are none).
int qxedGetFunCode();
ResultBuffer* qxedGetArgs();

// The value a command or function gives back to the host's evaluator.
int qxedRetVoid();
int qxedRetNil();
int qxedRetT();
int qxedRetInt(int value);
int qxedRetReal(double value);
int qxedRetStr(const wchar_t* value);
int qxedRetPoint(const double point[3]);
int qxedRetName(const EntityName name, int type);  // type RTENAME or RTPICKS
// A list value (RTLB ... RTLE) or a single node.
int qxedRetList(const ResultBuffer* list);
int qxedRetVal(const ResultBuffer* value);

// Prints the message as the evaluator's error report. RTNORM.
int qxdbFail(const wchar_t* message);
