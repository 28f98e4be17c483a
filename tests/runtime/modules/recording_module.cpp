// A test module that prints every message it gets and defines one LISP function for each
// way of giving a value back, so that tests and transcripts show what korva sends.
#include <stdexcept>

#include "qx_command.h"
#include "qx_lisp.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_runtime.h"

namespace {

constexpr const wchar_t* kGroup = L"RECORDER_COMMANDS";
constexpr const wchar_t* kService = L"RecorderService";

enum Function {
  kEcho,  // gives its arguments back as a list
  kInteger,
  kReal,
  kString,
  kPoint,
  kNil,
  kTrue,
  kVoid,
  kNothingSet,
  kFail,
  kName,        // the entity name or selection set given
  kFirstValue,  // qxedRetVal of the first argument
  kThrow,
  kArgumentTypes,  // prints the type code of each argument node
  kCommand,        // C:RECLISP
  kFunctionCount
};

const wchar_t* const kFunctionNames[kFunctionCount] = {
    L"rec-echo", L"rec-int", L"rec-real",  L"rec-str",   L"rec-point",
    L"rec-nil",  L"rec-t",   L"rec-void",  L"rec-none",  L"rec-fail",
    L"rec-name", L"rec-val", L"rec-throw", L"rec-types", L"C:RECLISP"};

QxEdCommandStack* commandStack() {
  return QxEdCommandStack::cast(qxrxSysRegistry()->at(L"QXAD_REGISTERED_COMMANDS"));
}

void helloCommand() {
  qxutPrintf(L"[recorder] hello\n");
}

void initialise(void* appId) {
  QxRxDynamicLinker::cast(qxrxSysRegistry()->at(L"DynamicLinker"))->unlockApplication(appId);
  qxrxRegisterAppMDIAware(appId);
  if (!qxrxServiceIsRegistered(kService)) qxrxRegisterService(kService);
  commandStack()->addCommand(kGroup, L"RECHELLO", L"RECHELLO", QXRX_CMD_MODAL, helloCommand);
}

void removeRegistrations() {
  if (qxrxServiceIsRegistered(kService)) {
    auto* services = QxRxDictionary::cast(qxrxSysRegistry()->at(L"ServiceDictionary"));
    delete services->remove(kService);
  }
  commandStack()->removeGroup(kGroup);
}

int dispatch() {
  const int code = qxedGetFunCode();
  if (code < 0 || code >= kFunctionCount) {
    qxdbFail(L"Incorrect function code.");
    return RTERROR;
  }
  ResultBuffer* arguments = qxedGetArgs();
  const double point[3] = {1.5, 2.5, 3.5};
  switch (code) {
    case kEcho:
      qxedRetList(arguments);
      break;
    case kInteger:
      qxedRetInt(42);
      break;
    case kReal:
      qxedRetReal(2.5);
      break;
    case kString:
      qxedRetStr(L"text \"quoted\"");
      break;
    case kPoint:
      qxedRetPoint(point);
      break;
    case kNil:
      qxedRetNil();
      break;
    case kTrue:
      qxedRetT();
      break;
    case kVoid:
      qxedRetVoid();
      break;
    case kFail:
      qxdbFail(L"the recorder was asked to fail");
      break;
    case kName:
      if (arguments) qxedRetName(arguments->value.rlname, arguments->type);
      break;
    case kFirstValue:
      qxedRetVal(arguments);
      break;
    case kThrow:
      qxutRelRb(arguments);
      throw std::runtime_error("thrown by the recorder");
    case kArgumentTypes:
      for (const ResultBuffer* each = arguments; each; each = each->next) {
        qxutPrintf(L"%d ", each->type);
      }
      qxutPrintf(L"\n");
      break;
    case kCommand:
      qxutPrintf(L"[recorder] lisp command\n");
      qxedRetVoid();
      break;
    default:
      break;
  }
  qxutRelRb(arguments);
  return RTNORM;
}

}  // namespace

extern "C" int qxrxEntryPoint(int message, void* packet) {
  qxutPrintf(L"[recorder %d]\n", message);
  switch (message) {
    case QxRx::kInitAppMsg:
      initialise(packet);
      break;
    case QxRx::kLoadDwgMsg:
      for (int index = 0; index < kFunctionCount; ++index) {
        qxedDefunEx(kFunctionNames[index], kFunctionNames[index], index);
      }
      break;
    case QxRx::kInvkSubrMsg:
      dispatch();
      break;
    case QxRx::kUnloadAppMsg:
    case QxRx::kQuitMsg:
      removeRegistrations();
      break;
    default:
      break;
  }
  return QxRx::kRetOK;
}
