// Widths of text from real font metrics, in units of the text height (the height of
// capital letters), so that text boxes come out near what a viewer draws.
#pragma once

#include <string>
#include <string_view>

namespace korva::geom {

struct TextExtent {
  double advance = 0;  // pen travel along the baseline
  double bottom = 0;   // lowest ink, negative below the baseline
  double top = 0;      // highest ink
};

class TextMetrics {
 public:
  // DejaVu Sans, loaded once; without it every character advances 0.6.
  static const TextMetrics& standard();
  // The metrics of another font file, loaded once per path; falls back as above.
  static const TextMetrics& ofFont(const std::string& fontPath);

  // The text as UTF-8, control codes of drawing text already resolved.
  TextExtent measure(std::string_view utf8) const;
  // How far the font reaches below the baseline, positive.
  double descent() const { return descent_; }
  bool hasFont() const { return face_ != nullptr; }

  TextMetrics(const TextMetrics&) = delete;
  TextMetrics& operator=(const TextMetrics&) = delete;
  ~TextMetrics();

 private:
  explicit TextMetrics(const char* fontPath);
  struct Glyph {
    double advance = 0, bottom = 0, top = 0;
    bool known = false;
  };
  Glyph glyph(char32_t character) const;

  void* library_ = nullptr;  // FT_Library
  void* face_ = nullptr;     // FT_Face
  double unitsPerHeight_ = 1;
  double descent_ = 0.3;
  mutable Glyph ascii_[128];
};

// Drawing text with its control codes resolved: %%d, %%p, %%c become their symbols,
// %%u, %%o, %%k and %%nnn codes as the characters they stand for.
std::string resolveTextCodes(std::string_view text);

}  // namespace korva::geom
