#include "frame/lisp_functions.h"

#include "cal_command.h"

#include "frame/resource_ids.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"

namespace frame {
namespace {

constexpr int kRefEditAlertNumber = 2;

int refEditAlert(ResultBuffer*) {
  ResourceScope scope;
  qxutPrintf(L"%s", LoadResourceString(kRefEditAlertText).c_str());
  return 0;
}

constexpr LispFunctionRow kLispFunctions[] = {
    {L"C:CAL", kCalFunctionLocalName, calLispFunction},
    {L"CAL", kCalLocalName, calLispFunction},
    {L"ai_refedit_alert", kRefEditAlertLocalName, refEditAlert},
};

}  // namespace

std::span<const LispFunctionRow> lispFunctionTable() {
  return kLispFunctions;
}

void defineLispFunctions() {
  const LispFunctionRow& alert = kLispFunctions[kRefEditAlertNumber];
  const std::wstring localName = LoadResourceString(alert.localNameId);
  qxedDefunEx(alert.name, localName.c_str(), kRefEditAlertNumber);
}

int dispatchLispCall(int functionCode) {
  if (functionCode < 0 || functionCode >= static_cast<int>(std::size(kLispFunctions))) {
    qxdbFail(L"Incorrect function code.");
    return RTERROR;
  }
  ResultBuffer* arguments = qxedGetArgs();
  const int result = kLispFunctions[functionCode].function(arguments);
  qxutRelRb(arguments);
  return result;
}

}  // namespace frame
