#include "document.h"

#include <algorithm>

#include "system_variables.h"

namespace korva::api {

Document::Document(std::unique_ptr<db::Database> database, std::string path, uint64_t serial)
    : database_(std::move(database)), path_(std::move(path)), serial_(serial) {}

Document::~Document() = default;

DocumentList& DocumentList::instance() {
  static DocumentList list;
  return list;
}

Document& DocumentList::add(std::unique_ptr<db::Database> database, std::string path,
                            bool makeCurrent) {
  // Units and angles are formatted with the current drawing's variables from then on.
  static const bool drawingVariablesInstalled = (installDrawingVariableSource(), true);
  (void)drawingVariablesInstalled;
  documents_.push_back(std::make_unique<Document>(std::move(database), std::move(path), nextSerial_++));
  Document& added = *documents_.back();
  if (makeCurrent || !current_) current_ = &added;
  return added;
}

void DocumentList::close(Document* document) {
  if (current_ == document) current_ = nullptr;
  std::erase_if(documents_, [document](const auto& each) { return each.get() == document; });
  if (!current_ && !documents_.empty()) current_ = documents_.front().get();
}

Document* DocumentList::bySerial(uint64_t serial) {
  for (const auto& each : documents_) {
    if (each->serial() == serial) return each.get();
  }
  return nullptr;
}

db::Database* currentDatabase() {
  Document* document = DocumentList::instance().current();
  return document ? &document->database() : nullptr;
}

Document* DocumentList::byDatabase(const db::Database* database) {
  for (const auto& each : documents_) {
    if (&each->database() == database) return each.get();
  }
  return nullptr;
}

void nameOf(const db::Database& database, const db::Record& record, EntityName name) {
  name[0] = static_cast<int64_t>(record.handle());
  name[1] = static_cast<int64_t>(database.serial());
}

void nameOf(const Document& document, const db::Record& record, EntityName name) {
  nameOf(document.database(), record, name);
}

db::Record* recordOf(const EntityName name, Document** document, db::Database** database) {
  if (!name) return nullptr;
  db::Database* owner = db::Database::bySerial(static_cast<uint64_t>(name[1]));
  if (!owner) return nullptr;
  if (document) *document = DocumentList::instance().byDatabase(owner);
  if (database) *database = owner;
  return owner->lookup(static_cast<db::Handle>(name[0]));
}

bool isNull(const EntityName name) { return !name || (name[0] == 0 && name[1] == 0); }

}  // namespace korva::api
