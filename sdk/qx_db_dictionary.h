// Objects of the objects section: dictionaries, groups, xrecords and named scales.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "qx_array.h"
#include "qx_db_core.h"
#include "qx_db_object_iterator.h"

class QxDbEntity;

// A walk over a dictionary's entries in their order; the keys come with the ids.
class QxDbDictionaryIterator : public QxDbObjectIterator {
 public:
  // The key, the caller's to free with qxad_free.
  wchar_t* name() const;
  bool next() {
    step();
    return !done();
  }

 private:
  friend class QxDbDictionary;
  QxDbDictionaryIterator() = default;
  std::vector<std::wstring> keys_;
};

// Keys map to objects the dictionary owns: pairs of group 3 (key) and 350 or 360 (id).
class QxDbDictionary : public QxDbObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbDictionary)
  QxDbDictionary();

  // eKeyNotFound (22) when the key is missing.
  Qxad::ErrorStatus getAt(const wchar_t* key, QxDbObject*& object, int mode) const;
  Qxad::ErrorStatus getAt(const wchar_t* key, QxDbObjectId& id) const;
  Qxad::ErrorStatus nameAt(QxDbObjectId id, wchar_t*& key) const;
  bool has(const wchar_t* key) const;
  bool has(QxDbObjectId id) const;
  std::size_t numEntries() const;

  // Puts an object under the key; the dictionary becomes its owner. A new object
  // joins the database and stays open for write; its maker closes it. An object that
  // stood under the key before is erased. An anonymous group name ("*A") becomes a
  // unique one ("*A1", "*A2", ...). The dictionary must be open for write.
  Qxad::ErrorStatus setAt(const wchar_t* key, QxDbObject* object, QxDbObjectId& id);
  Qxad::ErrorStatus setAt(const wchar_t* key, QxDbObject* object);
  // Removes the entry and erases the object, which belonged to the dictionary.
  Qxad::ErrorStatus remove(const wchar_t* key);
  // Removes the entry and hands the object over, without owner, to the caller.
  Qxad::ErrorStatus remove(const wchar_t* key, QxDbObjectId& returnedId);
  Qxad::ErrorStatus remove(QxDbObjectId id);
  Qxad::ErrorStatus setName(const wchar_t* oldKey, const wchar_t* newKey);

  // The iterator is the caller's, to be deleted; null when the dictionary isn't readable.
  QxDbDictionaryIterator* newIterator() const;
};

// A named set of entities (GROUP).
class QxDbGroup : public QxDbObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbGroup)
  explicit QxDbGroup(const wchar_t* description = nullptr, bool selectable = true);

  wchar_t* description() const;
  Qxad::ErrorStatus setDescription(const wchar_t* description);
  bool isSelectable() const;
  Qxad::ErrorStatus setSelectable(bool selectable);
  // Anonymous groups have made-up names ("*A1") and flag 1 in group 70.
  bool isAnonymous() const;
  Qxad::ErrorStatus setAnonymous();

  // Entities of the group's database; one already in the group is not added again.
  Qxad::ErrorStatus append(QxDbObjectId id);
  Qxad::ErrorStatus append(const QxDbObjectIdArray& ids);
  Qxad::ErrorStatus remove(QxDbObjectId id);
  Qxad::ErrorStatus clear();
  bool has(const QxDbEntity* entity) const;
  bool has(QxDbObjectId id) const;
  // The members that are still in the drawing.
  std::size_t numEntities() const;
  std::size_t allEntityIds(QxDbObjectIdArray& ids) const;
  QxDbObjectIterator* newIterator() const;
};

// Free-form data: a list of DXF groups.
class QxDbXrecord : public QxDbObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbXrecord)
  QxDbXrecord();
  // The data as a list the caller releases with qxutRelRb. Pointer groups (330-369)
  // come as entity names.
  Qxad::ErrorStatus rbChain(ResultBuffer*& chain) const;
  // Replaces the data. Nodes must carry DXF group codes; entity names must name
  // records of the xrecord's database.
  Qxad::ErrorStatus setFromRbChain(const ResultBuffer* chain);
};

// A named scale of the scale list: paper units to drawing units.
class QxDbScale : public QxDbObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbScale)
  QxDbScale();  // "1:1"
  wchar_t* scaleName() const;
  Qxad::ErrorStatus setScaleName(const wchar_t* name);
  double paperUnits() const;
  Qxad::ErrorStatus setPaperUnits(double units);
  double drawingUnits() const;
  Qxad::ErrorStatus setDrawingUnits(double units);
  bool isUnitScale() const;
  Qxad::ErrorStatus setIsUnitScale(bool unitScale);
};
