// The prompts of the drawing commands: the sdk prompt functions with their keyword
// list, status and keyword folded into one answer.
#pragma once

#include <optional>
#include <string>

#include "geom/vec.h"
#include "qx_types.h"

namespace korva::cmd::drawing {

// What a prompt gave. status is RTNORM (a value), RTNONE (Enter), RTKWORD (keyword,
// global form, or arbitrary text), RTCAN or RTERROR.
struct Answer {
  int status = 0;
  std::wstring keyword;

  bool value() const;
  bool enter() const;
  bool stop() const;  // cancelled or failed: the command ends
  bool is(const wchar_t* globalKeyword) const;
};

// keywords as for qxedInitGet ("Close Undo _ Close Undo"); null for none.
struct Ask {
  int flags = 0;
  const wchar_t* keywords = nullptr;
};

Answer askPoint(const wchar_t* prompt, const std::optional<geom::Vec3>& base, geom::Vec3& point,
                Ask ask = {});
Answer askCorner(const wchar_t* prompt, geom::Vec3 base, geom::Vec3& point, Ask ask = {});
Answer askDistance(const wchar_t* prompt, const std::optional<geom::Vec3>& base, double& distance,
                   Ask ask = {});
// From east counterclockwise, whatever ANGBASE and ANGDIR say.
Answer askOrientation(const wchar_t* prompt, const std::optional<geom::Vec3>& base, double& radians,
                      Ask ask = {});
Answer askReal(const wchar_t* prompt, double& value, Ask ask = {});
Answer askInteger(const wchar_t* prompt, int& value, Ask ask = {});
Answer askKeyword(const wchar_t* prompt, Ask ask);
Answer askString(const wchar_t* prompt, bool blanksAllowed, std::wstring& text);
// One entity picked; a pick that hits nothing asks again. pick is in the user system.
Answer askEntity(const wchar_t* prompt, EntityName name, geom::Vec3& pick);
// An angle typed in AUNITS that may be negative (clockwise): included angles.
Answer askSignedAngle(const wchar_t* prompt, double& radians);

}  // namespace korva::cmd::drawing
