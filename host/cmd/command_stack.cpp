#include "cmd/command_stack.h"

#include "cmd/processor.h"

const QxRxClass* QxEdCommandStack::desc() {
  static const QxRxClass record(L"QxEdCommandStack", QxRxObject::desc());
  return &record;
}

namespace korva::cmd {
namespace {

// Registrations go straight into the processor's table.
class ProcessorCommandStack : public QxEdCommandStack {
 public:
  Qxad::ErrorStatus addCommand(const wchar_t* groupName, const wchar_t* globalName,
                               const wchar_t* localName, int flags, QxRxFunctionPtr handler,
                               QxEdUIContext*, int functionCode, void* resourceHandle,
                               QxEdCommand**) override {
    if (!globalName || !*globalName || !handler) return Qxad::eInvalidInput;
    CommandDefinition definition;
    definition.group = groupName ? groupName : L"";
    definition.globalName = globalName;
    definition.localName = localName ? localName : L"";
    definition.flags = flags;
    definition.handler = handler;
    definition.functionCode = functionCode;
    definition.resourceHandle = resourceHandle;
    return Processor::instance().addCommand(std::move(definition)) ? Qxad::eOk
                                                                   : Qxad::eDuplicateKey;
  }
  Qxad::ErrorStatus removeCmd(const wchar_t* groupName, const wchar_t* globalName) override {
    if (!groupName || !globalName) return Qxad::eInvalidInput;
    return Processor::instance().removeCommand(groupName, globalName) ? Qxad::eOk
                                                                      : Qxad::eKeyNotFound;
  }
  Qxad::ErrorStatus removeGroup(const wchar_t* groupName) override {
    if (!groupName) return Qxad::eInvalidInput;
    return Processor::instance().removeGroup(groupName) > 0 ? Qxad::eOk : Qxad::eKeyNotFound;
  }
};

}  // namespace

QxEdCommandStack* commandStack() {
  // The registry holds it for the whole run; it is never deleted.
  static ProcessorCommandStack* stack = new ProcessorCommandStack;
  return stack;
}

}  // namespace korva::cmd
