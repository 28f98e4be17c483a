// The services of the host application: the working database and korva's folders.
#include <unistd.h>

#include <filesystem>

#include "api/document.h"
#include "api/utf8.h"
#include "qx_db_database.h"

namespace {

Qxad::ErrorStatus copyFolder(std::filesystem::path folder, wchar_t* buffer,
                             std::size_t bufferChars) {
  if (!buffer) return Qxad::eInvalidInput;
  std::wstring text = korva::api::fromUtf8(folder.string());
  if (text.empty() || text.back() != L'/') text += L'/';
  if (text.size() + 1 > bufferChars) return Qxad::eInvalidInput;
  std::wcscpy(buffer, text.c_str());
  return Qxad::eOk;
}

}  // namespace

QxDbDatabase* QxDbHostApplicationServices::workingDatabase() const {
  korva::db::Database* database = korva::api::currentDatabase();
  return database ? QxDbDatabase::wrapping(database->serial()) : nullptr;
}

const wchar_t* QxDbHostApplicationServices::getRegistryProductRootKey() const {
  return L"Software\\Korva\\Korva\\R1";
}

Qxad::ErrorStatus QxDbHostApplicationServices::getInstallFolder(wchar_t* buffer,
                                                                std::size_t bufferChars) const {
  std::error_code error;
  std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return Qxad::eFileNotFound;
  return copyFolder(program.parent_path(), buffer, bufferChars);
}

Qxad::ErrorStatus QxDbHostApplicationServices::getExportFolder(wchar_t* buffer,
                                                               std::size_t bufferChars) const {
  korva::api::Document* document = korva::api::DocumentList::instance().current();
  std::filesystem::path path =
      document ? std::filesystem::path(document->path()) : std::filesystem::path();
  std::error_code error;
  std::filesystem::path folder = path.has_parent_path()
                                     ? std::filesystem::absolute(path.parent_path(), error)
                                     : std::filesystem::current_path(error);
  if (error) return Qxad::eFileAccessErr;
  return copyFolder(folder, buffer, bufferChars);
}

static QxDbHostApplicationServices services;
QxDbHostApplicationServices* s_pServices = &services;
