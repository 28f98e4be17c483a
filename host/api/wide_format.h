// The one printf-style formatter behind qxutPrintf and qxutSPrintf.
#pragma once

#include <cstdarg>
#include <string>

namespace korva::api {

// Formats with the host's wide conventions (qx_print.h); format must not be null.
// args is left untouched: the caller still owns and ends it. A conversion that isn't
// understood is copied as is.
std::wstring formatWide(const wchar_t* format, va_list args);

}  // namespace korva::api
