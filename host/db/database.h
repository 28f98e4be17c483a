// The drawing database: every record of a drawing, in the order of its file.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "handle_index.h"
#include "record.h"

namespace korva::db {

class ChangeJournal;

enum class SectionKind { Header, Classes, Tables, Blocks, Entities, Objects, Other };

// A symbol table: TABLE, its entries, ENDTAB.
struct Table {
  Record* head = nullptr;
  std::vector<Record*> entries;
  Record* end = nullptr;
  std::string_view name;  // LAYER, LTYPE, BLOCK_RECORD, ...
};

// A block definition: BLOCK, its entities, ENDBLK.
struct BlockDefinition {
  Record* begin = nullptr;
  std::vector<Record*> entities;
  Record* end = nullptr;
  std::string_view name() const;
};

struct Section {
  SectionKind kind = SectionKind::Other;
  std::string_view name;
  // 0 SECTION and 2 NAME; for sections without records (a thumbnail) all their groups.
  Record* begin = nullptr;
  Record* end = nullptr;         // 0 ENDSEC; null when the file lacked it
  Record* header = nullptr;      // HEADER: the variables, as one record of groups
  std::vector<Record*> records;  // CLASSES, ENTITIES, OBJECTS and unknown sections
  std::vector<Table> tables;
  std::deque<BlockDefinition> blocks;  // deque: definitions keep their address as blocks are added
};

// How the file was written, so that a save writes it the same way.
struct FileFormat {
  bool binary = false;
  bool crlf = false;        // line ends "\r\n"
  bool paddedCodes = true;  // group codes right-aligned in three columns
};

class Database {
 public:
  Database();
  ~Database();

  // Tells databases apart in entity names and object ids; never reused while the
  // program runs.
  uint64_t serial() const { return serial_; }
  // The live database with this serial, or null.
  static Database* bySerial(uint64_t serial);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // ---- Structure, in file order
  std::vector<Section>& sections() { return sections_; }
  const std::vector<Section>& sections() const { return sections_; }
  Section* section(SectionKind kind);
  const Section* section(SectionKind kind) const;

  // ---- Header variables
  Record* header() const;
  // The value of a variable's group with the given code (the first group when code is 0).
  std::optional<std::string_view> headerValue(std::string_view name, int code = 0) const;
  // All groups of a variable after its 9 group; empty when it is missing.
  std::vector<Group> headerVariable(std::string_view name) const;
  // Sets a variable's values; adds the variable at the end when it is missing.
  void setHeaderVariable(std::string_view name, const std::vector<OwnedGroup>& values);
  std::string version() const;   // $ACADVER, "AC1009" when missing
  bool hasUtf8Text() const;      // AC1021 and later
  std::string codePage() const;  // $DWGCODEPAGE, "ANSI_1252" when missing

  // ---- Tables and blocks (names compared without regard to case)
  Table* table(std::string_view name);
  // Looked up through an index by name that is checked on every hit and rebuilt on a
  // miss, so renamed, erased and added records are always found as they are now.
  Record* tableEntry(std::string_view tableName, std::string_view entryName);
  BlockDefinition* block(std::string_view name);
  // The records of ENTITIES: model space and the active paper-space layout.
  std::vector<Record*>* entities();
  std::vector<Record*>* objects();

  // ---- Handles
  Record* lookup(Handle handle) const { return index_.find(handle); }
  Handle handleSeed() const { return handleSeed_; }
  Handle allocateHandle() { return handleSeed_++; }
  size_t recordCount() const { return index_.size(); }

  // ---- Making and changing records
  // A new record with a new handle; the handle group is written into its groups.
  Record* newRecord(std::string_view type, std::vector<OwnedGroup> groups);
  // Appends to ENTITIES, or to a block definition's entities.
  Record* addEntity(std::vector<OwnedGroup> groups, std::string_view type,
                    BlockDefinition* block = nullptr);
  Record* addObject(std::string_view type, std::vector<OwnedGroup> groups);
  Record* addTableEntry(Table& table, std::string_view type, std::vector<OwnedGroup> groups);
  // BLOCK_RECORD, BLOCK and ENDBLK of a new, empty block definition.
  BlockDefinition* addBlock(std::string_view name, double baseX = 0, double baseY = 0,
                            double baseZ = 0);
  // Erased records stay until the drawing is saved, so that they can be brought back.
  void setErased(Record& record, bool erased);
  void recordChanged() { modified_ = true; }
  bool isModified() const { return modified_; }
  // After a save: erased records leave the drawing for good, except those the undo
  // journal can still bring back.
  void dropErased();

  // ---- Undo
  // The journal of this drawing's changes, started on first use. Side databases never
  // ask for one, so their changes cost nothing.
  ChangeJournal& journal();
  ChangeJournal* journalIfStarted() const { return journal_.get(); }
  // True when the record lives in this database's storage.
  bool holds(const Record* record) const;

  // ---- Loading (used by the DXF reader)
  std::string& sourceBuffer() { return source_; }
  const std::string& sourceBuffer() const { return source_; }
  std::string_view intern(std::string_view text);
  Record* allocate();
  void setHandleSeed(Handle seed) { handleSeed_ = seed; }
  bool indexRecord(Record* record) { return index_.insert(record->handle(), record); }
  void reserveIndex(size_t count) { index_.reserve(count); }
  FileFormat& format() { return format_; }
  const FileFormat& format() const { return format_; }
  std::string& preamble() { return preamble_; }
  const std::string& preamble() const { return preamble_; }
  std::string& trailer() { return trailer_; }
  const std::string& trailer() const { return trailer_; }
  Record*& eofRecord() { return eof_; }
  Record* eofRecord() const { return eof_; }
  // Loader access to a record's scanned links.
  static void setLinks(Record& record, Handle handle, Handle owner);
  static void setRecordHandle(Record& record, Handle handle, bool writeGroup);
  static void giveUnwrittenHandle(Record& record, Handle handle);

 private:
  uint64_t serial_;
  std::string source_;  // the file's text; records read from it point into it
  std::vector<std::unique_ptr<Record[]>> chunks_;
  std::vector<const Record*> chunkStarts_;  // sorted, for holds()
  size_t usedInChunk_ = 0;
  std::unordered_set<std::string> names_;
  std::vector<Section> sections_;
  std::string preamble_;
  std::string trailer_;
  Record* eof_ = nullptr;
  HandleIndex index_;
  // Per table: upper-cased entry name to record.
  std::unordered_map<const Table*, std::unordered_map<std::string, Record*>> tableNames_;
  Handle handleSeed_ = 1;
  FileFormat format_;
  bool modified_ = false;
  std::unique_ptr<ChangeJournal> journal_;
};

// Name comparison of symbol tables: ASCII case-insensitive.
bool sameName(std::string_view a, std::string_view b);

}  // namespace korva::db
