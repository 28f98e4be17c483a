#include "cmd/variable_prompt.h"

#include <string>

#include "api/system_variables.h"
#include "api/utf8.h"
#include "input/console.h"
#include "input/point_input.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_units.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

std::wstring currentValueText(const std::wstring& name) {
  ResultBuffer value{};
  if (qxedGetVar(name.c_str(), &value) != RTNORM) return {};
  wchar_t buffer[256] = L"";
  switch (value.type) {
    case RTSHORT:
      qxutSPrintf(buffer, L"%d", value.value.rint);
      return buffer;
    case RTLONG:
      qxutSPrintf(buffer, L"%ld", static_cast<long>(value.value.rlong));
      return buffer;
    case RTREAL:
      qxdbRToS(value.value.rreal, -1, -1, buffer, 256);
      return buffer;
    case RTPOINT:
    case RT3DPOINT: {
      std::wstring text;
      const int count = value.type == RTPOINT ? 2 : 3;
      for (int i = 0; i < count; ++i) {
        qxdbRToS(value.value.rpoint[i], -1, -1, buffer, 256);
        if (i) text += L",";
        text += buffer;
      }
      return text;
    }
    case RTSTR: {
      std::wstring text = L"\"" + std::wstring(value.value.rstring ? value.value.rstring : L"") +
                          L"\"";
      qxad_free(value.value.rstring);
      return text;
    }
    default:
      return {};
  }
}

// The answer as the variable's type; false when it doesn't read as one.
bool readValue(const api::VariableDefinition& definition, const input::Answer& answer,
               ResultBuffer& node, std::wstring& text) {
  if (answer.kind == input::Answer::Kind::Point &&
      (definition.type == api::VariableType::Point2 || definition.type == api::VariableType::Point3)) {
    node.type = definition.type == api::VariableType::Point2 ? RTPOINT : RT3DPOINT;
    for (int i = 0; i < 3; ++i) node.value.rpoint[i] = answer.point[i];
    return true;
  }
  if (answer.kind != input::Answer::Kind::Text) return false;
  text = answer.text;
  switch (definition.type) {
    case api::VariableType::Short: {
      std::optional<int> number = input::parseIntegerInput(text);
      if (!number) return false;
      node.type = RTSHORT;
      node.value.rint = static_cast<std::int16_t>(*number);
      return true;
    }
    case api::VariableType::Real: {
      std::optional<double> number = input::parseRealInput(text);
      if (!number) return false;
      node.type = RTREAL;
      node.value.rreal = *number;
      return true;
    }
    case api::VariableType::Point2:
    case api::VariableType::Point3:
      node.type = definition.type == api::VariableType::Point2 ? RTPOINT : RT3DPOINT;
      return input::parsePointInput(text, nullptr, node.value.rpoint);
    case api::VariableType::String:
      node.type = RTSTR;
      node.value.rstring = text.data();
      return true;
  }
  return false;
}

}  // namespace

bool isVariableName(std::wstring_view typed) {
  return api::findVariable(api::toUtf8(typed)) != nullptr;
}

bool promptForVariable(std::wstring_view typed) {
  const api::VariableDefinition* definition = api::findVariable(api::toUtf8(typed));
  if (!definition) return false;
  const std::wstring name = api::fromUtf8(definition->name);
  const std::wstring current = currentValueText(name);
  if (definition->readOnly) {
    qxutPrintf(L"%s = %s (read only)\n", name.c_str(), current.c_str());
    return true;
  }
  const std::wstring prompt = L"Enter new value for " + name + L" <" + current + L">: ";
  input::AskOptions options;
  options.blanksAllowed = definition->type == api::VariableType::String;
  for (;;) {
    input::Answer answer = input::Console::instance().ask(prompt, options);
    if (answer.isCancel() || answer.isEnter()) return true;
    ResultBuffer node{};
    std::wstring text;
    if (!readValue(*definition, answer, node, text)) {
      qxutPrintf(L"Invalid value for %s.\n", name.c_str());
      continue;
    }
    if (qxedSetVar(name.c_str(), &node) == RTNORM) return true;
    qxutPrintf(L"Value for %s refused (out of range or not allowed).\n", name.c_str());
  }
}

}  // namespace korva::cmd
