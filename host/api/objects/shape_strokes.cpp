#include "shape_strokes.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <string>

#include "db/database.h"

namespace korva::api {

namespace {

using geom::Vec2;

constexpr double kOctant = std::numbers::pi / 4;
// Subshapes that call each other end here.
constexpr int kDeepestSubshape = 8;

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t' || text.front() == '('))
    text.remove_prefix(1);
  while (!text.empty() &&
         (text.back() == ' ' || text.back() == '\t' || text.back() == '\r' || text.back() == ')'))
    text.remove_suffix(1);
  return text;
}

// One value as the file writes it: with a leading 0 (after an optional sign)
// hexadecimal, else decimal. False for anything else.
bool parseValue(std::string_view text, int& value) {
  text = trimmed(text);
  bool negative = !text.empty() && (text.front() == '-' || text.front() == '+');
  if (negative) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  if (text.empty()) return false;
  bool hexadecimal = text.size() > 1 && text.front() == '0';
  value = 0;
  for (char c : text) {
    int digit = c >= '0' && c <= '9'   ? c - '0'
                : c >= 'a' && c <= 'f' ? c - 'a' + 10
                : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                       : -1;
    if (digit < 0 || (!hexadecimal && digit > 9)) return false;
    value = value * (hexadecimal ? 16 : 10) + digit;
    if (value > 65535) return false;
  }
  if (negative) value = -value;
  return true;
}

// Each definition of the source: its header line (after "*") and its data lines joined.
void forEachDefinition(std::string_view source,
                       const std::function<bool(std::string_view, const std::string&)>& visit) {
  std::string_view header;
  std::string data;
  bool open = false;
  while (true) {
    size_t end = source.find('\n');
    std::string_view line = source.substr(0, end);
    bool last = end == std::string_view::npos;
    source = last ? std::string_view() : source.substr(end + 1);
    line = line.substr(0, line.find(';'));
    while (!line.empty() && (line.front() == ' ' || line.front() == '\t')) line.remove_prefix(1);
    if (last || (!line.empty() && line.front() == '*')) {
      if (last && !line.empty() && line.front() != '*') data += "," + std::string(line);
      if (open && !visit(header, data)) return;
      if (last) return;
      header = line.substr(1);
      data.clear();
      open = true;
    } else if (!line.empty()) {
      data += "," + std::string(line);
    }
  }
}

std::vector<int> valuesOf(std::string_view data) {
  std::vector<int> values;
  while (!data.empty()) {
    size_t comma = data.find(',');
    std::string_view piece = data.substr(0, comma);
    int value = 0;
    if (parseValue(piece, value)) values.push_back(value);
    data = comma == std::string_view::npos ? std::string_view() : data.substr(comma + 1);
  }
  return values;
}

std::string_view headerNumber(std::string_view header) {
  return trimmed(header.substr(0, header.find(',')));
}

bool isUnifont(std::string_view source) {
  bool unifont = false;
  forEachDefinition(source, [&](std::string_view header, const std::string&) {
    unifont = db::sameName(headerNumber(header), "UNIFONT");
    return false;
  });
  return unifont;
}

// A signed byte as stored: values written past 127 wrap.
int signedByte(int value) {
  value &= 0xFF;
  return value > 127 ? value - 256 : value;
}

class Pen {
 public:
  Pen(std::string_view source, std::vector<ShapeStroke>& strokes)
      : source_(source), unifont_(isUnifont(source)), strokes_(strokes) {}

  void draw(int number, int depth) {
    if (depth > kDeepestSubshape) return;
    std::vector<int> codes = shapeCodes(source_, number);
    size_t at = 0;
    auto next = [&]() { return at < codes.size() ? codes[at++] : 0; };
    bool skip = false;
    while (at < codes.size()) {
      int code = next();
      bool act = !skip;
      skip = false;
      switch (code) {
        case 0:
          return;
        case 1:
          if (act) down_ = true;
          break;
        case 2:
          if (act) down_ = false;
          break;
        case 3:
        case 4: {
          int factor = next() & 0xFF;
          if (act && factor != 0) scale_ = code == 3 ? scale_ / factor : scale_ * factor;
          break;
        }
        case 5:
          if (act) stack_.push_back(at_);
          break;
        case 6:
          if (act && !stack_.empty()) {
            at_ = stack_.back();
            stack_.pop_back();
          }
          break;
        case 7: {
          int sub = next() & 0xFF;
          if (unifont_) sub = sub * 256 + (next() & 0xFF);
          if (act) draw(sub, depth + 1);
          break;
        }
        case 8: {
          int dx = signedByte(next()), dy = signedByte(next());
          if (act) move({static_cast<double>(dx), static_cast<double>(dy)});
          break;
        }
        case 9:
          while (at < codes.size()) {
            int dx = signedByte(next()), dy = signedByte(next());
            if (dx == 0 && dy == 0) break;
            if (act) move({static_cast<double>(dx), static_cast<double>(dy)});
          }
          break;
        case 10: {
          int radius = next() & 0xFF, arcCode = next();
          if (act) octantArc(radius, arcCode);
          break;
        }
        case 11: {
          int startOffset = next() & 0xFF, endOffset = next() & 0xFF;
          int radius = (next() & 0xFF) * 256;
          radius += next() & 0xFF;
          int arcCode = next();
          if (act) fractionalArc(startOffset, endOffset, radius, arcCode);
          break;
        }
        case 12: {
          int dx = signedByte(next()), dy = signedByte(next()), bulge = signedByte(next());
          if (act) bulgeArc(dx, dy, bulge);
          break;
        }
        case 13:
          while (at < codes.size()) {
            int dx = signedByte(next()), dy = signedByte(next());
            if (dx == 0 && dy == 0) break;
            int bulge = signedByte(next());
            if (act) bulgeArc(dx, dy, bulge);
          }
          break;
        case 14:
          // Horizontal text: the next command is for vertical text only.
          skip = act;
          break;
        default:
          if (act) vector(code & 0xFF);
          break;
      }
    }
  }

 private:
  void move(Vec2 by) {
    Vec2 target = at_ + by * scale_;
    if (down_) {
      ShapeStroke line;
      line.start = at_;
      line.end = target;
      strokes_.push_back(line);
    }
    at_ = target;
  }

  void vector(int code) {
    // Directions go round in sixteen steps, four to a right angle, along the edges of
    // a square: 1 is (1, 0.5), 2 is (1, 1).
    static const double kX[16] = {1, 1, 1, 0.5, 0, -0.5, -1, -1, -1, -1, -1, -0.5, 0, 0.5, 1, 1};
    static const double kY[16] = {0, 0.5, 1, 1, 1, 1, 1, 0.5, 0, -0.5, -1, -1, -1, -1, -1, -0.5};
    double length = (code >> 4) & 0xF;
    int direction = code & 0xF;
    move({kX[direction] * length, kY[direction] * length});
  }

  // An arc through the pen from angle `start` by `sweep` (negative clockwise).
  void arc(double radius, double start, double sweep) {
    if (radius <= 0) return;
    Vec2 center = at_ - Vec2{std::cos(start), std::sin(start)} * radius;
    double end = start + sweep;
    if (down_) {
      ShapeStroke stroke;
      stroke.arc = true;
      stroke.center = center;
      stroke.radius = radius;
      stroke.from = sweep < 0 ? end : start;
      stroke.to = sweep < 0 ? start : end;
      strokes_.push_back(stroke);
    }
    at_ = center + Vec2{std::cos(end), std::sin(end)} * radius;
  }

  void octantArc(int radius, int arcCode) {
    bool clockwise = arcCode < 0;
    arcCode = std::abs(arcCode);
    int first = (arcCode >> 4) & 0x7, count = arcCode & 0x7;
    if (count == 0) count = 8;
    double sweep = count * kOctant;
    arc(radius * scale_, first * kOctant, clockwise ? -sweep : sweep);
  }

  void fractionalArc(int startOffset, int endOffset, int radius, int arcCode) {
    bool clockwise = arcCode < 0;
    arcCode = std::abs(arcCode);
    int first = (arcCode >> 4) & 0x7, count = arcCode & 0x7;
    if (count == 0) count = 8;
    double offsetUnit = kOctant / 256;
    // Offsets run along the arc: from the first octant's boundary to the start, and
    // from the last octant's boundary to the end; 0 at the end is the whole octant.
    double along = clockwise ? -1 : 1;
    double start = first * kOctant + along * startOffset * offsetUnit;
    double lastBoundary = (first + along * (count - 1)) * kOctant;
    double end = lastBoundary + along * (endOffset == 0 ? 256 : endOffset) * offsetUnit;
    double sweep = end - start;
    if (clockwise && sweep > 0) sweep -= 2 * std::numbers::pi;
    if (!clockwise && sweep < 0) sweep += 2 * std::numbers::pi;
    arc(radius * scale_, start, sweep);
  }

  void bulgeArc(int dx, int dy, int bulge) {
    Vec2 chord = Vec2{static_cast<double>(dx), static_cast<double>(dy)} * scale_;
    if (bulge == 0 || geom::length(chord) == 0) {
      move({static_cast<double>(dx), static_cast<double>(dy)});
      return;
    }
    // The bulge is the arc's height over half the chord: tan of a quarter of its sweep.
    double sweep = 4 * std::atan(bulge / 127.0);
    double half = geom::length(chord) / 2;
    double radius = half / std::fabs(std::sin(sweep / 2));
    // The chord leaves the start at half the sweep off the tangent.
    double chordAngle = std::atan2(chord.y, chord.x);
    double start = chordAngle - sweep / 2 - (sweep > 0 ? 1 : -1) * std::numbers::pi / 2;
    arc(radius, start, sweep);
  }

  std::string_view source_;
  bool unifont_;
  std::vector<ShapeStroke>& strokes_;
  Vec2 at_;
  bool down_ = true;
  double scale_ = 1;
  std::vector<Vec2> stack_;
};

}  // namespace

std::vector<int> shapeCodes(std::string_view source, int number) {
  std::vector<int> codes;
  forEachDefinition(source, [&](std::string_view header, const std::string& data) {
    int value = 0;
    if (!parseValue(headerNumber(header), value) || value != number) return true;
    codes = valuesOf(data);
    return false;
  });
  return codes;
}

std::vector<ShapeStroke> shapeStrokes(std::string_view source, int number) {
  std::vector<ShapeStroke> strokes;
  Pen(source, strokes).draw(number, 0);
  return strokes;
}

double shapeUnitsPerSize(std::string_view source) {
  double units = 1;
  forEachDefinition(source, [&](std::string_view header, const std::string& data) {
    std::string_view number = headerNumber(header);
    if (number == "0" || db::sameName(number, "UNIFONT")) {
      std::vector<int> values = valuesOf(data);
      if (!values.empty() && values.front() > 0) units = values.front();
    }
    return false;
  });
  return units;
}

}  // namespace korva::api
