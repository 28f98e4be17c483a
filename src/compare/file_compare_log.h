// The differences of one comparison, in the order they were found, and their file.
#pragma once

#include <vector>

#include "compare/file_compare_data.h"
#include "frame/host_interface.h"

class VnFileCompareLog {
 public:
  virtual ~VnFileCompareLog() = default;

  // A comma-separated file, each line ended by a lone carriage return; false when the
  // file can't be written.
  virtual bool Save(const wchar_t* path) const;

  // Each adds one record, or nothing when an entity can't be opened.
  bool AddOldEntity(QxDbObjectId entityId);
  bool AddNewEntity(QxDbObjectId entityId);
  bool AddModifiedEntity(QxDbObjectId oldId, QxDbObjectId newId);

  const std::vector<VnFileCompareData>& Records() const { return records_; }

 private:
  std::vector<VnFileCompareData> records_;
};
