// Reading: what strict mode refuses and says, what recovering keeps, what is warned about.
#include <gtest/gtest.h>

#include <algorithm>

#include "db/value_text.h"
#include "dxf/binary_format.h"
#include "dxf/reader.h"
#include "dxf/writer.h"
#include "sample_drawing.h"

namespace korva {
namespace {

using db::Handle;

std::string replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string out(text);
  size_t at = out.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) out.replace(at, from.size(), to);
  return out;
}

// The 1-based line on which `needle` first starts, at or after `from`.
size_t lineOf(std::string_view text, std::string_view needle, size_t from = 0) {
  size_t at = text.find(needle, from);
  EXPECT_NE(at, std::string_view::npos) << needle;
  return 1 + static_cast<size_t>(std::count(text.begin(), text.begin() + at, '\n'));
}

std::string strictError(std::string text) {
  dxf::ReadResult result = dxf::readBuffer(std::move(text));
  EXPECT_FALSE(result.ok());
  EXPECT_TRUE(result.warnings.empty());
  return result.error;
}

constexpr std::string_view kEntitiesStart = "  0\nSECTION\n  2\nENTITIES\n";

TEST(StrictReading, NonNumericGroupCode) {
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "abc\nLINE\n"),
            "line 5: group code expected, found 'abc'");
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n 1 0\n1.0\n"),
            "line 7: group code expected, found ' 1 0'");
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n5000\nx\n"),
            "line 7: group code out of range, found '5000'");
}

TEST(StrictReading, ValueMissingAtEndOfFile) {
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n 10"),
            "line 8: value expected for group code 10, found end of file");
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\r\n"),
            "line 6: value expected for group code 0, found end of file");
}

TEST(StrictReading, RealAndIntegerExpected) {
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n 10\n1.5x\n"),
            "line 8: real number expected for group code 10, found '1.5x'");
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n 20\n\n"),
            "line 8: real number expected for group code 20, found ''");
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n 62\n1.0\n"),
            "line 8: integer expected for group code 62, found '1.0'");
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n 70\nseven\n"),
            "line 8: integer expected for group code 70, found 'seven'");
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n  5\nXYZ\n"),
            "line 8: handle expected for group code 5, found 'XYZ'");
}

TEST(StrictReading, SampleErrorsNameTheirLine) {
  std::string text = replaced(test::kSampleDrawing, " 10\n1.50\n", " 10\n1.5.0\n");
  EXPECT_EQ(strictError(text), "line " + std::to_string(lineOf(text, "1.5.0")) +
                                   ": real number expected for group code 10, found '1.5.0'");
}

TEST(StrictReading, MissingEndMarkers) {
  std::string noEndsec = replaced(test::kSampleDrawing, "5.0\n  0\nENDSEC\n", "5.0\n");
  EXPECT_EQ(strictError(noEndsec),
            "line " + std::to_string(lineOf(noEndsec, "  0\nSECTION\n  2\nOBJECTS")) +
                ": ENDSEC expected in section ENTITIES, found SECTION");
  std::string noLastEndsec = replaced(test::kSampleDrawing, "  0\nENDSEC\n  0\nEOF", "  0\nEOF");
  EXPECT_EQ(strictError(noLastEndsec), "line " + std::to_string(lineOf(noLastEndsec, "  0\nEOF")) +
                                           ": ENDSEC expected in section OBJECTS, found EOF");
  std::string noEndtab =
      replaced(test::kSampleDrawing, "Continuous\n  0\nENDTAB\n", "Continuous\n");
  EXPECT_EQ(strictError(noEndtab),
            "line " + std::to_string(lineOf(noEndtab, "  0\nTABLE\n  2\nBLOCK_RECORD")) +
                ": ENDTAB expected, found 'TABLE'");
  std::string noEndblk = replaced(test::kSampleDrawing, "  0\nENDBLK\n", "  0\nLINE\n");
  EXPECT_EQ(strictError(noEndblk),
            "line " +
                std::to_string(lineOf(noEndblk, "  0\nENDSEC", noEndblk.find("AcDbBlockEnd"))) +
                ": ENDBLK expected, found 'ENDSEC'");
  EXPECT_EQ(strictError(std::string(kEntitiesStart) + "  0\nLINE\n  8\n0\n"),
            "line 8: ENDSEC expected in section ENTITIES, found end of file");
}

TEST(StrictReading, NoDrawingBeforeTheFirstSection) {
  EXPECT_EQ(strictError("hello\n  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n"),
            "line 1: group code expected, found 'hello'");
  EXPECT_EQ(strictError("  0\nLINE\n  8\n0\n" + std::string(kEntitiesStart)),
            "line 1: SECTION expected, found 'LINE'");
  EXPECT_EQ(strictError(""), "not a DXF file: no SECTION found");
  EXPECT_EQ(strictError("\n\n  \n"), "not a DXF file: no SECTION found");
  EXPECT_EQ(strictError("999\njust a comment\n"), "not a DXF file: no SECTION found");
}

TEST(StrictReading, BinaryCutOff) {
  std::string binary(dxf::kBinarySentinel);
  dxf::appendBinaryGroup(binary, 0, "SECTION", false);
  dxf::appendBinaryGroup(binary, 2, "ENTITIES", false);
  dxf::appendBinaryGroup(binary, 0, "LINE", false);
  size_t realAt = binary.size();
  dxf::appendBinaryGroup(binary, 10, "1.5", false);
  EXPECT_EQ(strictError(binary.substr(0, binary.size() - 3)),
            "byte " + std::to_string(realAt) +
                ": the value of group code 10 is cut off by the end of the file");
  EXPECT_EQ(strictError(binary.substr(0, realAt + 1)),
            "byte " + std::to_string(realAt) + ": group code cut off by the end of the file");
  EXPECT_EQ(strictError(binary.substr(0, realAt - 2)),
            "byte " + std::to_string(realAt - 7) +
                ": the value of group code 0 is cut off by the end of the file");
  // Cut between groups: the text form of the binary file lacks its ENDSEC.
  EXPECT_EQ(strictError(binary), "line 8: ENDSEC expected in section ENTITIES, found end of file");
}

TEST(RecoverReading, ReadsTheRestAndListsWhatItDropped) {
  std::string text = replaced(test::kSampleDrawing, " 10\n1.50\n", " 10\nbad\nzz\n");
  text = replaced(text, "AcDbDictionary\n", "AcDbDictionary\n 1x\n");
  dxf::ReadResult result = dxf::readBuffer(text, {.recover = true});
  ASSERT_TRUE(result.ok()) << result.error;
  ASSERT_EQ(result.dropped.size(), 2u);
  EXPECT_EQ(dxf::describe(result.dropped[0]),
            "line " + std::to_string(lineOf(text, "bad")) +
                ": real number expected for group code 10, found 'bad'; the LINE record of line " +
                std::to_string(lineOf(text, "  0\nLINE")) + " is left out");
  EXPECT_EQ(dxf::describe(result.dropped[1]),
            "line " + std::to_string(lineOf(text, " 1x")) +
                ": group code expected, found ' 1x'; the DICTIONARY record of line " +
                std::to_string(lineOf(text, "  0\nDICTIONARY")) + " is left out");
  EXPECT_EQ(result.database->lookup(0x30), nullptr);
  ASSERT_NE(result.database->lookup(0x31), nullptr);
  EXPECT_EQ(result.database->entities()->size(), 1u);
  EXPECT_EQ(result.database->objects()->size(), 0u);
  // What was kept is a drawing that reads strictly.
  dxf::ReadResult again = dxf::readBuffer(dxf::writeToString(*result.database));
  EXPECT_TRUE(again.ok()) << again.error;
}

TEST(RecoverReading, ClosesWhatTheFileLeftOpen) {
  std::string text = replaced(test::kSampleDrawing, "Continuous\n  0\nENDTAB\n", "Continuous\n");
  text = text.substr(0, text.find("  0\nCIRCLE"));
  dxf::ReadResult result = dxf::readBuffer(text, {.recover = true});
  ASSERT_TRUE(result.ok()) << result.error;
  ASSERT_EQ(result.dropped.size(), 2u);
  EXPECT_NE(result.dropped[0].message.find("ENDTAB expected"), std::string::npos);
  EXPECT_NE(
      result.dropped[1].message.find("ENDSEC expected in section ENTITIES, found end of file"),
      std::string::npos);
  ASSERT_NE(result.database->lookup(0x30), nullptr);
  std::string written = dxf::writeToString(*result.database);
  EXPECT_TRUE(written.ends_with("  0\nENDSEC\n  0\nEOF\n")) << written;
  EXPECT_TRUE(dxf::readBuffer(written).ok());
}

TEST(RecoverReading, StillFailsWithoutAnySection) {
  dxf::ReadResult result = dxf::readBuffer("junk\nmore junk\n", {.recover = true});
  EXPECT_FALSE(result.ok());
  EXPECT_EQ(result.error, "not a DXF file: no SECTION found");
}

TEST(Warnings, PointersToMissingHandles) {
  std::string text = replaced(test::kSampleDrawing, "330\n32\n", "330\nBEEF\n");
  dxf::ReadResult result = dxf::readBuffer(text);
  ASSERT_TRUE(result.ok()) << result.error;
  ASSERT_EQ(result.warnings.size(), 1u);
  EXPECT_EQ(dxf::describe(result.warnings[0]), "line " + std::to_string(lineOf(text, "BEEF")) +
                                                   ": group 330 points to missing handle BEEF");
  EXPECT_TRUE(dxf::readBuffer(std::string(test::kSampleDrawing)).warnings.empty());
}

TEST(Warnings, DuplicateHandleGetsANewOne) {
  std::string text = replaced(test::kSampleDrawing, "CIRCLE\n  5\n31\n", "CIRCLE\n  5\n30\n");
  dxf::ReadResult result = dxf::readBuffer(text);
  ASSERT_TRUE(result.ok()) << result.error;
  ASSERT_EQ(result.warnings.size(), 1u);
  EXPECT_EQ(result.warnings[0].message,
            "handle 30 of a CIRCLE is used twice; the second record gets a new handle");
  db::Database& database = *result.database;
  EXPECT_EQ(database.lookup(0x30)->type(), "LINE");
  db::Record* circle = database.entities()->at(1);
  EXPECT_EQ(circle->handle(), Handle{0x40});
  EXPECT_EQ(circle->find(5), "40");
  EXPECT_EQ(database.lookup(0x40), circle);
  EXPECT_EQ(database.handleSeed(), Handle{0x41});
  // The file gets the new handle and a seed above it.
  dxf::ReadResult again = dxf::readBuffer(dxf::writeToString(database));
  ASSERT_TRUE(again.ok());
  EXPECT_TRUE(again.warnings.empty());
  EXPECT_EQ(again.database->lookup(0x40)->type(), "CIRCLE");
  EXPECT_EQ(again.database->headerValue("$HANDSEED"), "41");
}

TEST(Warnings, HandleSeedIsRaisedAboveTheLargestHandle) {
  std::string text = replaced(test::kSampleDrawing, "$HANDSEED\n  5\n40\n", "$HANDSEED\n  5\n31\n");
  dxf::ReadResult result = dxf::readBuffer(text);
  ASSERT_TRUE(result.ok()) << result.error;
  ASSERT_EQ(result.warnings.size(), 1u);
  EXPECT_EQ(result.warnings[0].message,
            "$HANDSEED 31 is not above the largest handle 32; it is raised");
  EXPECT_EQ(result.database->handleSeed(), Handle{0x33});
  db::Record* added = result.database->addEntity({{100, "AcDbEntity"}, {8, "0"}}, "POINT");
  EXPECT_EQ(added->handle(), Handle{0x33});
  EXPECT_EQ(added->owner(), Handle{0x1F});
  dxf::ReadResult again = dxf::readBuffer(dxf::writeToString(*result.database));
  ASSERT_TRUE(again.ok());
  EXPECT_TRUE(again.warnings.empty());
  EXPECT_EQ(again.database->headerValue("$HANDSEED"), "34");
}

TEST(Reading, R12WithoutHandlesGetsUnwrittenHandles) {
  std::string text =
      "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1009\n  0\nENDSEC\n"
      "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n 10\n0.0\n  0\nPOINT\n  8\n0\n"
      "  0\nENDSEC\n  0\nEOF\n";
  dxf::ReadResult result = dxf::readBuffer(text);
  ASSERT_TRUE(result.ok()) << result.error;
  EXPECT_TRUE(result.warnings.empty());
  std::vector<db::Record*>& entities = *result.database->entities();
  ASSERT_EQ(entities.size(), 2u);
  EXPECT_NE(entities[0]->handle(), db::kNoHandle);
  EXPECT_NE(entities[0]->handle(), entities[1]->handle());
  EXPECT_TRUE(entities[0]->hasFlag(db::Record::kHandleNotInFile));
  EXPECT_EQ(result.database->lookup(entities[1]->handle()), entities[1]);
  // An edit must not put a handle into a file that has none.
  entities[0]->assign({{8, "0"}, {10, "1.0"}});
  std::string written = dxf::writeToString(*result.database);
  EXPECT_EQ(written.find("  5\n"), std::string::npos) << written;
}

TEST(ErasedRecords, StayUntilSavedThenLeave) {
  dxf::ReadResult result = dxf::readBuffer(std::string(test::kSampleDrawing));
  ASSERT_TRUE(result.ok());
  db::Database& database = *result.database;
  db::Record* line = database.lookup(0x30);
  database.setErased(*line, true);
  EXPECT_TRUE(line->isErased());
  EXPECT_EQ(database.lookup(0x30), line);
  EXPECT_EQ(database.entities()->size(), 2u);
  std::string written = dxf::writeToString(database);
  EXPECT_EQ(written.find("LINE"), std::string::npos);
  // Brought back before the save: written as read.
  database.setErased(*line, false);
  EXPECT_NE(dxf::writeToString(database).find(line->sourceText()), std::string::npos);
  database.setErased(*line, true);
  database.dropErased();
  EXPECT_EQ(database.lookup(0x30), nullptr);
  ASSERT_EQ(database.entities()->size(), 1u);
  EXPECT_EQ(database.entities()->front()->type(), "CIRCLE");
  EXPECT_EQ(database.lookup(0x31), database.entities()->front());
}

TEST(ErasedRecords, ErasedBlockTakesItsEntitiesAlong) {
  dxf::ReadResult result = dxf::readBuffer(std::string(test::kSampleDrawing));
  ASSERT_TRUE(result.ok());
  db::Database& database = *result.database;
  db::BlockDefinition* block = database.addBlock("DOOR");
  ASSERT_NE(block, nullptr);
  db::Record* inBlock = database.addEntity({{100, "AcDbEntity"}, {8, "0"}}, "POINT", block);
  Handle pointHandle = inBlock->handle();
  Handle beginHandle = block->begin->handle();
  EXPECT_EQ(inBlock->owner(), block->begin->owner());
  database.setErased(*block->begin, true);
  EXPECT_EQ(dxf::writeToString(database).find("DOOR\n  0\nPOINT"), std::string::npos);
  database.dropErased();
  EXPECT_EQ(database.lookup(pointHandle), nullptr);
  EXPECT_EQ(database.lookup(beginHandle), nullptr);
  EXPECT_EQ(database.block("DOOR"), nullptr);
  EXPECT_NE(database.block("*model_space"), nullptr);
}

}  // namespace
}  // namespace korva
