#include "shape_files.h"

#include <fstream>
#include <sstream>

#include "db/value_text.h"
#include "input/support_path.h"
#include "object_groups.h"

namespace korva::api {

namespace {

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
    text.remove_suffix(1);
  return text;
}

// A shape number as the file writes it; 0 for headers such as *UNIFONT.
int numberOf(std::string_view text) {
  text = trimmed(text);
  if (text.empty()) return 0;
  bool hexadecimal = text.size() > 1 && text.front() == '0';
  int value = 0;
  for (char c : text) {
    int digit = c >= '0' && c <= '9'   ? c - '0'
                : c >= 'a' && c <= 'f' ? c - 'a' + 10
                : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                       : -1;
    if (digit < 0 || (!hexadecimal && digit > 9)) return 0;
    value = value * (hexadecimal ? 16 : 10) + digit;
    if (value > 65535) return 0;
  }
  return value;
}

std::string lowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

// The source file's name for a style's compiled file name, without its folder.
std::string sourceNameOf(std::string_view fontFile) {
  size_t slash = fontFile.find_last_of("/\\");
  if (slash != std::string_view::npos) fontFile.remove_prefix(slash + 1);
  size_t dot = fontFile.find_last_of('.');
  std::string stem(fontFile.substr(0, dot));
  return stem.empty() ? std::string() : stem + ".shp";
}

}  // namespace

int shapeNumberInSource(std::string_view source, std::string_view name) {
  name = trimmed(name);
  if (name.empty()) return 0;
  while (!source.empty()) {
    size_t end = source.find('\n');
    std::string_view line = source.substr(0, end);
    source = end == std::string_view::npos ? std::string_view() : source.substr(end + 1);
    line = trimmed(line);
    if (line.empty() || line.front() != '*') continue;
    size_t first = line.find(',');
    size_t second = first == std::string_view::npos ? first : line.find(',', first + 1);
    if (second == std::string_view::npos) continue;
    std::string_view shapeName = trimmed(line.substr(second + 1));
    size_t comment = shapeName.find(';');
    if (comment != std::string_view::npos) shapeName = trimmed(shapeName.substr(0, comment));
    if (db::sameName(shapeName, name)) return numberOf(line.substr(1, first - 1));
  }
  return 0;
}

int shapeNumberOf(db::Database& database, std::string_view name) {
  std::optional<ShapeSource> source = shapeSourceOf(database, name);
  return source ? source->number : 0;
}

std::optional<ShapeSource> shapeSourceOf(db::Database& database, std::string_view name) {
  db::Table* styles = database.table("STYLE");
  if (!styles) return std::nullopt;
  for (db::Record* style : styles->entries) {
    if (style->isErased() || (groupInteger(*style, 70, 0) & 1) == 0) continue;
    std::string sourceName = sourceNameOf(groupText(*style, 3).value_or(""));
    if (sourceName.empty()) continue;
    // Drawings spell file names in any case; sources are mostly kept in lower case.
    std::optional<std::string> path = input::findSupportFile(sourceName);
    if (!path) path = input::findSupportFile(lowerCase(sourceName));
    if (!path) continue;
    std::ifstream in(*path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    std::string source = text.str();
    if (int number = shapeNumberInSource(source, name))
      return ShapeSource{std::move(source), number};
  }
  return std::nullopt;
}

}  // namespace korva::api
