// Side databases and files: reading DXF under a share lock, saving in the newest
// version.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "api/utf8.h"
#include "database_registry.h"
#include "dxf/reader.h"
#include "dxf/text_encoding.h"
#include "dxf/writer.h"
#include "object_access.h"
#include "qx_value_kind.h"

using korva::db::Database;
using korva::db::Record;

namespace {

constexpr std::string_view kNewestVersion = "AC1032";
// Drawings before R2000 lack what the newest version needs (owners, layouts).
constexpr std::string_view kOldestConvertible = "AC1015";

// Takes the lock a share mode asks for; -1 when none is held. A reader that denies
// nothing still must not read a file whose holder denies reading.
Qxad::ErrorStatus lockFile(const std::string& path, int shareMode, int& descriptor) {
  descriptor = -1;
  int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) return errno == ENOENT ? Qxad::eFileNotFound : Qxad::eFileAccessErr;
  int operation = shareMode == QxDb::kDenyReadWrite ? LOCK_EX : LOCK_SH;
  if (::flock(handle, operation | LOCK_NB) != 0) {
    ::close(handle);
    return Qxad::eFileAccessErr;
  }
  if (shareMode == QxDb::kDenyNone) {
    ::close(handle);
    return Qxad::eOk;
  }
  descriptor = handle;
  return Qxad::eOk;
}

// Whether another reader's share mode forbids writing the file.
bool writeDenied(const std::string& path) {
  int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) return false;
  bool denied = ::flock(handle, LOCK_EX | LOCK_NB) != 0;
  ::close(handle);
  return denied;
}

bool hasHighBytes(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

void reencode(Record& record, const korva::dxf::TextEncoding& encoding) {
  bool needed = false;
  for (const korva::db::Group& group : record.groups())
    needed = needed || hasHighBytes(group.value);
  if (!needed) return;
  std::vector<korva::db::OwnedGroup> groups = record.ownedGroups();
  for (korva::db::OwnedGroup& group : groups) {
    if (korva::api::valueKindOfCode(group.code) == korva::api::ValueKind::String &&
        hasHighBytes(group.value)) {
      group.value = encoding.toUtf8(group.value);
    }
  }
  record.assign(std::move(groups));
}

// Every record with text: section markers, header, tables, blocks, entities, objects.
void reencodeAll(Database& database) {
  korva::dxf::TextEncoding encoding(false, database.codePage());
  auto visit = [&](Record* record) {
    if (record) reencode(*record, encoding);
  };
  for (korva::db::Section& section : database.sections()) {
    visit(section.header);
    for (Record* record : section.records) visit(record);
    for (korva::db::Table& table : section.tables) {
      visit(table.head);
      for (Record* entry : table.entries) visit(entry);
    }
    for (korva::db::BlockDefinition& block : section.blocks) {
      visit(block.begin);
      for (Record* entity : block.entities) visit(entity);
      visit(block.end);
    }
  }
}

}  // namespace

namespace korva::api {

void releaseFileLock(int descriptor) {
  if (descriptor >= 0) ::close(descriptor);  // closing ends the flock
}

}  // namespace korva::api

Qxad::ErrorStatus QxDbDatabase::readDwgFile(const wchar_t* fileName, int shareMode, bool,
                                            const wchar_t*) {
  if (!fileName || !*fileName) return Qxad::eInvalidInput;
  if (shareMode != QxDb::kDenyReadWrite && shareMode != QxDb::kDenyWrite &&
      shareMode != QxDb::kDenyRead && shareMode != QxDb::kDenyNone) {
    return Qxad::eInvalidInput;
  }
  // Only an empty side database takes a drawing.
  if (!content_->owned || !content_->owned->sections().empty()) return Qxad::eAlreadyInDb;
  std::string path = korva::api::toUtf8(fileName);
  int descriptor = -1;
  if (Qxad::ErrorStatus status = lockFile(path, shareMode, descriptor); status != Qxad::eOk)
    return status;
  korva::dxf::ReadResult result = korva::dxf::readFile(path);
  if (!result.ok()) {
    korva::api::releaseFileLock(descriptor);
    return Qxad::eBadDxfFile;
  }
  korva::api::forgetSideDatabase(content_->serial);
  content_->owned = std::move(result.database);
  content_->serial = content_->owned->serial();
  korva::api::registerSideDatabase(content_->serial, this);
  korva::api::releaseFileLock(content_->lockDescriptor);
  content_->lockDescriptor = descriptor;
  content_->shareMode = shareMode;
  content_->path = path;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbDatabase::saveAs(const wchar_t* fileName, bool bakAndRename, int version,
                                       const void*) {
  if (!fileName || !*fileName) return Qxad::eInvalidInput;
  if (version != QxDb::kSaveNewest && version != QxDb::kSaveAsRead) return Qxad::eInvalidInput;
  Database* database = korva::api::drawingOf(*this);
  if (!database || database->sections().empty()) return Qxad::eNotInDatabase;
  std::string path = korva::api::toUtf8(fileName);
  bool ownFile = content_->lockDescriptor >= 0 && path == content_->path;
  if (!ownFile && writeDenied(path)) return Qxad::eFileAccessErr;
  std::string drawingVersion = database->version();
  if (version == QxDb::kSaveNewest && drawingVersion < kNewestVersion) {
    if (drawingVersion < kOldestConvertible) return Qxad::eNotApplicable;
    if (!database->hasUtf8Text()) reencodeAll(*database);
    database->setHeaderVariable("$ACADVER", {{1, std::string(kNewestVersion)}});
  }
  korva::dxf::WriteOptions options;
  options.keepBackup = bakAndRename;
  korva::dxf::WriteResult written = korva::dxf::writeFile(*database, path, options);
  if (!written.ok) return Qxad::eFileAccessErr;
  // The file was replaced by a new one: the lock moves to it.
  if (ownFile) {
    int descriptor = -1;
    korva::api::releaseFileLock(content_->lockDescriptor);
    content_->lockDescriptor = -1;
    if (lockFile(path, content_->shareMode, descriptor) == Qxad::eOk)
      content_->lockDescriptor = descriptor;
  }
  if (content_->owned) content_->path = path;
  return Qxad::eOk;
}
