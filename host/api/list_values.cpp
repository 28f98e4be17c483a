#include "list_values.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "db/handle.h"
#include "db/value_text.h"
#include "document.h"
#include "drawing_text.h"
#include "qx_memory.h"

namespace korva::api {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

bool takeNode(const ResultBuffer& node, Document& document, ListItem& item) {
  item.code = node.type == RTDXF0 ? 0 : node.type;
  item.kind = valueKindOfCode(item.code);
  // Only DXF group codes and the list's own -1 to -3 belong in an entity list.
  if (item.code < -3 || item.code >= 5000) return false;
  const ResultValue& value = node.value;
  switch (item.kind) {
    case ValueKind::None:
      return true;
    case ValueKind::Int16:
      item.integer = value.rint;
      return true;
    case ValueKind::Int32:
      item.integer = value.rlong;
      return true;
    case ValueKind::Int64:
      item.integer = value.rint64;
      return true;
    case ValueKind::Real:
      item.point[0] = value.rreal;
      return true;
    case ValueKind::Point2d:
    case ValueKind::Point3d:
      std::memcpy(item.point, value.rpoint, sizeof(item.point));
      return true;
    case ValueKind::String: {
      // A string handed back as null (a caller took it over) stands for empty text.
      if (value.rstring == nullptr) return true;
      // One pass for the common case: plain ASCII is drawing text in every encoding.
      const wchar_t* end = value.rstring;
      bool ascii = true;
      for (; *end; ++end) {
        if (*end == L'\r' || *end == L'\n') return false;
        ascii = ascii && *end < 0x80 && *end != L'\\';
      }
      std::wstring_view text(value.rstring, static_cast<size_t>(end - value.rstring));
      if (ascii) {
        item.text.assign(text.begin(), text.end());
      } else {
        item.text = toDrawingText(document, text);
      }
      return true;
    }
    case ValueKind::EntityName: {
      if (isNull(value.rlname)) return true;
      Document* owner = nullptr;
      db::Record* record = recordOf(value.rlname, &owner);
      if (!record || owner != &document) return false;
      item.handle = record->handle();
      item.text = db::formatHandle(item.handle);
      return true;
    }
    case ValueKind::Binary: {
      if (value.rbinary.length < 0 || (value.rbinary.length > 0 && !value.rbinary.bytes)) {
        return false;
      }
      for (int i = 0; i < value.rbinary.length; ++i) {
        unsigned char byte = static_cast<unsigned char>(value.rbinary.bytes[i]);
        item.text += kHexDigits[byte >> 4];
        item.text += kHexDigits[byte & 15];
      }
      return true;
    }
    default:
      return false;
  }
}

}  // namespace

std::optional<ParsedList> parseList(const ResultBuffer* list, Document& document) {
  ParsedList parsed;
  size_t count = 0;
  for (const ResultBuffer* node = list; node; node = node->next) ++count;
  parsed.items.reserve(count);
  for (const ResultBuffer* node = list; node; node = node->next) {
    if (node->type == -3) {
      parsed.hasExtended = true;
      continue;
    }
    // Extended data codes only after -3, and after -3 nothing else.
    int code = node->type == RTDXF0 ? 0 : node->type;
    bool extendedCode = code >= 1000 && code <= 1071;
    if (extendedCode != parsed.hasExtended) return std::nullopt;
    std::vector<ListItem>& items = parsed.hasExtended ? parsed.extended : parsed.items;
    if (!takeNode(*node, document, items.emplace_back())) return std::nullopt;
  }
  return parsed;
}

void appendGroups(const ListItem& item, bool twoDimensional, std::vector<db::OwnedGroup>& out) {
  switch (item.kind) {
    case ValueKind::Point2d:
    case ValueKind::Point3d: {
      int axes = twoDimensional ? 2 : 3;
      for (int axis = 0; axis < axes; ++axis) {
        out.push_back({item.code + 10 * axis, db::formatReal(item.point[axis])});
      }
      return;
    }
    case ValueKind::Real:
      out.push_back({item.code, db::formatReal(item.point[0])});
      return;
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Int64:
      out.push_back({item.code, std::to_string(item.integer)});
      return;
    case ValueKind::EntityName:
      out.push_back({item.code, item.handle == db::kNoHandle ? "0" : item.text});
      return;
    default:
      out.push_back({item.code, item.text});
      return;
  }
}

std::optional<double> readReal(std::string_view text) {
  // Most reals of a drawing are short decimals ("10.0", "-2.5"): digits that fit a
  // double exactly, divided by an exact power of ten, give the correctly rounded value.
  static constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  size_t i = 0;
  bool negative = !text.empty() && text[0] == '-';
  if (negative) ++i;
  uint64_t digits = 0;
  int count = 0, fraction = -1;
  for (; i < text.size() && count <= 15; ++i) {
    char c = text[i];
    if (c == '.' && fraction < 0) {
      fraction = 0;
      continue;
    }
    if (c < '0' || c > '9') break;
    digits = digits * 10 + static_cast<uint64_t>(c - '0');
    ++count;
    if (fraction >= 0) ++fraction;
  }
  if (i == text.size() && count > 0 && count <= 15) {
    double value = static_cast<double>(digits) / kPowers[fraction < 0 ? 0 : fraction];
    return negative ? -value : value;
  }
  return db::parseReal(text);
}

bool sameReal(std::string_view text, double value) {
  std::optional<double> parsed = readReal(text);
  return parsed && *parsed == value;
}

// ---- ListBuilder

ListBuilder::~ListBuilder() {
  qxutRelRb(head_);
}

ResultBuffer* ListBuilder::append(int type) {
  ResultBuffer* node = qxutNewRb(type);
  if (!node) {
    failed_ = true;
    return nullptr;
  }
  (tail_ ? tail_->next : head_) = node;
  tail_ = node;
  return node;
}

void ListBuilder::addString(int code, std::string_view drawingText) {
  ResultBuffer* node = append(code);
  if (!node) return;
  bool ascii = std::all_of(drawingText.begin(), drawingText.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x80 && c != '\\';
  });
  if (ascii) {
    // Most values are plain ASCII: copied straight into host memory.
    auto* text = static_cast<wchar_t*>(qxad_malloc((drawingText.size() + 1) * sizeof(wchar_t)));
    if (text) {
      std::copy(drawingText.begin(), drawingText.end(), text);
      text[drawingText.size()] = 0;
    }
    node->value.rstring = text;
  } else {
    std::wstring wide = fromDrawingText(&database_, drawingText);
    node->value.rstring = qxutNewString(wide.c_str());
  }
  if (!node->value.rstring) failed_ = true;
}

void ListBuilder::addName(int code, db::Handle handle) {
  ResultBuffer* node = append(code);
  if (!node || handle == db::kNoHandle) return;
  node->value.rlname[0] = static_cast<int64_t>(handle);
  node->value.rlname[1] = static_cast<int64_t>(database_.serial());
}

void ListBuilder::addReal(int code, double value) {
  if (ResultBuffer* node = append(code)) node->value.rreal = value;
}

void ListBuilder::addPoint(int code, const double* point) {
  if (ResultBuffer* node = append(code)) std::memcpy(node->value.rpoint, point, 3 * sizeof(double));
}

void ListBuilder::addInteger(int code, ValueKind kind, long long value) {
  ResultBuffer* node = append(code);
  if (!node) return;
  if (kind == ValueKind::Int16) node->value.rint = static_cast<int16_t>(value);
  if (kind == ValueKind::Int32) node->value.rlong = static_cast<int32_t>(value);
  if (kind == ValueKind::Int64) node->value.rint64 = value;
}

void ListBuilder::addBinary(int code, std::string_view hex) {
  ResultBuffer* node = append(code);
  if (!node) return;
  size_t length = hex.size() / 2;
  char* bytes = static_cast<char*>(qxad_malloc(length));
  if (!bytes) {
    failed_ = true;
    return;
  }
  for (size_t i = 0; i < length; ++i) {
    int high = db::hexDigitValue(hex[2 * i]);
    int low = db::hexDigitValue(hex[2 * i + 1]);
    bytes[i] = static_cast<char>(((high < 0 ? 0 : high) << 4) | (low < 0 ? 0 : low));
  }
  node->value.rbinary.length = static_cast<int16_t>(length);
  node->value.rbinary.bytes = bytes;
}

void ListBuilder::addNone(int code) {
  append(code);
}

void ListBuilder::addGroupValue(int code, std::string_view text) {
  ValueKind kind = valueKindOfCode(code);
  switch (kind) {
    case ValueKind::Real:
    case ValueKind::Point2d:
    case ValueKind::Point3d:
      addReal(code, readReal(text).value_or(0.0));
      return;
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Int64:
      addInteger(code, kind, db::parseInteger(text).value_or(0));
      return;
    case ValueKind::EntityName:
      addName(code, db::parseHandle(text).value_or(db::kNoHandle));
      return;
    case ValueKind::Binary:
      addBinary(code, text);
      return;
    default:
      addString(code, text);
      return;
  }
}

ResultBuffer* ListBuilder::release() {
  if (failed_) return nullptr;
  ResultBuffer* head = head_;
  head_ = tail_ = nullptr;
  return head;
}

}  // namespace korva::api
