// Reading DXF files, ASCII and binary, from R12 to R2018.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/database.h"

namespace korva::dxf {

struct Diagnostic {
  size_t line = 0;  // 1-based line of the text form; 0 when no line applies
  std::string message;
};

struct ReadOptions {
  // Read what can be read and list what was dropped, instead of failing.
  bool recover = false;
};

struct ReadResult {
  std::unique_ptr<db::Database> database;  // null when the file could not be read
  std::string error;                       // why, when database is null
  std::vector<Diagnostic> warnings;        // the drawing was read; these were noticed
  std::vector<Diagnostic> dropped;         // recovering mode: what was left out
  bool ok() const { return database != nullptr; }
};

ReadResult readFile(const std::string& path, const ReadOptions& options = {});
// Reads a DXF held in memory; the database keeps the buffer.
ReadResult readBuffer(std::string data, const ReadOptions& options = {});

// "line 12: message" or just the message.
std::string describe(const Diagnostic& diagnostic);

}  // namespace korva::dxf
