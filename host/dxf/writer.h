// Writing drawings as DXF in the version and form they were read in.
#pragma once

#include <optional>
#include <string>

#include "db/database.h"

namespace korva::dxf {

struct WriteOptions {
  bool keepBackup = false;      // the previous file stays as NAME.bak
  std::optional<bool> binary;   // default: the form the drawing was read in
};

struct WriteResult {
  bool ok = false;
  std::string error;
};

// The whole file. An untouched drawing gives back the bytes it was read from;
// $HANDSEED, and after edits $TDUPDATE and $TDUUPDATE, are brought up to date.
std::string writeToString(const db::Database& database, const WriteOptions& options = {});

// Writes beside the target and renames, so that a failed save never leaves half a file.
// Erased records leave the drawing once it is saved.
WriteResult writeFile(db::Database& database, const std::string& path,
                      const WriteOptions& options = {});

}  // namespace korva::dxf
