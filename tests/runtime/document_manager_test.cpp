// The document manager modules see, work deferred to the application context, resource
// handles, and the crash recorder.
#include <filesystem>

#include "api/document.h"
#include "api/utf8.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "dxf/writer.h"
#include "qx_db_database.h"
#include "qx_print.h"
#include "qx_runtime.h"
#include "rt/modules.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

using DocumentManagerTest = ScriptTest;

std::filesystem::path savedNewDrawing(const char* name) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
  auto database = dxf::createNewDrawing();
  EXPECT_TRUE(dxf::writeFile(*database, path.string()).ok);
  return path;
}

TEST_F(DocumentManagerTest, DocumentsAreViewsOfTheOpenDrawings) {
  QxApDocManager* manager = qxDocManagerPtr();
  ASSERT_EQ(manager->documentCount(), 1);
  QxApDocument* current = manager->curDocument();
  ASSERT_NE(current, nullptr);
  EXPECT_EQ(manager->mdiActiveDocument(), current);
  EXPECT_EQ(manager->documentAt(0), current);
  EXPECT_EQ(manager->documentAt(1), nullptr);
  EXPECT_STREQ(current->fileName(), L"");
  EXPECT_STREQ(current->docTitle(), L"Drawing1.dxf");
  EXPECT_EQ(current->database()->serial(),
            api::DocumentList::instance().current()->database().serial());
  api::DocumentList::instance().current()->setPath("/plans/site.dxf");
  EXPECT_STREQ(current->fileName(), L"/plans/site.dxf");
  EXPECT_STREQ(current->docTitle(), L"site.dxf");
}

TEST_F(DocumentManagerTest, OpeningADrawingKeepsTheCurrentOneAndTellsTheModules) {
  std::string error;
  ASSERT_TRUE(rt::loadModule("test_recorder", error));
  newOutput();
  QxApDocManager* manager = qxDocManagerPtr();
  QxApDocument* first = manager->curDocument();
  const std::filesystem::path path = savedNewDrawing("korva_runtime_second.dxf");
  ASSERT_EQ(manager->appContextOpenDocument(api::fromUtf8(path.string()).c_str()), Qxad::eOk);
  // The module is told, and the user is told once, by the host.
  EXPECT_EQ(newOutput(), "[recorder 3]\nOpened drawing " + path.string() + ".\n");
  EXPECT_EQ(manager->documentCount(), 2);
  EXPECT_EQ(manager->curDocument(), first);
  QxApDocument* second = manager->documentAt(1);
  EXPECT_STREQ(second->docTitle(), L"korva_runtime_second.dxf");
  EXPECT_NE(second->database(), first->database());

  EXPECT_EQ(manager->setCurDocument(second), Qxad::eOk);
  EXPECT_EQ(manager->curDocument(), second);
  EXPECT_EQ(manager->closeDocument(second), Qxad::eOk);
  EXPECT_EQ(newOutput(), "[recorder 4]\n");
  EXPECT_EQ(manager->documentCount(), 1);
  EXPECT_EQ(manager->curDocument(), first);
  EXPECT_EQ(manager->closeDocument(second), Qxad::eInvalidInput);
  std::filesystem::remove(path);

  EXPECT_EQ(manager->appContextOpenDocument(L"/no/such/drawing.dxf"), Qxad::eFileNotFound);
  EXPECT_EQ(newOutput(), "");
  EXPECT_EQ(manager->appContextNewDocument(), Qxad::eOk);
  EXPECT_EQ(manager->documentCount(), 2);
  EXPECT_NE(manager->curDocument(), first);  // a new drawing becomes current
}

int deferredRuns = 0;
void countRun(void* data) {
  deferredRuns += *static_cast<int*>(data);
}

TEST_F(DocumentManagerTest, ApplicationContextWorkRunsAtOnceOutsideCommands) {
  deferredRuns = 0;
  int step = 2;
  qxDocManagerPtr()->executeInApplicationContext(countRun, &step);
  EXPECT_EQ(deferredRuns, 2);
  qxDocManagerPtr()->executeInApplicationContext(nullptr, &step);
  rt::runApplicationContextQueue();
  EXPECT_EQ(deferredRuns, 2);
}

void deferringCommand() {
  static int step = 5;
  qxDocManagerPtr()->executeInApplicationContext(countRun, &step);
  qxutPrintf(L"%d runs during the command\n", deferredRuns);
  qxutPrintf(L"opening %s\n", qxDocManagerPtr()->isDocumentOpeningBlocked() ? L"blocked" : L"free");
}

TEST_F(DocumentManagerTest, WorkHandedOverDuringACommandRunsAfterIt) {
  static const bool registered =
      (cmd::Processor::instance().addHostCommand(L"DEFERRER", deferringCommand), true);
  (void)registered;
  deferredRuns = 0;
  EXPECT_FALSE(qxDocManagerPtr()->isDocumentOpeningBlocked());
  runScript("DEFERRER\n");
  EXPECT_NE(transcript().find("0 runs during the command\nopening blocked\n"), std::string::npos)
      << transcript();
  EXPECT_EQ(deferredRuns, 5);
  EXPECT_FALSE(qxDocManagerPtr()->isDocumentOpeningBlocked());
}

TEST_F(DocumentManagerTest, ResourceHandlesStack) {
  QxApDocManager* manager = qxDocManagerPtr();
  int first = 0;
  int second = 0;
  EXPECT_EQ(manager->currentResourceHandle(), nullptr);
  manager->pushResourceHandle(&first);
  manager->pushResourceHandle(&second);
  EXPECT_EQ(manager->currentResourceHandle(), &second);
  manager->popResourceHandle();
  EXPECT_EQ(manager->currentResourceHandle(), &first);
  manager->popResourceHandle();
  manager->popResourceHandle();  // one too many is harmless
  EXPECT_EQ(manager->currentResourceHandle(), nullptr);
}

TEST_F(DocumentManagerTest, TheCrashRecorderKeepsWhatItIsToldAndPrintsNothing) {
  QxCrashRecorder* recorder = qxadGetCrashRecorder();
  ASSERT_NE(recorder, nullptr);
  int thrown = 0;
  recorder->record(&thrown, L"VN_IRELEASE_THROW");
  recorder->record(nullptr, nullptr);
  EXPECT_EQ(rt::recordedCrashes(), (std::vector<std::wstring>{L"VN_IRELEASE_THROW", L""}));
  EXPECT_EQ(transcript(), "");
  rt::clearRecordedCrashes();
  EXPECT_TRUE(rt::recordedCrashes().empty());
}

}  // namespace
}  // namespace korva::test
