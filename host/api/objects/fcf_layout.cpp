#include "fcf_layout.h"

#include <vector>

#include "db/database.h"

namespace korva::api {

namespace {

constexpr std::string_view kRowBreak = "^J";
constexpr std::string_view kCellBreak = "%%v";

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  while (true) {
    size_t at = text.find(separator);
    pieces.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return pieces;
    text.remove_prefix(at + separator.size());
  }
}

// "%%v" in any case separates cells.
std::vector<std::string_view> splitCells(std::string_view row) {
  std::vector<std::string_view> cells;
  size_t start = 0;
  for (size_t i = 0; i + kCellBreak.size() <= row.size(); ++i) {
    if (row[i] == '%' && row[i + 1] == '%' && (row[i + 2] == 'v' || row[i + 2] == 'V')) {
      cells.push_back(row.substr(start, i - start));
      start = i + kCellBreak.size();
      i = start - 1;
    }
  }
  cells.push_back(row.substr(start));
  return cells;
}

// "\Fgdt;", "\Fgdt.shx|c0;": the font that draws the tolerance symbols.
bool isSymbolFont(std::string_view font) {
  font = font.substr(0, font.find('|'));
  if (font.size() > 4 && db::sameName(font.substr(font.size() - 4), ".shx")) font.remove_suffix(4);
  return db::sameName(font, "gdt");
}

}  // namespace

double frameContentsWidth(std::string_view contents, double textHeight,
                          const geom::TextMetrics& metrics) {
  double width = 0;
  std::string run;
  auto endRun = [&] {
    if (!run.empty()) width += metrics.measure(geom::resolveTextCodes(run)).advance * textHeight;
    run.clear();
  };
  // Each brace opens a scope that a font change lasts for.
  std::vector<bool> symbolFont{false};
  for (size_t i = 0; i < contents.size(); ++i) {
    char c = contents[i];
    if (c == '{') {
      symbolFont.push_back(symbolFont.back());
      continue;
    }
    if (c == '}') {
      if (symbolFont.size() > 1) symbolFont.pop_back();
      continue;
    }
    if (c == '\\' && i + 1 < contents.size()) {
      char code = contents[i + 1];
      if (code == '\\' || code == '{' || code == '}') {
        c = code;
        ++i;
      } else if (std::string_view("FfHhWwQqTtAaCcpS").find(code) == std::string_view::npos) {
        ++i;  // a switch without a value: underline, overline, ...
        continue;
      } else {
        size_t end = contents.find(';', i);
        if (end == std::string_view::npos) end = contents.size() - 1;
        if (code == 'F' || code == 'f') {
          endRun();
          symbolFont.back() = isSymbolFont(contents.substr(i + 2, end - i - 2));
        }
        i = end;
        continue;
      }
    }
    if (symbolFont.back()) {
      endRun();
      width += textHeight;
    } else {
      run += c;
    }
  }
  endRun();
  return width;
}

FrameLayout layOutFrame(std::string_view text, double textHeight, double gap,
                        const geom::TextMetrics& metrics) {
  FrameLayout layout;
  layout.textHeight = textHeight;
  layout.gap = gap;
  double rowHeight = textHeight + 2 * gap;
  double top = rowHeight / 2;
  for (std::string_view row : split(text, kRowBreak)) {
    double left = 0;
    for (std::string_view cell : splitCells(row)) {
      if (cell.empty()) continue;
      double right = left + gap + frameContentsWidth(cell, textHeight, metrics) + gap;
      layout.cells.push_back({left, top - rowHeight, right, top, std::string(cell)});
      left = right;
    }
    top -= rowHeight;
  }
  return layout;
}

}  // namespace korva::api
