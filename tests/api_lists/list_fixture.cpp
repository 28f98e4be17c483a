#include "list_fixture.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "dxf/new_drawing.h"
#include "dxf/writer.h"

namespace korva::test {

ResultBuffer* List::find(int code, int occurrence) const {
  for (ResultBuffer* node = head; node; node = node->next) {
    if (node->type == code && occurrence-- == 0) return node;
  }
  return nullptr;
}

std::wstring List::string(int code) const {
  ResultBuffer* node = find(code);
  return node && node->value.rstring ? node->value.rstring : L"<none>";
}

const double* List::point(int code) const {
  ResultBuffer* node = find(code);
  return node ? node->value.rpoint : nullptr;
}

std::vector<int> List::codes() const {
  std::vector<int> codes;
  for (ResultBuffer* node = head; node; node = node->next) codes.push_back(node->type);
  return codes;
}

void DrawingTest::SetUp() {
  document_ = &api::DocumentList::instance().add(dxf::createNewDrawing(), "test.dxf", true);
}

void DrawingTest::TearDown() {
  qxdbEntMake(nullptr);
  api::DocumentList::instance().close(document_);
}

void DrawingTest::make(ResultBuffer* list) {
  ASSERT_NE(list, nullptr);
  int status = qxdbEntMake(list);
  qxutRelRb(list);
  ASSERT_EQ(status, RTNORM);
}

db::Record& DrawingTest::last() {
  EntityName name;
  EXPECT_EQ(qxdbEntLast(name), RTNORM);
  return *api::recordOf(name);
}

namespace {

std::string saveAndRun(db::Database& database, const std::string& name, const char* script) {
  std::filesystem::path directory = std::filesystem::temp_directory_path() / "korva_api_lists";
  std::filesystem::create_directories(directory);
  std::string path = (directory / name).string();
  dxf::WriteResult written = dxf::writeFile(database, path);
  if (!written.ok) return "save failed: " + written.error;
  std::string command = std::string(KORVA_PYTHON) + " " + script + " " + path + " 2>&1";
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return "could not run the audit";
  char buffer[512];
  while (fgets(buffer, sizeof buffer, pipe)) output += buffer;
  int status = pclose(pipe);
  return status == 0 ? std::string() : output.empty() ? "check failed" : output;
}

}  // namespace

std::string saveAndAudit(db::Database& database, const std::string& name) {
  return saveAndRun(database, name, AUDIT_SCRIPT);
}

std::string saveAndCheckNames(db::Database& database, const std::string& name) {
  return saveAndRun(database, name, NAMES_SCRIPT);
}

void setString(ResultBuffer* list, int code, const wchar_t* text) {
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type != code) continue;
    qxad_free(node->value.rstring);
    node->value.rstring = qxutNewString(text);
    return;
  }
}

ResultBuffer* appendNode(ResultBuffer* list, int type) {
  while (list->next) list = list->next;
  list->next = qxutNewRb(type);
  return list->next;
}

}  // namespace korva::test
