// The dialog layer's file of bytes: every read and write goes to the file descriptor at
// once, as callers that keep their own buffers expect.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "api/utf8.h"
#include "qx_ui_file.h"

namespace {

int accessFlags(unsigned openFlags) {
  if (openFlags & CQxUiFile::modeReadWrite) return O_RDWR;
  if (openFlags & CQxUiFile::modeWrite) return O_WRONLY;
  return O_RDONLY;
}

}  // namespace

CQxUiFile::CQxUiFile(const wchar_t* path, unsigned openFlags) {
  CQxUiFile::Open(path, openFlags);
}

CQxUiFile::~CQxUiFile() {
  // A derived class has closed its own kind of file before this runs.
  CQxUiFile::Close();
}

int CQxUiFile::openDescriptor(const wchar_t* path, unsigned openFlags) {
  if (!path || !*path) return -1;
  int flags = accessFlags(openFlags) | O_CLOEXEC;
  if (openFlags & modeCreate) {
    flags |= O_CREAT;
    if (!(openFlags & modeNoTruncate)) flags |= O_TRUNC;
  }
  const int descriptor = ::open(korva::api::toUtf8(path).c_str(), flags, 0666);
  if (descriptor < 0) return -1;
  descriptor_ = descriptor;
  path_ = path;
  openFlags_ = openFlags;
  return descriptor;
}

void CQxUiFile::releaseDescriptor() {
  descriptor_ = -1;
}

bool CQxUiFile::Open(const wchar_t* path, unsigned openFlags) {
  Close();
  return openDescriptor(path, openFlags) >= 0;
}

void CQxUiFile::Close() {
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
  path_.clear();
  openFlags_ = 0;
}

std::size_t CQxUiFile::Read(void* buffer, std::size_t count) {
  if (descriptor_ < 0 || !buffer) return 0;
  auto* bytes = static_cast<char*>(buffer);
  std::size_t done = 0;
  while (done < count) {
    const ssize_t read = ::read(descriptor_, bytes + done, count - done);
    if (read < 0 && errno == EINTR) continue;
    if (read <= 0) break;
    done += static_cast<std::size_t>(read);
  }
  return done;
}

bool CQxUiFile::Write(const void* buffer, std::size_t count) {
  if (descriptor_ < 0 || (!buffer && count > 0)) return false;
  const auto* bytes = static_cast<const char*>(buffer);
  std::size_t done = 0;
  while (done < count) {
    const ssize_t written = ::write(descriptor_, bytes + done, count - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

std::int64_t CQxUiFile::Seek(std::int64_t offset, SeekPosition from) {
  if (descriptor_ < 0) return -1;
  const int whence = from == begin ? SEEK_SET : from == current ? SEEK_CUR : SEEK_END;
  const off_t position = ::lseek(descriptor_, static_cast<off_t>(offset), whence);
  return position < 0 ? -1 : static_cast<std::int64_t>(position);
}

std::uint64_t CQxUiFile::GetPosition() const {
  if (descriptor_ < 0) return 0;
  const off_t position = ::lseek(descriptor_, 0, SEEK_CUR);
  return position < 0 ? 0 : static_cast<std::uint64_t>(position);
}

std::uint64_t CQxUiFile::GetLength() const {
  struct stat status {};
  if (descriptor_ < 0 || ::fstat(descriptor_, &status) != 0) return 0;
  return static_cast<std::uint64_t>(status.st_size);
}

bool CQxUiFile::Flush() {
  return descriptor_ >= 0;  // nothing is held back
}
