// Drawing file names.
#include "cmd/files/drawing_paths.h"

#include <filesystem>
#include <system_error>

#include "api/utf8.h"
#include "qx_drawing_file.h"

namespace korva::cmd {
namespace {

namespace fs = std::filesystem;

fs::path normalized(const std::string& path) {
  std::error_code error;
  fs::path absolute = fs::absolute(path, error);
  fs::path canonical = fs::weakly_canonical(error ? fs::path(path) : absolute, error);
  return (error ? absolute : canonical).lexically_normal();
}

}  // namespace

std::string withDrawingExtension(const std::string& name) {
  if (fs::path(name).has_extension()) return name;
  return name + api::toUtf8(QXED_DRAWING_EXTENSION);
}

bool sameFile(const std::string& first, const std::string& second) {
  if (first.empty() || second.empty()) return false;
  return normalized(first) == normalized(second);
}

bool fileExists(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

}  // namespace korva::cmd
