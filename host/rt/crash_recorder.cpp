// korva's crash recorder: keeps what it is told and prints nothing; the command processor
// reports the failed command.
#include <string>
#include <vector>

#include "qx_runtime.h"
#include "rt/modules.h"

namespace korva::rt {
namespace {

std::vector<std::wstring>& recorded() {
  static std::vector<std::wstring> messages;
  return messages;
}

class CrashRecorder : public QxCrashRecorder {
 public:
  void record(const void*, const wchar_t* what) override {
    recorded().emplace_back(what ? what : L"");
  }
};

}  // namespace

std::vector<std::wstring> recordedCrashes() {
  return recorded();
}

void clearRecordedCrashes() {
  recorded().clear();
}

}  // namespace korva::rt

QxCrashRecorder* qxadGetCrashRecorder() {
  static korva::rt::CrashRecorder recorder;
  return &recorder;
}
