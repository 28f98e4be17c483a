// Symbol tables and their records: layers, linetypes, text and dimension styles,
// registered applications, views, user coordinate systems and viewport settings.
//
// A table is the TABLE record of its section; its records are the entries between
// TABLE and ENDTAB. Names compare without regard to case. Names handed out are wide
// strings of the caller's, to be freed with qxad_free.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "qx_color.h"
#include "qx_db_core.h"
#include "qx_ge.h"

class QxDbSymbolTableRecord : public QxDbObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbSymbolTableRecord)
  Qxad::ErrorStatus getName(wchar_t*& name) const;
  // Empty names and names another record of the table holds are refused.
  virtual Qxad::ErrorStatus setName(const wchar_t* name);
  // Of an external reference (flag 16 in group 70), and resolved (flag 32).
  bool isDependent() const;
  bool isResolved() const;

 protected:
  QxDbSymbolTableRecord(const char* dxfType, const char* subclass);
};

class QxDbSymbolTableIterator {
 public:
  virtual ~QxDbSymbolTableIterator() = default;
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  Qxad::ErrorStatus getRecordId(QxDbObjectId& id) const;
  Qxad::ErrorStatus getRecord(QxDbSymbolTableRecord*& record, int mode = QxDb::kForRead,
                              bool openErased = false) const;
  // Moves to the record with this id; eInvalidInput when the table doesn't hold it.
  Qxad::ErrorStatus seek(QxDbObjectId id);

 protected:
  friend class QxDbSymbolTable;
  QxDbSymbolTableIterator(std::uint64_t databaseSerial, std::uint64_t tableHandle);
  QxDbObjectId current() const;

 private:
  std::size_t count() const;
  bool erasedAt(std::size_t index) const;
  void skipErased(bool forward);

  std::uint64_t databaseSerial_;
  std::uint64_t tableHandle_;
  // One past the end when done; counting down walks backwards.
  std::ptrdiff_t index_ = 0;
};

class QxDbSymbolTable : public QxDbObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbSymbolTable)
  Qxad::ErrorStatus getAt(const wchar_t* name, QxDbSymbolTableRecord*& record, int mode,
                          bool openErased = false) const;
  // eKeyNotFound when the table has no record of that name.
  Qxad::ErrorStatus getAt(const wchar_t* name, QxDbObjectId& id, bool getErased = false) const;
  bool has(const wchar_t* name) const;
  bool has(QxDbObjectId id) const;
  // Puts a new record into the table; it stays open for write, its maker closes it.
  // The table must be open for write; the record must have a name no other record has.
  Qxad::ErrorStatus add(QxDbSymbolTableRecord* record);
  Qxad::ErrorStatus add(QxDbObjectId& id, QxDbSymbolTableRecord* record);
  // The iterator is the caller's, to be deleted.
  Qxad::ErrorStatus newIterator(QxDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;

  // The record type the table holds ("LAYER").
  const char* recordType() const { return recordType_; }

 protected:
  explicit QxDbSymbolTable(const char* recordType);
  // Korva's side: the table's records and the name a new record goes under.
  virtual Qxad::ErrorStatus addRecord(QxDbSymbolTableRecord& record);

 private:
  const char* recordType_;
};

// The typed members of one table: getAt for its record class and its iterator.
#define QX_DECLARE_TABLE_MEMBERS(Record, Iterator)                                                 \
  using QxDbSymbolTable::getAt;                                                                    \
  using QxDbSymbolTable::newIterator;                                                              \
  Qxad::ErrorStatus getAt(const wchar_t* name, Record*& record, int mode, bool openErased = false) \
      const;                                                                                       \
  Qxad::ErrorStatus newIterator(Iterator*& iterator, bool atBeginning = true,                      \
                                bool skipDeleted = true) const;

#define QX_DECLARE_TABLE_ITERATOR(Iterator, Record)                         \
  class Iterator : public QxDbSymbolTableIterator {                         \
   public:                                                                  \
    using QxDbSymbolTableIterator::getRecord;                               \
    Qxad::ErrorStatus getRecord(Record*& record, int mode = QxDb::kForRead, \
                                bool openErased = false) const;             \
    Iterator(std::uint64_t databaseSerial, std::uint64_t tableHandle)       \
        : QxDbSymbolTableIterator(databaseSerial, tableHandle) {}           \
  };

// ---- Layers

class QxDbLayerTableRecord : public QxDbSymbolTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbLayerTableRecord)
  QxDbLayerTableRecord();  // colour 7, linetype Continuous, on, thawed, unlocked

  // Off is a negative colour number in group 62.
  bool isOff() const;
  Qxad::ErrorStatus setIsOff(bool off);
  bool isFrozen() const;  // flag 1 of group 70
  Qxad::ErrorStatus setIsFrozen(bool frozen);
  bool isLocked() const;  // flag 4
  Qxad::ErrorStatus setIsLocked(bool locked);
  bool VPDFLT() const;  // frozen in new viewports: flag 2
  Qxad::ErrorStatus setVPDFLT(bool frozen);
  QxCmColor color() const;
  Qxad::ErrorStatus setColor(const QxCmColor& color);
  // Whether a live entity of the drawing (or of a block definition) lies on the layer.
  bool isInUse() const;
};

class QxDbLayerTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbLayerTableIterator, QxDbLayerTableRecord)

class QxDbLayerTable : public QxDbSymbolTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbLayerTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbLayerTableRecord, QxDbLayerTableIterator)
  QxDbLayerTable();
};

// ---- Text styles, dimension styles, linetypes, applications

class QxDbTextStyleTableRecord : public QxDbSymbolTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbTextStyleTableRecord)
  QxDbTextStyleTableRecord();
  double textSize() const;  // 0: the height is asked for when text is made
  Qxad::ErrorStatus setTextSize(double size);
  wchar_t* fileName() const;
  Qxad::ErrorStatus setFileName(const wchar_t* fileName);
};
class QxDbTextStyleTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbTextStyleTableIterator, QxDbTextStyleTableRecord)
class QxDbTextStyleTable : public QxDbSymbolTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbTextStyleTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbTextStyleTableRecord, QxDbTextStyleTableIterator)
  QxDbTextStyleTable();
};

class QxDbDimStyleTableRecord : public QxDbSymbolTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbDimStyleTableRecord)
  QxDbDimStyleTableRecord();

  // Style variables; one the record doesn't hold has its default.
  double dimscale() const;  // overall scale, 1
  double dimasz() const;    // arrow size, 0.18
  double dimexo() const;    // extension line offset from the origin, 0.0625
  double dimexe() const;    // extension beyond the dimension line, 0.18
  double dimtxt() const;    // text height, 0.18
  double dimgap() const;    // gap around the text, 0.09
  // A scale of 0 makes the host pick one from the viewport; negative ones are refused.
  Qxad::ErrorStatus setDimscale(double scale);
};
class QxDbDimStyleTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbDimStyleTableIterator, QxDbDimStyleTableRecord)
class QxDbDimStyleTable : public QxDbSymbolTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbDimStyleTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbDimStyleTableRecord, QxDbDimStyleTableIterator)
  QxDbDimStyleTable();
};

class QxDbLinetypeTableRecord : public QxDbSymbolTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbLinetypeTableRecord)
  QxDbLinetypeTableRecord();  // continuous: no dashes
  wchar_t* comments() const;
  Qxad::ErrorStatus setComments(const wchar_t* comments);
};
class QxDbLinetypeTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbLinetypeTableIterator, QxDbLinetypeTableRecord)
class QxDbLinetypeTable : public QxDbSymbolTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbLinetypeTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbLinetypeTableRecord, QxDbLinetypeTableIterator)
  QxDbLinetypeTable();
};

class QxDbRegAppTableRecord : public QxDbSymbolTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbRegAppTableRecord)
  QxDbRegAppTableRecord();
};
class QxDbRegAppTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbRegAppTableIterator, QxDbRegAppTableRecord)
class QxDbRegAppTable : public QxDbSymbolTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbRegAppTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbRegAppTableRecord, QxDbRegAppTableIterator)
  QxDbRegAppTable();
};

// ---- Views, user coordinate systems, viewport settings

// What a view and a viewport setting share; each keeps it under its own group codes.
class QxDbAbstractViewTableRecord : public QxDbSymbolTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbAbstractViewTableRecord)
  QxGePoint2d centerPoint() const;
  Qxad::ErrorStatus setCenterPoint(const QxGePoint2d& center);
  double height() const;
  Qxad::ErrorStatus setHeight(double height);
  double width() const;
  Qxad::ErrorStatus setWidth(double width);
  QxGePoint3d target() const;
  Qxad::ErrorStatus setTarget(const QxGePoint3d& target);
  QxGeVector3d viewDirection() const;
  Qxad::ErrorStatus setViewDirection(const QxGeVector3d& direction);
  double viewTwist() const;
  Qxad::ErrorStatus setViewTwist(double angle);
  double lensLength() const;
  Qxad::ErrorStatus setLensLength(double length);
  double frontClipDistance() const;
  Qxad::ErrorStatus setFrontClipDistance(double distance);
  double backClipDistance() const;
  Qxad::ErrorStatus setBackClipDistance(double distance);
  // The view mode bits of group 71: perspective, front and back clipping, clipping at the eye.
  bool perspectiveEnabled() const;
  Qxad::ErrorStatus setPerspectiveEnabled(bool enabled);
  bool frontClipEnabled() const;
  Qxad::ErrorStatus setFrontClipEnabled(bool enabled);
  bool backClipEnabled() const;
  Qxad::ErrorStatus setBackClipEnabled(bool enabled);
  bool frontClipAtEye() const;
  Qxad::ErrorStatus setFrontClipAtEye(bool atEye);

  // Korva's side: where each value lives in the record type.
  struct Codes {
    int center, height, width, target, direction, twist;
    bool widthIsAspectRatio;  // viewport settings keep width / height
  };

 protected:
  QxDbAbstractViewTableRecord(const char* dxfType, const char* subclass, const Codes& codes);

 private:
  Qxad::ErrorStatus setModeBit(int bit, bool on);
  const Codes& codes_;
};

class QxDbViewTableRecord : public QxDbAbstractViewTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbViewTableRecord)
  QxDbViewTableRecord();
  bool isPaperspaceView() const;  // flag 1 of group 70
  Qxad::ErrorStatus setIsPaperspaceView(bool paperSpace);
};
class QxDbViewTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbViewTableIterator, QxDbViewTableRecord)

class QxDbViewportTableRecord : public QxDbAbstractViewTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbViewportTableRecord)
  QxDbViewportTableRecord();
};
class QxDbViewportTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbViewportTableIterator, QxDbViewportTableRecord)

class QxDbAbstractViewTable : public QxDbSymbolTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbAbstractViewTable)

 protected:
  using QxDbSymbolTable::QxDbSymbolTable;
};
class QxDbViewTable : public QxDbAbstractViewTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbViewTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbViewTableRecord, QxDbViewTableIterator)
  QxDbViewTable();
};
class QxDbViewportTable : public QxDbAbstractViewTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbViewportTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbViewportTableRecord, QxDbViewportTableIterator)
  QxDbViewportTable();
};

class QxDbUCSTableRecord : public QxDbSymbolTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbUCSTableRecord)
  QxDbUCSTableRecord();  // the world system
  QxGePoint3d origin() const;
  Qxad::ErrorStatus setOrigin(const QxGePoint3d& origin);
  QxGeVector3d xAxis() const;
  Qxad::ErrorStatus setXAxis(const QxGeVector3d& axis);
  QxGeVector3d yAxis() const;
  Qxad::ErrorStatus setYAxis(const QxGeVector3d& axis);
};
class QxDbUCSTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbUCSTableIterator, QxDbUCSTableRecord)
class QxDbUCSTable : public QxDbSymbolTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbUCSTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbUCSTableRecord, QxDbUCSTableIterator)
  QxDbUCSTable();
};
