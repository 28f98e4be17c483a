// Which DejaVu face measures the text of a style.
//
// Drawings name fonts that korva does not ship (SHX files, Windows TrueType files). Each
// is measured with the DejaVu face of the same kind, by its file name without regard to
// case:
//   fixed pitch  ("mono", "cour", "consol", "lucon")                  DejaVuSansMono
//   serif        ("roman", "times", "serif", "georgia", "garamond",
//                 "cambria", "book", "script", "italic", "gothic",
//                 "greek", "century")                                 DejaVuSerif
//   narrow       ("narrow", "cond", "arialn")                         DejaVuSansCondensed
//   everything else, "txt.shx", "simplex.shx", "isocp.shx",
//   "arial.ttf" and styles without a font                             DejaVuSans
// A bold file name ("bd", "bold", ending "b.ttf") takes the bold face of its kind.
#pragma once

#include <string>
#include <string_view>

#include "db/database.h"
#include "geom/text_metrics.h"

namespace korva::api {

// The full path of the DejaVu face for a font file name.
std::string dejaVuFontFor(std::string_view fontFile);

// The metrics of a style's font in a drawing; the standard face without the style.
const geom::TextMetrics& metricsOfStyle(const db::Database* database, std::string_view styleName);

}  // namespace korva::api
