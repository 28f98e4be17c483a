// Reading linetype files.
#include "cmd/tables/linetype_file.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <numbers>

#include "db/database.h"

namespace korva::cmd {
namespace {

std::string_view trim(std::string_view text) {
  size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  size_t last = text.find_last_not_of(" \t\r\n");
  return text.substr(first, last - first + 1);
}

std::optional<double> parseNumber(std::string_view text) {
  text = trim(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  if (text.empty()) return std::nullopt;
  double value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

// An angle in degrees unless it ends with "r" (radians) or "g" (grads); "d" is degrees.
std::optional<double> parseAngle(std::string_view text) {
  text = trim(text);
  double toRadians = std::numbers::pi / 180.0;
  if (!text.empty()) {
    char unit = static_cast<char>(std::tolower(static_cast<unsigned char>(text.back())));
    if (unit == 'r' || unit == 'g' || unit == 'd') {
      text.remove_suffix(1);
      if (unit == 'r') toRadians = 1.0;
      if (unit == 'g') toRadians = std::numbers::pi / 200.0;
    }
  }
  std::optional<double> value = parseNumber(text);
  if (!value) return std::nullopt;
  return *value * toRadians;
}

// Splits at commas outside brackets and double quotes; nullopt when a bracket or a
// quote isn't closed.
std::optional<std::vector<std::string_view>> splitItems(std::string_view text) {
  std::vector<std::string_view> items;
  int depth = 0;
  bool quoted = false;
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '"') {
      quoted = !quoted;
    } else if (quoted) {
      continue;
    } else if (c == '[') {
      ++depth;
    } else if (c == ']') {
      if (--depth < 0) return std::nullopt;
    } else if (c == ',' && depth == 0) {
      items.push_back(trim(text.substr(start, i - start)));
      start = i + 1;
    }
  }
  if (depth != 0 || quoted) return std::nullopt;
  items.push_back(trim(text.substr(start)));
  return items;
}

// The inside of "[...]"; the error text when it is malformed.
std::optional<LinetypeEmbedded> parseEmbedded(std::string_view inside, std::string& error) {
  std::optional<std::vector<std::string_view>> fields = splitItems(inside);
  if (!fields || fields->size() < 2) {
    error = "an embedded element needs a text or shape and a style or shape file";
    return std::nullopt;
  }
  LinetypeEmbedded embedded;
  std::string_view first = (*fields)[0];
  if (first.size() >= 2 && first.front() == '"' && first.back() == '"') {
    embedded.text = std::string(first.substr(1, first.size() - 2));
  } else {
    embedded.isText = false;
    embedded.text = std::string(first);
  }
  embedded.styleOrFile = std::string((*fields)[1]);
  if (embedded.text.empty() || embedded.styleOrFile.empty()) {
    error = "an embedded element needs a text or shape and a style or shape file";
    return std::nullopt;
  }
  for (size_t i = 2; i < fields->size(); ++i) {
    std::string_view field = (*fields)[i];
    size_t equals = field.find('=');
    if (equals == std::string_view::npos) {
      error = "expected KEY=VALUE in an embedded element, found '" + std::string(field) + "'";
      return std::nullopt;
    }
    std::string_view keyText = trim(field.substr(0, equals));
    char key = keyText.size() == 1
                   ? static_cast<char>(std::toupper(static_cast<unsigned char>(keyText.front())))
                   : '?';
    std::string_view value = field.substr(equals + 1);
    std::optional<double> number =
        (key == 'R' || key == 'A') ? parseAngle(value) : parseNumber(value);
    if (!number || (key != 'S' && key != 'R' && key != 'A' && key != 'X' && key != 'Y')) {
      error = "unknown or malformed value '" + std::string(field) + "' in an embedded element";
      return std::nullopt;
    }
    if (key == 'S') embedded.scale = *number;
    if (key == 'X') embedded.offsetX = *number;
    if (key == 'Y') embedded.offsetY = *number;
    if (key == 'R' || key == 'A') {
      embedded.rotation = *number;
      embedded.absoluteRotation = key == 'A';
    }
  }
  return embedded;
}

// The elements of a pattern line; the error text when it is malformed.
std::optional<std::vector<LinetypeElement>> parsePattern(std::string_view line,
                                                         std::string& error) {
  std::optional<std::vector<std::string_view>> items = splitItems(line);
  if (!items) {
    error = "unbalanced brackets or quotes in the pattern";
    return std::nullopt;
  }
  std::string_view alignment = (*items)[0];
  if (alignment != "A" && alignment != "a") {
    error = "a pattern line starts with the alignment A";
    return std::nullopt;
  }
  std::vector<LinetypeElement> elements;
  for (size_t i = 1; i < items->size(); ++i) {
    std::string_view item = (*items)[i];
    if (!item.empty() && item.front() == '[') {
      if (item.back() != ']') {
        error = "text after an embedded element: '" + std::string(item) + "'";
        return std::nullopt;
      }
      if (elements.empty() || elements.back().embedded) {
        error = "an embedded element must follow a dash or gap of its own";
        return std::nullopt;
      }
      std::optional<LinetypeEmbedded> embedded =
          parseEmbedded(item.substr(1, item.size() - 2), error);
      if (!embedded) return std::nullopt;
      elements.back().embedded = std::move(embedded);
      continue;
    }
    std::optional<double> length = parseNumber(item);
    if (!length) {
      error = "expected a length, found '" + std::string(item) + "'";
      return std::nullopt;
    }
    elements.push_back({*length, std::nullopt});
  }
  // Alignment A needs a pattern that starts with a dash or dot and then lifts the pen.
  if (elements.size() < 2 || elements[0].length < 0 || elements[1].length >= 0) {
    error = "the pattern must start with a dash or dot followed by a gap";
    return std::nullopt;
  }
  return elements;
}

}  // namespace

double LinetypeDefinition::patternLength() const {
  double total = 0;
  for (const LinetypeElement& element : elements) total += std::fabs(element.length);
  return total;
}

bool LinetypeDefinition::isComplex() const {
  for (const LinetypeElement& element : elements) {
    if (element.embedded) return true;
  }
  return false;
}

const LinetypeDefinition* LinetypeFile::find(std::string_view name) const {
  for (const LinetypeDefinition& definition : definitions) {
    if (db::sameName(definition.name, name)) return &definition;
  }
  return nullptr;
}

LinetypeFile parseLinetypeFile(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  LinetypeFile file;
  std::optional<LinetypeDefinition> pending;
  auto dropPending = [&]() {
    if (pending) {
      file.problems.push_back({pending->line, pending->name, "the header has no pattern line"});
      pending.reset();
    }
  };
  bool skipPattern = false;
  size_t lineNumber = 0;
  while (!text.empty()) {
    size_t end = text.find('\n');
    std::string_view line = trim(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    ++lineNumber;
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '*') {
      dropPending();
      skipPattern = false;
      size_t comma = line.find(',');
      LinetypeDefinition definition;
      definition.name = std::string(trim(
          line.substr(1, comma == std::string_view::npos ? std::string_view::npos : comma - 1)));
      if (comma != std::string_view::npos) {
        definition.description = std::string(trim(line.substr(comma + 1)));
      }
      definition.line = lineNumber;
      if (definition.name.empty()) {
        file.problems.push_back({lineNumber, {}, "a header line without a linetype name"});
        skipPattern = true;
        continue;
      }
      pending = std::move(definition);
      continue;
    }
    if (!pending && skipPattern) {
      skipPattern = false;  // the pattern of a nameless header, reported with it
      continue;
    }
    if (!pending) {
      file.problems.push_back({lineNumber, {}, "a pattern line without a header line before it"});
      continue;
    }
    std::string error;
    std::optional<std::vector<LinetypeElement>> elements = parsePattern(line, error);
    if (!elements) {
      file.problems.push_back({lineNumber, pending->name, error});
    } else {
      pending->elements = std::move(*elements);
      file.definitions.push_back(std::move(*pending));
    }
    pending.reset();
  }
  dropPending();
  return file;
}

}  // namespace korva::cmd
