// A walk over object ids taken when the walk began: the vertices of an old-style
// polyline, the attributes of a block reference, the members of a group.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "qx_array.h"
#include "qx_db_core.h"

class QxDbObjectIterator {
 public:
  explicit QxDbObjectIterator(const QxDbObjectIdArray& ids);
  explicit QxDbObjectIterator(std::vector<QxDbObjectId> ids) : ids_(std::move(ids)) {}
  virtual ~QxDbObjectIterator() = default;
  // To the first (or the last) id.
  void start(bool atEnd = false);
  bool done() const;
  // To the next (or the previous) id; skipErased passes over erased ones.
  void step(bool backwards = false, bool skipErased = true);
  QxDbObjectId objectId() const;
  // Opens the current object; the caller closes it.
  Qxad::ErrorStatus getObject(QxDbObject*& object, int mode = QxDb::kForRead) const;

 protected:
  QxDbObjectIterator() = default;
  void add(QxDbObjectId id) { ids_.push_back(id); }
  std::ptrdiff_t position() const { return index_; }

 private:
  std::vector<QxDbObjectId> ids_;
  std::ptrdiff_t index_ = 0;
};
