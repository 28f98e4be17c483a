// NEW and OPEN: a drawing made from nothing or from a template, or read from a file,
// becomes the current drawing; the other open drawings stay open.
#include <memory>

#include "api/document.h"
#include "api/utf8.h"
#include "cmd/files/drawing_paths.h"
#include "cmd/files/file_commands.h"
#include "cmd/tables/prompt_answers.h"
#include "dxf/new_drawing.h"
#include "dxf/reader.h"
#include "input/support_path.h"
#include "qx_print.h"
#include "rt/modules.h"

namespace korva::cmd {
namespace {

// Reads a drawing; null after saying why it can't be read.
std::unique_ptr<db::Database> readDrawing(const std::string& path) {
  dxf::ReadResult result = dxf::readFile(path);
  std::wstring shown = api::fromUtf8(path);
  if (!result.ok()) {
    qxutPrintf(L"\nCan't open \"%s\": %s", shown.c_str(), api::fromUtf8(result.error).c_str());
    return nullptr;
  }
  for (const dxf::Diagnostic& warning : result.warnings) {
    qxutPrintf(L"\n%s: %s", shown.c_str(), api::fromUtf8(dxf::describe(warning)).c_str());
  }
  return std::move(result.database);
}

void makeCurrent(std::unique_ptr<db::Database> database, std::string path) {
  api::DocumentList::instance().add(std::move(database), std::move(path), true);
  rt::drawingOpened();
}

}  // namespace

void newCommand() {
  std::wstring typed;
  int status = askText(L"\nEnter template drawing name or [.] for none <.>: ", typed);
  if (status == RTCAN || status == RTERROR) return;
  if (status == RTNONE || typed == L".") {
    makeCurrent(dxf::createNewDrawing(), {});
    return;
  }
  std::string name = withDrawingExtension(api::toUtf8(typed));
  std::optional<std::string> found = input::findSupportFile(name);
  if (!found) {
    qxutPrintf(L"\nCan't find the template drawing \"%s\".", typed.c_str());
    return;
  }
  // A drawing made from a template has no name until it is saved.
  if (std::unique_ptr<db::Database> database = readDrawing(*found)) {
    makeCurrent(std::move(database), {});
  }
}

void openCommand() {
  std::wstring typed;
  if (askText(L"\nEnter name of drawing to open: ", typed) != RTNORM) return;
  std::string path = api::toUtf8(typed);
  if (!fileExists(path)) path = withDrawingExtension(path);
  if (!fileExists(path)) {
    qxutPrintf(L"\nCan't find the drawing \"%s\".", typed.c_str());
    return;
  }
  api::DocumentList& documents = api::DocumentList::instance();
  for (const std::unique_ptr<api::Document>& document : documents.documents()) {
    if (!sameFile(document->path(), path)) continue;
    documents.setCurrent(document.get());
    qxutPrintf(L"\nThe drawing \"%s\" is open already; it is the current drawing now.",
               typed.c_str());
    return;
  }
  if (std::unique_ptr<db::Database> database = readDrawing(path)) {
    makeCurrent(std::move(database), path);
  }
}

}  // namespace korva::cmd
