// The module's own exceptions. They have no catcher in the module: they leave the
// command and reach the host, which reports the failed command.
#pragma once

#include <exception>
#include <string>

class VnException : public std::exception {
 public:
  const char* what() const noexcept override { return "VnException"; }
};

class VnExceptionWithMsg : public VnException {
 public:
  // fileText names where it was raised (a source file, or a placeholder), line the line.
  VnExceptionWithMsg(const wchar_t* fileText, int line, const wchar_t* message);

  const std::wstring& fileText() const { return fileText_; }
  int line() const { return line_; }
  const std::wstring& message() const { return message_; }
  const char* what() const noexcept override { return what_.c_str(); }

  // Hands the exception to the host's crash recorder, when there is one. Done just
  // before it is thrown, so that the record exists even if nothing catches it.
  void reportToCrashRecorder() const;

 private:
  std::wstring fileText_;
  int line_;
  std::wstring message_;
  std::string what_;  // the message as UTF-8
};
