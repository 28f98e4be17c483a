#include "cmd/blocks/drawing_aid_settings.h"

#include <cwctype>

#include "cmd/drawing/command_variables.h"
#include "input/point_input.h"
#include "qx_print.h"
#include "qx_types.h"

namespace korva::cmd::blocks {

geom::Vec2 spacingVariable(const wchar_t* name) {
  geom::Vec3 pair = drawing::pointVariable(name);
  return {pair.x, pair.y};
}

bool setSpacingVariable(const wchar_t* name, geom::Vec2 spacing) {
  return drawing::setPointVariable(name, {spacing.x, spacing.y, 0});
}

std::optional<bool> askYesNo(const std::wstring& question, bool fallback) {
  std::wstring prompt = L"\n" + question + (fallback ? L" [Yes/No] <Y>: " : L" [Yes/No] <N>: ");
  drawing::Answer answer = drawing::askKeyword(prompt.c_str(), {0, L"Yes No _ Yes No"});
  if (answer.stop()) return std::nullopt;
  if (answer.enter()) return fallback;
  return answer.is(L"Yes");
}

std::optional<TypedSpacing> parseTypedSpacing(const std::wstring& text) {
  std::wstring_view trimmed = input::trimmedInput(text);
  TypedSpacing result;
  if (!trimmed.empty() && std::towupper(trimmed.back()) == L'X') {
    result.timesSnap = true;
    trimmed.remove_suffix(1);
  }
  std::optional<double> value =
      result.timesSnap ? input::parseRealInput(trimmed) : input::parseDistanceInput(trimmed);
  if (!value || *value < 0) return std::nullopt;
  result.value = *value;
  return result;
}

drawing::Answer askSpacing(const std::wstring& prompt, const wchar_t* keywords,
                           bool allowSnapMultiple, double snapSpacing, double& spacing) {
  for (;;) {
    double value = 0;
    int flags = (allowSnapMultiple ? 128 : 0) | 4;
    drawing::Answer answer =
        drawing::askDistance(prompt.c_str(), std::nullopt, value, {flags, keywords});
    if (answer.status == RTKWORD && allowSnapMultiple) {
      std::optional<TypedSpacing> typed = parseTypedSpacing(answer.keyword);
      if (!typed) {
        // A keyword of the list, not a spacing.
        if (answer.keyword.find_first_of(L"0123456789") == std::wstring::npos) return answer;
        qxutPrintf(
            L"\nRequires a distance, a multiple of the snap spacing (2x), or an option "
            L"keyword.");
        continue;
      }
      value = typed->timesSnap ? typed->value * snapSpacing : typed->value;
      answer.status = RTNORM;
      answer.keyword.clear();
    }
    if (answer.value() && value <= 0) {
      qxutPrintf(L"\nValue must be positive and nonzero.");
      continue;
    }
    if (answer.value()) spacing = value;
    return answer;
  }
}

}  // namespace korva::cmd::blocks
