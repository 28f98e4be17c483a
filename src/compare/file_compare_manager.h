// One comparison of two drawing files. The user's files are never touched: both are
// copied into the temporary folder's "fcmp/", the copies are marked up by layer
// (entities paired by handle) and saved over themselves, and the host opens them.
#pragma once

#include <string>

#include "compare/file_compare_log.h"
#include "compare/file_compare_options.h"
#include "compare/file_compare_utils.h"
#include "frame/host_interface.h"

class VnFileCompareManager {
 public:
  VnFileCompareManager();
  virtual ~VnFileCompareManager();
  VnFileCompareManager(const VnFileCompareManager&) = delete;
  VnFileCompareManager& operator=(const VnFileCompareManager&) = delete;

  // The stored options, handed on to the comparators.
  virtual void LoadOptions();
  virtual void SaveOptions();
  virtual VnFileCompareOptions GetOptions() const { return options_; }
  virtual void SetOptions(const VnFileCompareOptions& options);

  // Marks up the two open databases; a failure leaves them unmarked.
  virtual Qxad::ErrorStatus CompareOpenDatabases();
  // Compares databases that are already open; they stay the caller's.
  virtual void CompareDatabasePair(QxDbDatabase* oldDatabase, QxDbDatabase* newDatabase);
  // The whole run from two paths to two result files; false, silently, when the copies
  // can't be made or read.
  virtual bool CompareFiles(const std::wstring& oldPath, const std::wstring& newPath);
  virtual void OpenResultFiles();
  virtual bool SaveLog(const wchar_t* path) const { return log_.Save(path); }

  virtual bool CreateResultLayers();
  virtual Qxad::ErrorStatus CollectLayouts(QxDbDatabase* database, QxDbObjectIdArray& layouts,
                                           QxDbObjectId& modelSpaceId);
  virtual int MatchLayouts();
  virtual Qxad::ErrorStatus CollectEntities(QxDbObjectId blockRecordId, QxDbObjectIdArray& ids);
  virtual void CompareBlockRecords(QxDbObjectId oldBlockId, QxDbObjectId newBlockId);

  const std::wstring& OldResultPath() const { return oldResultPath_; }
  const std::wstring& NewResultPath() const { return newResultPath_; }
  const VnFileCompareLog& Log() const { return log_; }
  // Processor seconds the last CompareFiles spent in each phase, for timing large drawings.
  struct PhaseSeconds {
    double reading = 0;
    double comparing = 0;
    double saving = 0;
  };
  const PhaseSeconds& LastPhaseSeconds() const { return phaseSeconds_; }

 private:
  PhaseSeconds phaseSeconds_;
  void DeleteDatabases();

  VnFileCompareOptions options_;
  VnFileCompareUtils utils_;
  std::wstring oldPath_;
  std::wstring newPath_;
  std::wstring oldResultPath_;
  std::wstring newResultPath_;
  QxDbDatabase* oldDatabase_ = nullptr;
  QxDbDatabase* newDatabase_ = nullptr;
  bool ownsDatabases_ = false;
  QxDbObjectId oldDifferentLayer_;
  QxDbObjectId oldModifiedLayer_;
  QxDbObjectId oldSameLayer_;
  QxDbObjectId newDifferentLayer_;
  QxDbObjectId newModifiedLayer_;
  QxDbObjectId newSameLayer_;
  QxDbObjectIdArray oldLayouts_;
  QxDbObjectIdArray newLayouts_;
  QxDbObjectIdArray matchedOldLayouts_;
  QxDbObjectIdArray matchedNewLayouts_;
  QxDbObjectId oldModelSpace_;
  QxDbObjectId newModelSpace_;
  VnFileCompareLog log_;
};
