#include "text_fonts.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>

namespace korva::api {

namespace {

constexpr std::string_view kFontFolder = "/usr/share/fonts/truetype/dejavu/";

bool containsAny(std::string_view name, std::initializer_list<std::string_view> parts) {
  return std::any_of(parts.begin(), parts.end(), [&](std::string_view part) {
    return name.find(part) != std::string_view::npos;
  });
}

}  // namespace

std::string dejaVuFontFor(std::string_view fontFile) {
  std::string name(fontFile.substr(fontFile.find_last_of("/\\") == std::string_view::npos
                                       ? 0
                                       : fontFile.find_last_of("/\\") + 1));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  bool bold = containsAny(name, {"bd", "bold"}) || name.ends_with("b.ttf");
  std::string face;
  if (containsAny(name, {"mono", "cour", "consol", "lucon"})) {
    face = bold ? "DejaVuSansMono-Bold" : "DejaVuSansMono";
  } else if (containsAny(name, {"roman", "times", "serif", "georgia", "garamond", "cambria", "book",
                                "script", "italic", "gothic", "greek", "century"})) {
    face = bold ? "DejaVuSerif-Bold" : "DejaVuSerif";
  } else if (containsAny(name, {"narrow", "cond", "arialn"})) {
    face = bold ? "DejaVuSansCondensed-Bold" : "DejaVuSansCondensed";
  } else {
    face = bold ? "DejaVuSans-Bold" : "DejaVuSans";
  }
  return std::string(kFontFolder) + face + ".ttf";
}

const geom::TextMetrics& metricsOfStyle(const db::Database* database, std::string_view styleName) {
  if (!database) return geom::TextMetrics::standard();
  db::Record* style = const_cast<db::Database*>(database)->tableEntry(
      "STYLE", styleName.empty() ? std::string_view("Standard") : styleName);
  std::string_view fontFile = style ? style->find(3).value_or("") : "";
  return geom::TextMetrics::ofFont(dejaVuFontFor(fontFile));
}

}  // namespace korva::api
