#include "cmd/modify/modify_input.h"

#include "cmd/modify/entity_paths.h"
#include "qx_input.h"
#include "qx_variables.h"

namespace korva::cmd::modify {

// The plane geometry the commands cut, offset and round with.
using namespace geom;

namespace {

// ERRNO after a pick: nothing found there, or Enter.
constexpr int kPickMissed = 7;
constexpr int kPickEnter = 52;

int errorNumber() {
  ResultBuffer value{};
  if (qxedGetVar(L"ERRNO", &value) != RTNORM || value.type != RTSHORT) return 0;
  return value.value.rint;
}

}  // namespace

Answer pickEntity(const wchar_t* prompt, const wchar_t* keywords, EntityName name,
                  Vec2& worldPick) {
  for (;;) {
    qxedInitGet(0, keywords);
    double point[3] = {0, 0, 0};
    Answer answer;
    answer.status = qxedEntSel(prompt, name, point);
    if (answer.status == RTKWORD) {
      wchar_t buffer[512] = {};
      if (qxedGetInput(buffer, 512) == RTNORM) answer.keyword = buffer;
      return answer;
    }
    if (answer.status == RTNORM) {
      worldPick = worldPlanePoint(point);
      return answer;
    }
    if (answer.status != RTERROR) return answer;
    int error = errorNumber();
    if (error == kPickEnter) {
      answer.status = RTNONE;
      return answer;
    }
    if (error != kPickMissed) return answer;
  }
}

}  // namespace korva::cmd::modify
