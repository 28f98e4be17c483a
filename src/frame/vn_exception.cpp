#include "frame/vn_exception.h"

#include "frame/host_interface.h"
#include "frame/text_codec.h"

namespace {

std::string utf8Of(const std::wstring& text) {
  QxTextMode utf8;
  utf8.encoding = kUtf8;
  std::string bytes;
  unsigned char encoded[kMaxEncodedBytes];
  for (wchar_t each : text) {
    const std::size_t length = encodeCharacter(utf8, each, encoded);
    bytes.append(reinterpret_cast<const char*>(encoded), length);
  }
  return bytes;
}

}  // namespace

VnExceptionWithMsg::VnExceptionWithMsg(const wchar_t* fileText, int line, const wchar_t* message)
    : fileText_(fileText ? fileText : L""),
      line_(line),
      message_(message ? message : L""),
      what_(utf8Of(message_)) {}

void VnExceptionWithMsg::reportToCrashRecorder() const {
  if (QxCrashRecorder* recorder = qxadGetCrashRecorder()) recorder->record(this, message_.c_str());
}
