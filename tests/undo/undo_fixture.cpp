#include "undo_fixture.h"

#include "db/handle.h"
#include "dxf/new_drawing.h"
#include "dxf/reader.h"
#include "dxf/writer.h"

namespace korva::test {

void ReadDrawing::SetUp() {
  std::unique_ptr<db::Database> made = dxf::createNewDrawing();
  for (int index = 0; index < 2; ++index) {
    std::string x = std::to_string(index * 10);
    db::Record* record = made->addEntity({{100, "AcDbEntity"},
                                          {8, "0"},
                                          {100, "AcDbLine"},
                                          {10, x},
                                          {20, "0.0"},
                                          {30, "0.0"},
                                          {11, x},
                                          {21, "5.0"},
                                          {31, "0.0"}},
                                         "LINE");
    lineHandles[index] = record->handle();
  }
  dxf::ReadResult read = dxf::readBuffer(dxf::writeToString(*made));
  ASSERT_TRUE(read.ok()) << read.error;
  database_ = std::move(read.database);
}

db::Record& ReadDrawing::line(int index) {
  db::Record* record = database_->lookup(lineHandles[index]);
  EXPECT_NE(record, nullptr);
  return *record;
}

std::string ReadDrawing::written() const {
  return dxf::writeToString(*database_);
}

void CurrentDocument::SetUp() {
  document_ = &api::DocumentList::instance().add(dxf::createNewDrawing(), "/tmp/undo.dxf");
}

void CurrentDocument::TearDown() {
  api::DocumentList::instance().close(document_);
}

std::string_view sectionOf(std::string_view file, std::string_view name) {
  std::string marker = "\n" + std::string(name) + "\n";
  size_t start = file.find(marker);
  if (start == std::string_view::npos) return {};
  size_t end = file.find("ENDSEC", start);
  return file.substr(start, end - start);
}

bool holdsHandle(std::string_view file, db::Handle handle) {
  // After the header, whose $HANDSEED is written with the same group code.
  size_t records = file.find("ENDSEC");
  std::string line = "\n  5\n" + db::formatHandle(handle) + "\n";
  return file.find(line, records) != std::string_view::npos;
}

}  // namespace korva::test
