#include "compare/file_compare_manager.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <system_error>

namespace {

constexpr const wchar_t* kDifferentLayer = L"VN_FILECOMPARE_DIF";
constexpr const wchar_t* kModifiedLayer = L"VN_FILECOMPARE_MOD";
constexpr const wchar_t* kSameLayer = L"VN_FILECOMPARE_SAM";
constexpr std::size_t kLongestTemporaryPath = 260;

// The platform's temporary folder with "fcmp/" behind it, made when missing; empty
// when there is none or it can't be made.
std::filesystem::path ResultFolder() {
  const char* variable = std::getenv("TMPDIR");
  std::filesystem::path folder = variable && *variable ? variable : "/tmp";
  if (folder.native().empty() || folder.native().size() > kLongestTemporaryPath) return {};
  folder /= "fcmp";
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error || !std::filesystem::is_directory(folder, error)) return {};
  return folder;
}

// Saves a marked-up copy over itself. The save keeps the replaced file as a back-up;
// the copy was made for this run only, so its back-up goes at once.
void SaveResult(QxDbDatabase& database, const std::wstring& path) {
  if (database.saveAs(path.c_str(), true, QxDb::kSaveNewest, nullptr) != Qxad::eOk) return;
  std::error_code error;
  std::filesystem::remove(std::filesystem::path(path).replace_extension(".bak"), error);
}

// The file's name, behind the last separator of either kind.
std::wstring FileNameOf(const std::wstring& path) {
  const std::size_t separator = path.find_last_of(L"/\\");
  return separator == std::wstring::npos ? path : path.substr(separator + 1);
}

// Opens a result file as a further document; the drawing the command ran from stays
// current. The host may run this after the command has ended, so the path is a copy of
// its own, deleted here.
void OpenResultDocument(void* data) {
  const std::unique_ptr<std::wstring> path(static_cast<std::wstring*>(data));
  QxApDocManager* documents = qxDocManagerPtr();
  if (!documents || documents->isDocumentOpeningBlocked()) return;
  QxApDocument* current = documents->curDocument();
  documents->appContextOpenDocument(path->c_str(), false);
  if (current) documents->setCurDocument(current, true);
}

}  // namespace

VnFileCompareManager::VnFileCompareManager() {
  LoadOptions();
}

VnFileCompareManager::~VnFileCompareManager() {
  DeleteDatabases();
}

void VnFileCompareManager::DeleteDatabases() {
  if (ownsDatabases_) {
    delete oldDatabase_;
    delete newDatabase_;
  }
  oldDatabase_ = nullptr;
  newDatabase_ = nullptr;
  ownsDatabases_ = false;
}

void VnFileCompareManager::LoadOptions() {
  options_.Load();
  utils_.SetOptions(options_);
}

void VnFileCompareManager::SaveOptions() {
  options_.Save();
}

void VnFileCompareManager::SetOptions(const VnFileCompareOptions& options) {
  options_ = options;
  utils_.SetOptions(options_);
}

void VnFileCompareManager::CompareDatabasePair(QxDbDatabase* oldDatabase,
                                               QxDbDatabase* newDatabase) {
  DeleteDatabases();
  oldDatabase_ = oldDatabase;
  newDatabase_ = newDatabase;
  CompareOpenDatabases();
  oldDatabase_ = nullptr;
  newDatabase_ = nullptr;
}

bool VnFileCompareManager::CompareFiles(const std::wstring& oldPath, const std::wstring& newPath) {
  oldPath_ = oldPath;
  newPath_ = newPath;
  const std::filesystem::path folder = ResultFolder();
  if (folder.empty()) return false;
  // The prefixes keep two files of the same name apart.
  oldResultPath_ = (folder / (L"Old - " + FileNameOf(oldPath))).wstring();
  newResultPath_ = (folder / (L"New - " + FileNameOf(newPath))).wstring();
  std::error_code error;
  const auto overwrite = std::filesystem::copy_options::overwrite_existing;
  if (!std::filesystem::copy_file(oldPath, oldResultPath_, overwrite, error) || error) {
    return false;
  }
  if (!std::filesystem::copy_file(newPath, newResultPath_, overwrite, error) || error) {
    return false;
  }

  // Processor time: what the work costs, whatever else the machine is doing.
  auto secondsSince = [](std::clock_t start) {
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  };
  phaseSeconds_ = {};
  std::clock_t start = std::clock();
  DeleteDatabases();
  oldDatabase_ = new QxDbDatabase(false, false);
  newDatabase_ = new QxDbDatabase(false, false);
  ownsDatabases_ = true;
  if (oldDatabase_->readDwgFile(oldResultPath_.c_str(), QxDb::kDenyWrite, false, nullptr) !=
          Qxad::eOk ||
      newDatabase_->readDwgFile(newResultPath_.c_str(), QxDb::kDenyWrite, false, nullptr) !=
          Qxad::eOk) {
    DeleteDatabases();
    return false;
  }
  phaseSeconds_.reading = secondsSince(start);
  start = std::clock();
  // A comparison that fails part-way leaves the copies unmarked; they are saved anyway.
  CompareOpenDatabases();
  phaseSeconds_.comparing = secondsSince(start);
  start = std::clock();
  SaveResult(*oldDatabase_, oldResultPath_);
  SaveResult(*newDatabase_, newResultPath_);
  DeleteDatabases();
  phaseSeconds_.saving = secondsSince(start);
  return true;
}

void VnFileCompareManager::OpenResultFiles() {
  QxApDocManager* documents = qxDocManagerPtr();
  if (!documents) return;
  documents->executeInApplicationContext(OpenResultDocument, new std::wstring(oldResultPath_));
  documents->executeInApplicationContext(OpenResultDocument, new std::wstring(newResultPath_));
}

Qxad::ErrorStatus VnFileCompareManager::CompareOpenDatabases() {
  oldDifferentLayer_ = oldModifiedLayer_ = oldSameLayer_ = QxDbObjectId::kNull;
  newDifferentLayer_ = newModifiedLayer_ = newSameLayer_ = QxDbObjectId::kNull;
  oldLayouts_.removeAll();
  newLayouts_.removeAll();
  matchedOldLayouts_.removeAll();
  matchedNewLayouts_.removeAll();
  oldModelSpace_ = newModelSpace_ = QxDbObjectId::kNull;
  if (!CreateResultLayers()) return Qxad::eInvalidInput;
  if (!MatchLayouts()) return Qxad::eInvalidInput;
  for (int i = 0; i < matchedOldLayouts_.length(); ++i) {
    CompareBlockRecords(matchedOldLayouts_[i], matchedNewLayouts_[i]);
  }
  CompareBlockRecords(oldModelSpace_, newModelSpace_);
  return Qxad::eOk;
}

bool VnFileCompareManager::CreateResultLayers() {
  // Frozen layers hide the classes the user chose not to see.
  auto frozen = [](std::int32_t visible) { return !visible; };
  auto color = [](std::int32_t index) { return static_cast<std::int16_t>(index); };
  const VnFileCompareOptions& o = options_;
  oldDifferentLayer_ = utils_.GetOrCreateResultLayer(oldDatabase_, kDifferentLayer,
                                                     frozen(o.GetOldDifferentVisible()),
                                                     color(o.GetOldDifferentColor()));
  oldModifiedLayer_ =
      utils_.GetOrCreateResultLayer(oldDatabase_, kModifiedLayer, frozen(o.GetOldModifiedVisible()),
                                    color(o.GetOldModifiedColor()));
  oldSameLayer_ = utils_.GetOrCreateResultLayer(
      oldDatabase_, kSameLayer, frozen(o.GetOldSameVisible()), color(o.GetOldSameColor()));
  newDifferentLayer_ = utils_.GetOrCreateResultLayer(newDatabase_, kDifferentLayer,
                                                     frozen(o.GetNewDifferentVisible()),
                                                     color(o.GetNewDifferentColor()));
  newModifiedLayer_ =
      utils_.GetOrCreateResultLayer(newDatabase_, kModifiedLayer, frozen(o.GetNewModifiedVisible()),
                                    color(o.GetNewModifiedColor()));
  newSameLayer_ = utils_.GetOrCreateResultLayer(
      newDatabase_, kSameLayer, frozen(o.GetNewSameVisible()), color(o.GetNewSameColor()));
  return !oldDifferentLayer_.isNull() && !oldModifiedLayer_.isNull() && !oldSameLayer_.isNull() &&
         !newDifferentLayer_.isNull() && !newModifiedLayer_.isNull() && !newSameLayer_.isNull();
}
