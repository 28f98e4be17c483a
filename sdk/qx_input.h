// Prompts and input on the command line.
//
// Every prompt reads one input from the command processor: a typed line, a script
// line, or a token of a scripted command (qxedCommand). Results: RTNORM with the value,
// RTNONE for Enter (unless qxedInitGet forbade it), RTKWORD when a keyword or, with
// flag 128, arbitrary text was given (fetch it with qxedGetInput), RTCAN when the user
// cancelled or a script ended during the prompt, RTERROR for other failures.
// Invalid input is answered with the usual message and the prompt is asked again.
#pragma once

#include <cstddef>

#include "qx_types.h"

// qxedInitGet flags; they apply to the next prompt only.
constexpr int QXED_NO_NULL = 1;      // Enter is refused
constexpr int QXED_NO_ZERO = 2;      // zero is refused
constexpr int QXED_NO_NEGATIVE = 4;  // negative values are refused
constexpr int QXED_ARBITRARY = 128;  // any text is returned as RTKWORD
constexpr int QXED_NO_Z_PROJECT = 1024;
constexpr int QXED_NO_OSNAP = 2048;

// Sets the flags and the keyword list of the next prompt. Keywords are blank-separated;
// the capitals of each are its short form; a global list may follow after "_"
// ("Yes No _ Yes No"), given back in place of the local one.
int qxedInitGet(int flags, const wchar_t* keywords);

// Points are in the current user system. A base point allows "@" input relative to it
// (LASTPOINT is used without one).
int qxedGetPoint(const double base[3], const wchar_t* prompt, double result[3]);
int qxedGetCorner(const double base[3], const wchar_t* prompt, double result[3]);
// A distance typed, or the distance from base to a point given.
int qxedGetDist(const double base[3], const wchar_t* prompt, double* result);
// An angle in radians, counterclockwise from ANGBASE. It is typed in AUNITS from ANGBASE
// in the direction of ANGDIR, or shown from base to a point given (a second point is
// asked for when there is no base).
int qxedGetAngle(const double base[3], const wchar_t* prompt, double* result);
// As qxedGetAngle, measured from east counter-clockwise whatever ANGBASE and ANGDIR say.
int qxedGetOrient(const double base[3], const wchar_t* prompt, double* result);
int qxedGetReal(const wchar_t* prompt, double* result);
int qxedGetInt(const wchar_t* prompt, int* result);
// A string; with blanksAllowed the rest of the line is taken, blanks included.
// The buffer holds bufferChars characters with the terminator; longer text is cut.
int qxedGetString(int blanksAllowed, const wchar_t* prompt, wchar_t* buffer,
                  std::size_t bufferChars = 512);
// One of the keywords of qxedInitGet: RTNORM with its full (global) form.
int qxedGetKword(const wchar_t* prompt, wchar_t* buffer, std::size_t bufferChars = 512);
// The keyword or arbitrary text of the last prompt that returned RTKWORD.
int qxedGetInput(wchar_t* buffer, std::size_t bufferChars = 512);

// Picks one entity. RTERROR with ERRNO 7 when the pick found nothing, with ERRNO 52 for
// Enter. point is the pick point in the current user system. "#HANDLE" names an entity
// by its handle, "Last" the newest entity.
int qxedEntSel(const wchar_t* prompt, EntityName name, double point[3]);
// Picks an entity nested in block references: the innermost entity (an attribute
// itself when one is hit), the transformation from its block to the world system
// (row-major, column vectors) and the chain of containing references, innermost first,
// as a list of RTENAME nodes (null when the entity is not nested; release with
// qxutRelRb). pickFlag 1 takes point as the pick point without prompting.
int qxedNEntSelP(const wchar_t* prompt, EntityName name, double point[3], int pickFlag,
                 double matrix[4][4], ResultBuffer** containers);

// Prints the text on the command line.
int qxedPrompt(const wchar_t* text);
// korva has no screen: the alert text is printed on the command line.
int qxedAlert(const wchar_t* text);
// True when the user pressed the break key since the last call.
bool qxedUsrBrk();
int qxedTextScr();
int qxedGraphScr();

// Finds a file along the support path (the drawing's folder, the folders given to
// korva with --support, the installed support folder, the current folder). result
// holds bufferChars characters. RTNORM with the full path, RTERROR when not found.
int qxedFindFile(const wchar_t* name, wchar_t* result, std::size_t bufferChars = 512);
