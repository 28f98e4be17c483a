#include "lisp/answers.h"

#include "lisp/printer.h"

namespace korva::lisp {
namespace {

input::Answer withName(input::Answer::Kind kind, const Value& value) {
  input::Answer answer;
  answer.kind = kind;
  answer.name[0] = value.name[0];
  answer.name[1] = value.name[1];
  return answer;
}

}  // namespace

std::optional<input::Answer> answerOf(const Value& value) {
  switch (value.kind) {
    case Value::Kind::String:
      return input::Answer::ofText(value.text);
    case Value::Kind::Integer:
    case Value::Kind::Real:
      return input::Answer::ofText(exactNumberText(value));
    case Value::Kind::Entity:
      return withName(input::Answer::Kind::Entity, value);
    case Value::Kind::SelectionSet:
      return withName(input::Answer::Kind::Set, value);
    case Value::Kind::List:
      break;
    default:
      return std::nullopt;
  }
  if (value.isPoint()) {
    input::Answer answer;
    answer.kind = input::Answer::Kind::Point;
    for (size_t index = 0; index < value.items.size(); ++index) {
      answer.point[index] = value.items[index].number();
    }
    return answer;
  }
  if (value.items.size() == 2 && value.items[0].kind == Value::Kind::Entity &&
      value.items[1].isPoint()) {
    input::Answer answer = withName(input::Answer::Kind::EntityPick, value.items[0]);
    const std::vector<Value>& point = value.items[1].items;
    for (size_t index = 0; index < point.size(); ++index)
      answer.point[index] = point[index].number();
    return answer;
  }
  return std::nullopt;
}

}  // namespace korva::lisp
