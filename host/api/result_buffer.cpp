// Creation and release of ResultBuffer lists.
#include <cstdarg>
#include <cstring>

#include "qx_memory.h"
#include "qx_value_kind.h"

using korva::api::ValueKind;
using korva::api::valueKindOfCode;

ResultBuffer* qxutNewRb(int type) {
  auto* node = static_cast<ResultBuffer*>(qxad_malloc(sizeof(ResultBuffer)));
  if (node == nullptr) return nullptr;
  std::memset(node, 0, sizeof(ResultBuffer));
  node->type = static_cast<std::int16_t>(type);
  return node;
}

int qxutRelRb(ResultBuffer* list) {
  while (list != nullptr) {
    ResultBuffer* next = list->next;
    switch (valueKindOfCode(list->type)) {
      case ValueKind::String:
        qxad_free(list->value.rstring);
        break;
      case ValueKind::Binary:
        qxad_free(list->value.rbinary.bytes);
        break;
      default:
        break;
    }
    qxad_free(list);
    list = next;
  }
  return RTNORM;
}

namespace {

// Reads the value of one pair into node; false when the value can't be taken.
bool takeValue(ResultBuffer& node, ValueKind kind, va_list& args) {
  ResultValue& value = node.value;
  switch (kind) {
    case ValueKind::None:
      return true;
    case ValueKind::Int16:
      value.rint = static_cast<std::int16_t>(va_arg(args, int));
      return true;
    case ValueKind::Int32:
      value.rlong = va_arg(args, std::int32_t);
      return true;
    case ValueKind::Int64:
      value.rint64 = va_arg(args, std::int64_t);
      return true;
    case ValueKind::Real:
      value.rreal = va_arg(args, double);
      return true;
    case ValueKind::Point2d:
    case ValueKind::Point3d: {
      const double* point = va_arg(args, const double*);
      if (point == nullptr) return false;
      const int count = kind == ValueKind::Point2d ? 2 : 3;
      for (int i = 0; i < count; ++i) value.rpoint[i] = point[i];
      return true;
    }
    case ValueKind::String: {
      const wchar_t* text = va_arg(args, const wchar_t*);
      value.rstring = qxutNewString(text);
      return value.rstring != nullptr;
    }
    case ValueKind::EntityName:
    case ValueKind::SelectionSet: {
      const std::int64_t* words = va_arg(args, const std::int64_t*);
      if (words == nullptr) return false;
      std::int64_t* target = kind == ValueKind::EntityName ? value.rlname : value.rssname;
      target[0] = words[0];
      target[1] = words[1];
      return true;
    }
    case ValueKind::Binary: {
      const QxBinaryChunk* chunk = va_arg(args, const QxBinaryChunk*);
      if (chunk == nullptr || chunk->length < 0) return false;
      if (chunk->length > 0 && chunk->bytes == nullptr) return false;
      auto* bytes = static_cast<char*>(qxad_malloc(static_cast<std::size_t>(chunk->length)));
      if (bytes == nullptr) return false;
      if (chunk->length > 0) std::memcpy(bytes, chunk->bytes, chunk->length);
      value.rbinary.length = chunk->length;
      value.rbinary.bytes = bytes;
      return true;
    }
    case ValueKind::Unknown:
      break;
  }
  return false;
}

}  // namespace

ResultBuffer* qxutBuildList(int type, ...) {
  va_list args;
  va_start(args, type);
  ResultBuffer* head = nullptr;
  ResultBuffer** tail = &head;
  bool failed = false;
  while (type != 0 && type != RTNONE) {
    const ValueKind kind = valueKindOfCode(type);
    // An unknown type leaves no way to know how many arguments follow it.
    ResultBuffer* node = kind == ValueKind::Unknown ? nullptr : qxutNewRb(type);
    if (node == nullptr) {
      failed = true;
      break;
    }
    *tail = node;
    tail = &node->next;
    if (!takeValue(*node, kind, args)) {
      failed = true;
      break;
    }
    type = va_arg(args, int);
  }
  va_end(args);
  if (failed) {
    qxutRelRb(head);
    return nullptr;
  }
  return head;
}
