// The property every input must keep, shared by the libFuzzer target and its replay test:
// reading never crashes, and a drawing that was read is written so that it reads again
// with the same records.
#pragma once

#include <string>
#include <string_view>

#include "dxf/reader.h"
#include "dxf/writer.h"

namespace korva::fuzz {

// Records that carry content: what a save must not lose or invent.
inline size_t contentRecords(const db::Database& database) {
  size_t count = 0;
  for (const db::Section& section : database.sections()) {
    count += section.records.size() + section.tables.size() + section.blocks.size();
    for (const db::Table& table : section.tables) count += table.entries.size();
    for (const db::BlockDefinition& block : section.blocks) count += block.entities.size();
  }
  return count;
}

// Empty when the input was handled as it should be; otherwise what went wrong.
inline std::string checkInput(std::string_view data) {
  for (bool recover : {false, true}) {
    dxf::ReadOptions options{.recover = recover};
    const char* mode = recover ? "recovering" : "strict";
    dxf::ReadResult first = dxf::readBuffer(std::string(data), options);
    if (!first.ok()) {
      if (first.error.empty()) return std::string(mode) + " read failed without a message";
      continue;
    }
    for (bool binary : {false, true}) {
      std::string written = dxf::writeToString(*first.database, {.binary = binary});
      dxf::ReadResult second = dxf::readBuffer(written, options);
      std::string what = std::string(mode) + (binary ? ", binary: " : ", text: ");
      if (!second.ok()) return what + "the written drawing does not read: " + second.error;
      // Markers the file lacked (ENDTAB, ENDBLK, ENDSEC, EOF) are added on save; they are
      // not counted.
      if (contentRecords(*second.database) != contentRecords(*first.database)) {
        return what + "the written drawing has " +
               std::to_string(contentRecords(*second.database)) + " records, not " +
               std::to_string(contentRecords(*first.database));
      }
    }
  }
  return {};
}

}  // namespace korva::fuzz
