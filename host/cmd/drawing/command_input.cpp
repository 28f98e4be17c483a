#include "cmd/drawing/command_input.h"

#include "cmd/drawing/command_text.h"
#include "cmd/drawing/user_system.h"
#include "qx_input.h"
#include "qx_types.h"
#include "qx_units.h"
#include "qx_variables.h"

namespace korva::cmd::drawing {

namespace {

constexpr size_t kTextChars = 2048;

// Applies the keyword list, runs the prompt and collects a keyword.
template <typename Prompt>
Answer run(Ask ask, Prompt&& prompt) {
  qxedInitGet(ask.flags, ask.keywords);
  Answer answer;
  answer.status = prompt();
  if (answer.status == RTKWORD) {
    wchar_t buffer[kTextChars] = {};
    if (qxedGetInput(buffer, kTextChars) == RTNORM) answer.keyword = buffer;
  }
  return answer;
}

}  // namespace

bool Answer::value() const {
  return status == RTNORM;
}

bool Answer::enter() const {
  return status == RTNONE;
}

bool Answer::stop() const {
  return status != RTNORM && status != RTNONE && status != RTKWORD;
}

bool Answer::is(const wchar_t* globalKeyword) const {
  return status == RTKWORD && sameText(keyword, globalKeyword);
}

Answer askPoint(const wchar_t* prompt, const std::optional<geom::Vec3>& base, geom::Vec3& point,
                Ask ask) {
  double from[3], result[3];
  if (base) toArray(*base, from);
  Answer answer = run(ask, [&] { return qxedGetPoint(base ? from : nullptr, prompt, result); });
  if (answer.value()) point = toVec3(result);
  return answer;
}

Answer askCorner(const wchar_t* prompt, geom::Vec3 base, geom::Vec3& point, Ask ask) {
  double from[3], result[3];
  toArray(base, from);
  Answer answer = run(ask, [&] { return qxedGetCorner(from, prompt, result); });
  if (answer.value()) point = toVec3(result);
  return answer;
}

namespace {

// A distance-like prompt (qxedGetDist, qxedGetOrient) with an optional base point.
Answer askFromBase(int (*prompt)(const double*, const wchar_t*, double*), const wchar_t* text,
                   const std::optional<geom::Vec3>& base, double& value, Ask ask) {
  double from[3];
  if (base) toArray(*base, from);
  double result = 0;
  Answer answer = run(ask, [&] { return prompt(base ? from : nullptr, text, &result); });
  if (answer.value()) value = result;
  return answer;
}

}  // namespace

Answer askDistance(const wchar_t* prompt, const std::optional<geom::Vec3>& base, double& distance,
                   Ask ask) {
  return askFromBase(qxedGetDist, prompt, base, distance, ask);
}

Answer askOrientation(const wchar_t* prompt, const std::optional<geom::Vec3>& base, double& radians,
                      Ask ask) {
  return askFromBase(qxedGetOrient, prompt, base, radians, ask);
}

Answer askReal(const wchar_t* prompt, double& value, Ask ask) {
  double result = 0;
  Answer answer = run(ask, [&] { return qxedGetReal(prompt, &result); });
  if (answer.value()) value = result;
  return answer;
}

Answer askInteger(const wchar_t* prompt, int& value, Ask ask) {
  int result = 0;
  Answer answer = run(ask, [&] { return qxedGetInt(prompt, &result); });
  if (answer.value()) value = result;
  return answer;
}

Answer askKeyword(const wchar_t* prompt, Ask ask) {
  wchar_t buffer[kTextChars] = {};
  Answer answer = run(ask, [&] { return qxedGetKword(prompt, buffer, kTextChars); });
  if (answer.value()) {
    // A keyword from the list: report it as such.
    answer.status = RTKWORD;
    answer.keyword = buffer;
  }
  return answer;
}

Answer askString(const wchar_t* prompt, bool blanksAllowed, std::wstring& text) {
  wchar_t buffer[kTextChars] = {};
  Answer answer;
  answer.status = qxedGetString(blanksAllowed ? 1 : 0, prompt, buffer, kTextChars);
  if (answer.value()) text = buffer;
  return answer;
}

Answer askEntity(const wchar_t* prompt, EntityName name, geom::Vec3& pick) {
  for (;;) {
    double point[3];
    Answer answer;
    answer.status = qxedEntSel(prompt, name, point);
    if (answer.value()) pick = toVec3(point);
    ResultBuffer error{};
    bool missed = answer.status == RTERROR && qxedGetVar(L"ERRNO", &error) == RTNORM &&
                  error.type == RTSHORT && error.value.rint == 7;
    if (!missed) return answer;
  }
}

Answer askSignedAngle(const wchar_t* prompt, double& radians) {
  for (;;) {
    std::wstring text;
    Answer answer = askString(prompt, false, text);
    if (!answer.value()) return answer;
    if (text.empty()) {
      answer.status = RTNONE;
      return answer;
    }
    bool negative = text[0] == L'-';
    if (negative) text.erase(0, 1);
    double magnitude = 0;
    if (!text.empty() && text[0] != L'-' && qxdbAngToF(text.c_str(), -1, &magnitude) == RTNORM) {
      radians = negative ? -magnitude : magnitude;
      return answer;
    }
    qxedPrompt(L"\nRequires valid numeric angle or second point.");
  }
}

}  // namespace korva::cmd::drawing
