// File names of drawings as NEW, OPEN and the save commands take them.
#pragma once

#include <string>

namespace korva::cmd {

// The name with the drawing extension added when it has none.
std::string withDrawingExtension(const std::string& name);
// Whether two names lead to the same file (the second one may not exist yet).
bool sameFile(const std::string& first, const std::string& second);
bool fileExists(const std::string& path);

}  // namespace korva::cmd
