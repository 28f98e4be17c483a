#include "group_chains.h"

#include <algorithm>
#include <cstring>

#include "api/document.h"
#include "db/handle.h"
#include "db/value_text.h"
#include "object_groups.h"
#include "qx_memory.h"

namespace korva::api {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

int digitOf(char c) {
  return std::max(0, db::hexDigitValue(c));
}

bool fill(ResultBuffer& node, const db::Database* database, const std::vector<db::Group>& groups,
          size_t& index) {
  const db::Group& group = groups[index];
  switch (valueKindOfCode(group.code)) {
    case ValueKind::Point2d:
    case ValueKind::Point3d:
      for (int axis = 0; axis < 3; ++axis) {
        bool present = axis == 0 || (index + 1 < groups.size() &&
                                     groups[index + 1].code == group.code + 10 * axis);
        if (!present) break;
        if (axis > 0) ++index;
        node.value.rpoint[axis] = db::parseReal(groups[index].value).value_or(0.0);
      }
      return true;
    case ValueKind::Real:
      node.value.rreal = db::parseReal(group.value).value_or(0.0);
      return true;
    case ValueKind::Int16:
      node.value.rint = static_cast<std::int16_t>(db::parseInteger(group.value).value_or(0));
      return true;
    case ValueKind::Int32:
      node.value.rlong = static_cast<std::int32_t>(db::parseInteger(group.value).value_or(0));
      return true;
    case ValueKind::Int64:
      node.value.rint64 = db::parseInteger(group.value).value_or(0);
      return true;
    case ValueKind::EntityName: {
      db::Handle handle = db::parseHandle(group.value).value_or(db::kNoHandle);
      if (handle != db::kNoHandle && database) {
        node.value.rlname[0] = static_cast<std::int64_t>(handle);
        node.value.rlname[1] = static_cast<std::int64_t>(database->serial());
      }
      return true;
    }
    case ValueKind::Binary: {
      size_t length = group.value.size() / 2;
      node.value.rbinary.length = static_cast<std::int16_t>(length);
      node.value.rbinary.bytes = static_cast<char*>(qxad_malloc(length == 0 ? 1 : length));
      if (!node.value.rbinary.bytes) return false;
      for (size_t i = 0; i < length; ++i) {
        node.value.rbinary.bytes[i] =
            static_cast<char>((digitOf(group.value[2 * i]) << 4) | digitOf(group.value[2 * i + 1]));
      }
      return true;
    }
    default:
      node.value.rstring = qxutNewString(wideText(database, group.value).c_str());
      return node.value.rstring != nullptr;
  }
}

}  // namespace

ResultBuffer* chainOfGroups(const db::Database* database, const std::vector<db::Group>& groups) {
  ResultBuffer* head = nullptr;
  ResultBuffer* tail = nullptr;
  for (size_t index = 0; index < groups.size(); ++index) {
    ResultBuffer* node = qxutNewRb(groups[index].code);
    if (node) (tail ? tail->next : head) = node;
    if (node) tail = node;
    if (!node || !fill(*node, database, groups, index)) {
      qxutRelRb(head);
      return nullptr;
    }
  }
  return head;
}

std::optional<std::vector<ListItem>> itemsOfChain(const db::Database* database,
                                                  const ResultBuffer* chain) {
  std::vector<ListItem> items;
  for (const ResultBuffer* node = chain; node; node = node->next) {
    ListItem item;
    item.code = node->type;
    item.kind = valueKindOfCode(item.code);
    // Only DXF group codes belong in object data.
    if (item.code < 0 || item.code >= 5000) return std::nullopt;
    const ResultValue& value = node->value;
    switch (item.kind) {
      case ValueKind::Int16:
        item.integer = value.rint;
        break;
      case ValueKind::Int32:
        item.integer = value.rlong;
        break;
      case ValueKind::Int64:
        item.integer = value.rint64;
        break;
      case ValueKind::Real:
        item.point[0] = value.rreal;
        break;
      case ValueKind::Point2d:
      case ValueKind::Point3d:
        std::memcpy(item.point, value.rpoint, sizeof(item.point));
        break;
      case ValueKind::String: {
        std::wstring_view text =
            value.rstring ? std::wstring_view(value.rstring) : std::wstring_view();
        if (text.find_first_of(L"\r\n") != std::wstring_view::npos) return std::nullopt;
        item.text = drawingText(database, text);
        break;
      }
      case ValueKind::EntityName: {
        if (isNull(value.rlname)) {
          item.text = "0";
          break;
        }
        db::Database* owner = nullptr;
        db::Record* record = recordOf(value.rlname, nullptr, &owner);
        if (!record || owner != database) return std::nullopt;
        item.handle = record->handle();
        item.text = db::formatHandle(item.handle);
        break;
      }
      case ValueKind::Binary:
        if (value.rbinary.length < 0 || (value.rbinary.length > 0 && !value.rbinary.bytes)) {
          return std::nullopt;
        }
        for (int i = 0; i < value.rbinary.length; ++i) {
          unsigned char byte = static_cast<unsigned char>(value.rbinary.bytes[i]);
          item.text += kHexDigits[byte >> 4];
          item.text += kHexDigits[byte & 15];
        }
        break;
      default:
        return std::nullopt;
    }
    items.push_back(std::move(item));
  }
  return items;
}

}  // namespace korva::api
