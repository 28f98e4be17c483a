// The object layer's foundations: statuses, ids, handles, class identity, and the
// object every database class derives from.
//
// An object opened from a database is a live view of its record: every getter reads
// the record's groups and every setter writes them, so the flat layer and the DXF file
// see a change at once. Objects are opened with qxdbOpenQxDbObject and closed with
// close() on every path; korva counts what a command leaves open.
#pragma once

#include <cstddef>
#include <cstdint>

#include "qx_types.h"

namespace Qxad {

// 0 is success. The other numbers are korva's; 22 and 87 are the ones callers know.
enum ErrorStatus : int {
  eOk = 0,
  eNotImplemented = 1,
  eInvalidInput = 3,
  eNullObjectId = 5,
  eWrongObjectType = 6,
  eNotApplicable = 7,
  eWasErased = 10,
  eWasOpenForWrite = 11,
  eWasOpenForRead = 12,
  eNotOpenForWrite = 13,
  eNotOpenForRead = 14,
  eAlreadyInDb = 15,
  eNotInDatabase = 16,
  eInvalidIndex = 17,
  eKeyNotFound = 22,
  eDuplicateKey = 23,
  eInvalidOwnerObject = 30,
  eFileAccessErr = 40,
  eBadDxfFile = 41,
  eFileNotFound = 42,
  eOutOfRange = 50,
  eDegenerateGeometry = 60,
  // A map that would make a circle the object measures by stop being round.
  eCannotScaleNonUniformly = 61,
  eOnLockedLayer = 87,
};

}  // namespace Qxad

namespace QxDb {
enum OpenMode : int { kForRead = 0, kForWrite = 1, kForNotify = 2 };
}

// A record's handle.
class QxDbHandle {
 public:
  QxDbHandle() = default;
  explicit QxDbHandle(std::uint64_t value) : value_(value) {}
  std::uint64_t value() const { return value_; }
  bool isNull() const { return value_ == 0; }
  // Upper-case hexadecimal, as DXF writes it; false when the buffer is too small.
  bool getIntoAsciiBuffer(wchar_t* buffer, std::size_t bufferChars = 17) const;
  bool operator==(const QxDbHandle&) const = default;

 private:
  std::uint64_t value_ = 0;
};

class QxDbDatabase;

// Names a record of a database: the database's serial in the top 16 bits, the
// handle in the rest. The null id is 0.
class QxDbObjectId {
 public:
  QxDbObjectId() = default;
  static QxDbObjectId fromParts(std::uint64_t databaseSerial, std::uint64_t handle);
  std::uint64_t asOldId() const { return value_; }
  static QxDbObjectId fromOldId(std::uint64_t value);

  bool isNull() const { return value_ == 0; }
  // Not null and naming a record that exists (erased or not).
  bool isValid() const;
  bool isErased() const;
  QxDbHandle handle() const { return QxDbHandle(value_ & kHandleMask); }
  std::uint64_t databaseSerial() const { return value_ >> 48; }

  bool operator==(const QxDbObjectId&) const = default;
  bool operator<(const QxDbObjectId& other) const { return value_ < other.value_; }
  static const QxDbObjectId kNull;

 private:
  static constexpr std::uint64_t kHandleMask = (std::uint64_t{1} << 48) - 1;
  std::uint64_t value_ = 0;
};

// A class record: its name and its parent in the class tree.
class QxRxClass {
 public:
  QxRxClass(const wchar_t* name, const QxRxClass* parent, const char* dxfName = nullptr);
  const wchar_t* name() const { return name_; }
  // The record type in DXF ("LINE"), or null for abstract classes.
  const char* dxfName() const { return dxfName_; }
  const QxRxClass* myParent() const { return parent_; }
  bool isDerivedFrom(const QxRxClass* other) const;

 private:
  const wchar_t* name_;
  const QxRxClass* parent_;
  const char* dxfName_;
};

class QxRxObject {
 public:
  virtual ~QxRxObject() = default;
  static const QxRxClass* desc();
  virtual const QxRxClass* isA() const { return desc(); }
  bool isKindOf(const QxRxClass* other) const { return isA()->isDerivedFrom(other); }
};

// Declares desc() and isA() of a class.
#define QX_DECLARE_CLASS_MEMBERS(Class)                        \
  static const QxRxClass* desc();                              \
  const QxRxClass* isA() const override { return desc(); }     \
  static Class* cast(QxRxObject* object) {                     \
    return object && object->isKindOf(desc()) ? static_cast<Class*>(object) : nullptr; \
  }

struct QxDbObjectState;

class QxDbObject : public QxRxObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbObject)
  ~QxDbObject() override;
  QxDbObject(const QxDbObject&) = delete;
  QxDbObject& operator=(const QxDbObject&) = delete;

  QxDbObjectId objectId() const;
  QxDbObjectId ownerId() const;
  QxDbHandle handle() const;
  QxDbDatabase* database() const;
  bool isNewObject() const;  // made in memory, not yet in a database

  bool isErased() const;
  Qxad::ErrorStatus erase(bool erasing = true);
  // Ends this opening; the object must not be used afterwards. An object made in
  // memory and never added to a database is deleted by its maker instead.
  Qxad::ErrorStatus close();
  Qxad::ErrorStatus upgradeOpen();
  Qxad::ErrorStatus downgradeOpen();
  bool isReadEnabled() const;
  bool isWriteEnabled() const;
  bool isNotifyEnabled() const;
  // eOk when open for write (or new); eNotOpenForWrite otherwise.
  Qxad::ErrorStatus assertWriteEnabled() const;
  bool hasFields() const { return false; }

  // Extended data: the -3 form of qxdbEntGetX for one application, or all with null.
  ResultBuffer* xData(const wchar_t* application = nullptr) const;
  Qxad::ErrorStatus setXData(const ResultBuffer* data);
  // The owner links of the reactors group (102 {ACAD_REACTORS).
  std::size_t reactorCount() const;

  // Korva's side: the state behind the object.
  QxDbObjectState* state() const { return state_; }

 protected:
  // A new object, owning a record of this type until it is added to a database.
  explicit QxDbObject(const char* dxfType);
  QxDbObject();

 private:
  friend struct QxDbObjectState;
  QxDbObjectState* state_;
};

// Opens the object with this id. mode: QxDb::kForRead, kForWrite or kForNotify. An
// erased object opens only with openErased. One writer or several readers at a time:
// eWasOpenForWrite / eWasOpenForRead otherwise. Writing an entity on a locked layer
// gives eOnLockedLayer (87).
Qxad::ErrorStatus qxdbOpenQxDbObject(QxDbObject*& object, QxDbObjectId id, int mode,
                                     bool openErased = false);

class QxDbEntity;
// As qxdbOpenQxDbObject, for entities only (eWrongObjectType otherwise).
Qxad::ErrorStatus qxdbOpenQxDbEntity(QxDbEntity*& entity, QxDbObjectId id, int mode,
                                     bool openErased = false);

// Between entity names of the flat layer and object ids.
Qxad::ErrorStatus qxdbGetObjectId(QxDbObjectId& id, const EntityName name);
Qxad::ErrorStatus qxdbGetHysName(EntityName name, QxDbObjectId id);

// Objects open now, in all databases (korva reports what a command leaves open).
std::size_t qxdbOpenObjectCount();
