#include "document.h"

#include <algorithm>

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

void nameOf(const Document& document, const db::Record& record, EntityName name) {
  name[0] = static_cast<int64_t>(record.handle());
  name[1] = static_cast<int64_t>(document.serial());
}

db::Record* recordOf(const EntityName name, Document** document) {
  if (!name) return nullptr;
  Document* owner = DocumentList::instance().bySerial(static_cast<uint64_t>(name[1]));
  if (!owner) return nullptr;
  if (document) *document = owner;
  return owner->database().lookup(static_cast<db::Handle>(name[0]));
}

bool isNull(const EntityName name) { return !name || (name[0] == 0 && name[1] == 0); }

}  // namespace korva::api
