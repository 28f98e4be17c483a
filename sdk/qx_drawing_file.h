// The host's drawing files.
#pragma once

// korva's drawings are DXF files. NEW, OPEN and SAVEAS add this extension to a name
// typed without one, and a module that makes up a drawing file name uses it too, so
// the extension is spelled in this one place.
inline constexpr wchar_t QXED_DRAWING_EXTENSION[] = L".dxf";
