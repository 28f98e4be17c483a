#include "writer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>

#include "binary_format.h"
#include "db/value_text.h"

namespace korva::dxf {

using db::Record;

namespace {

double julianDate(std::time_t time) { return static_cast<double>(time) / 86400.0 + 2440587.5; }

class Writer {
 public:
  Writer(const db::Database& database, bool binary)
      : db_(database),
        binary_(binary),
        oneByteCodes_(database.version() <= "AC1009"),
        eol_(database.format().crlf ? "\r\n" : "\n"),
        padded_(database.format().paddedCodes),
        canCopy_(binary == database.format().binary) {}

  std::string run();

 private:
  void group(int code, std::string_view value);
  void record(const Record* record);
  void header(const Record* variables);
  void marker(const Record* record, std::string_view type);
  std::vector<db::OwnedGroup> headerUpdates() const;

  const db::Database& db_;
  bool binary_;
  bool oneByteCodes_;
  std::string_view eol_;
  bool padded_;
  bool canCopy_;  // records read in this form can be copied as they were read
  std::string out_;
};

void Writer::group(int code, std::string_view value) {
  if (binary_) {
    if (code != 999) appendBinaryGroup(out_, code, value, oneByteCodes_);
    return;
  }
  // A file cut off after a value lacks the last line end; what is added goes on a new line.
  if (!out_.empty() && out_.back() != '\n') {
    // A copied record may end without its line end, or with half of one.
    if (out_.back() == '\r') out_.pop_back();
    out_.append(eol_);
  }
  // By hand rather than snprintf: this runs for every group of every changed record.
  char buffer[16];
  char* end = buffer + sizeof buffer;
  char* digits = end;
  unsigned magnitude = code < 0 ? 0u - static_cast<unsigned>(code) : static_cast<unsigned>(code);
  do {
    *--digits = static_cast<char>('0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0);
  if (code < 0) *--digits = '-';
  while (padded_ && end - digits < 3) *--digits = ' ';
  out_.append(digits, static_cast<size_t>(end - digits));
  out_.append(eol_);
  out_.append(value);
  out_.append(eol_);
}

void Writer::record(const Record* record) {
  if (!record || record->isErased()) return;
  if (canCopy_ && !binary_ && !record->isModified()) {
    out_ += record->sourceText();
    return;
  }
  if (!record->hasFlag(Record::kNoTypeLine)) group(0, record->type());
  for (const db::Group& each : record->groups()) group(each.code, each.value);
}

void Writer::marker(const Record* record, std::string_view type) {
  if (record) {
    this->record(record);
  } else {
    group(0, type);  // the file lacked it; a reader needs it
  }
}

// The largest handle the file will carry. Handles given on load to records that had
// none (R12 table heads) are not written, so they don't call for a new $HANDSEED.
db::Handle largestWrittenHandle(const db::Database& database) {
  db::Handle largest = db::kNoHandle;
  auto take = [&largest](const Record* record) {
    if (record && !record->isErased() && !record->hasFlag(Record::kHandleNotInFile)) {
      largest = std::max(largest, record->handle());
    }
  };
  for (const db::Section& section : database.sections()) {
    for (const Record* each : section.records) take(each);
    for (const db::Table& table : section.tables) {
      take(table.head);
      for (const Record* entry : table.entries) take(entry);
    }
    for (const db::BlockDefinition& block : section.blocks) {
      take(block.begin);
      for (const Record* entity : block.entities) take(entity);
      take(block.end);
    }
  }
  return largest;
}

std::vector<db::OwnedGroup> Writer::headerUpdates() const {
  std::vector<db::OwnedGroup> updates;
  std::string seed = db::formatHandle(db_.handleSeed());
  std::optional<std::string_view> fileSeed = db_.headerValue("$HANDSEED", 5);
  std::optional<db::Handle> fileSeedValue = fileSeed ? db::parseHandle(*fileSeed) : std::nullopt;
  if (fileSeed && (!fileSeedValue || *fileSeedValue <= largestWrittenHandle(db_))) {
    updates.push_back({9, "$HANDSEED"});
    updates.push_back({5, seed});
  }
  if (db_.isModified()) {
    std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    updates.push_back({9, "$TDUPDATE"});
    updates.push_back({40, db::formatReal(julianDate(now + local.tm_gmtoff))});
    updates.push_back({9, "$TDUUPDATE"});
    updates.push_back({40, db::formatReal(julianDate(now))});
  }
  return updates;
}

void Writer::header(const Record* variables) {
  std::vector<db::OwnedGroup> updates = headerUpdates();
  if (updates.empty()) {
    record(variables);
    return;
  }
  // Rewrite only the variables that change; the rest keep their text.
  bool replacing = false;
  for (const db::Group& each : variables->groups()) {
    if (each.code == 9) {
      replacing = false;
      for (size_t i = 0; i < updates.size(); i += 2) {
        if (updates[i].value == each.value) {
          group(9, each.value);
          group(updates[i + 1].code, updates[i + 1].value);
          replacing = true;
        }
      }
      if (replacing) continue;
    }
    if (!replacing) group(each.code, each.value);
  }
}

std::string Writer::run() {
  // Records made in memory have no source text to size the output by; a few hundred
  // bytes each is what entities take.
  out_.reserve(db_.sourceBuffer().size() + db_.recordCount() * (db_.isModified() ? 256 : 0) + 4096);
  if (binary_) {
    out_.append(kBinarySentinel);
  } else {
    out_ += db_.preamble();
  }
  for (const db::Section& section : db_.sections()) {
    record(section.begin);
    if (section.header) header(section.header);
    for (const Record* each : section.records) record(each);
    for (const db::Table& table : section.tables) {
      if (table.head->isErased()) continue;
      record(table.head);
      for (const Record* entry : table.entries) record(entry);
      marker(table.end, "ENDTAB");
    }
    for (const db::BlockDefinition& block : section.blocks) {
      if (block.begin->isErased()) continue;
      record(block.begin);
      for (const Record* entity : block.entities) record(entity);
      marker(block.end, "ENDBLK");
    }
    marker(section.end, "ENDSEC");
  }
  marker(db_.eofRecord(), "EOF");
  if (!binary_) out_ += db_.trailer();
  return std::move(out_);
}

std::string backupPathOf(const std::string& path) {
  std::filesystem::path backup(path);
  backup.replace_extension(".bak");
  return backup.string();
}

}  // namespace

std::string writeToString(const db::Database& database, const WriteOptions& options) {
  Writer writer(database, options.binary.value_or(database.format().binary));
  return writer.run();
}

WriteResult writeFile(db::Database& database, const std::string& path, const WriteOptions& options) {
  WriteResult result;
  std::string data = writeToString(database, options);
  std::string temporary = path + ".XXXXXX";
  int descriptor = mkstemp(temporary.data());
  if (descriptor < 0) {
    result.error = "cannot write beside " + path + ": " + std::strerror(errno);
    return result;
  }
  size_t written = 0;
  while (written < data.size()) {
    ssize_t count = ::write(descriptor, data.data() + written, data.size() - written);
    if (count < 0) {
      if (errno == EINTR) continue;
      break;
    }
    written += static_cast<size_t>(count);
  }
  bool complete = written == data.size() && ::fsync(descriptor) == 0;
  int error = errno;
  // mkstemp makes the file private; a saved drawing gets the target's mode, or the usual one.
  struct stat existing {};
  mode_t mode = ::stat(path.c_str(), &existing) == 0 ? existing.st_mode & 07777 : 0644;
  ::fchmod(descriptor, mode);
  ::close(descriptor);
  if (!complete) {
    ::unlink(temporary.c_str());
    result.error = "cannot write " + path + ": " + std::strerror(error);
    return result;
  }
  std::error_code ignored;
  if (options.keepBackup && std::filesystem::exists(path, ignored)) {
    std::filesystem::path backup = backupPathOf(path);
    std::filesystem::remove(backup, ignored);
    // A hard link keeps the old file as the backup while the rename replaces it.
    if (::link(path.c_str(), backup.c_str()) != 0) {
      std::filesystem::copy_file(path, backup, ignored);
    }
  }
  if (::rename(temporary.c_str(), path.c_str()) != 0) {
    error = errno;
    ::unlink(temporary.c_str());
    result.error = "cannot write " + path + ": " + std::strerror(error);
    return result;
  }
  database.dropErased();
  result.ok = true;
  return result;
}

}  // namespace korva::dxf
