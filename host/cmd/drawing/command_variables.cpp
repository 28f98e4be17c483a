#include "cmd/drawing/command_variables.h"

#include "api/document.h"
#include "api/system_variables.h"
#include "api/utf8.h"
#include "qx_memory.h"
#include "qx_variables.h"

namespace korva::cmd::drawing {

namespace {

bool read(const wchar_t* name, ResultBuffer& node) {
  node = ResultBuffer{};
  return qxedGetVar(name, &node) == RTNORM;
}

void hostSet(const char* name, const api::VariableValue& value) {
  api::setVariable(api::currentDatabase(), name, value, true);
}

}  // namespace

int shortVariable(const wchar_t* name, int fallback) {
  ResultBuffer node;
  if (!read(name, node)) return fallback;
  if (node.type == RTSHORT) return node.value.rint;
  if (node.type == RTLONG) return node.value.rlong;
  if (node.type == RTSTR) qxad_free(node.value.rstring);
  return fallback;
}

double realVariable(const wchar_t* name, double fallback) {
  ResultBuffer node;
  if (!read(name, node)) return fallback;
  if (node.type == RTREAL || node.type == RTANG) return node.value.rreal;
  if (node.type == RTSHORT) return node.value.rint;
  if (node.type == RTSTR) qxad_free(node.value.rstring);
  return fallback;
}

geom::Vec3 pointVariable(const wchar_t* name) {
  ResultBuffer node;
  if (!read(name, node)) return {};
  if (node.type == RTPOINT) return {node.value.rpoint[0], node.value.rpoint[1], 0};
  if (node.type == RT3DPOINT) {
    return {node.value.rpoint[0], node.value.rpoint[1], node.value.rpoint[2]};
  }
  if (node.type == RTSTR) qxad_free(node.value.rstring);
  return {};
}

std::wstring stringVariable(const wchar_t* name) {
  ResultBuffer node;
  if (!read(name, node) || node.type != RTSTR) return {};
  std::wstring text = node.value.rstring ? node.value.rstring : L"";
  qxad_free(node.value.rstring);
  return text;
}

bool setShortVariable(const wchar_t* name, int value) {
  ResultBuffer node{};
  node.type = RTSHORT;
  node.value.rint = static_cast<std::int16_t>(value);
  return qxedSetVar(name, &node) == RTNORM;
}

bool setRealVariable(const wchar_t* name, double value) {
  ResultBuffer node{};
  node.type = RTREAL;
  node.value.rreal = value;
  return qxedSetVar(name, &node) == RTNORM;
}

bool setPointVariable(const wchar_t* name, geom::Vec3 value) {
  ResultBuffer node{};
  node.type = RT3DPOINT;
  node.value.rpoint[0] = value.x;
  node.value.rpoint[1] = value.y;
  node.value.rpoint[2] = value.z;
  return qxedSetVar(name, &node) == RTNORM;
}

bool setStringVariable(const wchar_t* name, const std::wstring& value) {
  ResultBuffer node{};
  node.type = RTSTR;
  node.value.rstring = const_cast<wchar_t*>(value.c_str());
  return qxedSetVar(name, &node) == RTNORM;
}

void hostSetReal(const char* name, double value) {
  api::VariableValue variable;
  variable.type = api::VariableType::Real;
  variable.number[0] = value;
  hostSet(name, variable);
}

void hostSetPoint(const char* name, geom::Vec3 value) {
  api::VariableValue variable;
  variable.type = api::VariableType::Point3;
  variable.number[0] = value.x;
  variable.number[1] = value.y;
  variable.number[2] = value.z;
  hostSet(name, variable);
}

void hostSetString(const char* name, const std::wstring& value) {
  api::VariableValue variable;
  variable.type = api::VariableType::String;
  variable.text = api::toUtf8(value);
  hostSet(name, variable);
}

void rememberLastPoint(geom::Vec3 userPoint) {
  setPointVariable(L"LASTPOINT", userPoint);
}

}  // namespace korva::cmd::drawing
