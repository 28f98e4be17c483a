// The document manager modules see: views of the open drawings of api::DocumentList,
// the resource handle stack, and work deferred to the application context.
#include <deque>
#include <filesystem>
#include <map>
#include <string>

#include "api/document.h"
#include "api/print_sink.h"
#include "api/utf8.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "dxf/reader.h"
#include "qx_db_database.h"
#include "qx_runtime.h"
#include "rt/module_table.h"
#include "rt/modules.h"

namespace korva::rt {
namespace {

constexpr const wchar_t* kUntitledName = L"Drawing1.dxf";

// A view of one open drawing, found again by its serial on every call: the document list
// stays the only owner of the drawing.
class DocumentView : public QxApDocument {
 public:
  explicit DocumentView(std::uint64_t serial) : serial_(serial) {}

  QxDbDatabase* database() const override {
    api::Document* document = find();
    return document ? QxDbDatabase::wrapping(document->database().serial()) : nullptr;
  }
  const wchar_t* fileName() const override {
    api::Document* document = find();
    fileName_ = document ? api::fromUtf8(document->path()) : std::wstring();
    return fileName_.c_str();
  }
  const wchar_t* docTitle() const override {
    api::Document* document = find();
    const std::string path = document ? document->path() : std::string();
    title_ = path.empty() ? std::wstring(kUntitledName)
                          : api::fromUtf8(std::filesystem::path(path).filename().string());
    return title_.c_str();
  }

  std::uint64_t serial() const { return serial_; }
  api::Document* find() const { return api::DocumentList::instance().bySerial(serial_); }

 private:
  std::uint64_t serial_;
  // The returned strings live until the next call.
  mutable std::wstring fileName_;
  mutable std::wstring title_;
};

using Deferred = std::pair<void (*)(void*), void*>;

std::deque<Deferred>& deferredWork() {
  static std::deque<Deferred> queue;
  return queue;
}

class DocumentManager : public QxApDocManager {
 public:
  QxApDocument* curDocument() const override {
    return viewOf(api::DocumentList::instance().current());
  }
  QxApDocument* mdiActiveDocument() const override { return curDocument(); }
  int documentCount() const override {
    return static_cast<int>(api::DocumentList::instance().documents().size());
  }
  QxApDocument* documentAt(int index) const override {
    const auto& documents = api::DocumentList::instance().documents();
    if (index < 0 || static_cast<std::size_t>(index) >= documents.size()) return nullptr;
    return viewOf(documents[static_cast<std::size_t>(index)].get());
  }
  Qxad::ErrorStatus setCurDocument(QxApDocument* document, bool) override {
    api::Document* target = documentOf(document);
    if (!target) return Qxad::eInvalidInput;
    api::DocumentList::instance().setCurrent(target);
    return Qxad::eOk;
  }

  bool isDocumentOpeningBlocked() const override {
    return cmd::Processor::instance().commandDepth() > 0;
  }
  Qxad::ErrorStatus appContextOpenDocument(const wchar_t* path, bool makeCurrent) override {
    if (!path || !*path) return Qxad::eInvalidInput;
    const std::string file = api::toUtf8(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return Qxad::eFileNotFound;
    dxf::ReadResult result = dxf::readFile(file);
    if (!result.ok()) return Qxad::eBadDxfFile;
    const Qxad::ErrorStatus status = added(std::move(result.database), file, makeCurrent);
    // A module opens drawings without a word of its own: the user learns of it here.
    if (status == Qxad::eOk) api::printText(L"Opened drawing " + std::wstring(path) + L".\n");
    return status;
  }
  // A new drawing becomes the current one, as if the user had made it.
  Qxad::ErrorStatus appContextNewDocument(const wchar_t* templatePath) override {
    if (!templatePath || !*templatePath) return added(dxf::createNewDrawing(), "", true);
    dxf::ReadResult result = dxf::readFile(api::toUtf8(templatePath));
    if (!result.ok()) return Qxad::eFileNotFound;
    return added(std::move(result.database), "", true);
  }
  Qxad::ErrorStatus closeDocument(QxApDocument* document) override {
    api::Document* target = documentOf(document);
    if (!target) return Qxad::eInvalidInput;
    api::DocumentList& documents = api::DocumentList::instance();
    api::Document* current = documents.current();
    documents.setCurrent(target);
    drawingClosing();
    documents.setCurrent(current == target ? nullptr : current);
    documents.close(target);
    return Qxad::eOk;
  }

  void executeInApplicationContext(void (*function)(void*), void* data) override {
    if (!function) return;
    if (cmd::Processor::instance().commandDepth() == 0) {
      function(data);
    } else {
      deferredWork().emplace_back(function, data);
    }
  }

  void pushResourceHandle(void* resourceHandle) override {
    resourceHandles_.push_back(resourceHandle);
  }
  void popResourceHandle() override {
    if (!resourceHandles_.empty()) resourceHandles_.pop_back();
  }
  void* currentResourceHandle() const override {
    return resourceHandles_.empty() ? nullptr : resourceHandles_.back();
  }

 private:
  QxApDocument* viewOf(api::Document* document) const {
    if (!document) return nullptr;
    forgetClosed();
    auto& view = views_[document->serial()];
    if (!view) view = std::make_unique<DocumentView>(document->serial());
    return view.get();
  }
  api::Document* documentOf(QxApDocument* document) const {
    for (const auto& [serial, view] : views_) {
      if (view.get() == document) return view->find();
    }
    return nullptr;
  }
  void forgetClosed() const {
    std::erase_if(views_, [](const auto& entry) { return !entry.second->find(); });
  }

  Qxad::ErrorStatus added(std::unique_ptr<db::Database> database, std::string path,
                          bool makeCurrent) {
    if (!database) return Qxad::eBadDxfFile;
    api::DocumentList& documents = api::DocumentList::instance();
    api::Document* previous = documents.current();
    const std::uint64_t previousSerial = previous ? previous->serial() : 0;
    const std::uint64_t addedSerial =
        documents.add(std::move(database), std::move(path), true).serial();
    // Modules are told with the new drawing current, as when it is opened by the user.
    drawingOpened();
    api::Document* current = makeCurrent ? nullptr : documents.bySerial(previousSerial);
    if (!current) current = documents.bySerial(addedSerial);
    if (current) documents.setCurrent(current);
    return Qxad::eOk;
  }

  mutable std::map<std::uint64_t, std::unique_ptr<DocumentView>> views_;
  std::vector<void*> resourceHandles_;
};

}  // namespace

void runApplicationContextQueue() {
  while (!deferredWork().empty()) {
    Deferred next = deferredWork().front();
    deferredWork().pop_front();
    next.first(next.second);
  }
}

}  // namespace korva::rt

QxApDocManager* qxDocManagerPtr() {
  static korva::rt::DocumentManager manager;
  return &manager;
}
