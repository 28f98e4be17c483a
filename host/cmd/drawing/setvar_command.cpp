// SETVAR: shows and sets system variables by name, or lists them ("?").
#include "cmd/drawing/setvar_command.h"

#include <algorithm>
#include <optional>
#include <string>

#include "api/document.h"
#include "api/system_variables.h"
#include "api/utf8.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/user_system.h"
#include "qx_input.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_units.h"
#include "qx_util.h"
#include "qx_variables.h"

namespace korva::cmd::drawing {

namespace {

using api::VariableType;

std::wstring realText(double value) {
  wchar_t buffer[QX_UNSIZED_NUMBER_CHARS];
  if (qxdbRToS(value, 2, -1, buffer, QX_UNSIZED_NUMBER_CHARS) != RTNORM) return L"?";
  return buffer;
}

// The value as SETVAR shows it: strings quoted, numbers in the drawing's precision.
std::wstring valueText(const wchar_t* name) {
  ResultBuffer node{};
  if (qxedGetVar(name, &node) != RTNORM) return L"?";
  switch (node.type) {
    case RTSHORT:
      return std::to_wstring(node.value.rint);
    case RTLONG:
      return std::to_wstring(node.value.rlong);
    case RTREAL:
    case RTANG:
      return realText(node.value.rreal);
    case RTPOINT:
      return realText(node.value.rpoint[0]) + L"," + realText(node.value.rpoint[1]);
    case RT3DPOINT:
      return realText(node.value.rpoint[0]) + L"," + realText(node.value.rpoint[1]) + L"," +
             realText(node.value.rpoint[2]);
    case RTSTR: {
      std::wstring text =
          L"\"" + std::wstring(node.value.rstring ? node.value.rstring : L"") + L"\"";
      qxad_free(node.value.rstring);
      return text;
    }
    default:
      return L"?";
  }
}

std::wstring numberText(double value, VariableType type) {
  return type == VariableType::Short ? std::to_wstring(static_cast<long long>(value))
                                     : realText(value);
}

// The new value typed; nothing for Enter (the value stays) or when the user stopped.
std::optional<api::VariableValue> askValue(const api::VariableDefinition& definition,
                                           const std::wstring& prompt) {
  api::VariableValue value;
  value.type = definition.type;
  switch (definition.type) {
    case VariableType::Short: {
      int number = 0;
      if (!askInteger(prompt.c_str(), number).value()) return std::nullopt;
      value.number[0] = number;
      return value;
    }
    case VariableType::Real: {
      if (!askReal(prompt.c_str(), value.number[0]).value()) return std::nullopt;
      return value;
    }
    case VariableType::Point2:
    case VariableType::Point3: {
      Vec3 point;
      if (!askPoint(prompt.c_str(), std::nullopt, point).value()) return std::nullopt;
      value.number[0] = point.x;
      value.number[1] = point.y;
      value.number[2] = point.z;
      return value;
    }
    case VariableType::String: {
      std::wstring text;
      if (!askString(prompt.c_str(), false, text).value() || text.empty()) return std::nullopt;
      // A lone period stands for the empty string: Enter keeps the value.
      value.text = text == L"." ? std::string() : api::toUtf8(text);
      return value;
    }
  }
  return std::nullopt;
}

void listVariables() {
  std::wstring pattern;
  if (askString(L"\nEnter variable(s) to list <*>: ", false, pattern).stop()) return;
  pattern = upperText(pattern.empty() ? L"*" : pattern);
  for (const api::VariableDefinition& definition : api::variableTable()) {
    std::wstring name = api::fromUtf8(definition.name);
    if (qxutWcMatch(name.c_str(), pattern.c_str()) != RTNORM) continue;
    std::wstring line = name;
    line.resize(std::max<size_t>(line.size() + 2, 18), L' ');
    line += valueText(name.c_str());
    if (definition.readOnly) {
      line.resize(std::max<size_t>(line.size() + 2, 40), L' ');
      line += L"(read only)";
    }
    qxutPrintf(L"\n%s", line.c_str());
  }
}

}  // namespace

void askVariableValue(const std::wstring& typed) {
  std::wstring name = upperText(typed);
  const api::VariableDefinition* definition = api::findVariable(api::toUtf8(name));
  if (!definition) {
    qxutPrintf(L"\nUnknown variable name.  Type SETVAR ? for a list of variables.");
    return;
  }
  if (definition->readOnly) {
    qxutPrintf(L"\n%s = %s (read only)", name.c_str(), valueText(name.c_str()).c_str());
    return;
  }
  for (;;) {
    std::wstring prompt =
        L"\nEnter new value for " + name + L" <" + valueText(name.c_str()) + L">: ";
    std::optional<api::VariableValue> value = askValue(*definition, prompt);
    if (!value) return;
    switch (api::setVariable(api::currentDatabase(), definition->name, *value)) {
      case api::SetResult::Done:
        return;
      case api::SetResult::OutOfRange:
        if (definition->minimum <= definition->maximum) {
          qxutPrintf(L"\nRequires a value between %s and %s.",
                     numberText(definition->minimum, definition->type).c_str(),
                     numberText(definition->maximum, definition->type).c_str());
        } else {
          qxutPrintf(L"\nValue out of range.");
        }
        continue;
      case api::SetResult::NoSuchName:
        qxutPrintf(L"\nNo such name: \"%s\".", api::fromUtf8(value->text).c_str());
        continue;
      case api::SetResult::ReadOnly:
        qxutPrintf(L"\n%s is read only.", name.c_str());
        return;
      case api::SetResult::WrongType:
      case api::SetResult::Unknown:
        qxutPrintf(L"\nThe value can't be set.");
        return;
    }
  }
}

void setvarCommand() {
  // The name offered is the last one set this session.
  static std::wstring last;
  std::wstring prompt = last.empty() ? L"\nEnter variable name or [?]: "
                                     : L"\nEnter variable name or [?] <" + last + L">: ";
  std::wstring name;
  if (!askString(prompt.c_str(), false, name).value()) return;
  if (name.empty()) name = last;
  if (name.empty()) return;
  if (name == L"?") {
    listVariables();
    return;
  }
  if (api::findVariable(api::toUtf8(upperText(name)))) last = upperText(name);
  askVariableValue(name);
}

}  // namespace korva::cmd::drawing
