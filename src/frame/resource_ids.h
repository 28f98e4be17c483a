// Resource ids of the frame's own strings (the resource source's "Frame" block).
#pragma once

namespace frame {

constexpr unsigned kCalFunctionLocalName = 6120;   // "C:CAL"
constexpr unsigned kCalLocalName = 6121;           // "CAL"
constexpr unsigned kRefEditAlertLocalName = 6275;  // "ai_refedit_alert"
constexpr unsigned kRefEditAlertText = 6650;
constexpr unsigned kNotAvailableFormat = 6900;  // %s: the command's name

}  // namespace frame
