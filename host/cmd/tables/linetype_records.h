// Linetype definitions put into the current drawing's LTYPE table.
#pragma once

#include <string>

#include "cmd/tables/linetype_file.h"

namespace korva::cmd {

enum class LinetypeLoadResult {
  Loaded,    // a new table record
  Reloaded,  // the existing record took the file's definition
  NoDrawing,
  MissingStyle,  // a text element names a style the drawing lacks (detail: the style)
  HasShapes,     // shape elements need the shape's number from its file, which korva
                 // doesn't read (detail: the shape)
  TooOld,        // an R12 drawing can't hold texts or shapes in linetypes
  Failed,
};

struct LinetypeLoad {
  LinetypeLoadResult result = LinetypeLoadResult::Failed;
  std::string detail;
};

// Makes or replaces the record of the definition's name in the current drawing.
LinetypeLoad loadLinetype(const LinetypeDefinition& definition);

}  // namespace korva::cmd
