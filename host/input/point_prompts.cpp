// Prompts answered with points: qxedGetPoint, qxedGetCorner, qxedGetDist, qxedGetAngle,
// qxedGetOrient.
#include <cmath>
#include <numbers>
#include <optional>

#include "input/drawing_variables.h"
#include "input/point_input.h"
#include "input/prompt_session.h"
#include "qx_input.h"

namespace korva::input {
namespace {

using Step = PromptSession::Step;

void copyPoint(const double from[3], double to[3]) {
  for (int axis = 0; axis < 3; ++axis) to[axis] = from[axis];
}

// The point prompt; remember sets LASTPOINT to the point given.
int askPoint(const double* base, const wchar_t* prompt, double result[3], bool remember) {
  PromptSession session(prompt);
  for (;;) {
    const Answer answer = session.ask();
    int status = RTNORM;
    const Step step = session.handleCommon(answer, status);
    if (step == Step::Return) return status;
    if (step == Step::AskAgain) continue;
    double point[3];
    bool given = false;
    if (answer.kind == Answer::Kind::Point) {
      copyPoint(answer.point, point);
      given = true;
    } else if (answer.kind == Answer::Kind::Text) {
      given = parsePointInput(answer.text, base, point);
      if (!given) {
        const wchar_t* message =
            session.hasKeywords() ? L"Point or option keyword required." : L"Invalid point.";
        if (session.handleOther(answer.text, message, status) == Step::Return) return status;
        continue;
      }
    }
    if (!given) {
      session.refuse(L"Invalid point.");
      continue;
    }
    copyPoint(point, result);
    if (remember) setPointVariable("LASTPOINT", point);
    return RTNORM;
  }
}

// The second point when a distance or an angle was shown by a first point without a base.
int askSecondPoint(const double first[3], double second[3]) {
  return askPoint(first, L"\nSpecify second point: ", second, false);
}

double normalizedAngle(double radians) {
  constexpr double kFullTurn = 2 * std::numbers::pi;
  double angle = std::fmod(radians, kFullTurn);
  if (angle < 0) angle += kFullTurn;
  // fmod of a hair below a full turn gives the full turn back after the addition.
  return angle >= kFullTurn ? 0.0 : angle;
}

// A value shown by a point: from base, or from this point to a second one asked for.
// status is RTNORM when value was set, else the second prompt's result.
template <typename Measure>
int measureFromPoint(const double* base, const double point[3], Measure measure, double& value) {
  if (base) {
    value = measure(base, point);
    return RTNORM;
  }
  double second[3];
  const int status = askSecondPoint(point, second);
  if (status == RTNORM) value = measure(point, second);
  return status;
}

enum class AngleKind { FromAngleBase, FromEast };

int askAngle(const double* base, const wchar_t* prompt, double* result, AngleKind kind) {
  if (!result) return RTERROR;
  PromptSession session(prompt);
  auto direction = [](const double* from, const double* to) {
    return std::atan2(to[1] - from[1], to[0] - from[0]);
  };
  for (;;) {
    const Answer answer = session.ask();
    int status = RTNORM;
    const Step step = session.handleCommon(answer, status);
    if (step == Step::Return) return status;
    if (step == Step::AskAgain) continue;
    std::optional<double> absolute;  // counterclockwise from east
    double point[3];
    if (answer.kind == Answer::Kind::Text) {
      if (std::optional<double> typed = parseAngleInput(answer.text)) {
        absolute = directionOfTypedAngle(*typed);
      } else if (!parsePointInput(answer.text, base, point)) {
        const wchar_t* message =
            session.hasKeywords()
                ? L"Requires valid numeric angle, second point, or option keyword."
                : L"Requires valid numeric angle or second point.";
        if (session.handleOther(answer.text, message, status) == Step::Return) return status;
        continue;
      }
    } else if (answer.kind == Answer::Kind::Point) {
      copyPoint(answer.point, point);
    } else {
      session.refuse(L"Requires valid numeric angle or second point.");
      continue;
    }
    if (!absolute) {
      double measured = 0;
      status = measureFromPoint(base, point, direction, measured);
      if (status != RTNORM) return status;
      absolute = measured;
    }
    const double angle = kind == AngleKind::FromEast
                             ? normalizedAngle(*absolute)
                             : normalizedAngle(*absolute - realVariable("ANGBASE", 0.0));
    if (!session.acceptsNumber(angle)) continue;
    *result = angle;
    return RTNORM;
  }
}

}  // namespace
}  // namespace korva::input

using korva::input::Answer;
using korva::input::PromptSession;

int qxedGetPoint(const double base[3], const wchar_t* prompt, double result[3]) {
  if (!result) return RTERROR;
  return korva::input::askPoint(base, prompt, result, true);
}

int qxedGetCorner(const double base[3], const wchar_t* prompt, double result[3]) {
  if (!result) return RTERROR;
  return korva::input::askPoint(base, prompt, result, true);
}

int qxedGetDist(const double base[3], const wchar_t* prompt, double* result) {
  using Step = PromptSession::Step;
  if (!result) return RTERROR;
  PromptSession session(prompt);
  auto distance = [](const double* from, const double* to) {
    return std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
  };
  for (;;) {
    const Answer answer = session.ask();
    int status = RTNORM;
    const Step step = session.handleCommon(answer, status);
    if (step == Step::Return) return status;
    if (step == Step::AskAgain) continue;
    std::optional<double> value;
    double point[3];
    if (answer.kind == Answer::Kind::Text) {
      value = korva::input::parseDistanceInput(answer.text);
      if (!value && !korva::input::parsePointInput(answer.text, base, point)) {
        const wchar_t* message = session.hasKeywords()
                                     ? L"Requires numeric distance, two points, or option keyword."
                                     : L"Requires numeric distance or two points.";
        if (session.handleOther(answer.text, message, status) == Step::Return) return status;
        continue;
      }
    } else if (answer.kind == Answer::Kind::Point) {
      korva::input::copyPoint(answer.point, point);
    } else {
      session.refuse(L"Requires numeric distance or two points.");
      continue;
    }
    if (!value) {
      double measured = 0;
      status = korva::input::measureFromPoint(base, point, distance, measured);
      if (status != RTNORM) return status;
      value = measured;
    }
    if (!session.acceptsNumber(*value)) continue;
    *result = *value;
    return RTNORM;
  }
}

int qxedGetAngle(const double base[3], const wchar_t* prompt, double* result) {
  return korva::input::askAngle(base, prompt, result, korva::input::AngleKind::FromAngleBase);
}

int qxedGetOrient(const double base[3], const wchar_t* prompt, double* result) {
  return korva::input::askAngle(base, prompt, result, korva::input::AngleKind::FromEast);
}
