// qxedCommand and qxedCmd: host commands run from a running command with given tokens.
#include <cstdarg>
#include <cstdio>
#include <optional>
#include <vector>

#include "cmd/processor.h"
#include "input/answer.h"
#include "qx_command.h"
#include "qx_units.h"

namespace korva::cmd {
namespace {

std::wstring numberText(double value) {
  wchar_t buffer[64];
  std::swprintf(buffer, 64, L"%.17g", value);
  return buffer;
}

// Angles go in as typed: in the current angular units, from ANGBASE as users type them.
std::wstring angleText(double radians) {
  wchar_t buffer[128] = L"";
  if (qxdbAngToS(radians, -1, 8, buffer, 128) != RTNORM) return numberText(radians);
  return buffer;
}

input::Answer pointAnswer(const double point[3], bool threeD) {
  input::Answer answer;
  answer.kind = input::Answer::Kind::Point;
  answer.point[0] = point[0];
  answer.point[1] = point[1];
  answer.point[2] = threeD ? point[2] : 0.0;
  return answer;
}

input::Answer nameAnswer(input::Answer::Kind kind, const std::int64_t name[2]) {
  input::Answer answer;
  answer.kind = kind;
  answer.name[0] = name[0];
  answer.name[1] = name[1];
  return answer;
}

// Turns the list into tokens; nullopt for a node that can't be a token. A bracketed
// entity and point is a pick at that point.
std::optional<std::vector<input::Answer>> tokensOf(const ResultBuffer* list) {
  std::vector<input::Answer> tokens;
  for (const ResultBuffer* node = list; node; node = node->next) {
    switch (node->type) {
      case RTSTR:
        tokens.push_back(input::Answer::ofText(node->value.rstring ? node->value.rstring : L""));
        break;
      case RTREAL:
        tokens.push_back(input::Answer::ofText(numberText(node->value.rreal)));
        break;
      case RTANG:
        tokens.push_back(input::Answer::ofText(angleText(node->value.rreal)));
        break;
      case RTSHORT:
        tokens.push_back(input::Answer::ofText(std::to_wstring(node->value.rint)));
        break;
      case RTLONG:
        tokens.push_back(input::Answer::ofText(std::to_wstring(node->value.rlong)));
        break;
      case RTPOINT:
      case RT3DPOINT:
        tokens.push_back(pointAnswer(node->value.rpoint, node->type == RT3DPOINT));
        break;
      case RTENAME:
        tokens.push_back(nameAnswer(input::Answer::Kind::Entity, node->value.rlname));
        break;
      case RTPICKS:
        tokens.push_back(nameAnswer(input::Answer::Kind::Set, node->value.rssname));
        break;
      case RTLB: {
        const ResultBuffer* entity = node->next;
        const ResultBuffer* point = entity ? entity->next : nullptr;
        const ResultBuffer* end = point ? point->next : nullptr;
        if (!entity || entity->type != RTENAME || !point ||
            (point->type != RTPOINT && point->type != RT3DPOINT) || !end || end->type != RTLE) {
          return std::nullopt;
        }
        input::Answer pick = nameAnswer(input::Answer::Kind::EntityPick, entity->value.rlname);
        for (int i = 0; i < 3; ++i) pick.point[i] = point->value.rpoint[i];
        if (point->type == RTPOINT) pick.point[2] = 0;
        tokens.push_back(pick);
        node = end;
        break;
      }
      case RTNONE:
      case 0:
        return tokens;
      default:
        return std::nullopt;
    }
  }
  return tokens;
}

}  // namespace
}  // namespace korva::cmd

int qxedCmd(const ResultBuffer* list) {
  std::optional<std::vector<korva::input::Answer>> tokens = korva::cmd::tokensOf(list);
  if (!tokens) return RTERROR;
  return korva::cmd::Processor::instance().runTokens(std::move(*tokens));
}

int qxedCommand(int type, ...) {
  // The pairs become nodes of a list on the stack, then the list's tokens.
  std::vector<ResultBuffer> nodes;
  va_list args;
  va_start(args, type);
  for (int current = type; current != 0 && current != RTNONE; current = va_arg(args, int)) {
    ResultBuffer node{};
    node.type = static_cast<std::int16_t>(current);
    switch (current) {
      case RTSTR:
        node.value.rstring = va_arg(args, wchar_t*);
        break;
      case RTREAL:
      case RTANG:
        node.value.rreal = va_arg(args, double);
        break;
      case RTSHORT:
        node.value.rint = static_cast<std::int16_t>(va_arg(args, int));
        break;
      case RTLONG:
        node.value.rlong = va_arg(args, std::int32_t);
        break;
      case RTPOINT:
      case RT3DPOINT: {
        const double* point = va_arg(args, const double*);
        node.value.rpoint[0] = point[0];
        node.value.rpoint[1] = point[1];
        node.value.rpoint[2] = current == RT3DPOINT ? point[2] : 0.0;
        break;
      }
      case RTENAME:
      case RTPICKS: {
        const std::int64_t* name = va_arg(args, const std::int64_t*);
        node.value.rlname[0] = name[0];
        node.value.rlname[1] = name[1];
        break;
      }
      case RTLB:
      case RTLE:
        break;
      default:
        va_end(args);
        return RTERROR;
    }
    nodes.push_back(node);
  }
  va_end(args);
  for (size_t i = 0; i + 1 < nodes.size(); ++i) nodes[i].next = &nodes[i + 1];
  return qxedCmd(nodes.empty() ? nullptr : nodes.data());
}
