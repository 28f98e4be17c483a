// Linetype files (.lin): definitions of a header line "*NAME,description" followed by
// a pattern line "A,dash,gap,...". A positive length is a dash, a negative one a gap,
// 0 a dot. After a dash, an element in brackets places a text
// ["TEXT",STYLE,S=..,R=..,X=..,Y=..] or a shape [NAME,FILE.SHX,...] along the line.
// Lines starting with ";" are comments.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korva::cmd {

// A text or shape carried by the dash before it.
struct LinetypeEmbedded {
  bool isText = true;
  std::string text;               // the text itself, or the shape's name
  std::string styleOrFile;        // the text style, or the shape file
  double scale = 1.0;             // S=
  double rotation = 0.0;          // R= or A=, radians
  bool absoluteRotation = false;  // A=: measured from the X axis, not from the line
  double offsetX = 0.0;           // X=
  double offsetY = 0.0;           // Y=
};

struct LinetypeElement {
  double length = 0.0;  // > 0 dash, < 0 gap, 0 dot
  std::optional<LinetypeEmbedded> embedded;
};

struct LinetypeDefinition {
  std::string name;
  std::string description;
  std::vector<LinetypeElement> elements;
  size_t line = 0;  // of the header, 1-based

  double patternLength() const;  // the sum of the lengths' absolute values
  bool isComplex() const;        // carries texts or shapes
};

struct LinetypeFileProblem {
  size_t line = 0;
  std::string linetype;  // the definition it spoiled; empty when it belongs to none
  std::string message;
};

struct LinetypeFile {
  std::vector<LinetypeDefinition> definitions;  // in file order, broken ones left out
  std::vector<LinetypeFileProblem> problems;

  // The first definition of that name (names compare without regard to case).
  const LinetypeDefinition* find(std::string_view name) const;
};

// Reads the text of a linetype file (UTF-8; a byte order mark and CR LF are accepted).
LinetypeFile parseLinetypeFile(std::string_view text);

}  // namespace korva::cmd
