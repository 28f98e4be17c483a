#include "reader.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

#include "binary_format.h"
#include "db/group_code.h"
#include "db/text_lines.h"
#include "db/value_text.h"

namespace korva::dxf {

using db::Database;
using db::Handle;
using db::Record;

namespace {

constexpr int kMaxGroupCode = 1071;
constexpr size_t kMaxListedWarnings = 200;

// Which characters a value of each type may hold; checked on every value, so a table.
// kDigit and kHexDigit mark the characters that make a value more than blanks and signs.
enum CharSet : uint8_t { kReal = 1, kInteger = 2, kHex = 4, kDigit = 8, kHexDigit = 16 };

constexpr std::array<uint8_t, 256> makeCharSets() {
  std::array<uint8_t, 256> sets{};
  for (char c = '0'; c <= '9'; ++c) {
    sets[static_cast<uint8_t>(c)] = kReal | kInteger | kHex | kDigit | kHexDigit;
  }
  for (char c : {'+', '-'}) sets[static_cast<uint8_t>(c)] = kReal | kInteger;
  for (char c : {' ', '\t'}) sets[static_cast<uint8_t>(c)] = kReal | kInteger | kHex;
  for (char c : {'.', 'e', 'E'}) sets[static_cast<uint8_t>(c)] |= kReal;
  for (char c = 'A'; c <= 'F'; ++c) sets[static_cast<uint8_t>(c)] |= kHex | kHexDigit;
  for (char c = 'a'; c <= 'f'; ++c) sets[static_cast<uint8_t>(c)] |= kHex | kHexDigit;
  return sets;
}
constexpr std::array<uint8_t, 256> kCharSets = makeCharSets();

// What each group code's value must look like.
enum class Check : uint8_t { None, Real, Integer, Hex };

std::array<Check, kMaxGroupCode + 1> makeChecks() {
  std::array<Check, kMaxGroupCode + 1> checks{};
  for (int code = 0; code <= kMaxGroupCode; ++code) {
    switch (db::valueTypeOf(code)) {
      case db::ValueType::Double: checks[code] = Check::Real; break;
      case db::ValueType::Int16:
      case db::ValueType::Int32:
      case db::ValueType::Int64:
      case db::ValueType::Bool: checks[code] = Check::Integer; break;
      case db::ValueType::Binary: checks[code] = Check::Hex; break;
      case db::ValueType::String: checks[code] = Check::None; break;
    }
  }
  return checks;
}
const std::array<Check, kMaxGroupCode + 1> kChecks = makeChecks();

// "-12.5", "3", ".5": how nearly every real is written; checked without a full parse.
bool isPlainDecimal(std::string_view value) {
  size_t i = !value.empty() && value[0] == '-' ? 1 : 0;
  size_t digits = 0;
  size_t points = 0;
  for (; i < value.size(); ++i) {
    char c = value[i];
    if (c >= '0' && c <= '9') {
      ++digits;
    } else if (c == '.' && points == 0) {
      ++points;
    } else {
      return false;
    }
  }
  return digits > 0;
}

bool valueFits(Check check, std::string_view value) {
  uint8_t wanted = check == Check::Real ? kReal : check == Check::Integer ? kInteger : kHex;
  // No early exit: values almost always fit, and a loop without branches is faster.
  uint8_t all = 0xFF;
  uint8_t any = 0;
  for (char c : value) {
    uint8_t set = kCharSets[static_cast<uint8_t>(c)];
    all &= set;
    any |= set;
  }
  if (!(all & wanted)) return false;
  // The right characters in the wrong order ("1.5.0", "1-2") are not numbers either.
  if (check == Check::Real) return isPlainDecimal(value) || db::parseReal(value).has_value();
  if (check == Check::Integer) return db::parseInteger(value).has_value();
  return (any & kHexDigit) || value.empty();
}

const char* describeCheck(Check check) {
  switch (check) {
    case Check::Real: return "real number";
    case Check::Integer: return "integer";
    case Check::Hex: return "hexadecimal data";
    case Check::None: break;
  }
  return "value";
}

std::string quoted(std::string_view text) {
  constexpr size_t kShown = 40;
  std::string shown(text.substr(0, kShown));
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < 32) c = '?';
  }
  return "'" + shown + (text.size() > kShown ? "...'" : "'");
}

// The general way of reading a group code line; out of line, as it is seldom taken.
[[gnu::noinline]] std::optional<int> readCodeLine(const char*& pos, const char* end,
                                                  std::string_view& text) {
  text = db::nextLine(pos, end);
  return db::parseGroupCode(text);
}

// A line that can name a record type: letters, digits and a few marks.
bool looksLikeType(std::string_view line) {
  if (line.empty() || line.size() > 64) return false;
  for (char c : line) {
    bool fits = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                c == '_' || c == '$' || c == '*' || c == '-';
    if (!fits) return false;
  }
  return true;
}

// After a broken code line the pairs may be out of step: go on at the next line pair
// that starts a record, a 0 group with a type, counting the lines passed.
const char* nextRecordStart(const char* pos, const char* end, size_t& line) {
  while (pos < end) {
    const char* candidate = pos;
    const char* next = pos;
    std::string_view codeText = db::nextLine(next, end);
    if (db::parseGroupCode(codeText) == 0 && next < end) {
      const char* after = next;
      if (looksLikeType(db::nextLine(after, end))) return candidate;
    }
    pos = next;
    ++line;
  }
  return end;
}

db::SectionKind sectionKindOf(std::string_view name) {
  if (name == "HEADER") return db::SectionKind::Header;
  if (name == "CLASSES") return db::SectionKind::Classes;
  if (name == "TABLES") return db::SectionKind::Tables;
  if (name == "BLOCKS") return db::SectionKind::Blocks;
  if (name == "ENTITIES") return db::SectionKind::Entities;
  if (name == "OBJECTS") return db::SectionKind::Objects;
  return db::SectionKind::Other;
}

// Scans group pairs into records and records into sections.
class Loader {
 public:
  Loader(Database& database, const ReadOptions& options, ReadResult& result)
      : db_(database), options_(options), result_(result) {}

  bool run();

 private:
  enum class State { Top, InSection, InTable, InBlock, Done };

  struct Scan {  // what is known of the record being read
    const char* start = nullptr;
    size_t line = 0;
    std::string_view type;
    Handle handle = db::kNoHandle;
    Handle owner = db::kNoHandle;
    std::string_view name;          // first group 2
    const char* body = nullptr;     // after the first group 2: where a section's own groups start
    bool inAppData = false;
    bool isSection = false;
    std::string fault;              // why the record can't be kept
    size_t faultLine = 0;
  };

  struct Pointer {
    size_t line;
    int code;
    Handle target;
  };

  // Strict mode: the first fault ends the read. Recovering: the fault is listed.
  bool fault(size_t line, std::string message);
  void warn(size_t line, std::string message);
  bool scanGroups();
  bool finishRecord(const char* end);
  bool place(Record* record, const Scan& scan);
  bool placeInSection(Record* record, const Scan& scan);
  void openSection(Record* record, const Scan& scan, const char* end);
  bool closeOpenParts(size_t line, std::string_view found);
  void assignHandles();
  void checkPointers();

  Database& db_;
  const ReadOptions& options_;
  ReadResult& result_;
  State state_ = State::Top;
  Scan scan_;
  bool active_ = false;
  std::vector<Pointer> pointers_;
  std::vector<Record*> loaded_;  // records that take part in handles, in file order
  size_t lastLine_ = 0;
};

bool Loader::fault(size_t line, std::string message) {
  if (!options_.recover) {
    result_.error = describe({line, std::move(message)});
    return false;
  }
  result_.dropped.push_back({line, std::move(message)});
  return true;
}

void Loader::warn(size_t line, std::string message) {
  if (result_.warnings.size() < kMaxListedWarnings) {
    result_.warnings.push_back({line, std::move(message)});
  } else if (result_.warnings.size() == kMaxListedWarnings) {
    result_.warnings.push_back({0, "further warnings are not listed"});
  }
}

bool Loader::run() {
  std::string& source = db_.sourceBuffer();
  if (!source.empty()) {
    size_t firstEnd = source.find('\n');
    db_.format().crlf = firstEnd != std::string::npos && firstEnd > 0 && source[firstEnd - 1] == '\r';
    // Judged by the code line of the first SECTION: a leading 999 comment has three digits
    // and tells nothing about padding.
    size_t firstCode = source.find_first_not_of("\xEF\xBB\xBF");
    size_t section = source.find("SECTION");
    if (section != std::string::npos && section >= 2) {
      size_t codeEnd = source.rfind('\n', section - 1);
      if (codeEnd != std::string::npos && codeEnd > 0) {
        size_t codeStart = source.rfind('\n', codeEnd - 1);
        firstCode = codeStart == std::string::npos ? firstCode : codeStart + 1;
      }
    }
    db_.format().paddedCodes = firstCode != std::string::npos && source[firstCode] == ' ';
  }
  db_.reserveIndex(source.size() / 150);
  loaded_.reserve(source.size() / 150);
  if (!scanGroups()) return false;
  if (state_ == State::InSection || state_ == State::InTable || state_ == State::InBlock) {
    if (!closeOpenParts(lastLine_, "end of file")) return false;
  }
  if (db_.sections().empty()) {
    result_.error = "not a DXF file: no SECTION found";
    return false;
  }
  if (state_ != State::Done) warn(lastLine_, "the file has no EOF marker; one is added on save");
  assignHandles();
  checkPointers();
  return true;
}

bool Loader::scanGroups() {
  std::string& source = db_.sourceBuffer();
  const char* pos = source.data();
  const char* end = pos + source.size();
  size_t line = 1;
  const char* preambleEnd = nullptr;
  // A UTF-8 byte order mark is no part of the first code; the preamble keeps it.
  if (source.starts_with("\xEF\xBB\xBF")) pos += 3;
  while (pos < end) {
    const char* pairStart = pos;
    size_t codeLine = line;
    std::string_view codeText;
    std::optional<int> code;
    // Most code lines are a few blanks and digits: read them in place. Anything else
    // goes the general way.
    const char* p = pos;
    while (p < end && *p == ' ') ++p;
    const char* digits = p;
    int number = 0;
    while (p < end && p - digits < 6 && static_cast<unsigned>(*p - '0') < 10) {
      number = number * 10 + (*p - '0');
      ++p;
    }
    const char* codeEnd = p;
    if (p < end && *p == '\r') ++p;
    if (p > digits && p < end && *p == '\n') {
      codeText = std::string_view(pos, static_cast<size_t>(codeEnd - pos));
      code = number;
      pos = p + 1;
    } else {
      code = readCodeLine(pos, end, codeText);
    }
    ++line;
    if (!code || *code < 0 || *code > kMaxGroupCode) {
      if (codeText.find_first_not_of(" \t\r\n\x1a") == std::string_view::npos &&
          std::string_view(pos, end - pos).find_first_not_of(" \t\r\n\x1a") == std::string_view::npos) {
        // Blank lines at the end are kept as they are.
        if (!finishRecord(pairStart)) return false;
        db_.trailer().assign(std::string_view(pairStart, end - pairStart));
        lastLine_ = codeLine;
        return true;
      }
      std::string message = code ? "group code out of range, found " + quoted(codeText)
                                 : "group code expected, found " + quoted(codeText);
      if (!options_.recover) return fault(codeLine, message);
      if (active_ && scan_.fault.empty()) {
        scan_.fault = message;
        scan_.faultLine = codeLine;
      } else if (!active_) {
        result_.dropped.push_back({codeLine, message});
      }
      pos = nextRecordStart(pos, end, line);
      continue;
    }
    if (pos >= end) {
      lastLine_ = codeLine;
      std::string message =
          "value expected for group code " + std::to_string(*code) + ", found end of file";
      if (!options_.recover) return fault(line, message);
      if (active_) {
        scan_.fault = message;
        scan_.faultLine = line;
        if (!finishRecord(pairStart)) return false;
        active_ = false;
      }
      return true;
    }
    size_t valueLine = line;
    std::string_view value = db::nextLine(pos, end);
    ++line;
    lastLine_ = valueLine;
    int groupCode = *code;
    if (groupCode == 0) {
      if (!finishRecord(pairStart)) return false;
      if (!active_ && !preambleEnd) {
        preambleEnd = pairStart;
        db_.preamble().assign(std::string_view(source.data(), pairStart - source.data()));
      }
      scan_ = Scan{};
      scan_.start = pairStart;
      scan_.line = codeLine;
      scan_.type = value;
      scan_.isSection = value == "SECTION";
      active_ = true;
      if (std::memchr(value.data(), '\0', value.size())) {
        std::string message = "record type expected, found a NUL byte";
        if (!options_.recover) return fault(valueLine, message);
        scan_.fault = message;
        scan_.faultLine = valueLine;
      }
      if (value == "EOF") {
        // Whatever follows the end marker is kept as it is.
        if (!finishRecord(pos)) return false;
        db_.trailer().assign(std::string_view(pos, end - pos));
        return true;
      }
      continue;
    }
    if (!active_) continue;  // comments before the first record belong to the preamble
    Check check = kChecks[groupCode];
    if (check != Check::None && !valueFits(check, value) && scan_.fault.empty()) {
      std::string message = std::string(describeCheck(check)) + " expected for group code " +
                            std::to_string(groupCode) + ", found " + quoted(value);
      if (!options_.recover) return fault(valueLine, message);
      scan_.fault = message;
      scan_.faultLine = valueLine;
    } else if (check == Check::None && std::memchr(value.data(), '\0', value.size()) &&
               scan_.fault.empty()) {
      // No DXF text holds a NUL, and a binary file could not write it back.
      std::string message = "text expected for group code " + std::to_string(groupCode) +
                            ", found a NUL byte";
      if (!options_.recover) return fault(valueLine, message);
      scan_.fault = message;
      scan_.faultLine = valueLine;
    }
    if (scan_.isSection) {
      if (groupCode == 2 && scan_.name.empty()) {
        scan_.name = value;
        scan_.body = pos;
      }
      continue;  // header variables are not links
    }
    switch (groupCode) {
      case 2:
        if (scan_.name.empty()) scan_.name = value;
        break;
      case 5:
      case 105:
        if (scan_.handle == db::kNoHandle && (groupCode == 5 || scan_.type == "DIMSTYLE")) {
          std::optional<Handle> handle = db::parseHandle(value);
          if (!handle && scan_.fault.empty()) {
            std::string message = "handle expected for group code " + std::to_string(groupCode) +
                                  ", found " + quoted(value);
            if (!options_.recover) return fault(valueLine, message);
            scan_.fault = message;
            scan_.faultLine = valueLine;
          }
          scan_.handle = handle.value_or(db::kNoHandle);
        }
        break;
      case 102:
        scan_.inAppData = !value.empty() && value[0] == '{';
        break;
      default:
        break;
    }
    if (db::isPointerCode(groupCode)) {
      std::optional<Handle> target = db::parseHandle(value);
      if (!target) {
        warn(valueLine, "group " + std::to_string(groupCode) + " holds no handle: " + quoted(value));
      } else if (*target != db::kNoHandle) {
        if (groupCode == 330 && !scan_.inAppData && scan_.owner == db::kNoHandle) scan_.owner = *target;
        pointers_.push_back({valueLine, groupCode, *target});
      }
    }
  }
  return finishRecord(end);
}

bool Loader::finishRecord(const char* end) {
  if (!active_) return true;
  active_ = false;
  if (!scan_.fault.empty()) {
    return fault(scan_.faultLine, scan_.fault + "; the " + std::string(scan_.type) +
                                      " record of line " + std::to_string(scan_.line) +
                                      " is left out");
  }
  Record* record = db_.allocate();
  const char* recordEnd = end;
  bool splitSection = scan_.isSection && scan_.body && scan_.name == "HEADER";
  if (splitSection) recordEnd = scan_.body;
  *record = Record(scan_.type, std::string_view(scan_.start, recordEnd - scan_.start), 0);
  Database::setLinks(*record, scan_.handle, scan_.owner);
  if (scan_.isSection) {
    if (state_ == State::InSection || state_ == State::InTable || state_ == State::InBlock) {
      if (!closeOpenParts(scan_.line, "SECTION")) return false;
    }
    if (state_ == State::Done) return true;
    openSection(record, scan_, end);
    return true;
  }
  return place(record, scan_);
}

void Loader::openSection(Record* record, const Scan& scan, const char* end) {
  db::Section section;
  section.name = scan.name;
  section.kind = sectionKindOf(scan.name);
  section.begin = record;
  if (section.kind == db::SectionKind::Header && scan.body && scan.body < end) {
    Record* variables = db_.allocate();
    *variables = Record(db_.intern("HEADER"), std::string_view(scan.body, end - scan.body),
                        Record::kNoTypeLine);
    section.header = variables;
  } else if (section.kind == db::SectionKind::Header) {
    Record* variables = db_.allocate();
    *variables = Record(db_.intern("HEADER"), std::vector<db::OwnedGroup>{});
    section.header = variables;
  }
  db_.sections().push_back(std::move(section));
  state_ = State::InSection;
}

bool Loader::closeOpenParts(size_t line, std::string_view found) {
  db::Section& section = db_.sections().back();
  std::string expected = state_ == State::InTable   ? "ENDTAB"
                         : state_ == State::InBlock ? "ENDBLK"
                                                    : "ENDSEC";
  if (!fault(line, expected + " expected in section " + std::string(section.name) + ", found " +
                       std::string(found))) {
    return false;
  }
  state_ = State::Top;
  return true;
}

bool Loader::place(Record* record, const Scan& scan) {
  std::string_view type = scan.type;
  switch (state_) {
    case State::Top:
      if (type == "EOF") {
        db_.eofRecord() = record;
        state_ = State::Done;
        return true;
      }
      return fault(scan.line, "SECTION expected, found " + quoted(type));
    case State::InTable:
      if (type == "ENDTAB") {
        db_.sections().back().tables.back().end = record;
        state_ = State::InSection;
        return true;
      }
      if (type == "TABLE" || type == "ENDSEC" || type == "EOF" || type == "ENDBLK") {
        if (!fault(scan.line, "ENDTAB expected, found " + quoted(type))) return false;
        state_ = State::InSection;
        return place(record, scan);
      }
      db_.sections().back().tables.back().entries.push_back(record);
      loaded_.push_back(record);
      return true;
    case State::InBlock:
      if (type == "ENDBLK") {
        db_.sections().back().blocks.back().end = record;
        loaded_.push_back(record);
        state_ = State::InSection;
        return true;
      }
      if (type == "BLOCK" || type == "ENDSEC" || type == "EOF" || type == "TABLE") {
        if (!fault(scan.line, "ENDBLK expected, found " + quoted(type))) return false;
        state_ = State::InSection;
        return place(record, scan);
      }
      db_.sections().back().blocks.back().entities.push_back(record);
      loaded_.push_back(record);
      return true;
    case State::InSection:
      return placeInSection(record, scan);
    case State::Done:
      return true;
  }
  return true;
}

bool Loader::placeInSection(Record* record, const Scan& scan) {
  db::Section& section = db_.sections().back();
  std::string_view type = scan.type;
  if (type == "ENDSEC") {
    section.end = record;
    state_ = State::Top;
    return true;
  }
  if (type == "EOF") {
    if (!fault(scan.line, "ENDSEC expected in section " + std::string(section.name) + ", found EOF")) {
      return false;
    }
    state_ = State::Top;
    return place(record, scan);
  }
  switch (section.kind) {
    case db::SectionKind::Header:
      return fault(scan.line, "header variable expected, found " + quoted(type));
    case db::SectionKind::Tables:
      if (type != "TABLE") return fault(scan.line, "TABLE expected, found " + quoted(type));
      section.tables.push_back({record, {}, nullptr, scan.name});
      loaded_.push_back(record);
      state_ = State::InTable;
      return true;
    case db::SectionKind::Blocks:
      if (type != "BLOCK") return fault(scan.line, "BLOCK expected, found " + quoted(type));
      section.blocks.push_back({record, {}, nullptr});
      loaded_.push_back(record);
      state_ = State::InBlock;
      return true;
    case db::SectionKind::Classes:
    case db::SectionKind::Other:
      section.records.push_back(record);
      return true;
    case db::SectionKind::Entities:
    case db::SectionKind::Objects:
      section.records.push_back(record);
      loaded_.push_back(record);
      return true;
  }
  return true;
}

void Loader::assignHandles() {
  Handle largest = 0;
  std::vector<Record*> needHandles;
  for (Record* record : loaded_) {
    Handle handle = record->handle();
    if (handle == db::kNoHandle) {
      needHandles.push_back(record);
      continue;
    }
    if (!db_.indexRecord(record)) {
      warn(0, "handle " + db::formatHandle(handle) + " of a " + std::string(record->type()) +
                  " is used twice; the second record gets a new handle");
      Database::setLinks(*record, db::kNoHandle, record->owner());
      needHandles.push_back(record);
      continue;
    }
    largest = std::max(largest, handle);
  }
  Handle seed = 1;
  if (std::optional<std::string_view> text = db_.headerValue("$HANDSEED", 5)) {
    seed = db::parseHandle(*text).value_or(1);
  }
  if (seed <= largest) {
    if (db_.headerValue("$HANDSEED", 5)) {
      warn(0, "$HANDSEED " + db::formatHandle(seed) + " is not above the largest handle " +
                  db::formatHandle(largest) + "; it is raised");
    }
    seed = largest + 1;
  }
  db_.setHandleSeed(seed);
  for (Record* record : needHandles) {
    Handle handle = db_.allocateHandle();
    if (record->find(5) || record->find(105)) {
      Database::setRecordHandle(*record, handle, true);  // a duplicate: the file gets the new one
    } else {
      Database::giveUnwrittenHandle(*record, handle);  // files without handles stay so
    }
    db_.indexRecord(record);
  }
}

void Loader::checkPointers() {
  for (const Pointer& pointer : pointers_) {
    if (!db_.lookup(pointer.target)) {
      warn(pointer.line, "group " + std::to_string(pointer.code) + " points to missing handle " +
                             db::formatHandle(pointer.target));
    }
  }
}

bool readAll(const std::string& path, std::string& data, std::string& error) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) {
    error = "cannot open " + path;
    return false;
  }
  std::fseek(file, 0, SEEK_END);
  long size = std::ftell(file);
  std::fseek(file, 0, SEEK_SET);
  if (size < 0) {
    std::fclose(file);
    error = "cannot read " + path;
    return false;
  }
  data.resize(static_cast<size_t>(size));
  size_t got = size > 0 ? std::fread(data.data(), 1, data.size(), file) : 0;
  std::fclose(file);
  if (got != data.size()) {
    error = "cannot read " + path;
    return false;
  }
  return true;
}

}  // namespace

std::string describe(const Diagnostic& diagnostic) {
  if (diagnostic.line == 0) return diagnostic.message;
  return "line " + std::to_string(diagnostic.line) + ": " + diagnostic.message;
}

ReadResult readBuffer(std::string data, const ReadOptions& options) {
  ReadResult result;
  auto database = std::make_unique<Database>();
  if (isBinaryDxf(data)) {
    std::string error;
    if (!binaryToText(data, database->sourceBuffer(), error)) {
      result.error = error;
      return result;
    }
    database->format().binary = true;
  } else {
    database->sourceBuffer() = std::move(data);
  }
  Loader loader(*database, options, result);
  if (!loader.run()) {
    result.warnings.clear();
    return result;
  }
  if (database->format().binary) database->format().paddedCodes = false;
  result.database = std::move(database);
  return result;
}

ReadResult readFile(const std::string& path, const ReadOptions& options) {
  std::string data;
  ReadResult result;
  if (!readAll(path, data, result.error)) return result;
  result = readBuffer(std::move(data), options);
  if (!result.ok()) result.error = path + ": " + result.error;
  return result;
}

}  // namespace korva::dxf
