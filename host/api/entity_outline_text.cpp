// Text boxes: single-line texts and attributes by justification, paragraph texts by
// attachment, both measured with real font metrics.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "entity_outline.h"
#include "geom/text_box.h"

namespace korva::api {

using geom::Vec3;

namespace {

constexpr double kDegree = std::numbers::pi / 180;
// Paragraph texts set their lines 5/3 of the text height apart at spacing factor 1.
constexpr double kLinePitch = 5.0 / 3.0;

// The text between a backslash code's letter and its semicolon is a parameter.
size_t skipParameter(std::string_view text, size_t i) {
  size_t end = text.find(';', i);
  return end == std::string_view::npos ? text.size() : end + 1;
}

}  // namespace

std::vector<std::string> paragraphLines(std::string_view text) {
  std::vector<std::string> lines(1);
  for (size_t i = 0; i < text.size();) {
    char c = text[i];
    if (c == '{' || c == '}') {
      ++i;
      continue;
    }
    if (c != '\\' || i + 1 >= text.size()) {
      lines.back() += c;
      ++i;
      continue;
    }
    char code = text[i + 1];
    i += 2;
    switch (code) {
      case 'P':
      case 'N':
        lines.emplace_back();
        break;
      case '~':
        lines.back() += ' ';
        break;
      case '\\':
      case '{':
      case '}':
        lines.back() += code;
        break;
      case 'L':
      case 'l':
      case 'O':
      case 'o':
      case 'K':
      case 'k':
        break;
      case 'S': {
        // Stacked fractions: the parts side by side is close enough for a width.
        size_t end = skipParameter(text, i);
        for (size_t k = i; k < end && k < text.size(); ++k) {
          if (text[k] != '^' && text[k] != '/' && text[k] != '#' && text[k] != ';') {
            lines.back() += text[k];
          }
        }
        i = end;
        break;
      }
      default:
        i = skipParameter(text, i);  // fonts, heights, colours, alignment, tracking
        break;
    }
  }
  return lines;
}

void EntityOutliner::addLineText(const db::Record& record, const EntityValues& values) {
  std::string_view type = record.type();
  if (type == "ATTRIB" && (values.integer(70) & 1)) return;  // invisible
  std::string_view text = type == "ATTDEF" ? values.text(2) : values.text(1);
  const geom::TextMetrics& metrics = geom::TextMetrics::standard();
  geom::LineTextLayout layout;
  Vec3 first = values.point(10);
  Vec3 second = values.point(11, first);
  layout.first = {first.x, first.y};
  layout.second = {second.x, second.y};
  layout.height = values.real(40, 1);
  layout.widthFactor = values.real(41, 1);
  layout.rotation = values.real(50) * kDegree;
  layout.oblique = values.real(51) * kDegree;
  long long flags = values.integer(71);
  layout.backward = (flags & 2) != 0;
  layout.upsideDown = (flags & 4) != 0;
  layout.horizontal = static_cast<int>(values.integer(72));
  layout.vertical = static_cast<int>(values.integer(type == "TEXT" ? 73 : 74));
  layout.extent = metrics.measure(geom::resolveTextCodes(utf8(text)));
  layout.fontDescent = metrics.descent();
  auto corners = geom::lineTextCorners(layout);
  Vec3 points[4];
  for (int i = 0; i < 4; ++i) points[i] = {corners[i].x, corners[i].y, first.z};
  builder_.pushTransform(geom::objectToWorld(values.extrusion()));
  builder_.polyline(points, true);
  builder_.popTransform();
}

void EntityOutliner::addParagraphText(const EntityValues& values) {
  double height = values.real(40, 1);
  double referenceWidth = values.real(41);
  double width = values.real(42);
  double totalHeight = values.real(43);
  if (width <= 0 || totalHeight <= 0) {
    std::string contents;
    for (const FlatValue& value : values.all()) {
      if (value.extendedData) break;
      if (value.code == 3 || value.code == 1) contents += value.text;  // 3s come first
    }
    const geom::TextMetrics& metrics = geom::TextMetrics::standard();
    size_t lineCount = 0;
    double widest = 0;
    for (const std::string& line : paragraphLines(utf8(contents))) {
      double lineWidth = metrics.measure(line).advance * height;
      // Lines wider than the reference width wrap; each piece takes a line.
      size_t pieces = 1;
      if (referenceWidth > 0 && lineWidth > referenceWidth) {
        pieces = static_cast<size_t>(std::ceil(lineWidth / referenceWidth));
        lineWidth = referenceWidth;
      }
      lineCount += pieces;
      widest = std::max(widest, lineWidth);
    }
    double pitch = height * kLinePitch * values.real(44, 1);
    if (width <= 0) width = widest;
    if (totalHeight <= 0) totalHeight = height + (static_cast<double>(lineCount) - 1) * pitch;
  }
  Vec3 normal = geom::normalized(values.extrusion());
  Vec3 direction;
  if (const FlatValue* given = values.find(11)) {
    direction = geom::normalized(pointOf(*given));
  } else {
    double rotation = values.real(50);  // radians in the object system
    direction = geom::objectToWorld(normal).vector({std::cos(rotation), std::sin(rotation), 0});
  }
  geom::ParagraphLayout layout;
  layout.width = width;
  layout.height = totalHeight;
  layout.attachment = static_cast<int>(std::clamp(values.integer(71, 1), 1LL, 9LL));
  auto corners = geom::paragraphCorners(layout);
  geom::Affine3 frame =
      geom::Affine3::fromAxes(direction, geom::cross(normal, direction), normal, values.point(10));
  Vec3 points[4];
  for (int i = 0; i < 4; ++i) points[i] = frame.point({corners[i].x, corners[i].y, 0});
  builder_.polyline(points, true);
}

}  // namespace korva::api
