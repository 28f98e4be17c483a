// File, colour, message and platform services of the dialog layer. korva has no
// screen: file dialogs ask for a path at the prompt, as desktop CAD does while FILEDIA
// is 0; the colour dialog asks for a colour index or name; message boxes print their
// text and caption and take "OK", "Yes" or "No" from the input.
#pragma once

#include <cstddef>
#include <cstdint>

#include "qx_types.h"

// qxedGetFileD / qxedGetFileNavDialog flags.
constexpr int QXED_FILE_SAVE = 1;             // a file to write; an existing one is confirmed
constexpr int QXED_FILE_NO_EXTENSION_ADD = 4;  // any extension is accepted as typed
constexpr int QXED_FILE_SEARCH_SUPPORT = 8;    // a relative name is found on the support path
constexpr int QXED_FILE_NO_CONFIRM = 32;       // with QXED_FILE_SAVE: no overwrite question

// Asks for a file. extensions: "dxf", or several separated by ";" ("svf;scr"); the first
// is added when the answer has none. An open-mode file that doesn't exist is told
// ("File not found: ...") and asked for again; in save mode an existing file is
// confirmed with a Yes/No prompt, and No asks for another name. RTNORM with an RTSTR in
// the result (qxedGetFileD fills the caller's node and its string is the caller's to
// free; qxedGetFileNavDialog makes a list to release with qxutRelRb), RTNONE for Enter
// with no default, RTCAN on cancel, RTERROR for a null result.
int qxedGetFileD(const wchar_t* title, const wchar_t* defaultPath, const wchar_t* extensions,
                 int flags, ResultBuffer* result);
int qxedGetFileNavDialog(const wchar_t* title, const wchar_t* defaultPath,
                         const wchar_t* extensions, const wchar_t* dialogName, int flags,
                         ResultBuffer** result);

// Asks for a colour: an index 1-255, a name ("red" ... "white"), "bylayer" (256) or
// "byblock" (0), the last two only when allowMetaColors. 1 when a colour was given and
// *colorIndex holds it, 0 on Enter or cancel. currentLayerColor is what "bylayer"
// shows as.
int qxedSetColorDialog(int* colorIndex, int allowMetaColors, int currentLayerColor);
// The RGB value of a colour index as 0x00BBGGRR.
std::uint32_t qxedGetRGB(int colorIndex);

// Message boxes.
enum class QxMessageBoxButtons { Ok, YesNo, OkCancel, YesNoCancel };
enum class QxMessageBoxResult { Ok = 1, Cancel = 2, Yes = 6, No = 7 };
QxMessageBoxResult qxuiMessageBox(const wchar_t* text, const wchar_t* caption,
                                  QxMessageBoxButtons buttons = QxMessageBoxButtons::Ok);

// Programs and addresses, through korva's platform layer.
enum class QxApplicationKind { Spreadsheet, WordProcessor };
// The program configured for the kind in the settings store, else the one the desktop
// gives for its document type. False when none is found.
bool qxplFindApplication(QxApplicationKind kind, wchar_t* path, std::size_t bufferChars);
// Starts a program with its command line; false when it can't be started.
bool qxplStartProgram(const wchar_t* commandLine);
// Opens an address or file with the desktop's opener. Above 32 for success; 2 when the
// file isn't there, 3 when its folder isn't there, 31 when nothing can open it.
int qxplOpenAddress(const wchar_t* address);
