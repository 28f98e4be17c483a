// SAVE, SAVEAS and QSAVE: the current drawing written as DXF, in its own version or,
// with the Version option, in another version of the same kind.
#include <filesystem>
#include <string_view>

#include "api/document.h"
#include "api/system_variables.h"
#include "api/utf8.h"
#include "cmd/files/drawing_paths.h"
#include "cmd/files/file_commands.h"
#include "cmd/tables/prompt_answers.h"
#include "dxf/writer.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

struct DrawingVersion {
  const wchar_t* keyword;
  std::string_view code;  // $ACADVER
};

constexpr DrawingVersion kVersions[] = {
    {L"R12", "AC1009"},   {L"R2000", "AC1015"}, {L"R2004", "AC1018"}, {L"R2007", "AC1021"},
    {L"R2010", "AC1024"}, {L"R2013", "AC1027"}, {L"R2018", "AC1032"},
};

// Versions whose files are laid out alike: R12 without subclass markers, then code-page
// text, then UTF-8 text. A drawing changes version only within its kind, where the
// records stay valid as they are.
int versionKind(std::string_view code) {
  if (code <= "AC1009") return 0;
  return code < "AC1021" ? 1 : 2;
}

std::wstring versionName(std::string_view code) {
  for (const DrawingVersion& version : kVersions) {
    if (version.code == code) return version.keyword;
  }
  return api::fromUtf8(code);
}

// Asks for the version to save in; the choice is kept in version.
int askVersion(const db::Database& database, std::string& version) {
  std::wstring prompt = L"\nEnter drawing version [R12/R2000/R2004/R2007/R2010/R2013/R2018] <" +
                        versionName(version) + L">: ";
  std::wstring answer;
  int status = askKeyword(prompt.c_str(),
                          L"R12 R2000 R2004 R2007 R2010 R2013 R2018"
                          L" _ R12 R2000 R2004 R2007 R2010 R2013 R2018",
                          answer);
  if (status != RTNORM) return status;
  for (const DrawingVersion& each : kVersions) {
    if (answer != each.keyword) continue;
    if (versionKind(each.code) != versionKind(database.version())) {
      qxutPrintf(L"\nA drawing of version %s can't be saved as %s.",
                 versionName(database.version()).c_str(), each.keyword);
      return RTERROR;
    }
    version = each.code;
  }
  return RTNORM;
}

std::wstring defaultName(const api::Document& document) {
  if (!document.path().empty()) return api::fromUtf8(document.path());
  ResultBuffer value{};
  if (qxedGetVar(L"DWGNAME", &value) != RTNORM || value.type != RTSTR) return L"Drawing1.dxf";
  std::wstring name = value.value.rstring;
  qxad_free(value.value.rstring);
  return name;
}

bool writeDrawing(api::Document& document, const std::string& path, const std::string& version) {
  db::Database& database = document.database();
  if (version != database.version()) database.setHeaderVariable("$ACADVER", {{1, version}});
  dxf::WriteResult result = dxf::writeFile(database, path);
  if (!result.ok) {
    qxutPrintf(L"\nCan't save the drawing as \"%s\": %s", api::fromUtf8(path).c_str(),
               api::fromUtf8(result.error).c_str());
    return false;
  }
  document.setPath(path);
  api::VariableValue saved;
  saved.type = api::VariableType::String;
  std::error_code error;
  saved.text = std::filesystem::absolute(path, error).lexically_normal().string();
  api::setVariable(&database, "SAVENAME", saved, true);
  return true;
}

void saveUnderName(api::Document& document) {
  std::string version = document.database().version();
  std::wstring typed;
  for (;;) {
    std::wstring prompt = L"\nSave drawing as [Version] <" + defaultName(document) + L">: ";
    int status = askKeyword(prompt.c_str(), L"Version _ Version", typed, true);
    if (status == RTNONE)
      typed = defaultName(document);
    else if (status != RTNORM && status != RTKWORD)
      return;
    if (typed != L"Version") break;
    if (askVersion(document.database(), version) == RTCAN) return;
  }
  std::string path = withDrawingExtension(api::toUtf8(typed));
  if (fileExists(path) && !sameFile(path, document.path())) {
    bool replace = false;
    if (askYesNo(L"\nA drawing with this name already exists. Replace it? [Yes/No] <N>: ", false,
                 replace) != RTNORM ||
        !replace) {
      return;
    }
  }
  writeDrawing(document, path, version);
}

}  // namespace

void saveAsCommand() {
  if (api::Document* document = api::DocumentList::instance().current()) {
    saveUnderName(*document);
  }
}

void quickSaveCommand() {
  api::Document* document = api::DocumentList::instance().current();
  if (!document) return;
  if (document->path().empty()) {
    saveUnderName(*document);
  } else {
    writeDrawing(*document, document->path(), document->database().version());
  }
}

}  // namespace korva::cmd
