// qxedGetVar and qxedSetVar over the variable table.
#include <cstring>

#include "document.h"
#include "qx_memory.h"
#include "qx_variables.h"
#include "system_variables.h"
#include "utf8.h"

using korva::api::VariableType;
using korva::api::VariableValue;

int qxedGetVar(const wchar_t* name, ResultBuffer* node) {
  if (!name || !node) return RTERROR;
  std::optional<VariableValue> value =
      korva::api::getVariable(korva::api::currentDatabase(), korva::api::toUtf8(name));
  if (!value) return RTERROR;
  switch (value->type) {
    case VariableType::Short:
      node->type = RTSHORT;
      node->value.rint = static_cast<int16_t>(value->number[0]);
      break;
    case VariableType::Real:
      node->type = RTREAL;
      node->value.rreal = value->number[0];
      break;
    case VariableType::Point2:
    case VariableType::Point3:
      node->type = value->type == VariableType::Point2 ? RTPOINT : RT3DPOINT;
      for (int axis = 0; axis < 3; ++axis) node->value.rpoint[axis] = value->number[axis];
      break;
    case VariableType::String: {
      node->type = RTSTR;
      std::wstring text = korva::api::fromUtf8(value->text);
      node->value.rstring = qxutNewString(text.c_str());
      if (!node->value.rstring) return RTERROR;
      break;
    }
  }
  return RTNORM;
}

int qxedSetVar(const wchar_t* name, const ResultBuffer* node) {
  if (!name || !node) return RTERROR;
  VariableValue value;
  switch (node->type) {
    case RTSHORT:
      value.type = VariableType::Short;
      value.number[0] = node->value.rint;
      break;
    case RTLONG:
      value.type = VariableType::Short;
      value.number[0] = node->value.rlong;
      break;
    case RTREAL:
    case RTANG:
      value.type = VariableType::Real;
      value.number[0] = node->value.rreal;
      break;
    case RTPOINT:
    case RT3DPOINT:
      value.type = node->type == RTPOINT ? VariableType::Point2 : VariableType::Point3;
      for (int axis = 0; axis < 3; ++axis) value.number[axis] = node->value.rpoint[axis];
      if (node->type == RTPOINT) value.number[2] = 0;
      break;
    case RTSTR:
      if (!node->value.rstring) return RTERROR;
      value.type = VariableType::String;
      value.text = korva::api::toUtf8(node->value.rstring);
      break;
    default:
      return RTERROR;
  }
  korva::api::SetResult result =
      korva::api::setVariable(korva::api::currentDatabase(), korva::api::toUtf8(name), value);
  return result == korva::api::SetResult::Done ? RTNORM : RTERROR;
}
