#include "binary_format.h"

#include <cstdint>
#include <cstring>

#include "db/group_code.h"
#include "db/handle.h"
#include "db/value_text.h"

namespace korva::dxf {

namespace {

template <typename T>
T readLittleEndian(const unsigned char* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);  // the machine is little-endian, as the format
  return value;
}

template <typename T>
void appendLittleEndian(std::string& out, T value) {
  char bytes[sizeof value];
  std::memcpy(bytes, &value, sizeof value);
  out.append(bytes, sizeof value);
}

}  // namespace

bool binaryToText(std::string_view data, std::string& text, std::string& error) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(data.data());
  size_t size = data.size();
  size_t pos = kBinarySentinel.size();
  // R12 files give group codes one byte: then "SECTION" starts right after the 0.
  bool oneByteCodes = size > pos + 1 && bytes[pos] == 0 && bytes[pos + 1] == 'S';
  text.clear();
  text.reserve(size * 2);
  auto truncated = [&](size_t at, int code) {
    error = "byte " + std::to_string(at) + ": the value of group code " + std::to_string(code) +
            " is cut off by the end of the file";
    return false;
  };
  char number[32];
  while (pos < size) {
    size_t codeAt = pos;
    int code;
    if (oneByteCodes) {
      code = bytes[pos++];
      if (code == 255) {
        if (pos + 2 > size) return truncated(codeAt, code);
        code = readLittleEndian<uint16_t>(bytes + pos);
        pos += 2;
      }
    } else {
      if (pos + 2 > size) {
        error = "byte " + std::to_string(codeAt) + ": group code cut off by the end of the file";
        return false;
      }
      code = readLittleEndian<int16_t>(bytes + pos);
      pos += 2;
    }
    text += std::to_string(code);
    text += '\n';
    auto need = [&](size_t count) { return pos + count <= size; };
    switch (db::valueTypeOf(code)) {
      case db::ValueType::Double:
        if (!need(8)) return truncated(codeAt, code);
        text += db::formatReal(readLittleEndian<double>(bytes + pos));
        pos += 8;
        break;
      case db::ValueType::Int16:
        if (!need(2)) return truncated(codeAt, code);
        text += std::to_string(readLittleEndian<int16_t>(bytes + pos));
        pos += 2;
        break;
      case db::ValueType::Int32:
        if (!need(4)) return truncated(codeAt, code);
        text += std::to_string(readLittleEndian<int32_t>(bytes + pos));
        pos += 4;
        break;
      case db::ValueType::Int64:
        if (!need(8)) return truncated(codeAt, code);
        text += std::to_string(readLittleEndian<int64_t>(bytes + pos));
        pos += 8;
        break;
      case db::ValueType::Bool:
        if (!need(1)) return truncated(codeAt, code);
        text += std::to_string(bytes[pos++]);
        break;
      case db::ValueType::Binary: {
        if (!need(1)) return truncated(codeAt, code);
        size_t length = bytes[pos++];
        if (!need(length)) return truncated(codeAt, code);
        for (size_t i = 0; i < length; ++i) {
          std::snprintf(number, sizeof number, "%02X", bytes[pos + i]);
          text += number;
        }
        pos += length;
        break;
      }
      case db::ValueType::String: {
        const void* nul = std::memchr(bytes + pos, 0, size - pos);
        if (!nul) return truncated(codeAt, code);
        size_t length = static_cast<const unsigned char*>(nul) - (bytes + pos);
        for (size_t i = 0; i < length; ++i) {
          unsigned char c = bytes[pos + i];
          // Line breaks can't stand in a text value; DXF spells control characters ^X.
          if (c == '\n' || c == '\r') {
            text += '^';
            text += static_cast<char>(c + '@');
          } else {
            text += static_cast<char>(c);
          }
        }
        pos += length + 1;
        break;
      }
    }
    text += '\n';
  }
  return true;
}

void appendBinaryGroup(std::string& out, int code, std::string_view value, bool oneByteCodes) {
  if (oneByteCodes) {
    if (code >= 255) {
      out += static_cast<char>(255);
      appendLittleEndian<uint16_t>(out, static_cast<uint16_t>(code));
    } else {
      out += static_cast<char>(code);
    }
  } else {
    appendLittleEndian<int16_t>(out, static_cast<int16_t>(code));
  }
  switch (db::valueTypeOf(code)) {
    case db::ValueType::Double:
      appendLittleEndian<double>(out, db::parseReal(value).value_or(0.0));
      break;
    case db::ValueType::Int16:
      appendLittleEndian<int16_t>(out, static_cast<int16_t>(db::parseInteger(value).value_or(0)));
      break;
    case db::ValueType::Int32:
      appendLittleEndian<int32_t>(out, static_cast<int32_t>(db::parseInteger(value).value_or(0)));
      break;
    case db::ValueType::Int64:
      appendLittleEndian<int64_t>(out, static_cast<int64_t>(db::parseInteger(value).value_or(0)));
      break;
    case db::ValueType::Bool:
      out += static_cast<char>(db::parseInteger(value).value_or(0) != 0);
      break;
    case db::ValueType::Binary: {
      std::string bytes;
      for (size_t i = 0; i + 1 < value.size(); i += 2) {
        int high = db::hexDigitValue(value[i]);
        int low = db::hexDigitValue(value[i + 1]);
        if (high < 0 || low < 0) break;
        bytes += static_cast<char>(high * 16 + low);
      }
      if (bytes.size() > 255) bytes.resize(255);
      out += static_cast<char>(bytes.size());
      out += bytes;
      break;
    }
    case db::ValueType::String:
      out.append(value);
      out += '\0';
      break;
  }
}

}  // namespace korva::dxf
