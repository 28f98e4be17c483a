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

// One open drawing and what the programming layers keep for it between calls.
class Document {
 public:
  Document(std::unique_ptr<db::Database> database, std::string path, uint64_t serial);
  ~Document();

  db::Database& database() { return *database_; }
  const db::Database& database() const { return *database_; }
  const std::string& path() const { return path_; }
  void setPath(std::string path) { path_ = std::move(path); }
  // Tells documents apart in entity names; never reused while the program runs.
  uint64_t serial() const { return serial_; }

  // Entities shown highlighted (there is no screen; tests and commands ask for it).
  std::unordered_set<db::Handle>& highlighted() { return highlighted_; }

 private:
  std::unique_ptr<db::Database> database_;
  std::string path_;
  uint64_t serial_;
  std::unordered_set<db::Handle> highlighted_;
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
  const std::vector<std::unique_ptr<Document>>& documents() const { return documents_; }

 private:
  std::vector<std::unique_ptr<Document>> documents_;
  Document* current_ = nullptr;
  uint64_t nextSerial_ = 1;
};

// The current drawing's database; null when no drawing is open.
db::Database* currentDatabase();

// Entity names are the record's handle and its document's serial.
void nameOf(const Document& document, const db::Record& record, EntityName name);
db::Record* recordOf(const EntityName name, Document** document = nullptr);
bool isNull(const EntityName name);

}  // namespace korva::api
