// Open drawings as the flat and object layers see them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "db/database.h"
#include "qx_types.h"

namespace korva::api {

// Selection state of a drawing that lasts between calls of the flat layer.
struct SelectionState {
  std::vector<db::Handle> pickFirst;  // the pick-first set; empty when there is none
  std::vector<db::Handle> previous;   // what the last selection took, for mode "P"
  int openSets = 0;                   // sets made in this drawing and not yet freed
};

// One open drawing and what the programming layers keep for it between calls.
class Document {
 public:
  Document(std::unique_ptr<db::Database> database, std::string path, uint64_t serial);
  ~Document();

  db::Database& database() { return *database_; }
  const db::Database& database() const { return *database_; }
  const std::string& path() const { return path_; }
  void setPath(std::string path) { path_ = std::move(path); }
  // The document's number in the list; entity names carry the database's serial.
  uint64_t serial() const { return serial_; }

  // Entities shown highlighted (there is no screen; tests and commands ask for it).
  std::unordered_set<db::Handle>& highlighted() { return highlighted_; }
  SelectionState& selection() { return selection_; }

 private:
  std::unique_ptr<db::Database> database_;
  std::string path_;
  uint64_t serial_;
  std::unordered_set<db::Handle> highlighted_;
  SelectionState selection_;
};

// The drawings open in the program; one is current.
class DocumentList {
 public:
  static DocumentList& instance();

  Document* current() { return current_; }
  Document& add(std::unique_ptr<db::Database> database, std::string path, bool makeCurrent = true);
  void setCurrent(Document* document) { current_ = document; }
  void close(Document* document);
  Document* bySerial(uint64_t serial);
  Document* byDatabase(const db::Database* database);
  const std::vector<std::unique_ptr<Document>>& documents() const { return documents_; }

 private:
  std::vector<std::unique_ptr<Document>> documents_;
  Document* current_ = nullptr;
  uint64_t nextSerial_ = 1;
};

// The current drawing's database; null when no drawing is open.
db::Database* currentDatabase();

// Entity names are the record's handle and its database's serial, so records of side
// databases (not open as documents) have names too.
void nameOf(const db::Database& database, const db::Record& record, EntityName name);
void nameOf(const Document& document, const db::Record& record, EntityName name);
// The named record (erased ones too), or null. document is set to the document that
// holds it, or null for a side database; database to its database.
db::Record* recordOf(const EntityName name, Document** document = nullptr,
                     db::Database** database = nullptr);
bool isNull(const EntityName name);

}  // namespace korva::api
