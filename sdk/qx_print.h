// Printing on the command line and formatting into buffers.
//
// Formats are wide. %s and %c take wide arguments (wchar_t*, wchar_t); %hs, %hc, %S
// and %C take narrow ones (UTF-8 char*, char); %ls and %lc are wide as well. The
// numeric conversions, flags, widths, precisions and '*' are those of C printf.
#pragma once

#include <cstdarg>
#include <cstddef>

// Writes the formatted text to the command line. RTNORM, or RTERROR for a null format.
int qxutPrintf(const wchar_t* format, ...);
int qxutVPrintf(const wchar_t* format, va_list args);

// Formats into buffer, which must be large enough. Returns the number of characters
// written without the terminator, or -1 for a null buffer or format.
int qxutSPrintf(wchar_t* buffer, const wchar_t* format, ...);

// Formats into buffer of bufferChars characters; the text is cut to fit and always
// terminated when bufferChars > 0. Returns the length of the whole formatted text, so
// a result >= bufferChars means it was cut; -1 for a null format, or a null buffer
// with a non-zero size.
int qxutSNPrintf(wchar_t* buffer, std::size_t bufferChars, const wchar_t* format, ...);
int qxutVSNPrintf(wchar_t* buffer, std::size_t bufferChars, const wchar_t* format, va_list args);
