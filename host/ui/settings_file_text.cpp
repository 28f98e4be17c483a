// The text of a settings file: section headers, value lines, comments.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "api/utf8.h"
#include "ui/settings_file.h"

namespace korva::ui {
namespace {

constexpr long long kSmallestNumber = INT32_MIN;
constexpr long long kLargestNumber = UINT32_MAX;

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string quotedText(std::wstring_view text) {
  std::string result = "\"";
  for (char c : api::toUtf8(text)) {
    switch (c) {
      case '\\':
        result += "\\\\";
        break;
      case '"':
        result += "\\\"";
        break;
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\t':
        result += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
          char escaped[8];
          std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned char>(c));
          result += escaped;
        } else {
          result += c;
        }
    }
  }
  return result + "\"";
}

// A name is written as it is unless the line couldn't be read back that way.
std::string name(std::wstring_view text, std::wstring_view specials) {
  bool plain = !text.empty() && text.front() != L' ' && text.back() != L' ' &&
               text.front() != L'#' && text.front() != L';' && text.front() != L'[';
  for (wchar_t c : text) {
    if (c < 0x20 || c == 0x7F || c == L'"' || specials.find(c) != std::wstring_view::npos) {
      plain = false;
    }
  }
  return plain ? api::toUtf8(text) : quotedText(text);
}

// Reads a quoted string at the start of text and moves text behind it.
std::optional<std::wstring> readQuoted(std::string_view& text, std::string& fault) {
  std::string bytes;
  for (size_t at = 1; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '"') {
      text.remove_prefix(at + 1);
      return api::fromUtf8(bytes);
    }
    if (c != '\\') {
      bytes += c;
      continue;
    }
    const char escaped = at + 1 < text.size() ? text[++at] : '\0';
    switch (escaped) {
      case '\\':
        bytes += '\\';
        break;
      case '"':
        bytes += '"';
        break;
      case 'n':
        bytes += '\n';
        break;
      case 'r':
        bytes += '\r';
        break;
      case 't':
        bytes += '\t';
        break;
      case 'x': {
        unsigned value = 0;
        if (at + 2 >= text.size() ||
            std::sscanf(std::string(text.substr(at + 1, 2)).c_str(), "%2x", &value) != 1) {
          fault = "a malformed \\x escape";
          return std::nullopt;
        }
        bytes += static_cast<char>(value);
        at += 2;
        break;
      }
      default:
        fault = std::string("an unknown escape '\\") + escaped + "'";
        return std::nullopt;
    }
  }
  fault = "a string without its closing quote";
  return std::nullopt;
}

std::optional<std::wstring> readSectionHeader(std::string_view line, std::string& fault) {
  line.remove_prefix(1);  // "["
  if (!line.empty() && line.front() == '"') {
    auto sectionName = readQuoted(line, fault);
    if (!sectionName) return std::nullopt;
    if (trimmed(line) == "]") return sectionName;
  } else if (!line.empty() && line.back() == ']') {
    return api::fromUtf8(line.substr(0, line.size() - 1));
  }
  fault = "a section header must be [NAME]";
  return std::nullopt;
}

std::optional<SettingValue> readValueLine(std::string_view line, std::string& fault) {
  SettingValue value;
  if (line.front() == '"') {
    auto valueName = readQuoted(line, fault);
    if (!valueName) return std::nullopt;
    value.name = *valueName;
    line = trimmed(line);
    if (line.empty() || line.front() != '=') {
      fault = "expected '=' after the name";
      return std::nullopt;
    }
  } else {
    const size_t equals = line.find('=');
    if (equals == std::string_view::npos || trimmed(line.substr(0, equals)).empty()) {
      fault = "expected 'NAME = number N' or 'NAME = string \"TEXT\"'";
      return std::nullopt;
    }
    value.name = api::fromUtf8(trimmed(line.substr(0, equals)));
    line.remove_prefix(equals);
  }
  line = trimmed(line.substr(1));
  if (line.starts_with("number ")) {
    const std::string digits(trimmed(line.substr(7)));
    char* end = nullptr;
    value.number = std::strtoll(digits.c_str(), &end, 10);
    if (digits.empty() || *end != '\0' || value.number < kSmallestNumber ||
        value.number > kLargestNumber) {
      fault = "'" + digits + "' is not a 32-bit number";
      return std::nullopt;
    }
    return value;
  }
  if (line.starts_with("string ")) {
    line = trimmed(line.substr(7));
    if (line.empty() || line.front() != '"') {
      fault = "expected a quoted string after 'string'";
      return std::nullopt;
    }
    auto text = readQuoted(line, fault);
    if (!text) return std::nullopt;
    if (!trimmed(line).empty()) {
      fault = "text after the closing quote";
      return std::nullopt;
    }
    value.type = SettingValue::Type::String;
    value.text = *text;
    return value;
  }
  fault = "expected 'number' or 'string' after '='";
  return std::nullopt;
}

}  // namespace

std::string formatSettingsFile(const std::string& description,
                               const std::vector<SettingSection>& sections) {
  std::string text = "# korva settings: " + description + ". Rewritten by korva at each change.\n";
  for (const SettingSection& section : sections) {
    if (!section.name.empty()) text += "\n[" + name(section.name, L"]") + "]\n";
    for (const SettingValue& value : section.values) {
      text += name(value.name, L"=") + " = ";
      if (value.type == SettingValue::Type::Number) {
        text += "number " + std::to_string(value.number) + "\n";
      } else {
        text += "string " + quotedText(value.text) + "\n";
      }
    }
  }
  return text;
}

int parseSettingsFile(std::string_view text, std::vector<SettingSection>& sections, int& faultLine,
                      std::string& fault) {
  sections.clear();
  int broken = 0;
  int lineNumber = 0;
  faultLine = 0;
  fault.clear();
  auto brokenLine = [&](const std::string& reason) {
    if (broken++ == 0) {
      faultLine = lineNumber;
      fault = reason;
    }
  };
  SettingSection* section = nullptr;
  bool sectionBroken = false;  // values under a broken header have no key to go to
  while (!text.empty()) {
    ++lineNumber;
    const size_t end = text.find('\n');
    const std::string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.empty() || line.front() == '#' || line.front() == ';') continue;
    std::string reason;
    if (line.front() == '[') {
      auto sectionName = readSectionHeader(line, reason);
      sectionBroken = !sectionName;
      if (sectionBroken) {
        brokenLine(reason);
        continue;
      }
      section = nullptr;
      for (SettingSection& each : sections) {
        if (sameSettingName(each.name, *sectionName)) section = &each;
      }
      if (!section) section = &sections.emplace_back(SettingSection{*sectionName, {}});
      continue;
    }
    if (sectionBroken) {
      brokenLine("a value under a broken section header");
      continue;
    }
    auto value = readValueLine(line, reason);
    if (!value) {
      brokenLine(reason);
      continue;
    }
    if (!section) {
      section = &*sections.emplace(sections.begin(), SettingSection{L"", {}});
    }
    if (section->find(value->name)) {
      brokenLine("a second value named " + api::toUtf8(value->name));
      continue;
    }
    section->values.push_back(std::move(*value));
  }
  return broken;
}

}  // namespace korva::ui
