#include "lisp/module_functions.h"

#include <map>

#include "lisp/interpreter.h"
#include "lisp/lisp_commands.h"
#include "lisp/result_buffers.h"
#include "qx_lisp.h"
#include "qx_memory.h"
#include "rt/module_table.h"

namespace korva::lisp {
namespace {

struct ModuleFunction {
  const void* moduleId = nullptr;
  int functionNumber = 0;
  std::wstring localName;
};

std::map<std::wstring, ModuleFunction>& moduleFunctions() {
  static std::map<std::wstring, ModuleFunction> functions;
  return functions;
}

// One call of a module's function under way.
struct Call {
  int functionNumber = 0;
  ResultBuffer* arguments = nullptr;
  std::optional<Value> result;
  std::optional<std::wstring> failure;
};

// Calls nest when a module function runs LISP that calls another.
std::vector<Call*>& calls() {
  static std::vector<Call*> stack;
  return stack;
}

int setResult(Value value) {
  if (!calls().empty()) calls().back()->result = std::move(value);
  return RTNORM;
}

// Takes the call off the stack and frees its arguments on every path.
class CallScope {
 public:
  explicit CallScope(Call& call) : call_(call) { calls().push_back(&call_); }
  ~CallScope() {
    calls().pop_back();
    qxutRelRb(call_.arguments);
  }
  CallScope(const CallScope&) = delete;
  CallScope& operator=(const CallScope&) = delete;

 private:
  Call& call_;
};

}  // namespace

namespace {

Value callModule(rt::Module& module, const std::wstring& name, int functionNumber,
                 const std::vector<Value>& arguments) {
  Call call;
  call.functionNumber = functionNumber;
  call.arguments = buffersOf(arguments);
  std::optional<std::wstring> thrown;
  {
    CallScope scope(call);
    rt::sendMessage(module, QxRx::kInvkSubrMsg, module.id(), &thrown);
  }
  if (thrown) fail(name + L" failed: " + *thrown);
  if (call.failure) fail(*call.failure);
  return call.result ? *call.result : Value::nil();
}

}  // namespace

std::optional<Value> callModuleFunction(const std::wstring& name,
                                        const std::vector<Value>& arguments) {
  auto found = moduleFunctions().find(name);
  if (found == moduleFunctions().end()) return std::nullopt;
  rt::Module* module = rt::moduleById(found->second.moduleId);
  if (!module) return std::nullopt;
  return callModule(*module, name, found->second.functionNumber, arguments);
}

std::optional<Value> callModuleFunctionNumber(const std::wstring& moduleName, int functionNumber,
                                              const std::vector<Value>& arguments) {
  rt::Module* module = rt::moduleByName(moduleName);
  if (!module) return std::nullopt;
  return callModule(*module, moduleName, functionNumber, arguments);
}

bool isModuleFunction(const std::wstring& name) {
  return moduleFunctions().contains(name);
}

void forgetModuleFunctions(const void* moduleId) {
  std::vector<std::wstring> names;
  for (const auto& [name, function] : moduleFunctions()) {
    if (function.moduleId == moduleId) names.push_back(name);
  }
  for (const std::wstring& name : names) {
    moduleFunctions().erase(name);
    forgetLispCommand(name);
  }
}

}  // namespace korva::lisp

using korva::lisp::Value;

int qxedDefunEx(const wchar_t* globalName, const wchar_t* localName, int functionNumber) {
  korva::rt::Module* module = korva::rt::callingModule(__builtin_return_address(0));
  if (!module || !globalName || !*globalName) return RTERROR;
  const std::wstring name = korva::lisp::upperCase(globalName);
  korva::lisp::moduleFunctions()[name] = {module->id(), functionNumber,
                                          localName ? localName : L""};
  korva::lisp::defineLispCommand(name);
  return RTNORM;
}

int qxedUndef(const wchar_t* name, int functionNumber) {
  if (!name) return RTERROR;
  auto& functions = korva::lisp::moduleFunctions();
  auto found = functions.find(korva::lisp::upperCase(name));
  if (found == functions.end() || found->second.functionNumber != functionNumber) return RTERROR;
  const std::wstring removed = found->first;
  functions.erase(found);
  korva::lisp::forgetLispCommand(removed);
  return RTNORM;
}

int qxedGetFunCode() {
  return korva::lisp::calls().empty() ? RTERROR : korva::lisp::calls().back()->functionNumber;
}

ResultBuffer* qxedGetArgs() {
  if (korva::lisp::calls().empty()) return nullptr;
  return korva::lisp::copyChain(korva::lisp::calls().back()->arguments);
}

// Outside a function call (a command ending with qxedRetVoid) the value goes nowhere.
int qxedRetVoid() {
  return korva::lisp::setResult(Value::nothing());
}
int qxedRetNil() {
  return korva::lisp::setResult(Value::nil());
}
int qxedRetT() {
  return korva::lisp::setResult(Value::trueValue());
}
int qxedRetInt(int value) {
  return korva::lisp::setResult(Value::ofInteger(value));
}
int qxedRetReal(double value) {
  return korva::lisp::setResult(Value::ofReal(value));
}

int qxedRetStr(const wchar_t* value) {
  return korva::lisp::setResult(value ? Value::ofString(value) : Value::nil());
}

int qxedRetPoint(const double point[3]) {
  if (!point) return RTERROR;
  return korva::lisp::setResult(Value::ofPoint(point, 3));
}

int qxedRetName(const EntityName name, int type) {
  if (!name || (type != RTENAME && type != RTPICKS)) return RTERROR;
  return korva::lisp::setResult(type == RTENAME ? Value::ofEntity(name)
                                                : Value::ofSelectionSet(name));
}

// A chain that is one RTLB ... RTLE is that list; other chains are the items of a list.
int qxedRetList(const ResultBuffer* list) {
  std::vector<Value> values = korva::lisp::valuesOf(list);
  const bool oneList = list && list->type == RTLB && values.size() == 1;
  return korva::lisp::setResult(oneList ? values.front() : Value::ofList(std::move(values)));
}

int qxedRetVal(const ResultBuffer* value) {
  if (!value) return korva::lisp::setResult(Value::nil());
  const ResultBuffer* node = value;
  return korva::lisp::setResult(korva::lisp::valueAt(node));
}

int qxdbFail(const wchar_t* message) {
  const std::wstring text = message ? message : L"";
  if (korva::lisp::calls().empty()) {
    korva::lisp::Interpreter::printError(text);
  } else {
    korva::lisp::calls().back()->failure = text;
  }
  return RTNORM;
}
