#include "paragraph_layout.h"

#include <algorithm>

#include "api/entity_outline.h"

namespace korva::api {

namespace {

// Lines are set 5/3 of the text height apart at spacing factor 1.
constexpr double kLinePitch = 5.0 / 3.0;

std::vector<std::string> words(const std::string& line) {
  std::vector<std::string> found;
  size_t start = 0;
  while (start <= line.size()) {
    size_t blank = line.find(' ', start);
    if (blank == std::string::npos) blank = line.size();
    if (blank > start) found.push_back(line.substr(start, blank - start));
    start = blank + 1;
  }
  return found;
}

}  // namespace

ParagraphSize layOutParagraph(const ParagraphFacts& facts) {
  const geom::TextMetrics& metrics = facts.metrics ? *facts.metrics : geom::TextMetrics::standard();
  auto widthOf = [&](const std::string& text) {
    return metrics.measure(text).advance * facts.textHeight;
  };
  ParagraphSize size;
  for (const std::string& paragraph : paragraphLines(facts.contents)) {
    if (facts.width <= 0 || widthOf(paragraph) <= facts.width) {
      size.lines.push_back(paragraph);
      continue;
    }
    // Greedy wrapping at blanks; a word longer than the width keeps a line of its own.
    std::string current;
    for (const std::string& word : words(paragraph)) {
      std::string candidate = current.empty() ? word : current + ' ' + word;
      if (!current.empty() && widthOf(candidate) > facts.width) {
        size.lines.push_back(current);
        current = word;
      } else {
        current = candidate;
      }
    }
    size.lines.push_back(current);
  }
  for (const std::string& line : size.lines) size.width = std::max(size.width, widthOf(line));
  double pitch = paragraphLinePitch(facts.textHeight, facts.lineSpacingFactor);
  size.height = facts.textHeight + static_cast<double>(size.lines.size() - 1) * pitch;
  return size;
}

double paragraphLinePitch(double textHeight, double lineSpacingFactor) {
  return textHeight * kLinePitch * (lineSpacingFactor > 0 ? lineSpacingFactor : 1);
}

}  // namespace korva::api
