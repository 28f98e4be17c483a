// The support path: the folders where korva looks for linetype files, modules and
// other files named without a folder.
//
// Search order: the current drawing's folder, the folders given with --support (in the
// order given), the installed support folder ("Support" beside the korva program),
// the current folder. An absolute name is checked as it is.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korva::input {

// Adds a folder after those added before (korva's --support option).
void addSupportFolder(const std::string& folder);
// Forgets the folders added with addSupportFolder (for tests).
void clearSupportFolders();

// The folder "Support" beside the running program (the installation folder's Support/).
std::string installedSupportFolder();

// The folders searched, in order, for the current drawing; folders that don't exist
// are left out.
std::vector<std::string> supportSearchFolders();

// The full path of the first regular file of that name along the support path.
std::optional<std::string> findSupportFile(const std::string& name);

}  // namespace korva::input
