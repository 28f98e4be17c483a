// The drawing database as an object: its tables and dictionaries, side databases read
// from and saved to files, copying objects between blocks and databases, and the
// services of the host application.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "qx_array.h"
#include "qx_db_blocks.h"
#include "qx_db_dictionary.h"
#include "qx_db_tables.h"
#include "qx_ge.h"

// One source id and what it became in a copy.
class QxDbIdPair {
 public:
  QxDbIdPair() = default;
  QxDbIdPair(QxDbObjectId key, QxDbObjectId value, bool isCloned, bool isPrimary = false,
             bool isOwnerXlated = true)
      : key_(key),
        value_(value),
        cloned_(isCloned),
        primary_(isPrimary),
        ownerXlated_(isOwnerXlated) {}
  QxDbObjectId key() const { return key_; }
  QxDbObjectId value() const { return value_; }
  bool isCloned() const { return cloned_; }
  // Named in the call rather than copied along with another object.
  bool isPrimary() const { return primary_; }
  bool isOwnerXlated() const { return ownerXlated_; }
  void setKey(QxDbObjectId key) { key_ = key; }
  void setValue(QxDbObjectId value) { value_ = value; }
  void setIsCloned(bool cloned) { cloned_ = cloned; }
  void setIsPrimary(bool primary) { primary_ = primary; }
  void setIsOwnerXlated(bool translated) { ownerXlated_ = translated; }

 private:
  QxDbObjectId key_;
  QxDbObjectId value_;
  bool cloned_ = false;
  bool primary_ = false;
  bool ownerXlated_ = true;
};

class QxDbDatabase;

// Source ids to the ids of their copies, in the order the copies were made.
class QxDbIdMapping {
 public:
  QxDbIdMapping() = default;
  // Adds the pair, or replaces the one with the same key.
  void assign(const QxDbIdPair& pair);
  // Finds the pair of pair.key(); false when there is none.
  bool compute(QxDbIdPair& pair) const;
  bool del(QxDbObjectId key);
  std::size_t count() const { return pairs_.size(); }
  QxDbDatabase* origDb() const { return origDb_; }
  QxDbDatabase* destDb() const { return destDb_; }
  void setOrigDb(QxDbDatabase* database) { origDb_ = database; }
  void setDestDb(QxDbDatabase* database) { destDb_ = database; }
  const std::vector<QxDbIdPair>& pairs() const { return pairs_; }

 private:
  std::vector<QxDbIdPair> pairs_;
  QxDbDatabase* origDb_ = nullptr;
  QxDbDatabase* destDb_ = nullptr;
};

class QxDbIdMappingIter {
 public:
  explicit QxDbIdMappingIter(const QxDbIdMapping& mapping) : mapping_(mapping) {}
  void start() { index_ = 0; }
  bool done() const { return index_ >= mapping_.count(); }
  bool next() {
    ++index_;
    return !done();
  }
  bool getMap(QxDbIdPair& pair) const;

 private:
  const QxDbIdMapping& mapping_;
  std::size_t index_ = 0;
};

namespace QxDb {
// Share modes of readDwgFile: what others may do with the file while it is open.
enum ShareMode : int {
  kDenyReadWrite = 0x10,
  kDenyWrite = 0x20,
  kDenyRead = 0x30,
  kDenyNone = 0x40
};
// Versions of saveAs.
enum SaveVersion : int { kSaveAsRead = 0, kSaveNewest = 31 };
}  // namespace QxDb

class QxDbDatabase : public QxRxObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbDatabase)
  // With buildDefaultDrawing, a complete new drawing; without, an empty database that
  // readDwgFile fills. A database made here is a side database, never the working one.
  explicit QxDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
  ~QxDbDatabase() override;
  QxDbDatabase(const QxDbDatabase&) = delete;
  QxDbDatabase& operator=(const QxDbDatabase&) = delete;

  // Reads a DXF file into an empty database. The share mode holds as a lock on the
  // file while the database is open: kDenyWrite and kDenyRead a shared one,
  // kDenyReadWrite an exclusive one. eFileAccessErr when another holds a lock that
  // conflicts, eFileNotFound, eBadDxfFile, eAlreadyInDb when the database holds a drawing.
  Qxad::ErrorStatus readDwgFile(const wchar_t* fileName, int shareMode = QxDb::kDenyWrite,
                                bool allowCodePageConversion = false,
                                const wchar_t* password = nullptr);
  // Writes the drawing as DXF. QxDb::kSaveNewest converts an R2000 or later drawing to
  // the newest version (text becomes UTF-8); older drawings can't be converted and give
  // eNotApplicable, leaving the database and the file untouched. With bakAndRename the
  // previous file stays as NAME.bak.
  Qxad::ErrorStatus saveAs(const wchar_t* fileName, bool bakAndRename = false,
                           int version = QxDb::kSaveNewest, const void* security = nullptr);
  // The path the drawing was read from or last saved to; the caller frees it with qxad_free.
  wchar_t* fileName() const;

  // Copies entities into the block record `owner` of this or another database: new
  // handles, and the pointers among the copies translated through the mapping. Layers,
  // linetypes, text styles and block definitions the copies name are brought along
  // when the target lacks them.
  Qxad::ErrorStatus deepCloneObjects(const QxDbObjectIdArray& ids, QxDbObjectId owner,
                                     QxDbIdMapping& mapping, bool deferTranslation = false);
  // A new drawing holding copies of the entities, with its base point at `base`.
  Qxad::ErrorStatus wblock(QxDbDatabase*& output, const QxDbObjectIdArray& ids,
                           const QxGePoint3d& base);
  // A new drawing holding a copy of the block's entities, its origin as base point.
  Qxad::ErrorStatus wblock(QxDbDatabase*& output, QxDbObjectId blockId);
  // Keeps in ids only the records nothing refers to: those that can go.
  Qxad::ErrorStatus purge(QxDbObjectIdArray& ids) const;

  Qxad::ErrorStatus getSymbolTable(QxDbBlockTable*& table, int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getSymbolTable(QxDbLayerTable*& table, int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getSymbolTable(QxDbTextStyleTable*& table, int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getSymbolTable(QxDbLinetypeTable*& table, int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getSymbolTable(QxDbViewTable*& table, int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getSymbolTable(QxDbUCSTable*& table, int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getSymbolTable(QxDbViewportTable*& table, int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getSymbolTable(QxDbRegAppTable*& table, int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getSymbolTable(QxDbDimStyleTable*& table, int mode = QxDb::kForRead) const;
  QxDbObjectId blockTableId() const;
  QxDbObjectId layerTableId() const;

  Qxad::ErrorStatus getNamedObjectsDictionary(QxDbDictionary*& dictionary,
                                              int mode = QxDb::kForRead) const;
  Qxad::ErrorStatus getGroupDictionary(QxDbDictionary*& dictionary,
                                       int mode = QxDb::kForRead) const;
  QxDbObjectId namedObjectsDictionaryId() const;
  QxDbObjectId groupDictionaryId() const;

  QxDbObjectId clayer() const;  // the current layer's record
  Qxad::ErrorStatus setClayer(QxDbObjectId layerId);
  QxDbObjectId currentSpaceId() const;  // the block record of model space or the layout

  // Korva's side: the serial of the database behind, as in object ids.
  std::uint64_t serial() const;
  // The object for a database that already exists (a document's); it stays korva's.
  static QxDbDatabase* wrapping(std::uint64_t serial);

  struct Content;

 private:
  QxDbDatabase(Content* content);
  Content* content_;
};

class QxDbHostApplicationServices {
 public:
  virtual ~QxDbHostApplicationServices() = default;
  // The database of the current drawing; null when no drawing is open.
  virtual QxDbDatabase* workingDatabase() const;
  // The product's root key of the settings store.
  virtual const wchar_t* getRegistryProductRootKey() const;
  // The folder of the running korva program, ending in "/"; support files lie in
  // Support/ beneath it. eInvalidInput when the buffer is too small.
  virtual Qxad::ErrorStatus getInstallFolder(wchar_t* buffer, std::size_t bufferChars) const;
  // Where exported files go by default: the current drawing's folder, or the working
  // directory for a drawing never saved. Ends in "/".
  virtual Qxad::ErrorStatus getExportFolder(wchar_t* buffer, std::size_t bufferChars) const;
};

extern QxDbHostApplicationServices* s_pServices;
