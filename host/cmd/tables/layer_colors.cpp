// Colour names and numbers of -LAYER.
#include "cmd/tables/layer_colors.h"

#include <charconv>
#include <cwctype>

#include "api/utf8.h"

namespace korva::cmd {
namespace {

constexpr const wchar_t* kColorNames[] = {L"red",  L"yellow",  L"green", L"cyan",
                                          L"blue", L"magenta", L"white"};

std::optional<int> parseInteger(std::wstring_view text) {
  std::string narrow = api::toUtf8(text);
  int value = 0;
  auto [end, error] = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
  if (error != std::errc() || end != narrow.data() + narrow.size()) return std::nullopt;
  return value;
}

}  // namespace

std::optional<int> parseColorIndex(std::wstring_view text) {
  if (std::optional<int> index = parseInteger(text)) {
    if (*index >= 1 && *index <= 255) return index;
    return std::nullopt;
  }
  std::wstring lower(text);
  for (wchar_t& c : lower) c = static_cast<wchar_t>(std::towlower(c));
  for (int i = 0; i < 7; ++i) {
    if (lower == kColorNames[i]) return i + 1;
  }
  return std::nullopt;
}

std::optional<std::uint32_t> parseTrueColor(std::wstring_view text) {
  std::uint32_t color = 0;
  for (int part = 0; part < 3; ++part) {
    size_t comma = text.find(L',');
    if ((part < 2) != (comma != std::wstring_view::npos)) return std::nullopt;
    std::optional<int> value = parseInteger(text.substr(0, comma));
    if (!value || *value < 0 || *value > 255) return std::nullopt;
    color = (color << 8) | static_cast<std::uint32_t>(*value);
    text.remove_prefix(part < 2 ? comma + 1 : text.size());
  }
  return color;
}

std::wstring describeColor(int index, std::optional<std::uint32_t> trueColor) {
  if (trueColor) {
    return std::to_wstring((*trueColor >> 16) & 0xFF) + L"," +
           std::to_wstring((*trueColor >> 8) & 0xFF) + L"," + std::to_wstring(*trueColor & 0xFF);
  }
  std::wstring text = std::to_wstring(index);
  if (index >= 1 && index <= 7) text += std::wstring(L" (") + kColorNames[index - 1] + L")";
  return text;
}

}  // namespace korva::cmd
