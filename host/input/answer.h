// One input given at a prompt.
#pragma once

#include <cstdint>
#include <string>

namespace korva::input {

struct Answer {
  enum class Kind {
    Text,        // typed text; "" is Enter
    Point,       // a point token of a scripted command (current user system)
    Entity,      // an entity token of a scripted command
    EntityPick,  // an entity with the point it was picked at (RTLB RTENAME RTPOINT RTLE)
    Set,         // a selection set token of a scripted command
    Cancel,      // the user cancelled, or the input ran out during the prompt
  };
  Kind kind = Kind::Text;
  std::wstring text;
  double point[3] = {0, 0, 0};
  std::int64_t name[2] = {0, 0};  // Entity and EntityPick: the entity; Set: the set

  static Answer ofText(std::wstring text) {
    Answer answer;
    answer.text = std::move(text);
    return answer;
  }
  static Answer cancel() {
    Answer answer;
    answer.kind = Kind::Cancel;
    return answer;
  }
  bool isEnter() const { return kind == Kind::Text && text.empty(); }
  bool isCancel() const { return kind == Kind::Cancel; }
};

}  // namespace korva::input
